// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "model/Step.h"
#include "platform/SystemTime.h"

/// What the commands ask the user. All texts are UTF-8 and in the user's language already.
namespace UX {

enum class FileKind { Program, TMF, LMF, RAW, Translation };

enum class Answer { Yes, No, Cancel };

struct Question {
  std::string caption, text;
  bool hasCancel = false;      // Yes and No, and Cancel where it is set
  Answer usual = Answer::Yes;  // the button that Enter presses
};

/// One value to edit, or two.
struct ValueRequest {
  std::string title, label, value;
  std::size_t mostCharacters = 0;  // 0: no limit
  std::string secondLabel;         // empty: there is no second value
  std::string secondValue;
  bool isNumber = false;  // only digits can be typed
};

struct ModeNameRequest {
  std::string title, name, description;
  /// Why what was entered cannot be taken, or nothing; the dialog says it and stays. May be missing.
  std::function<std::string(const ModeNameRequest&)> fault = {};
};

struct StepsRequest {
  std::string title;
  std::string text;  // steps, one a line
  /// As in ModeNameRequest.
  std::function<std::string(const StepsRequest&)> fault = {};
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  /// The path of a file; nothing when the user cancelled.
  virtual std::optional<std::string> PathToOpen(FileKind kind) = 0;
  virtual std::optional<std::string> PathToSave(FileKind kind, const std::string& name) = 0;
  virtual Answer Ask(const Question& question) = 0;
  virtual void Tell(const std::string& caption, const std::string& text) = 0;
  /// These let the user edit what is in the request; false when the user cancelled.
  virtual bool EditValue(ValueRequest& request) = 0;
  virtual bool EditModeName(ModeNameRequest& request) = 0;
  virtual bool EditSteps(StepsRequest& request) = 0;
  /// In: what is shown first.
  virtual bool EditDateTime(platform::SYSTEMTIME& time) = 0;
  virtual void ShowAbout() = 0;
  virtual void RunWiFiWizard() = 0;
};

}  // namespace UX
