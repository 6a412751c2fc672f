// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "cli/Environment.h"
#include "model/Program.h"

/// Program files of all formats, told apart by the ending of their names. All functions complain by
/// CommandError.
namespace cli {

/// What a file's name says of it.
struct FileKind {
  bool isXml = false;         // a whole program
  bool isSingleMode = false;  // TMF, LMF or RAW
  explicit operator bool() const { return isXml || isSingleMode; }
};
FileKind KindOf(const std::string& path);

/// The file's ending in lower case, with its dot; empty when there is none.
std::string EndingOf(const std::string& path);

/// Reads a program. A TMF or LMF file gives one with a single mode, named after the file; any other is read
/// as XML.
TCBase::Program Load(const std::string& path, Invocation& invocation);

/// Refuses to use a file that is the log file; before the first line is logged, to save the file.
void CheckIsNoLog(const std::string& path, const Invocation& invocation);

/// Refuses an output path that leads to the input file.
void CheckIsAnother(const std::string& input, const std::string& output);

/// Refuses an output path of no known kind, or one that leads to the input file or the log file.
void CheckOutput(const std::string& input, const std::string& output, const Invocation& invocation);

/// Writes a program safely. Into a file of a single mode goes the one at `mode`, and a complaint names it
/// when there are more. What is of no known kind becomes XML.
void Save(const TCBase::Program& program, std::size_t mode, const std::string& path, Invocation& invocation);

}  // namespace cli
