// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "cli/Environment.h"
#include "formats/FileFormats.h"

/// The files of a command. The name "-" stands for standard input or output, where a program is XML unless
/// told otherwise. All functions complain by CommandError.
namespace cli {

inline bool IsStandardStream(const std::string& path) {
  return path == "-";
}
/// What messages call the file.
std::string NameOf(const std::string& path, const Invocation& invocation);

/// Refuses a name that says no format, naming those that can be read, or all that can be written.
void CheckEnding(const std::string& path, bool isRead);
/// The format that the name says; of one that says none it is that of whole programs.
const TCBase::FileFormat& FormatIn(const std::string& path);

/// Reads a program. A TMF or LMF file gives one with a single mode, named after the file.
TCBase::Program Load(const std::string& path, Invocation& invocation);
TCBase::Program Load(const std::string& path, const TCBase::FileFormat& format, Invocation& invocation);

/// Reads a text of UTF-8.
std::string LoadText(const std::string& path, Invocation& invocation);

/// Refuses to use a file that is the log file; before the first line is logged, to save the file.
void CheckIsNoLog(const std::string& path, const Invocation& invocation);

/// Where a command writes.
struct Output {
  std::string path;        // "-" for standard output; empty where it was not said
  bool isInPlace = false;  // over the file that it reads
  bool isForced = false;   // also over an existing file
};

/// Sees to it, before a command begins, that it may write there what it has made of `input`; an existing file
/// is replaced only by the command that read it, if it was told to, or after a question. A message of the
/// log goes to standard error from now on where standard output takes the file.
void CheckOutput(const std::string& input, const Output& output, Invocation& invocation);

/// The same for a program: it may take the place of the file that it was read from, where that is of the same
/// format, and of no file that is none of the format.
void CheckProgramOutput(const std::string& input, const Output& output, const TCBase::FileFormat& format,
                        Invocation& invocation);
/// The same for an edit, by the name of the file; fills in the path of one in place.
void CheckProgramOutput(const std::string& input, Output& output, Invocation& invocation);

/// The same for an edit by a text, whose file stays as it is; false where there is no text and so no edit.
bool CheckTextEdit(const std::string& input, const std::string& text, Output& output, Invocation& invocation);

/// Writes a program safely. Into a file of a single mode goes the one at `mode`, and a complaint names it
/// when there are more.
void Save(const TCBase::Program& program, std::size_t mode, const std::string& path, Invocation& invocation);
void Save(const TCBase::Program& program, std::size_t mode, const std::string& path,
          const TCBase::FileFormat& format, Invocation& invocation);
/// Writes any other file safely.
void SaveBytes(const std::string& bytes, const std::string& path, Invocation& invocation);

}  // namespace cli
