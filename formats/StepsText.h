// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "QorLib/Sentence.h"
#include "model/Step.h"

/// A channel's steps as people type them: a line "hh:mm value" for each, and "J" behind it for a jump.
namespace TCBase {

/// The step's line without its end, as it stands in status texts: "07:05 79 J".
std::string StepText(const Step& step);

/// Appends the step's line with CR LF.
void WriteStepLine(const Step& step, std::string& text);
std::string WriteStepsText(const std::vector<Step>& steps);

/// What a text of steps holds.
struct StepsReading {
  std::vector<Step> steps;             // in the order of the lines, clamped and without ids
  std::vector<qor::Sentence> remarks;  // on lines that give no step, or another than stands there
};

/// Reads a text of any length. Lines end at CR, LF or both; fields at blanks, tabs and colons.
StepsReading ReadStepsText(std::string_view text);

/// Why the text cannot be edited in a dialog; nothing when it can.
qor::Sentence RefusalToEdit(std::string_view text);

}  // namespace TCBase
