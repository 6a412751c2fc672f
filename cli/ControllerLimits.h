// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "model/Program.h"

namespace cli {

/// What controllers will not take of a mode, or will show otherwise, in a sentence each.
std::vector<std::string> RemarksOn(const TCBase::Mode& mode);

/// The same of the program as a whole.
std::vector<std::string> RemarksOn(const TCBase::Program& program);

}  // namespace cli
