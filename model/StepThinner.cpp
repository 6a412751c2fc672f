// SPDX-License-Identifier: MIT
#include "model/StepThinner.h"

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

}  // namespace

StepThinner::StepThinner(Mode& mode) : mode_(mode) {
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    Lane& lane = lanes_[i];
    lane.channel = std::exchange(mode.channels[i], {});
    lane.isRegular = IsRegular(lane.channel);
    lane.left = lane.channel.steps.size();
    lane.links.resize(lane.left);
    const auto count = static_cast<std::int32_t>(lane.left);
    for (std::int32_t step = 0; step < count; ++step) {
      lane.links[At(step)] = {step == 0 ? count - 1 : step - 1, step == count - 1 ? 0 : step + 1, 0, true};
      Count(lane.channel.steps[At(step)], +1);
    }
    EnterCosts(static_cast<std::int32_t>(i));
  }
}

void StepThinner::Count(const Step& step, int change) {
  if (!IsInDay(step)) return;
  std::int32_t& steps = stepsAtMinute_[static_cast<std::size_t>(step.MinuteOfDay())];
  const bool wasHeld = steps > 0;
  steps += change;
  stepCount_ += (steps > 0 ? 1 : 0) - (wasHeld ? 1 : 0);
}

void StepThinner::EnterCosts(std::int32_t channel) {
  Lane& lane = lanes_[At(channel)];
  if (lane.left < FewestToThin) return;
  const Channel left = lane.isRegular ? Channel{} : StepsLeft(lane);
  std::size_t indexAmongLeft = 0;
  for (std::int32_t step = 0; At(step) < lane.links.size(); ++step) {
    Links& links = lane.links[At(step)];
    if (!links.isLeft) continue;
    links.cost = lane.isRegular ? CostOf(lane, step) : RemovalCost(left, indexAmongLeft++);
    byCost_.insert({links.cost, channel, step});
  }
}

RemovalCandidate StepThinner::Cheapest() const {
  if (byCost_.empty()) return {};
  const Entry& first = *byCost_.begin();
  return {first.channel, first.step, first.cost};
}

void StepThinner::Remove(const RemovalCandidate& candidate) {
  Lane& lane = lanes_[At(candidate.channel)];
  const Links removed = lane.links[At(candidate.step)];
  byCost_.erase({removed.cost, candidate.channel, candidate.step});
  lane.links[At(candidate.step)].isLeft = false;
  lane.links[At(removed.previous)].next = removed.next;
  lane.links[At(removed.next)].previous = removed.previous;
  --lane.left;
  Count(lane.channel.steps[At(candidate.step)], -1);

  if (lane.left < FewestToThin || !lane.isRegular) {
    RenewAll(candidate.channel);
  } else {
    Renew(candidate.channel, removed.previous);
    Renew(candidate.channel, removed.next);
  }
}

void StepThinner::Renew(std::int32_t channel, std::int32_t step) {
  Lane& lane = lanes_[At(channel)];
  std::int32_t& cost = lane.links[At(step)].cost;
  const std::int32_t renewed = CostOf(lane, step);
  if (renewed == cost) return;
  auto entry = byCost_.extract({cost, channel, step});
  cost = renewed;
  entry.value().cost = renewed;
  byCost_.insert(std::move(entry));
}

void StepThinner::RenewAll(std::int32_t channel) {
  const Lane& lane = lanes_[At(channel)];
  for (std::int32_t step = 0; At(step) < lane.links.size(); ++step) {
    byCost_.erase({lane.links[At(step)].cost, channel, step});
  }
  EnterCosts(channel);
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
    if (lane.links[i].isLeft) left.steps.push_back(lane.channel.steps[i]);
  }
  return left;
}

void StepThinner::PutBack() {
  for (std::size_t i = 0; i < ChannelCount; ++i) mode_.channels[i] = StepsLeft(lanes_[i]);
}

}  // namespace TCBase
