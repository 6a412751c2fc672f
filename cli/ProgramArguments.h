// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/LogPrinter.h"
#include "model/Program.h"

/// What commands that read a program have in common. All functions complain by CommandError.
namespace cli {

/// Reads a program file.
TCBase::Program Load(const std::string& path);

/// Writes a program file safely.
void Save(const TCBase::Program& program, const std::string& path);

/// The mode of that number, from 1. `path` is for the message.
const TCBase::Mode& ModeOf(const TCBase::Program& program, int number, const std::string& path);

/// The modes of those numbers, in that order; all modes when there are none.
TCBase::Program::ModeListView ModesOf(const TCBase::Program& program, const std::vector<int>& numbers,
                                      const std::string& path);

/// Names the modes that have more steps than controllers take.
void WarnOfLongModes(const TCBase::Program::ModeListView& modes, LogPrinter& printer);

/// What is wrong with the text as a mode's number, which counts from 1 in plain digits; empty when nothing
/// is.
std::string CheckModeNumber(const std::string& text);

/// Adds the argument FILE.
void AddFile(CLI::App& parser, std::string& path);
/// Adds "--mode N", which may be given several times.
void AddModes(CLI::App& parser, std::vector<int>& numbers);

}  // namespace cli
