// SPDX-License-Identifier: MIT
// The commands of the menu "File"
#include <algorithm>

#include "QorLib/Exceptions.h"
#include "QorLib/qor_win_str_utils.h"
#include "QorLib/xml/reader.h"
#include "formats/FileBytes.h"
#include "formats/LmfFile.h"
#include "formats/RawFile.h"
#include "formats/TmfFile.h"
#include "model/ModeSample.h"
#include "model/TimeText.h"
#include "ui/Commands.h"
#include "ui/Workbench.h"

namespace UX {
namespace {

/// The file's name without folder and ending.
std::string BareName(const std::string& path) {
  const std::string file = path.substr(path.find_last_of("/\\") + 1);  // npos + 1 is 0
  const std::string name = file.substr(0, file.rfind('.'));
  return qor::win::WellFormedUtf8(name.empty() ? file : name);
}

/// A name for a file to be written: that of the mode, without what no file's name can hold.
std::string FileNameFor(const TCBase::Mode& mode, const char* ending) {
  std::string name = mode.name;
  for (char& c : name) {
    if (static_cast<unsigned char>(c) < ' ' ||
        std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos)
      c = '_';
  }
  return name + ending;
}

using ImportFunction = TCBase::ImportResult (*)(std::string_view bytes, TCBase::Mode& mode);
using ExportFunction = std::string (*)(const TCBase::Mode& mode);

/// A file becomes a mode of its own, behind the others.
void Import(Workbench& workbench, const std::string& path, ImportFunction import) {
  TCBase::Mode mode{BareName(path), "", {}};
  TCBase::ImportResult result;
  try {
    result = import(TCBase::ReadFileBytes(path, qor::xml::reader::MaxBytes), mode);
  } catch (const qor::win::xsystem& failed) {
    return workbench.TellFailure({"Error loading program {1}", {path}}, failed.Description());
  }
  const std::string message =
      workbench.Text(result.message) + (result.detail.empty() ? "" : ": " + result.detail);
  if (!result.isImported) return workbench.TellFailure({"Error loading program {1}", {path}}, message);
  workbench.editor.Reset();
  workbench.Edit([&] {
    workbench.document.InsertMode(workbench.document.Program().modes.size(), std::move(mode));
    return TCBase::EditResult{true, {"Loaded program file {1}", {path}}};
  });
  if (!message.empty()) workbench.services.log.ForeignMessage(message);
}

void AskAndImport(Workbench& workbench, FileKind kind, ImportFunction import) {
  if (const auto path = workbench.dialogs.PathToOpen(kind)) Import(workbench, *path, import);
}

/// Whether the path ends in that ending, which is in lower case.
bool HasEnding(const std::string& path, std::string_view ending) {
  if (path.size() < ending.size()) return false;
  return std::ranges::equal(
      std::string_view(path).substr(path.size() - ending.size()), ending, {},
      [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
}

void Export(Workbench& workbench, FileKind kind, const char* ending, ExportFunction exported) {
  workbench.editor.FinishRun();
  const TCBase::Mode& mode = workbench.document.Mode();
  const auto path = workbench.dialogs.PathToSave(kind, FileNameFor(mode, ending));
  if (!path) return;
  try {
    TCBase::ReplaceFileBytes(*path, exported(mode));
    workbench.Say({"Saved program {1}", {*path}});
  } catch (const qor::win::xsystem& failed) {
    const qor::Sentence sentence = {"Error creating file {1}, error: {2}", {*path, failed.Description()}};
    workbench.Say(sentence);
    workbench.dialogs.Tell(BareName(*path), workbench.Text(sentence));
  }
}

/// "08:00  20 40J 0 0 0": the values that an upload sends, and where they are held.
std::string SampleLine(const TCBase::ModeSample& sample) {
  std::string line = TCBase::MinuteText(sample.hour * 60 + sample.minute) + " ";
  for (std::size_t i = 0; i < TCBase::ChannelCount; ++i) {
    line += ' ' + std::to_string(sample.values[i]);
    if (sample.jumps[i] != 0) line += 'J';
  }
  return line;
}

}  // namespace

void NewProgram(Workbench& workbench) {
  if (!workbench.MayDropProgram()) return;
  workbench.editor.Reset();
  workbench.history.Clear();
  workbench.document.New(workbench.services.texts.Translator());
  workbench.ProgramChanged();
}

void LoadProgram(Workbench& workbench) {
  if (!workbench.MayDropProgram()) return;
  const auto path = workbench.dialogs.PathToOpen(FileKind::Program);
  if (path) workbench.Load(*path);
}

void OpenFile(Workbench& workbench, const std::string& path) {
  if (workbench.IsDemoRunning()) return;
  if (HasEnding(path, ".tmf")) return Import(workbench, path, TCBase::ImportTMF);
  if (HasEnding(path, ".lmf")) return Import(workbench, path, TCBase::ImportLMF);
  workbench.Open(path);
}

void SaveProgram(Workbench& workbench) {
  if (workbench.document.Path().empty()) return SaveProgramAs(workbench);
  workbench.SaveTo(workbench.document.Path());
}

void SaveProgramAs(Workbench& workbench) {
  workbench.editor.FinishRun();
  const auto path = workbench.dialogs.PathToSave(FileKind::Program, workbench.document.Path());
  if (path) workbench.SaveTo(*path);
}

void ImportTMF(Workbench& workbench) {
  AskAndImport(workbench, FileKind::TMF, TCBase::ImportTMF);
}

void ExportTMF(Workbench& workbench) {
  Export(workbench, FileKind::TMF, ".tmf", TCBase::ExportTMF);
}

void ImportLMF(Workbench& workbench) {
  AskAndImport(workbench, FileKind::LMF, TCBase::ImportLMF);
}

void ExportLMF(Workbench& workbench) {
  Export(workbench, FileKind::LMF, ".lmf", TCBase::ExportLMF);
}

void ExportRAW(Workbench& workbench) {
  Export(workbench, FileKind::RAW, ".raw", TCBase::ExportRAW);
}

void ProgramInfo(Workbench& workbench) {
  workbench.editor.FinishRun();
  for (const TCBase::Mode& mode : workbench.document.Program().modes) {
    workbench.Say({"Steps for mode: {1}", {mode.name}});
    for (const TCBase::ModeSample& sample : TCBase::SampleTable(mode)) {
      workbench.services.log.ForeignMessage(SampleLine(sample));
    }
  }
}

void Exit(Workbench& workbench) {
  workbench.End();
}

}  // namespace UX
