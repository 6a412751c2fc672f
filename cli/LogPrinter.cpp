// SPDX-License-Identifier: MIT
#include "cli/LogPrinter.h"

#include <cerrno>
#include <filesystem>
#include <ostream>

#include "cli/ExitStatus.h"
#include "platform/SystemError.h"

namespace cli {
namespace {

qor::TimeOfDay TimeOfDayOf(platform::Clock& clock) {
  const platform::SYSTEMTIME now = clock.LocalTime();
  return {now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

std::string DateAndTime(platform::Clock& clock) {
  const platform::SYSTEMTIME now = clock.LocalTime();
  return qor::Format(
      "{1}-{2}-{3} {4}:{5}:{6}",
      {qor::ZeroFilled(now.wYear, 4), qor::ZeroFilled(now.wMonth, 2), qor::ZeroFilled(now.wDay, 2),
       qor::ZeroFilled(now.wHour, 2), qor::ZeroFilled(now.wMinute, 2), qor::ZeroFilled(now.wSecond, 2)});
}

}  // namespace

LogPrinter::LogPrinter(const Invocation& invocation)
    : invocation_(invocation), log_([&clock = invocation.environment.clock] { return TimeOfDayOf(clock); }) {
  if (!invocation.options.logFile.empty()) OpenFile(invocation.options.logFile);
  log_.SetTracing(invocation.options.trace);
  log_.OnLine([this] { Print(); });
}

void LogPrinter::OpenFile(const std::string& path) {
  errno = 0;
  file_.open(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::app);
  if (!file_) {
    throw CommandError(FileFailed, qor::Format("Error creating file {1}, error: {2}",
                                               {path, platform::RuntimeErrorText(errno)}));
  }
  file_ << "--- " << DateAndTime(invocation_.environment.clock) << std::endl;
}

void LogPrinter::Print() {
  const std::lock_guard lock(mutex_);
  for (const qor::Log::Line& line : log_.TakeLines()) {
    const char* lineEnd = line.text.ends_with('\n') ? "" : "\n";
    const bool isTrace = line.kind == qor::Log::Kind::Trace;
    std::ostream& target = isTrace ? invocation_.environment.err : invocation_.environment.out;
    if (isTrace || !invocation_.options.quiet) target << line.text << lineEnd << std::flush;
    if (file_.is_open()) file_ << line.text << lineEnd << std::flush;
  }
}

void LogPrinter::Complain(const std::string& sentence) {
  const std::lock_guard lock(mutex_);
  invocation_.environment.err << "halvex: " << sentence << std::endl;
  if (file_.is_open()) file_ << sentence << std::endl;
}

}  // namespace cli
