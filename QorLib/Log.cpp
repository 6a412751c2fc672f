// SPDX-License-Identifier: MIT
#include "QorLib/Log.h"

#include <utility>

#include "QorLib/HexDump.h"

namespace qor {

Log::Log(std::function<TimeOfDay()> timeOfDay) : timeOfDay_(std::move(timeOfDay)) {}

void Log::Message(std::string_view english, std::initializer_list<FormatArgument> arguments) {
  Write(Kind::Message, Format(translate_(english), arguments));
}

void Log::Message(const Sentence& sentence) {
  Write(Kind::Message, sentence.In(translate_));
}

void Log::Failure(const Sentence& sentence) {
  Write(Kind::Failure, sentence.In(translate_));
}

void Log::Trace(std::string_view text) {
  if (!IsTracing()) return;
  const TimeOfDay time = timeOfDay_();
  Write(Kind::Trace,
        Format("{1}:{2}:{3}:{4} {5}", {time.hour, ZeroFilled(time.minute, 2), ZeroFilled(time.second, 2),
                                       ZeroFilled(time.millisecond, 3), text}));
}

void Log::TraceDump(std::string_view bytes) {
  if (IsTracing()) Write(Kind::TraceDump, HexDump(bytes));
}

std::vector<Log::Line> Log::TakeLines() {
  const std::lock_guard lock(mutex_);
  return std::exchange(lines_, {});
}

void Log::Write(Kind kind, std::string text) {
  {
    const std::lock_guard lock(mutex_);
    lines_.push_back({kind, std::move(text)});
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
