// SPDX-License-Identifier: MIT
#include "model/Channel.h"

#include <algorithm>

namespace TCBase {

float ValueBetween(const Step& previous, const Step& next, std::int64_t second) {
  if (second == next.SecondOfDay()) return next.value;
  const Fade fade(previous, next);
  if (fade.IsFlat()) return previous.value;
  return fade.ValueAfter(static_cast<float>(ElapsedSeconds(previous.SecondOfDay(), second)));
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
  second = std::max<std::int64_t>(second, 0) % SecondsPerDay;
  std::size_t next = 0;
  while (next < steps.size() && steps[next].SecondOfDay() < second) ++next;
  return ValueAt(second, next);
}

float Channel::ValueAt(std::int64_t second, std::size_t next) const {
  if (steps.empty()) return 0;
  if (steps.size() == 1) return steps[0].value;
  return ValueBetween(next == 0 ? steps.back() : steps[next - 1],
                      next == steps.size() ? steps.front() : steps[next], second);
}

}  // namespace TCBase
