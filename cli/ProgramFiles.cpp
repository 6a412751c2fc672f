// SPDX-License-Identifier: MIT
#include "cli/ProgramFiles.h"

#include "cli/ExitStatus.h"
#include "cli/LogPrinter.h"
#include "model/Presets.h"
#include "platform/Files.h"

namespace cli {
namespace {

/// Says what a file of one mode does not take of the program.
void WarnOfLoss(const TCBase::FileFormat& format, const TCBase::Program& program, const TCBase::Mode& mode,
                const std::string& path, Invocation& invocation) {
  const auto warn = [&](const qor::Sentence& loss) { invocation.printer.Warn(qor::About(path, loss)); };
  if (program.modes.size() > 1) {
    warn({"only the mode '{1}' is written, since {2} files hold one (see --mode)", {mode.name, format.name}});
  }
  for (const qor::Sentence& loss : TCBase::LossesOf(format, mode)) warn(loss);
}

}  // namespace

std::string KnownEndings(bool areRead) {
  std::string endings;
  for (const TCBase::FileFormat& format : TCBase::FileFormats()) {
    if (format.IsRead() || !areRead) endings += (endings.empty() ? "" : ", ") + std::string(format.ending);
  }
  return endings;
}

TCBase::Program Load(const std::string& path, Invocation& invocation) {
  CheckIsNoLog(path, invocation);
  const TCBase::FileFormat* format = TCBase::FormatOf(path);
  TCBase::Program program;
  if (format != nullptr && format->IsOfOneMode()) program = TCBase::NewProgram(invocation.texts.Translator());
  const TCBase::ImportResult result = TCBase::ReadAnyFile(path, program);
  if (!result.isImported) throw CommandError(FileFailed, result.message);
  if (result.message) invocation.printer.Warn(qor::About(path, result.message));
  return program;
}

void CheckIsNoLog(const std::string& path, const Invocation& invocation) {
  if (!platform::IsSameFile(path, invocation.options.logFile)) return;
  invocation.printer.CloseFile();  // the complaint must not go into it
  throw CommandError(FileFailed, {"{1} is the log file; give --log another one", {path}});
}

void CheckIsAnother(const std::string& input, const std::string& output) {
  if (platform::IsSameFile(input, output)) {
    throw CommandError(FileFailed, {"{1} is the file that is read; give another one to write", {output}});
  }
}

void CheckOutput(const std::string& input, const std::string& output, const Invocation& invocation) {
  CheckIsNoLog(output, invocation);
  const TCBase::FileFormat* format = TCBase::FormatOf(output);
  if (format == nullptr) {
    throw CommandError(WrongUsage, {"{1} does not end in {2}", {output, KnownEndings(false)}});
  }
  // What says no format is read as a whole program.
  const TCBase::FileFormat* read = TCBase::FormatOf(input);
  if (format != (read != nullptr ? read : &TCBase::FileFormats()[0])) CheckIsAnother(input, output);
}

void Save(const TCBase::Program& program, std::size_t mode, const std::string& path, Invocation& invocation) {
  CheckIsNoLog(path, invocation);
  const TCBase::FileFormat* format = TCBase::FormatOf(path);
  const bool isOfOneMode = format != nullptr && format->IsOfOneMode();
  if (isOfOneMode) WarnOfLoss(*format, program, program.modes[mode], path, invocation);
  const qor::Sentence failure = isOfOneMode ? TCBase::WriteMode(*format, program.modes[mode], path)
                                            : TCBase::WriteWholeProgram(program, path);
  if (failure) throw CommandError(FileFailed, failure);
}

}  // namespace cli
