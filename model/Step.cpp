// SPDX-License-Identifier: MIT
#include "model/Step.h"

#include <algorithm>
#include <atomic>

namespace TCBase {

std::uint32_t NextStepId() {
  static std::atomic<std::uint32_t> counter = 0;
  return ++counter;
}

void Step::Clamp() {
  value = value > 0 ? std::min(value, 100.0f) : 0.0f;  // what is no number becomes 0, too
  const std::int64_t second = std::clamp<std::int64_t>(SecondOfDay(), 0, SecondsPerDay - 1);
  hour = static_cast<std::int32_t>(second / 3600);
  minute = static_cast<std::int32_t>(second % 3600 / 60);
}

bool operator==(const Step& a, const Step& b) {
  return a.hour == b.hour && a.minute == b.minute && a.value == b.value && a.jump == b.jump;
}

Step MakeStep(int hour, int minute, float value, bool jump) {
  return {hour, minute, value, jump, NextStepId()};
}

}  // namespace TCBase
