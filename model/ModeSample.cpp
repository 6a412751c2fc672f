// SPDX-License-Identifier: MIT
#include "model/ModeSample.h"

#include <bitset>

namespace TCBase {
namespace {

bool IsInDay(std::int64_t minute) {
  return minute >= 0 && minute < MinutesPerDay;
}

using MinuteSet = std::bitset<MinutesPerDay>;

MinuteSet StepMinutes(const Mode& mode) {
  MinuteSet minutes;
  for (const Channel& channel : mode.channels) {
    for (const Step& step : channel.steps) {
      const std::int64_t minute = step.MinuteOfDay();
      if (IsInDay(minute)) minutes.set(static_cast<std::size_t>(minute));
    }
  }
  return minutes;
}

ModeSample SampleOfSecond(std::int64_t second) {
  ModeSample sample;
  sample.hour = static_cast<std::int32_t>(second / 3600);
  sample.minute = static_cast<std::int32_t>(second % 3600 / 60);
  return sample;
}

/// The jump flag of the channel's first step at each minute.
MinuteSet JumpMinutes(const Channel& channel) {
  MinuteSet jumps;
  MinuteSet seen;
  for (const Step& step : channel.steps) {
    if (!IsInDay(step.MinuteOfDay())) continue;
    const auto minute = static_cast<std::size_t>(step.MinuteOfDay());
    if (!seen[minute]) jumps[minute] = step.jump;
    seen.set(minute);
  }
  return jumps;
}

}  // namespace

ModeSample SampleAt(const Mode& mode, std::int64_t second) {
  ModeSample sample = SampleOfSecond(second);
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    sample.values[i] = WholePercent(mode.channels[i].ValueAt(second));
  }
  return sample;
}

std::vector<ModeSample> SampleTable(const Mode& mode) {
  const MinuteSet minutes = StepMinutes(mode);
  std::vector<ModeSample> table;
  table.reserve(minutes.count());
  for (std::size_t minute = 0; minute < minutes.size(); ++minute) {
    if (minutes[minute]) table.push_back(SampleOfSecond(static_cast<std::int64_t>(minute) * 60));
  }
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    ChannelCursor cursor(mode.channels[i]);
    const MinuteSet jumps = JumpMinutes(mode.channels[i]);
    for (ModeSample& sample : table) {
      const int minute = sample.hour * 60 + sample.minute;
      sample.values[i] = WholePercent(cursor.ValueAt(minute * 60));
      sample.jumps[i] = jumps[static_cast<std::size_t>(minute)];
    }
  }
  return table;
}

int StepCount(const Mode& mode) {
  return static_cast<int>(StepMinutes(mode).count());
}

}  // namespace TCBase
