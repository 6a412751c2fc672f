// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>

#include "QorLib/Format.h"
#include "model/Step.h"

namespace TCBase {

/// "08:30"; the end of the day is 24:00.
inline std::string MinuteText(std::int64_t minuteOfDay) {
  return qor::ZeroFilled(minuteOfDay / 60, 2) + ":" + qor::ZeroFilled(minuteOfDay % 60, 2);
}

/// "08:30:05"; what lies outside the day counts as its nearer end.
inline std::string TimeOfDayText(std::int64_t secondOfDay) {
  const auto second = std::clamp<std::int64_t>(secondOfDay, 0, SecondsPerDay - 1);
  return MinuteText(second / 60) + ":" + qor::ZeroFilled(second % 60, 2);
}

}  // namespace TCBase
