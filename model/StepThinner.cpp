// SPDX-License-Identifier: MIT
#include "model/StepThinner.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace TCBase {
namespace {

constexpr std::size_t FewestToThin = 3;

bool IsInDay(const Step& step) {
  return step.MinuteOfDay() >= 0 && step.MinuteOfDay() < MinutesPerDay;
}

/// Whether the times ascend strictly and lie within the day.
bool IsRegular(const Channel& channel) {
  std::int64_t earlier = -1;
  for (const Step& step : channel.steps) {
    if (step.MinuteOfDay() <= earlier || !IsInDay(step)) return false;
    earlier = step.MinuteOfDay();
  }
  return true;
}

std::size_t At(std::int32_t index) {
  return static_cast<std::size_t>(index);
}

std::size_t StepsOf(const Mode& mode) {
  std::size_t count = 0;
  for (const Channel& channel : mode.channels) count += channel.steps.size();
  return count;
}

/// Brings a channel into order that no controller could be sent as it is. What is merely out of order stays
/// so: it is sampled, and thinned, as it stands.
void PutInOrderIfHopeless(Channel& channel) {
  if (channel.steps.size() <= MinutesPerDay && std::ranges::all_of(channel.steps, IsInDay)) return;
  channel.Sort();
  channel.RemoveDuplicateTimes();
}

}  // namespace

StepThinner::StepThinner(Mode& mode) : mode_(mode), costs_(StepsOf(mode)) {
  std::size_t firstCost = 0;
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    PutInOrderIfHopeless(mode.channels[i]);
    lanes_[i].firstCost = firstCost;
    firstCost += mode.channels[i].steps.size();
    Enter(std::exchange(mode.channels[i], {}), lanes_[i]);
  }
}

void StepThinner::Enter(Channel channel, Lane& lane) {
  lane.channel = std::move(channel);
  lane.isRegular = IsRegular(lane.channel);
  lane.left = lane.channel.steps.size();
  lane.links.resize(lane.left);
  const auto count = static_cast<std::int32_t>(lane.left);
  for (std::int32_t step = 0; step < count; ++step) {
    lane.links[At(step)] = {step == 0 ? count - 1 : step - 1, step == count - 1 ? 0 : step + 1};
    Count(lane.channel.steps[At(step)], +1);
  }
  RenewAll(lane);
}

void StepThinner::Count(const Step& step, int change) {
  if (!IsInDay(step)) return;
  std::int32_t& steps = stepsAtMinute_[static_cast<std::size_t>(step.MinuteOfDay())];
  const bool wasHeld = steps > 0;
  steps += change;
  stepCount_ += (steps > 0 ? 1 : 0) - (wasHeld ? 1 : 0);
}

RemovalCandidate StepThinner::Cheapest() const {
  if (costs_.IsEmpty()) return {};
  const std::size_t first = costs_.First();
  int channel = static_cast<int>(ChannelCount) - 1;
  while (lanes_[At(channel)].firstCost > first) --channel;
  return {channel, static_cast<int>(first - lanes_[At(channel)].firstCost), costs_.Least()};
}

void StepThinner::Remove(const RemovalCandidate& candidate) {
  Lane& lane = lanes_[At(candidate.channel)];
  const Links removed = std::exchange(lane.links[At(candidate.step)], {Removed, Removed});
  lane.links[At(removed.previous)].next = removed.next;
  lane.links[At(removed.next)].previous = removed.previous;
  --lane.left;
  Count(lane.channel.steps[At(candidate.step)], -1);
  costs_.Remove(lane.firstCost + At(candidate.step));

  if (lane.left < FewestToThin || !lane.isRegular) {
    RenewAll(lane);
  } else {
    for (const std::int32_t step : {removed.previous, removed.next}) {
      costs_.Set(lane.firstCost + At(step), CostOf(lane, step));
    }
  }
}

void StepThinner::RenewAll(const Lane& lane) {
  const bool canBeThinned = lane.left >= FewestToThin;
  const Channel left = canBeThinned && !lane.isRegular ? StepsLeft(lane) : Channel();
  std::size_t indexAmongLeft = 0;
  for (std::int32_t step = 0; At(step) < lane.links.size(); ++step) {
    if (lane.links[At(step)].next == Removed) continue;
    if (canBeThinned) {
      const int cost = lane.isRegular ? CostOf(lane, step) : RemovalCost(left, indexAmongLeft++);
      costs_.Set(lane.firstCost + At(step), cost);
    } else {
      costs_.Remove(lane.firstCost + At(step));
    }
  }
}

std::int32_t StepThinner::CostOf(const Lane& lane, std::int32_t step) const {
  const std::vector<Step>& steps = lane.channel.steps;
  const Links& links = lane.links[At(step)];
  const Step& own = steps[At(step)];
  const float without = ValueBetween(steps[At(links.previous)], steps[At(links.next)], own.SecondOfDay());
  return WholePercent(std::fabs(own.value - without));
}

Channel StepThinner::StepsLeft(const Lane& lane) {
  Channel left;
  for (std::size_t i = 0; i < lane.links.size(); ++i) {
    if (lane.links[i].next != Removed) left.steps.push_back(lane.channel.steps[i]);
  }
  return left;
}

void StepThinner::PutBack() {
  for (std::size_t i = 0; i < ChannelCount; ++i) mode_.channels[i] = StepsLeft(lanes_[i]);
}

}  // namespace TCBase
