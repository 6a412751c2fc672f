// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// A date and time of day in the fields of the Windows structure of this name: full year, month 1 to 12, day
/// of week 0 (Sunday) to 6.
struct SYSTEMTIME {
  std::uint16_t wYear = 0;
  std::uint16_t wMonth = 0;
  std::uint16_t wDayOfWeek = 0;
  std::uint16_t wDay = 0;
  std::uint16_t wHour = 0;
  std::uint16_t wMinute = 0;
  std::uint16_t wSecond = 0;
  std::uint16_t wMilliseconds = 0;

  bool operator==(const SYSTEMTIME&) const = default;
};

}  // namespace platform
