// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <iosfwd>
#include <string>

#include "platform/Clock.h"

namespace cli {

/// What a run of the program works with from outside.
struct Environment {
  std::ostream& out;  // results
  std::ostream& err;  // complaints and the communication trace
  platform::Clock& clock;
  std::function<void()> watchInterrupts;  // called before a device is touched
  std::function<bool()> isInterrupted;
};

/// The options that every command takes.
struct CommonOptions {
  bool quiet = false;   // no log lines on standard output
  bool trace = false;   // the communication trace on standard error
  std::string logFile;  // appended to; empty for none
};

/// A run of one command.
struct Invocation {
  Environment& environment;
  CommonOptions options;
};

}  // namespace cli
