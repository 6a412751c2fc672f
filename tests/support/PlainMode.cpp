// SPDX-License-Identifier: MIT
#include "tests/support/PlainMode.h"

#include <algorithm>

#include "model/StepLimit.h"

namespace test {

using namespace TCBase;

namespace {

/// The channel's first step at the minute; null when there is none.
const Step* FindStep(const Channel& channel, int minute) {
  const auto found = std::find_if(channel.steps.begin(), channel.steps.end(),
                                  [minute](const Step& step) { return step.MinuteOfDay() == minute; });
  return found == channel.steps.end() ? nullptr : &*found;
}

}  // namespace

void OptimisePlainly(Mode& mode) {
  while (SampleTablePlainly(mode).size() > MaxModeSteps) {
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
    ModeSample sample = SampleAt(mode, std::int64_t{minute} * 60);
    for (std::size_t i = 0; i < ChannelCount; ++i) {
      const Step* step = FindStep(mode.channels[i], minute);
      sample.jumps[i] = step != nullptr && step->jump;
    }
    table.push_back(sample);
  }
  return table;
}

}  // namespace test
