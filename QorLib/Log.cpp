// SPDX-License-Identifier: MIT
#include "QorLib/Log.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "QorLib/HexDump.h"

namespace qor {

Log::Log(std::function<TimeOfDay()> timeOfDay) : timeOfDay_(std::move(timeOfDay)) {}

void Log::Message(English english, std::initializer_list<FormatArgument> arguments) {
  Write(Kind::Message, Format(translate_(english), arguments));
}

void Log::Message(const Sentence& sentence) {
  Write(Kind::Message, sentence.In(translate_));
}

void Log::Failure(const Sentence& sentence) {
  Write(Kind::Failure, sentence.In(translate_));
}

void Log::Trace(std::string_view text) {
  if (IsTracing()) Write({TraceLine(text)});
}

void Log::Trace(std::string_view text, std::string_view dumped) {
  if (IsTracing()) Write({TraceLine(text), {Kind::TraceDump, HexDump(dumped)}});
}

Log::Line Log::TraceLine(std::string_view text) const {
  const TimeOfDay time = timeOfDay_();
  return {Kind::Trace,
          Format("{1}:{2}:{3}:{4} {5}", {time.hour, ZeroFilled(time.minute, 2), ZeroFilled(time.second, 2),
                                         ZeroFilled(time.millisecond, 3), text})};
}

std::vector<Log::Line> Log::TakeLines() {
  const std::lock_guard lock(mutex_);
  return std::exchange(lines_, {});
}

void Log::Write(std::vector<Line> lines) {
  {
    const std::lock_guard lock(mutex_);
    std::ranges::move(lines, std::back_inserter(lines_));
  }
  if (onLine_) onLine_();
}

std::string TextOf(const std::vector<Log::Line>& lines) {
  std::string text;
  for (const Log::Line& line : lines) {
    text += line.text;
    if (line.kind != Log::Kind::TraceDump) text += "\r\n";
  }
  return text;
}

}  // namespace qor
