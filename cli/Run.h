// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "cli/Environment.h"

namespace cli {

/// The program `halvex`, from its arguments (without its name, in UTF-8) to its exit status.
int Run(const std::vector<std::string>& arguments, Environment& environment);

}  // namespace cli
