// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

namespace qor {

/// The integer at the start of a text: decimal with an optional leading "-", saturating at the 32-bit limits;
/// reading ends at the first other character. 0 when there is no digit.
inline std::int32_t ParseInteger(std::string_view text) {
  constexpr std::int64_t Min = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t Max = std::numeric_limits<std::int32_t>::max();
  const bool isNegative = text.starts_with('-');
  std::int64_t number = 0;
  for (const char c : text.substr(isNegative ? 1 : 0)) {
    if (c < '0' || c > '9') break;
    number = number * 10 + (c - '0');
    if (number > -Min) break;  // beyond either limit: no further digit changes the result
  }
  if (isNegative) number = -number;
  return static_cast<std::int32_t>(number < Min ? Min : number > Max ? Max : number);
}

}  // namespace qor
