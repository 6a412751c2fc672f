// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>
#include <mutex>
#include <vector>

#include "QorLib/Log.h"
#include "cli/Environment.h"

namespace cli {

/// The text with control characters, which names from a file may hold, as dots: what a terminal may be shown.
std::string Printable(std::string text);

/// The program's log, printed line by line as it comes: messages on standard output, the trace on standard
/// error, both in the log file. Lines may come from any thread.
class LogPrinter {
 public:
  /// Throws CommandError when the log file cannot be opened.
  LogPrinter(Environment& environment, const CommonOptions& options, qor::Translate translate);

  qor::Log& Log() { return log_; }
  /// Prints messages on standard error from now on: standard output is for the command's result alone.
  void KeepStandardOutputFree() { messages_ = &environment_.err; }
  /// Leaves the log file alone from now on.
  void CloseFile();
  /// Prints a complaint on standard error, in the log file as well.
  void Complain(const std::string& sentence);
  /// Complains of the first few of many things of a kind, and says how many there are.
  void WarnOfEach(const std::vector<std::string>& sentences);
  /// Shows a line on standard error, which is a terminal, in the place of the one before; what is printed
  /// meanwhile comes above it. An empty one takes it away.
  void ShowProgress(const std::string& line);

 private:
  void HideProgress();
  void DrawProgress();
  void WriteToFile(const std::string& text);
  void OpenFile(const qor::Translate& translate);
  void Print();

  Environment& environment_;
  CommonOptions options_;
  std::mutex mutex_;  // one line at a time, in the order in which the sink got them
  std::ofstream file_;
  bool isFileBegun_ = false;
  std::ostream* messages_;
  std::string progress_;  // the line that stands there; empty for none
  qor::Log log_;
};

}  // namespace cli
