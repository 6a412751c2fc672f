// SPDX-License-Identifier: MIT
// The commands of the menu "File"
#include "formats/FileFormats.h"
#include "model/ModeSample.h"
#include "model/TimeText.h"
#include "ui/Commands.h"
#include "ui/Workbench.h"

namespace UX {
namespace {

/// A name for a file to be written: that of the mode, without what no file's name can hold.
std::string FileNameFor(const TCBase::Mode& mode, std::string_view ending) {
  std::string name = mode.name;
  for (char& c : name) {
    if (static_cast<unsigned char>(c) < ' ' ||
        std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos)
      c = '_';
  }
  return name.append(ending);
}

/// A file becomes a mode of its own, behind the others. While a demo plays, its mode stays in sight.
void Import(Workbench& workbench, const TCBase::FileFormat& format, const std::string& path) {
  TCBase::Mode mode;
  const TCBase::ImportResult result = TCBase::ReadMode(format, path, mode);
  if (!result.isImported) return workbench.TellFailure(result.message);
  if (!workbench.IsDemoRunning()) workbench.editor.Reset();
  workbench.Edit([&](Content& content) {
    const std::size_t shown = content.currentMode;
    content.InsertMode(content.program.modes.size(), std::move(mode));
    if (workbench.IsDemoRunning()) content.currentMode = shown;
    return TCBase::EditResult{true, {TR("Loaded program file {1}"), {path}}};
  });
  if (result.message) workbench.Say(result.message);
}

void AskAndImport(Workbench& workbench, FileKind kind, const char* ending) {
  if (const auto path = workbench.dialogs.PathToOpen(kind))
    Import(workbench, *TCBase::FormatOf(ending), *path);
}

void Export(Workbench& workbench, FileKind kind, const char* ending) {
  const TCBase::FileFormat& format = *TCBase::FormatOf(ending);
  const TCBase::Mode& mode = workbench.document.Mode();
  if (const qor::Sentence refusal = TCBase::RefusalOf(format, mode)) return workbench.TellFailure(refusal);
  const auto path = workbench.dialogs.PathToSave(kind, FileNameFor(mode, ending));
  if (!path) return;
  if (const qor::Sentence failure = TCBase::WriteMode(format, mode, *path))
    return workbench.TellFailure(failure);
  workbench.Say({TR("Saved program {1}"), {*path}});
  for (const qor::Sentence& loss : TCBase::LossesOf(format, mode)) workbench.Say(loss);
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
  workbench.document.New(workbench.services.texts.Translator());
}

void LoadProgram(Workbench& workbench) {
  if (!workbench.MayDropProgram()) return;
  const auto path = workbench.dialogs.PathToOpen(FileKind::Program);
  if (path) workbench.Load(*path);
}

void OpenFile(Workbench& workbench, const std::string& path) {
  const TCBase::FileFormat* format = TCBase::FormatOf(path);
  if (format != nullptr && format->IsOfOneMode()) return Import(workbench, *format, path);
  if (workbench.IsDemoRunning()) return workbench.Say(TR("A program cannot be opened while a demo plays."));
  workbench.Open(path);
}

void SaveProgram(Workbench& workbench) {
  if (workbench.document.Path().empty()) return SaveProgramAs(workbench);
  workbench.SaveTo(workbench.document.Path());
}

void SaveProgramAs(Workbench& workbench) {
  const auto path = workbench.dialogs.PathToSave(FileKind::Program, workbench.document.Path());
  if (path) workbench.SaveTo(*path);
}

void ImportTMF(Workbench& workbench) {
  AskAndImport(workbench, FileKind::TMF, ".tmf");
}

void ExportTMF(Workbench& workbench) {
  Export(workbench, FileKind::TMF, ".tmf");
}

void ImportLMF(Workbench& workbench) {
  AskAndImport(workbench, FileKind::LMF, ".lmf");
}

void ExportLMF(Workbench& workbench) {
  Export(workbench, FileKind::LMF, ".lmf");
}

void ExportRAW(Workbench& workbench) {
  Export(workbench, FileKind::RAW, ".raw");
}

void ProgramInfo(Workbench& workbench) {
  for (const TCBase::Mode& mode : workbench.document.Program().modes) {
    workbench.Say({TR("Steps for mode: {1}"), {mode.name}});
    for (const TCBase::ModeSample& sample : TCBase::SampleTable(mode)) {
      workbench.services.log.ForeignMessage(SampleLine(sample));
    }
  }
}

void Exit(Workbench& workbench) {
  workbench.End();
}

}  // namespace UX
