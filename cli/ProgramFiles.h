// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "cli/Environment.h"
#include "formats/FileFormats.h"

/// The files of a command. All functions complain by CommandError.
namespace cli {

/// The endings of the formats for a complaint: those that can be read, or all that can be written.
std::string KnownEndings(bool areRead);

/// Reads a program. A TMF or LMF file gives one with a single mode, named after the file; any other is read
/// as XML.
TCBase::Program Load(const std::string& path, Invocation& invocation);

/// Refuses to use a file that is the log file; before the first line is logged, to save the file.
void CheckIsNoLog(const std::string& path, const Invocation& invocation);

/// Refuses an output path of no known kind, one that leads to the log file, and one that leads to the input
/// file while its name says another format.
void CheckOutput(const std::string& input, const std::string& output, const Invocation& invocation);

/// Refuses an output path that leads to an input file.
void CheckIsAnother(const std::string& input, const std::string& output);

/// Writes a program safely. Into a file of a single mode goes the one at `mode`, and a complaint names it
/// when there are more. What is of no known kind becomes XML.
void Save(const TCBase::Program& program, std::size_t mode, const std::string& path, Invocation& invocation);

}  // namespace cli
