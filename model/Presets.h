// SPDX-License-Identifier: MIT
#pragma once

#include "QorLib/Translate.h"
#include "model/Program.h"

/// The built-in day programs; names and descriptions come in the user's language.
namespace TCBase {

/// Replaces what the mode holds by a working day with a rest at noon; 12 steps.
void FillNormal(Mode& mode, const qor::Translate& translate);

/// Replaces what the mode holds by full light all day; 2 steps.
void FillAlwaysOn(Mode& mode, const qor::Translate& translate);

/// The program that a user starts from: "Normal", then "AlwaysOn".
Program NewProgram(const qor::Translate& translate);

}  // namespace TCBase
