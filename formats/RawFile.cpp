// SPDX-License-Identifier: MIT
#include "formats/RawFile.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>

namespace TCBase {
namespace {

using Day = std::array<std::uint8_t, SecondsPerDay>;

/// Truncated to a whole percent, in the order that lets a compiler work on several values at once; what is no
/// number becomes 0.
std::uint8_t ByteOf(float percent) {
  const float clamped = percent > 0 ? (percent < 100 ? percent : 100.0f) : 0.0f;
  return static_cast<std::uint8_t>(static_cast<std::int32_t>(clamped));
}

/// The seconds from `from` up to and without `to`, over all of which the curve runs from `previous` to `next`
/// and reaches neither. Both are within the day.
void FillStretch(const Step& previous, const Step& next, int from, int to, Day& day) {
  const std::span<std::uint8_t> stretch(day.data() + from, day.data() + to);
  const Fade fade(previous, next);
  if (fade.IsFlat()) {
    std::ranges::fill(stretch, ByteOf(previous.value));
    return;
  }
  const auto start = static_cast<std::int32_t>(ElapsedSeconds(previous.SecondOfDay(), from));
  for (std::size_t i = 0; i < stretch.size(); ++i) {
    stretch[i] = ByteOf(fade.ValueAfter(static_cast<float>(start + static_cast<std::int32_t>(i))));
  }
}

/// The seconds over which `previous` and `next` are a step's neighbours: from `from` up to and without `to`.
void FillBetween(const Step& previous, const Step& next, int from, int to, Day& day) {
  const auto isInDay = [](const Step& step) {
    return step.SecondOfDay() >= 0 && step.SecondOfDay() < SecondsPerDay;
  };
  if (!isInDay(previous) || !isInDay(next)) {
    for (int second = from; second < to; ++second) {
      day[static_cast<std::size_t>(second)] = ByteOf(ValueBetween(previous, next, second));
    }
    return;
  }
  // Before the previous step's time the curve has come across midnight.
  const int midnight = std::clamp(static_cast<int>(previous.SecondOfDay()), from, to);
  FillStretch(previous, next, from, midnight, day);
  FillStretch(previous, next, midnight, to, day);
  const auto arrival = static_cast<int>(next.SecondOfDay());
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
  const auto days = std::make_unique<std::array<Day, ChannelCount>>();
  for (std::size_t i = 0; i < ChannelCount; ++i) Sample(mode.channels[i], (*days)[i]);
  std::string bytes(ChannelCount * SecondsPerDay, '\0');
  char* record = bytes.data();
  for (std::size_t second = 0; second < SecondsPerDay; ++second) {
    for (std::size_t i = 0; i < ChannelCount; ++i) *record++ = static_cast<char>((*days)[i][second]);
  }
  return bytes;
}

}  // namespace TCBase
