// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <exception>
#include <string>
#include <utility>

#include "QorLib/Sentence.h"

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
class CommandError : public std::exception {
 public:
  CommandError(ExitStatus status, qor::Sentence sentence)
      : status_(status), sentence_(std::move(sentence)), english_(sentence_.In(qor::InEnglish)) {}
  /// For a text that has no translations.
  template <std::convertible_to<std::string> Text>
  CommandError(ExitStatus status, const Text& text) : CommandError(status, qor::Verbatim(text)) {}

  ExitStatus Status() const { return status_; }
  const qor::Sentence& Sentence() const { return sentence_; }
  const char* what() const noexcept override { return english_.c_str(); }

 private:
  ExitStatus status_;
  qor::Sentence sentence_;
  std::string english_;
};

}  // namespace cli
