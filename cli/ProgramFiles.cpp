// SPDX-License-Identifier: MIT
#include "cli/ProgramFiles.h"

#include <algorithm>

#include "QorLib/Exceptions.h"
#include "QorLib/qor_win_str_utils.h"
#include "QorLib/xml/reader.h"
#include "cli/ExitStatus.h"
#include "cli/LogPrinter.h"
#include "formats/FileBytes.h"
#include "formats/LmfFile.h"
#include "formats/ProgramFile.h"
#include "formats/RawFile.h"
#include "formats/TmfFile.h"
#include "model/ModeSample.h"
#include "model/Presets.h"
#include "platform/Files.h"

namespace cli {
namespace {

/// A format whose files hold one mode.
struct ModeFormat {
  std::string_view ending;
  std::string_view name;
  TCBase::ImportResult (*import)(std::string_view bytes, TCBase::Mode& mode);  // null: written only
  std::string (*exported)(const TCBase::Mode& mode);
};
constexpr ModeFormat ModeFormats[] = {{".tmf", "TMF", TCBase::ImportTMF, TCBase::ExportTMF},
                                      {".lmf", "LMF", TCBase::ImportLMF, TCBase::ExportLMF},
                                      {".raw", "RAW", nullptr, TCBase::ExportRAW}};
constexpr const char* KnownEndings = ".xml, .tmf, .lmf or .raw";

std::size_t NameStart(const std::string& path) {
  return path.find_last_of("/\\") + 1;  // npos + 1 is 0
}

const ModeFormat* ModeFormatOf(const std::string& path) {
  const auto found = std::ranges::find(ModeFormats, EndingOf(path), &ModeFormat::ending);
  return found != std::end(ModeFormats) ? found : nullptr;
}

/// The file's name without folder and ending, as a mode may be named.
std::string ModeNameOf(const std::string& path) {
  const std::string file = path.substr(NameStart(path));
  const std::string name = file.substr(0, file.rfind('.'));
  return Printable(qor::win::WellFormedUtf8(name.empty() ? file : name));
}

[[noreturn]] void FailToLoad(const std::string& path, const std::string& reason,
                             const Invocation& invocation) {
  throw CommandError(FileFailed, invocation.Text({"Error loading program {1}", {path}}) + ": " + reason);
}

std::string ReadModeFile(const std::string& path, const Invocation& invocation) {
  try {
    std::string bytes = TCBase::ReadFileBytes(path, qor::xml::reader::MaxBytes);
    if (bytes.size() > qor::xml::reader::MaxBytes)
      FailToLoad(path, "the file is larger than 64 MiB", invocation);
    return bytes;
  } catch (const qor::win::xsystem& failed) {
    FailToLoad(path, failed.Description(), invocation);
  }
}

TCBase::Program Import(const ModeFormat& format, const std::string& path, Invocation& invocation) {
  if (format.import == nullptr) {
    FailToLoad(path, qor::Format("{1} files are written only", {format.name}), invocation);
  }
  TCBase::Program program = TCBase::NewProgram(invocation.texts.Translator());
  program.modes.resize(1);
  TCBase::Mode& mode = program.modes[0] = {ModeNameOf(path), "", {}};
  const TCBase::ImportResult result = format.import(ReadModeFile(path, invocation), mode);
  const std::string message =
      invocation.Text(result.message) + (result.detail.empty() ? "" : ": " + result.detail);
  if (!result.isImported) FailToLoad(path, message, invocation);
  if (!message.empty()) invocation.printer.Complain(qor::Format("warning: {1}: {2}", {path, message}));
  return program;
}

/// Says what a file of one mode cannot take of the program.
void WarnOfLoss(const ModeFormat& format, const TCBase::Program& program, const TCBase::Mode& mode,
                const std::string& path, Invocation& invocation) {
  const auto warn = [&](const std::string& sentence) {
    invocation.printer.Complain("warning: " + path + ": " + sentence);
  };
  if (program.modes.size() > 1) {
    warn(qor::Format("only the mode '{1}' is written, since {2} files hold one (see --mode)",
                     {mode.name, format.name}));
  }
  const auto hasJump = [](const TCBase::Channel& channel) {
    return std::ranges::any_of(channel.steps, &TCBase::Step::jump);
  };
  if (format.ending == ".lmf" && std::ranges::any_of(mode.channels, hasJump)) {
    warn("LMF files carry no jumps, only the values at each half hour");
  }
  const int steps = TCBase::StepCount(mode);
  if (format.ending == ".tmf" && steps > TCBase::MaxModeSteps) {
    warn(qor::Format("the mode has {1} steps; a reader may take only the first {2}",
                     {steps, TCBase::MaxModeSteps}));
  }
  if (format.ending == ".tmf" && steps == 0) {
    throw CommandError(FileFailed, qor::Format("the mode '{1}' has no steps, which no TMF file can hold; {2} "
                                               "was not written",
                                               {mode.name, path}));
  }
}

}  // namespace

std::string EndingOf(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  if (dot == std::string::npos || dot < NameStart(path)) return {};
  std::string ending = path.substr(dot);
  for (char& c : ending) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return ending;
}

FileKind KindOf(const std::string& path) {
  return {EndingOf(path) == ".xml", ModeFormatOf(path) != nullptr};
}

TCBase::Program Load(const std::string& path, Invocation& invocation) {
  CheckIsNoLog(path, invocation);
  if (const ModeFormat* format = ModeFormatOf(path)) return Import(*format, path, invocation);
  TCBase::Program program;
  if (const auto reason = TCBase::LoadProgram(path, program)) FailToLoad(path, *reason, invocation);
  return program;
}

void CheckIsNoLog(const std::string& path, const Invocation& invocation) {
  if (!platform::IsSameFile(path, invocation.logFile)) return;
  invocation.printer.CloseFile();  // the complaint must not go into it
  throw CommandError(FileFailed, qor::Format("{1} is the log file; give --log another one", {path}));
}

void CheckIsAnother(const std::string& input, const std::string& output) {
  if (platform::IsSameFile(input, output)) {
    throw CommandError(FileFailed,
                       qor::Format("{1} is the file that is read; give another one to write", {output}));
  }
}

void CheckOutput(const std::string& input, const std::string& output, const Invocation& invocation) {
  CheckIsNoLog(output, invocation);
  if (!KindOf(output)) {
    throw CommandError(WrongUsage, qor::Format("{1} does not end in {2}", {output, KnownEndings}));
  }
  CheckIsAnother(input, output);
}

void Save(const TCBase::Program& program, std::size_t mode, const std::string& path, Invocation& invocation) {
  CheckIsNoLog(path, invocation);
  const ModeFormat* format = ModeFormatOf(path);
  if (format != nullptr) WarnOfLoss(*format, program, program.modes[mode], path, invocation);
  try {
    if (format != nullptr) {
      TCBase::ReplaceFileBytes(path, format->exported(program.modes[mode]));
    } else {
      TCBase::SaveProgram(program, path);
    }
  } catch (const qor::win::xsystem& failed) {
    throw CommandError(FileFailed,
                       invocation.Text({"Error saving program {1}", {path}}) + ": " + failed.Description());
  }
}

}  // namespace cli
