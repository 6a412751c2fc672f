// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/SystemTime.h"

namespace platform {

/// Time as the program sees it: the one way to measure, to wait and to ask for the date. Safe to use from
/// several threads.
class Clock {
 public:
  virtual ~Clock() = default;
  /// The high-resolution counter, which never goes back, and its counts per second.
  virtual std::int64_t Counter() = 0;
  virtual std::int64_t Frequency() = 0;
  virtual void Sleep(std::uint32_t milliseconds) = 0;
  virtual SYSTEMTIME LocalTime() = 0;
};

/// The computer's own clock.
Clock& SystemClock();

}  // namespace platform
