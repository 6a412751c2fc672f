// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

#include "formats/Localisation.h"
#include "platform/Clock.h"
#include "platform/Computer.h"
#include "platform/DeviceLock.h"
#include "platform/Network.h"
#include "platform/Terminal.h"

namespace cli {

class LogPrinter;

/// The terminal that the program runs in, as far as there is one.
struct Terminal {
  bool isInput = false;  // questions can be asked
  bool isError = false;  // progress can be shown
  std::function<std::unique_ptr<platform::Keyboard>()> openKeyboard = [] { return nullptr; };
  std::function<std::optional<std::string>()> readHiddenLine = [] { return std::nullopt; };
};

/// What a run of the program works with from outside.
struct Environment {
  std::istream& in;
  std::ostream& out;  // results
  std::ostream& err;  // complaints and the communication trace
  platform::Clock& clock;
  platform::Network& network;
  platform::DeviceLocks& locks;
  /// Given the paths of the controllers that are plugged in.
  std::function<platform::Computer(const std::vector<std::string>&)> lookAtComputer;
  std::string settingsFolder;
  std::function<void()> watchInterrupts;  // called before a device is touched
  std::function<bool()> isInterrupted;
  Terminal terminal;
  /// Has the user edit a file in an editor of choice; false when that failed.
  std::function<bool(const std::string& path)> edit = [](const std::string&) { return false; };
  /// A variable of the user's environment; empty when it is not set.
  std::function<std::string(const char*)> variable = [](const char*) { return std::string(); };
};

/// The options that every command takes.
struct CommonOptions {
  bool quiet = false;    // no log lines on standard output
  bool trace = false;    // the communication trace on standard error
  std::string logFile;   // appended to; empty for none
  std::string language;  // an id; empty for the one of the settings
};

/// A run of one command.
struct Invocation {
  Environment& environment;
  TCBase::Localisation& texts;
  LogPrinter& printer;
  const CommonOptions& options;

  /// A text of the program in the user's language.
  std::string Text(const qor::Sentence& sentence) const { return sentence.In(texts.Translator()); }
};

}  // namespace cli
