// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "ui/Dialogs.h"
#include "ui/View.h"

namespace test {

/// A user who answers what the test says, and otherwise cancels.
class FakeDialogs : public UX::Dialogs {
 public:
  std::optional<std::string> path;  // of the next file
  UX::Answer answer = UX::Answer::Cancel;
  std::optional<std::string> typed;  // the first value, name or text of the next dialog
  std::string typedSecond;           // the second
  std::vector<std::string> seen;     // what the user was asked and told: "caption: text"
  std::optional<platform::SYSTEMTIME> time;

  std::optional<std::string> PathToOpen(UX::FileKind) override { return path; }
  std::optional<std::string> PathToSave(UX::FileKind, const std::string& name) override {
    seen.push_back("save: " + name);
    return path;
  }
  UX::Answer Ask(const UX::Question& question) override {
    seen.push_back(question.caption + ": " + question.text);
    return answer;
  }
  void Tell(const std::string& caption, const std::string& text) override {
    seen.push_back(caption + ": " + text);
  }
  bool EditValue(UX::ValueRequest& request) override {
    seen.push_back(request.title + ": " + request.value);
    return Type(request.value, request.secondValue);
  }
  bool EditModeName(UX::ModeNameRequest& request) override {
    seen.push_back(request.title + ": " + request.name);
    return Type(request.name, request.description) && IsTaken(request);
  }
  bool EditSteps(UX::StepsRequest& request) override {
    seen.push_back(request.title + ": " + request.text);
    std::string ignored;
    return Type(request.text, ignored) && IsTaken(request);
  }
  bool EditDateTime(platform::SYSTEMTIME& edited) override {
    if (time) edited = *time;
    return time.has_value();
  }
  void ShowAbout() override { seen.push_back("about"); }
  void RunWiFiWizard() override { seen.push_back("wizard"); }

 private:
  bool Type(std::string& first, std::string& second) {
    if (!typed) return false;
    first = *typed;
    second = typedSecond;
    return true;
  }
  template <typename Request>
  bool IsTaken(const Request& request) {
    const std::string fault = request.fault ? request.fault(request) : "";
    if (!fault.empty()) seen.push_back(fault);
    return fault.empty();
  }
};

/// A window that keeps what it is asked for.
class FakeView : public UX::View {
 public:
  int retranslations = 0;
  bool isCaptured = false, isClosed = false, isFree = true;

  void CaptureMouse(bool on) override { isCaptured = on; }
  void Refresh() override {}
  void Retranslate() override { ++retranslations; }
  bool IsFree() const override { return isFree; }
  void Close() override { isClosed = true; }
};

}  // namespace test
