// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace cli {

/// The program's exit statuses, for scripts that call it.
enum ExitStatus {
  Done = 0,
  DeviceFailed = 1,  // a device refused or could not be reached
  WrongUsage = 2,
  FileFailed = 3,  // a file could not be read or written
  NothingFound = 4,
  NotUnique = 5,  // more than one device fits; kept for devices that are named otherwise than today
  NoAccess = 6,   // no permission, or in use by another program
  Interrupted = 130,
};

/// Ends a command with a sentence for the user.
class CommandError : public std::runtime_error {
 public:
  CommandError(ExitStatus status, const std::string& sentence)
      : std::runtime_error(sentence), status_(status) {}
  ExitStatus Status() const { return status_; }

 private:
  ExitStatus status_;
};

}  // namespace cli
