// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "QorLib/Sentence.h"
#include "model/Mode.h"

/// A mode's whole day as people type it. A line holds a minute at which a channel has a step, and for each of
/// the five channels its brightness there in percent, with J behind it for a jump, or "-" where it has no
/// step: "08:30  0  80  -  100J  -". What stands behind "#" is a comment.
namespace TCBase {

std::string WriteTableText(const Mode& mode);

/// What a text holds, or else what is wrong with it.
struct TableReading {
  std::array<std::vector<Step>, ChannelCount>
      steps;                          // of each channel, in the order of the lines, without ids
  std::vector<qor::Sentence> faults;  // each with its line
};

TableReading ReadTableText(std::string_view text);

}  // namespace TCBase
