// SPDX-License-Identifier: MIT
#include "model/ModeSample.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace TCBase {
namespace {

bool IsInDay(std::int64_t minute) {
  return minute >= 0 && minute < MinutesPerDay;
}

/// A flag for each minute of the day; bytes are set faster than bits.
using MinuteSet = std::array<bool, MinutesPerDay>;

std::size_t CountOf(const MinuteSet& minutes) {
  return static_cast<std::size_t>(std::count(minutes.begin(), minutes.end(), true));
}

MinuteSet StepMinutes(const Mode& mode) {
  MinuteSet minutes{};
  for (const Channel& channel : mode.channels) {
    for (const Step& step : channel.steps) {
      const std::int64_t minute = step.MinuteOfDay();
      if (IsInDay(minute)) minutes[static_cast<std::size_t>(minute)] = true;
    }
  }
  return minutes;
}

/// The minutes at which the channel's first step jumps.
MinuteSet JumpMinutes(const Channel& channel) {
  MinuteSet jumps{};
  MinuteSet seen{};
  for (const Step& step : channel.steps) {
    if (!IsInDay(step.MinuteOfDay())) continue;
    const auto minute = static_cast<std::size_t>(step.MinuteOfDay());
    if (!seen[minute]) jumps[minute] = step.jump;
    seen[minute] = true;
  }
  return jumps;
}

void SampleChannel(const Channel& channel, std::size_t index, std::vector<ModeSample>& table) {
  constexpr std::int64_t Never = std::numeric_limits<std::int64_t>::max();
  std::optional<MinuteSet> jumps;  // asked for only where `next` stands on another minute
  const std::size_t count = channel.steps.size();
  const Step* const first = channel.steps.data();
  const auto minuteOf = [&](std::size_t step) { return step < count ? first[step].MinuteOfDay() : Never; };
  std::size_t next = 0;
  std::int64_t nextMinute = minuteOf(next);
  for (ModeSample& sample : table) {
    const std::int64_t minute = std::int64_t{sample.hour} * 60 + sample.minute;
    while (nextMinute < minute) nextMinute = minuteOf(++next);
    if (nextMinute == minute) {
      sample.values[index] = WholePercent(first[next].value);
      sample.jumps[index] = first[next].jump;
    } else {
      sample.values[index] = WholePercent(channel.ValueAt(minute * 60, next));
      if (!jumps) jumps = JumpMinutes(channel);
      sample.jumps[index] = (*jumps)[static_cast<std::size_t>(minute)];
    }
  }
}

}  // namespace

ModeSample SampleAt(const Mode& mode, std::int64_t second) {
  ModeSample sample;
  sample.hour = static_cast<std::int32_t>(second / 3600);
  sample.minute = static_cast<std::int32_t>(second % 3600 / 60);
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    sample.values[i] = WholePercent(mode.channels[i].ValueAt(second));
  }
  return sample;
}

std::vector<ModeSample> SampleTable(const Mode& mode) {
  const MinuteSet minutes = StepMinutes(mode);
  std::vector<ModeSample> table(CountOf(minutes));
  auto sample = table.begin();
  for (int minute = 0; minute < MinutesPerDay; ++minute) {
    if (!minutes[static_cast<std::size_t>(minute)]) continue;
    sample->hour = minute / 60;
    sample->minute = minute % 60;
    ++sample;
  }
  for (std::size_t i = 0; i < ChannelCount; ++i) SampleChannel(mode.channels[i], i, table);
  return table;
}

int StepCount(const Mode& mode) {
  return static_cast<int>(CountOf(StepMinutes(mode)));
}

}  // namespace TCBase
