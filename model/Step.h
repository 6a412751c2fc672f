// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>

namespace TCBase {

inline constexpr int MinutesPerDay = 1440;
inline constexpr int SecondsPerDay = 86400;

/// A number that no other step of this process has had.
std::uint32_t NextStepId();

/// One point of a channel's curve. A file may bring fields beyond their ranges; `Clamp` brings them in.
struct Step {
  std::int32_t hour = 0;    // 0 to 23
  std::int32_t minute = 0;  // 0 to 59
  float value = 0;          // percent, 0 to 100, fractions kept
  bool jump = false;        // hold the value until the next step, instead of fading to it
  std::uint32_t id = 0;     // tells steps apart within the process; never part of a comparison

  std::int64_t MinuteOfDay() const { return std::int64_t{hour} * 60 + minute; }
  std::int64_t SecondOfDay() const { return MinuteOfDay() * 60; }

  /// Brings value and time into their ranges.
  void Clamp();
};

/// How steps are ordered: by time alone.
inline bool IsEarlier(const Step& a, const Step& b) {
  return a.MinuteOfDay() < b.MinuteOfDay();
}

/// Equal in time, value and jump.
bool operator==(const Step& a, const Step& b);

/// A step with an id of its own.
Step MakeStep(int hour, int minute, float value, bool jump = false);

/// Truncated toward zero; beyond the 32-bit limits, the nearer limit; 0 for what is no number.
inline std::int32_t WholePercent(float value) {
  constexpr float Limit = 2147483648.0f;
  if (value > -Limit && value < Limit) return static_cast<std::int32_t>(value);
  if (value != value) return 0;
  return value > 0 ? std::numeric_limits<std::int32_t>::max() : std::numeric_limits<std::int32_t>::min();
}

}  // namespace TCBase
