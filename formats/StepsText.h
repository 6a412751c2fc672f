// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "model/Step.h"

/// A channel's steps as people type them: a line "hh:mm value" for each, and "J" behind it for a jump.
namespace TCBase {

/// The step's line without its end, as it stands in status texts: "07:05 79 J".
std::string StepText(const Step& step);

/// Appends the step's line with CR LF.
void WriteStepLine(const Step& step, std::string& text);
std::string WriteStepsText(const std::vector<Step>& steps);

/// Lines of a text that its writer may have meant otherwise, by their numbers from 1.
struct OddLines {
  std::vector<std::size_t> skipped;        // no steps, and not blank
  std::vector<std::size_t> withoutNumber;  // steps of which a field has no digits and counts as 0
};

/// Reads the steps of a text in the order of its lines, clamped and without ids. Lines end at CR, LF or both;
/// fields at blanks, tabs and colons. Lines that are no step are passed over.
void ParseStepsText(std::string_view text, std::vector<Step>& steps, OddLines* odd = nullptr);

}  // namespace TCBase
