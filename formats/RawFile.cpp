// SPDX-License-Identifier: MIT
#include "formats/RawFile.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

namespace TCBase {
namespace {

using Day = std::array<std::uint8_t, SecondsPerDay>;

/// Truncated to a whole percent.
std::uint8_t ByteOf(float percent) {
  return static_cast<std::uint8_t>(std::clamp(WholePercent(percent), 0, 100));
}

/// The whole percents of `count` seconds, where all are known to be within the range. Without clamping,
/// compilers compute several at a time.
void FillWithinRange(const Fade fade, std::int32_t elapsed, std::int32_t count, std::uint8_t* bytes) {
  for (std::int32_t i = 0; i < count; ++i) {
    const float percent = fade.ValueAfter(static_cast<float>(elapsed + i));
    bytes[i] = static_cast<std::uint8_t>(static_cast<std::int32_t>(percent));
  }
}

bool IsWithinRanges(const Step& step) {
  return step.SecondOfDay() >= 0 && step.SecondOfDay() < SecondsPerDay && step.value >= 0 &&
         step.value <= 100;
}

/// The seconds from `from` up to and without `to`, as the curve runs from `previous` to `next` without
/// passing the time of `previous`. At the very time of `next` its own value counts, which the caller sets.
void FillStretch(const Step& previous, const Step& next, int from, int to, Day& day) {
  std::uint8_t* const stretch = day.data() + from;
  const Fade fade(previous, next);
  if (fade.IsFlat()) {
    std::fill(stretch, day.data() + to, ByteOf(previous.value));
    return;
  }
  const std::int64_t start = ElapsedSeconds(previous.SecondOfDay(), from);
  const std::int64_t span = ElapsedSeconds(previous.SecondOfDay(), next.SecondOfDay());
  // Steps out of order can send the curve past the next one's value.
  const bool isBetween = start + to - from - 1 <= span && IsWithinRanges(previous) && IsWithinRanges(next);
  if (!isBetween) {
    for (int i = 0; i < to - from; ++i) stretch[i] = ByteOf(fade.ValueAfter(static_cast<float>(start + i)));
    return;
  }
  FillWithinRange(fade, static_cast<std::int32_t>(start), to - from, stretch);
}

/// The seconds over which `previous` and `next` are a step's neighbours: from `from` up to and without `to`.
void FillBetween(const Step& previous, const Step& next, int from, int to, Day& day) {
  // Before the previous step's time the curve has come across midnight.
  const int midnight = static_cast<int>(std::clamp<std::int64_t>(previous.SecondOfDay(), from, to));
  FillStretch(previous, next, from, midnight, day);
  FillStretch(previous, next, midnight, to, day);
  const std::int64_t arrival = next.SecondOfDay();
  if (arrival >= from && arrival < to) day[static_cast<std::size_t>(arrival)] = ByteOf(next.value);
}

void Sample(const Channel& channel, Day& day) {
  const std::vector<Step>& steps = channel.steps;
  if (steps.size() < 2) {
    day.fill(steps.empty() ? 0 : ByteOf(steps[0].value));
    return;
  }
  int second = 0;
  for (std::size_t next = 0; next <= steps.size() && second < SecondsPerDay; ++next) {
    const Step& previous = next == 0 ? steps.back() : steps[next - 1];
    const bool isBehindLast = next == steps.size();
    // A step is next up to its own second, which belongs to it; steps out of order are passed over.
    const std::int64_t end = isBehindLast ? SecondsPerDay : steps[next].SecondOfDay() + 1;
    if (end <= second) continue;
    const int last = static_cast<int>(std::min<std::int64_t>(end, SecondsPerDay));
    FillBetween(previous, isBehindLast ? steps.front() : steps[next], second, last, day);
    second = last;
  }
}

}  // namespace

std::string ExportRAW(const Mode& mode) {
  const auto days = std::make_unique_for_overwrite<std::array<Day, ChannelCount>>();
  for (std::size_t i = 0; i < ChannelCount; ++i) Sample(mode.channels[i], (*days)[i]);
  std::string bytes(ChannelCount * SecondsPerDay, '\0');
  char* record = bytes.data();
  for (std::size_t second = 0; second < SecondsPerDay; ++second) {
    for (std::size_t i = 0; i < ChannelCount; ++i) *record++ = static_cast<char>((*days)[i][second]);
  }
  return bytes;
}

}  // namespace TCBase
