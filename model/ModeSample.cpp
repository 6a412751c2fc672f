// SPDX-License-Identifier: MIT
#include "model/ModeSample.h"

#include <bitset>
#include <optional>

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

/// The minutes at which the channel's first step jumps.
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

void SampleChannel(const Channel& channel, std::size_t index, std::vector<ModeSample>& table) {
  const std::vector<Step>& steps = channel.steps;
  std::optional<MinuteSet> jumps;  // asked for only where `next` stands on another minute
  const std::size_t count = steps.size();
  const Step* const first = steps.data();
  std::size_t next = 0;
  for (ModeSample& sample : table) {
    const std::int64_t minute = std::int64_t{sample.hour} * 60 + sample.minute;
    while (next < count && first[next].MinuteOfDay() < minute) ++next;
    if (next < count && first[next].MinuteOfDay() == minute) {
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
  std::vector<ModeSample> table;
  table.reserve(minutes.count());
  for (int minute = 0; minute < MinutesPerDay; ++minute) {
    if (!minutes[static_cast<std::size_t>(minute)]) continue;
    ModeSample& sample = table.emplace_back();
    sample.hour = minute / 60;
    sample.minute = minute % 60;
  }
  for (std::size_t i = 0; i < ChannelCount; ++i) SampleChannel(mode.channels[i], i, table);
  return table;
}

int StepCount(const Mode& mode) {
  return static_cast<int>(StepMinutes(mode).count());
}

}  // namespace TCBase
