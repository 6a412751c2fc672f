// SPDX-License-Identifier: MIT
#include "bench/PlainMode.h"

#include <algorithm>
#include <set>

#include "model/StepLimit.h"

namespace bench {

using namespace TCBase;

namespace {

std::size_t CountSteps(const Mode& mode) {
  std::set<std::int64_t> minutes;
  for (const Channel& channel : mode.channels) {
    for (const Step& step : channel.steps) minutes.insert(step.MinuteOfDay());
  }
  return minutes.size();
}

/// The channel's first step at the minute; null when there is none.
const Step* FindStep(const Channel& channel, int minute) {
  const auto found = std::find_if(channel.steps.begin(), channel.steps.end(),
                                  [minute](const Step& step) { return step.MinuteOfDay() == minute; });
  return found == channel.steps.end() ? nullptr : &*found;
}

}  // namespace

void OptimisePlainly(Mode& mode) {
  while (CountSteps(mode) > MaxModeSteps) {
    const RemovalCandidate candidate = FindRemovalCandidate(mode);
    if (!candidate) return;
    std::vector<Step>& steps = mode.channels[static_cast<std::size_t>(candidate.channel)].steps;
    steps.erase(steps.begin() + candidate.step);
  }
}

std::vector<ModeSample> SampleTablePlainly(const Mode& mode) {
  std::vector<ModeSample> table;
  for (int minute = 0; minute < MinutesPerDay; ++minute) {
    const bool hasStep =
        std::any_of(mode.channels.begin(), mode.channels.end(),
                    [minute](const Channel& channel) { return FindStep(channel, minute) != nullptr; });
    if (!hasStep) continue;
    ModeSample sample;
    sample.hour = minute / 60;
    sample.minute = minute % 60;
    for (std::size_t i = 0; i < ChannelCount; ++i) {
      sample.values[i] = WholePercent(mode.channels[i].ValueAt(std::int64_t{minute} * 60));
      const Step* step = FindStep(mode.channels[i], minute);
      sample.jumps[i] = step != nullptr && step->jump;
    }
    table.push_back(sample);
  }
  return table;
}

std::string ExportRawPlainly(const Mode& mode) {
  std::string bytes;
  bytes.reserve(ChannelCount * SecondsPerDay);
  for (int second = 0; second < SecondsPerDay; ++second) {
    for (const std::int32_t value : SampleAt(mode, second).values) {
      bytes += static_cast<char>(std::clamp(value, 0, 100));
    }
  }
  return bytes;
}

}  // namespace bench
