// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace cli {

/// What the program says of itself, in lines of at most 80 columns: of all commands, or of one of them with
/// its arguments, options and examples.
std::string ProgramHelp(const CLI::App& program);
std::string CommandHelp(const CLI::App& command);

/// How the option's value is called in a help: "N" of "--mode N"; empty for an option without one.
std::string ValueName(const CLI::Option& option);

}  // namespace cli
