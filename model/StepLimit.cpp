// SPDX-License-Identifier: MIT
#include "model/StepLimit.h"

#include <algorithm>
#include <cmath>

#include "model/ModeSample.h"
#include "model/StepThinner.h"

namespace TCBase {
namespace {

constexpr std::int64_t ResamplingSeconds = 1800;
constexpr std::size_t FewestToThin = 3;

RemovalCandidate CheapestOf(const Channel& channel, int channelIndex) {
  RemovalCandidate cheapest;
  if (channel.steps.size() < FewestToThin) return cheapest;
  for (std::size_t i = 0; i < channel.steps.size(); ++i) {
    const int cost = RemovalCost(channel, i);
    if (!cheapest || cost < cheapest.cost) cheapest = {channelIndex, static_cast<int>(i), cost};
  }
  return cheapest;
}

}  // namespace

int RemovalCost(const Channel& channel, std::size_t step) {
  Channel without = channel;
  without.steps.erase(without.steps.begin() + static_cast<std::ptrdiff_t>(step));
  const std::int64_t second = channel.steps[step].SecondOfDay();
  return WholePercent(std::fabs(channel.ValueAt(second) - without.ValueAt(second)));
}

RemovalCandidate FindRemovalCandidate(const Mode& mode) {
  RemovalCandidate cheapest;
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    const RemovalCandidate ofChannel = CheapestOf(mode.channels[i], static_cast<int>(i));
    if (ofChannel && (!cheapest || ofChannel.cost < cheapest.cost)) cheapest = ofChannel;
  }
  return cheapest;
}

bool OptimiseMode(Mode& mode, qor::Log& log, int most) {
  if (StepCount(mode) <= most) return true;
  log.Message(TR("Mode {1} has more than {2} steps, optimizing..."), {mode.name, most});
  StepThinner thinner(mode);
  while (thinner.StepCount() > most) {
    const RemovalCandidate candidate = thinner.Cheapest();
    if (!candidate) break;
    thinner.Remove(candidate);
  }
  thinner.PutBack();
  if (thinner.StepCount() <= most) return true;
  log.Message(TR("Unable to optimize mode {1}, please remove some steps."), {mode.name});
  return false;
}

bool OptimiseProgram(Program& program, qor::Log& log) {
  for (Mode& mode : program.modes) {
    if (!OptimiseMode(mode, log)) return false;
  }
  return true;
}

void RemoveRedundantSteps(Mode& mode) {
  StepThinner thinner(mode);
  for (RemovalCandidate next = thinner.Cheapest(); next && next.cost == 0; next = thinner.Cheapest()) {
    thinner.Remove(next);
  }
  thinner.PutBack();
}

int GreatestDifference(const Mode& mode, const Mode& other) {
  float greatest = 0;
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    for (std::int64_t second = 0; second < SecondsPerDay;
         second += 60) {  // between minutes light is straight
      const float difference = mode.channels[i].ValueAt(second) - other.channels[i].ValueAt(second);
      greatest = std::max(greatest, std::fabs(difference));
    }
  }
  return static_cast<int>(std::ceil(greatest));
}

Mode ResampleAt30Minutes(const Mode& source) {
  Mode target{source.name, source.description, {}};
  for (std::int64_t second = 0; second < SecondsPerDay; second += ResamplingSeconds) {
    const ModeSample sample = SampleAt(source, second);
    for (std::size_t i = 0; i < ChannelCount; ++i) {
      target.channels[i].steps.push_back(
          MakeStep(sample.hour, sample.minute, static_cast<float>(sample.values[i])));
    }
  }
  return target;
}

}  // namespace TCBase
