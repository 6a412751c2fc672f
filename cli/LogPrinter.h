// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <fstream>
#include <thread>
#include <vector>

#include "QorLib/Log.h"
#include "cli/Environment.h"

namespace cli {

/// The text with control characters, which names from a file may hold, as dots: what a terminal may be shown.
std::string Printable(std::string text);

/// "2026-03-29 12:00:00"
std::string DateAndTimeText(const platform::SYSTEMTIME& time);

/// Prints the program's log: messages on standard output, failures as complaints and the trace on standard
/// error, all in the log file.
/// It belongs to the main thread. Lines that come on it are printed at once; those of other threads wait for
/// the next call of Print, so that a terminal that is held, or a full pipe, never keeps a job from its
/// controller.
class LogPrinter {
 public:
  /// Throws CommandError when the log file cannot be opened.
  LogPrinter(Environment& environment, const CommonOptions& options, qor::Translate translate);

  qor::Log& Log() { return log_; }
  /// Prints the lines that have come.
  void Print();
  /// Prints messages on standard error from now on: standard output is for the command's result alone.
  void KeepStandardOutputFree() { messages_ = &environment_.err; }
  /// Leaves the log file alone from now on.
  void CloseFile();
  /// Prints a line of the command's result on standard output, in the log file as well.
  void PrintResult(const std::string& text);
  /// Prints a complaint on standard error, in the log file as well.
  void Complain(const qor::Sentence& sentence);
  /// For a text that has no translations.
  template <std::convertible_to<std::string> Text>
  void Complain(const Text& text) {
    Complain(qor::Verbatim(text));
  }
  /// Complains of what does not stand in the way.
  void Warn(const qor::Sentence& sentence);
  /// The same of the first few of many things of a kind; says how many more there are.
  void WarnOfEach(const std::vector<qor::Sentence>& sentences);
  /// Shows a line of fewer than 80 characters on standard error, which is a terminal, in the place of the one
  /// before; what is printed meanwhile comes above it. An empty one takes it away.
  void ShowProgress(const std::string& line);

 private:
  void HideProgress();
  void DrawProgress();
  void WriteToFile(const std::string& text);
  void OpenFile();

  Environment& environment_;
  CommonOptions options_;
  qor::Translate translate_;
  std::thread::id thread_ = std::this_thread::get_id();
  std::ofstream file_;
  bool isFileBegun_ = false;
  std::ostream* messages_;
  std::string progress_;  // the line that stands there; empty for none
  qor::Log log_;
};

}  // namespace cli
