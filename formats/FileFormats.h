// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "formats/ImportResult.h"
#include "model/Program.h"

/// Program files of all formats, told apart by the ending of their names; what front ends say of them.
namespace TCBase {

/// A format of program files. All but one hold a single mode.
struct FileFormat {
  std::string_view ending;  // in lower case
  std::string_view name;
  // Of a single mode; null in the format of whole programs, the first also in one that is written only.
  ImportResult (*import)(std::string_view bytes, Mode& mode) = nullptr;
  std::string (*exported)(const Mode& mode) = nullptr;
  int fewestSteps = 0;        // of a mode, else it is refused
  int mostSteps = 0;          // that a reader may take; 0 for any number
  bool isHalfHourly = false;  // holds the values at the half hours alone

  bool IsOfOneMode() const { return exported != nullptr; }
  bool IsRead() const { return !IsOfOneMode() || import != nullptr; }
};

/// The one of whole programs first.
std::span<const FileFormat> FileFormats();
/// The format that the file's name says; null when it says none.
const FileFormat* FormatOf(const std::string& path);
/// The file's ending in lower case, with its dot; empty when there is none.
std::string EndingOf(const std::string& path);
/// The file's name without folder and ending, as a mode may be named.
std::string BareName(const std::string& path);

// What front ends do with files. A message says what failed and why, or, after an import, what was left out.

/// Reads a file of a single mode into a mode of its name.
ImportResult ReadMode(const FileFormat& format, const std::string& path, Mode& mode);
/// Reads the file of a whole program, whatever its name. The program is as it was when that fails.
ImportResult ReadWholeProgram(const std::string& path, Program& program);
/// Reads the bytes of a file of the format. A single mode takes the place of the program's modes. `name` is
/// what messages call the file, and its mode.
ImportResult ReadAnyBytes(const FileFormat& format, std::string bytes, const std::string& name,
                          Program& program);

/// Why the mode cannot be written in the format; nothing when it can.
qor::Sentence RefusalOf(const FileFormat& format, const Mode& mode);
/// What the format does not carry of the mode.
std::vector<qor::Sentence> LossesOf(const FileFormat& format, const Mode& mode);
/// The bytes of a file of the program, or of that mode of it; the mode must not be refused.
std::string BytesOf(const FileFormat& format, const Program& program, std::size_t mode);
/// Write files safely. They return why that failed, or nothing.
qor::Sentence WriteMode(const FileFormat& format, const Mode& mode, const std::string& path);
qor::Sentence WriteWholeProgram(const Program& program, const std::string& path);

}  // namespace TCBase
