// SPDX-License-Identifier: MIT
#include "model/Channel.h"

#include <algorithm>

namespace TCBase {
namespace {

bool IsEarlier(const Step& a, const Step& b) {
  return a.MinuteOfDay() < b.MinuteOfDay();
}

}  // namespace

float ValueBetween(const Step& previous, const Step& next, std::int64_t second) {
  const std::int64_t previousSecond = previous.SecondOfDay();
  const std::int64_t nextSecond = next.SecondOfDay();
  if (second == nextSecond) return next.value;
  if (previous.jump) return previous.value;

  const auto from = [](std::int64_t start, std::int64_t end) {
    return static_cast<float>(end - start + (end < start ? SecondsPerDay : 0));
  };
  const float span = from(previousSecond, nextSecond);
  if (span == 0) return previous.value;
  // Single precision with this order of roundings: what the lights get must not depend on the machine.
  const float scaled = from(previousSecond, second) * (next.value - previous.value);
  const float slope = scaled / span;
  return slope + previous.value;
}

void Channel::Add(Step step) {
  step.id = NextStepId();
  steps.insert(std::lower_bound(steps.begin(), steps.end(), step, IsEarlier), step);
}

void Channel::Sort() {
  std::stable_sort(steps.begin(), steps.end(), IsEarlier);
}

void Channel::RemoveDuplicateTimes() {
  const auto sameTime = [](const Step& a, const Step& b) { return a.MinuteOfDay() == b.MinuteOfDay(); };
  steps.erase(std::unique(steps.begin(), steps.end(), sameTime), steps.end());
}

void Channel::Normalize(float divisor) {
  for (Step& step : steps) {
    step.value /= divisor;
    step.Clamp();
  }
}

float Channel::ValueAt(std::int64_t second) const {
  return ChannelCursor(*this).ValueAt(std::max<std::int64_t>(second, 0) % SecondsPerDay);
}

// All steps before next_ are earlier than `second`, so the one just before it is the last of them, and no
// later second can find its next step further to the front: that holds for steps in any order.
float ChannelCursor::ValueAt(std::int64_t second) {
  if (steps_.empty()) return 0;
  if (steps_.size() == 1) return steps_[0].value;
  while (next_ < steps_.size() && steps_[next_].SecondOfDay() < second) ++next_;
  const Step& previous = next_ == 0 ? steps_.back() : steps_[next_ - 1];
  const Step& next = next_ == steps_.size() ? steps_.front() : steps_[next_];
  return ValueBetween(previous, next, second);
}

}  // namespace TCBase
