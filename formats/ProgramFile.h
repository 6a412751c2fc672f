// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "QorLib/xml/reader.h"
#include "model/Program.h"

/// The program's own file format: all modes and the channels' names and colours in one XML document.
namespace TCBase {

/// The program as the bytes of its file.
std::string WriteProgram(const Program& program);

/// Replaces the program's modes, and those of its channel infos that the bytes name, by what they hold. On an
/// error the program is untouched. Throws qor::xout_of_memory.
std::optional<qor::xml::error> ReadProgram(std::string bytes, Program& program);

/// Writes the file safely. Why that failed, or nothing; the old file is whole then.
qor::Sentence SaveProgram(const Program& program, const std::string& path);

/// Reads the file into the program. Why that failed, without the path, or nothing; the program is untouched
/// then.
qor::Sentence LoadProgram(const std::string& path, Program& program);

}  // namespace TCBase
