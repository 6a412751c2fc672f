// SPDX-License-Identifier: MIT
#include "cli/ProgramFiles.h"

#include <algorithm>
#include <istream>
#include <ostream>

#include "QorLib/qor_win_str_utils.h"
#include "QorLib/xml/reader.h"
#include "cli/ExitStatus.h"
#include "cli/LogPrinter.h"
#include "cli/Question.h"
#include "formats/FileBytes.h"
#include "model/Presets.h"
#include "platform/Files.h"

namespace cli {
namespace {

constexpr std::size_t MaxTextBytes = std::size_t{1} << 20;

/// All of standard input, but at most `limit` + 1 bytes.
std::string ReadStandardInput(std::size_t limit, std::istream& in) {
  constexpr std::size_t BlockBytes = std::size_t{1} << 16;
  std::string bytes;
  while (in && bytes.size() <= limit) {
    const std::size_t start = bytes.size();
    bytes.resize(std::min(start + BlockBytes, limit + 1));
    in.read(bytes.data() + start, static_cast<std::streamsize>(bytes.size() - start));
    bytes.resize(start + static_cast<std::size_t>(in.gcount()));
  }
  return bytes;
}

/// `limit` + 1 bytes, where there are more. Why they could not be read, or nothing.
qor::Sentence Read(const std::string& path, std::size_t limit, std::string& bytes, Invocation& invocation) {
  return TCBase::Attempt([&] {
    bytes = IsStandardStream(path) ? ReadStandardInput(limit, invocation.environment.in)
                                   : TCBase::ReadFileBytes(path, limit);
  });
}

/// Says what a file of one mode does not take of the program.
void WarnOfLoss(const TCBase::FileFormat& format, const TCBase::Program& program, const TCBase::Mode& mode,
                const std::string& name, Invocation& invocation) {
  const auto warn = [&](const qor::Sentence& loss) { invocation.printer.Warn(qor::About(name, loss)); };
  if (program.modes.size() > 1) {
    warn({TR("only the mode '{1}' is written, since {2} files hold one (see --mode)"),
          {mode.name, format.name}});
  }
  for (const qor::Sentence& loss : TCBase::LossesOf(format, mode)) warn(loss);
}

/// Whether the file holds a program of the format, or nothing at all.
bool MayBecomeProgram(const std::string& path, const TCBase::FileFormat& format) {
  std::string start;
  if (!format.IsRead() || (!platform::ReadWholeFile(path, 0, start) && start.empty())) return true;
  TCBase::Program program;
  TCBase::Mode mode;
  return format.IsOfOneMode() ? TCBase::ReadMode(format, path, mode).isImported
                              : TCBase::ReadWholeProgram(path, program).isImported;
}

}  // namespace

std::string NameOf(const std::string& path, const Invocation& invocation) {
  return IsStandardStream(path) ? invocation.Text(TR("standard input")) : path;
}

void CheckEnding(const std::string& path, bool isRead) {
  if (TCBase::FormatOf(path) != nullptr) return;
  std::string endings;
  for (const TCBase::FileFormat& format : TCBase::FileFormats()) {
    if (format.IsRead() || !isRead) endings += (endings.empty() ? "" : ", ") + std::string(format.ending);
  }
  throw CommandError(WrongUsage, {TR("{1} does not end in {2}"), {path, endings}});
}

const TCBase::FileFormat& FormatIn(const std::string& path) {
  const TCBase::FileFormat* format = TCBase::FormatOf(path);
  return format != nullptr ? *format : TCBase::FileFormats()[0];
}

TCBase::Program Load(const std::string& path, Invocation& invocation) {
  return Load(path, FormatIn(path), invocation);
}

TCBase::Program Load(const std::string& path, const TCBase::FileFormat& format, Invocation& invocation) {
  CheckIsNoLog(path, invocation);
  const std::string name = NameOf(path, invocation);
  TCBase::Program program;
  if (format.IsOfOneMode()) program = TCBase::NewProgram(invocation.texts.Translator());
  std::string bytes;
  if (qor::Sentence reason = Read(path, qor::xml::reader::MaxBytes, bytes, invocation)) {
    throw CommandError(FileFailed, {TR("Error loading program {1}"), {name}, {std::move(reason)}});
  }
  const TCBase::ImportResult result = TCBase::ReadAnyBytes(format, std::move(bytes), name, program);
  if (!result.isImported) throw CommandError(FileFailed, result.message);
  if (result.message) invocation.printer.Warn(qor::About(name, result.message));
  return program;
}

std::string LoadText(const std::string& path, Invocation& invocation) {
  const std::string name = NameOf(path, invocation);
  std::string text;
  if (qor::Sentence reason = Read(path, MaxTextBytes, text, invocation)) {
    throw CommandError(FileFailed, {TR("{1} could not be read"), {name}, {std::move(reason)}});
  }
  if (text.size() > MaxTextBytes) {
    throw CommandError(FileFailed, {TR("{1} is larger than {2} MiB"), {name, MaxTextBytes >> 20}});
  }
  if (qor::win::FindBrokenUtf8(text) != std::string::npos || text.find('\0') != std::string::npos) {
    throw CommandError(FileFailed, {TR("{1} is no UTF-8 text; save it as such"), {name}});
  }
  return text;
}

void CheckIsNoLog(const std::string& path, const Invocation& invocation) {
  if (!platform::IsSameFile(path, invocation.options.logFile)) return;
  invocation.printer.CloseFile();  // the complaint must not go into it
  throw CommandError(FileFailed, {TR("{1} is the log file; give --log another one"), {path}});
}

void CheckOutput(const std::string& input, const Output& output, Invocation& invocation) {
  const std::string& path = output.path;
  if (IsStandardStream(path)) {
    invocation.printer.KeepStandardOutputFree();
    return;
  }
  CheckIsNoLog(path, invocation);
  if (platform::IsSameFile(input, path)) {
    throw CommandError(FileFailed, {TR("{1} is the file that is read; give another one to write"), {path}});
  }
  if (!platform::IsFile(path) || output.isForced) return;
  if (!invocation.environment.terminal.isInput) {
    throw CommandError(FileFailed,
                       {TR("{1} exists; add --force to replace it, or give another name"), {path}});
  }
  if (!IsConfirmed({TR("{1} exists. Replace it?"), {path}}, invocation)) {
    throw CommandError(Interrupted, TR("nothing was written"));
  }
}

void CheckProgramOutput(const std::string& input, Output& output, Invocation& invocation) {
  if (output.isInPlace) {
    if (!output.path.empty()) {
      throw CommandError(WrongUsage, {TR("-i changes {1} itself; give either that or -o"), {input}});
    }
    if (IsStandardStream(input)) {
      throw CommandError(WrongUsage, TR("standard input cannot be changed in place; give -o"));
    }
    output.path = input;
  } else if (output.path.empty()) {
    throw CommandError(WrongUsage,
                       {TR("give the file to write with -o OUT, or -i to change {1} itself"), {input}});
  }
  if (!IsStandardStream(output.path) && !output.isInPlace) CheckEnding(output.path, false);
  CheckProgramOutput(input, output, FormatIn(output.path), invocation);
}

void CheckProgramOutput(const std::string& input, const Output& output, const TCBase::FileFormat& format,
                        Invocation& invocation) {
  const std::string& path = output.path;
  const bool isInput = platform::IsSameFile(input, path);
  if (!IsStandardStream(path)) CheckIsNoLog(path, invocation);
  if (isInput && &format == &FormatIn(input)) return;
  if (!isInput && platform::IsFile(path) && !MayBecomeProgram(path, format)) {
    throw CommandError(
        FileFailed,
        {TR("{1} exists and is no {2} program; remove it first, or give another name"), {path, format.name}});
  }
  CheckOutput(input, output, invocation);
}

bool CheckTextEdit(const std::string& input, const std::string& text, Output& output,
                   Invocation& invocation) {
  if (text.empty()) {
    if (output.path.empty() && !output.isInPlace) return false;
    throw CommandError(WrongUsage, TR("there is nothing to write: -o and -i go with a text that is read"));
  }
  if (IsStandardStream(input) && IsStandardStream(text)) {
    throw CommandError(WrongUsage, TR("standard input cannot be both the program and the text"));
  }
  if (platform::IsSameFile(text, output.path)) {
    throw CommandError(FileFailed, {TR("{1} is the file that is read; give another one to write"), {text}});
  }
  CheckProgramOutput(input, output, invocation);
  return true;
}

void Save(const TCBase::Program& program, std::size_t mode, const std::string& path, Invocation& invocation) {
  Save(program, mode, path, FormatIn(path), invocation);
}

void Save(const TCBase::Program& program, std::size_t mode, const std::string& path,
          const TCBase::FileFormat& format, Invocation& invocation) {
  const bool isOfOneMode = format.IsOfOneMode();
  if (isOfOneMode) WarnOfLoss(format, program, program.modes[mode], path, invocation);
  if (IsStandardStream(path)) {
    const qor::Sentence refusal =
        isOfOneMode ? TCBase::RefusalOf(format, program.modes[mode]) : qor::Sentence();
    if (refusal) throw CommandError(FileFailed, refusal);
    SaveBytes(TCBase::BytesOf(format, program, mode), path, invocation);
    return;
  }
  const qor::Sentence failure = isOfOneMode ? TCBase::WriteMode(format, program.modes[mode], path)
                                            : TCBase::WriteWholeProgram(program, path);
  if (failure) throw CommandError(FileFailed, failure);
}

void SaveBytes(const std::string& bytes, const std::string& path, Invocation& invocation) {
  if (IsStandardStream(path)) {
    invocation.environment.out << bytes << std::flush;
    return;
  }
  CheckIsNoLog(path, invocation);
  if (qor::Sentence reason = TCBase::Attempt([&] { TCBase::ReplaceFileBytes(path, bytes); })) {
    throw CommandError(FileFailed, {TR("{1} could not be written"), {path}, {std::move(reason)}});
  }
}

}  // namespace cli
