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

}  // namespace

std::string DateAndTimeText(const platform::SYSTEMTIME& time) {
  return qor::Format(
      "{1}-{2}-{3} {4}:{5}:{6}",
      {qor::ZeroFilled(time.wYear, 4), qor::ZeroFilled(time.wMonth, 2), qor::ZeroFilled(time.wDay, 2),
       qor::ZeroFilled(time.wHour, 2), qor::ZeroFilled(time.wMinute, 2), qor::ZeroFilled(time.wSecond, 2)});
}

std::string Printable(std::string text) {
  for (char& c : text) {
    if (qor::IsControl(c)) c = '.';
  }
  return text;
}

LogPrinter::LogPrinter(Environment& environment, const CommonOptions& options, qor::Translate translate)
    : environment_(environment),
      options_(options),
      translate_(std::move(translate)),
      messages_(&environment.out),
      log_([&clock = environment.clock] { return TimeOfDayOf(clock); }) {
  if (!options_.logFile.empty()) OpenFile();
  log_.SetTranslation(translate_);
  log_.SetTracing(options_.trace);
  log_.OnLine([this] {
    if (std::this_thread::get_id() == thread_) Print();
  });
}

void LogPrinter::OpenFile() {
  const std::string& path = options_.logFile;
  errno = 0;
  file_.open(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::app);
  if (!file_) {
    throw CommandError(
        FileFailed, {TR("Error creating file {1}, error: {2}"), {path, platform::RuntimeErrorText(errno)}});
  }
}

void LogPrinter::CloseFile() {
  file_.close();
}

void LogPrinter::Print() {
  const std::vector<qor::Log::Line> lines = log_.TakeLines();
  if (lines.empty()) return;
  HideProgress();
  for (const qor::Log::Line& line : lines) {
    const bool isDump = line.kind == qor::Log::Kind::TraceDump;
    const std::string text = isDump ? line.text : Printable(line.text) + "\n";
    const bool isMessage = line.kind == qor::Log::Kind::Message;
    std::ostream& target = isMessage ? *messages_ : environment_.err;
    if (line.kind == qor::Log::Kind::Failure) target << "halvex: ";
    if (!isMessage || !options_.quiet) target << text << std::flush;
    WriteToFile(text);
  }
  DrawProgress();
}

void LogPrinter::PrintResult(const std::string& text) {
  Print();
  const std::string line = Printable(text) + "\n";
  environment_.out << line << std::flush;
  WriteToFile(line);
}

void LogPrinter::ShowProgress(const std::string& line) {
  if (line == progress_) return;
  HideProgress();
  progress_ = line;
  DrawProgress();
}

void LogPrinter::HideProgress() {
  if (!progress_.empty())
    environment_.err << '\r' << std::string(progress_.size(), ' ') << '\r' << std::flush;
}

void LogPrinter::DrawProgress() {
  if (!progress_.empty()) environment_.err << progress_ << std::flush;
}

void LogPrinter::Complain(const qor::Sentence& sentence) {
  Print();
  const std::string line = Printable(sentence.In(translate_)) + "\n";
  HideProgress();
  environment_.err << "halvex: " << line << std::flush;
  DrawProgress();
  WriteToFile(line);
}

void LogPrinter::Warn(const qor::Sentence& sentence) {
  Complain({TR("warning"), {}, {sentence}});
}

void LogPrinter::WarnOfEach(const std::vector<qor::Sentence>& sentences) {
  constexpr std::size_t MostNamed = 5;
  for (std::size_t i = 0; i < sentences.size() && i < MostNamed; ++i) Warn(sentences[i]);
  if (sentences.size() > MostNamed) Warn({TR("{1} more like these"), {sentences.size() - MostNamed}});
}

void LogPrinter::WriteToFile(const std::string& text) {
  if (!file_.is_open()) return;
  if (!isFileBegun_) file_ << "--- " << DateAndTimeText(environment_.clock.LocalTime()) << '\n';
  isFileBegun_ = true;
  file_ << text << std::flush;
  if (file_) return;
  file_.close();
  Complain({TR("the log file {1} could not be written any further"), {options_.logFile}});
}

}  // namespace cli
