// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "model/Mode.h"

namespace TCBase {

/// All five channels at one moment: the form in which a mode reaches a controller.
struct ModeSample {
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::array<std::int32_t, ChannelCount> values{};  // whole percents, truncated
  std::array<std::uint8_t, ChannelCount> jumps{};   // 1 where the channel's step at this minute jumps

  bool operator==(const ModeSample&) const = default;
};

/// The mode at a second of the day; no jump is set.
ModeSample SampleAt(const Mode& mode, std::int64_t second);

/// One sample for each minute at which a channel has a step, ascending: the table that an upload sends.
/// Time and memory are linear in the number of steps.
std::vector<ModeSample> SampleTable(const Mode& mode);

/// The length of the sample table: what every limit and message means by a mode's number of steps.
int StepCount(const Mode& mode);

}  // namespace TCBase
