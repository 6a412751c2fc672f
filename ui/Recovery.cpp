// SPDX-License-Identifier: MIT
#include "ui/Recovery.h"

#include "formats/FileBytes.h"
#include "formats/ProgramFile.h"
#include "platform/Files.h"

namespace UX {
namespace {

constexpr const char* FileName = "HalvexRecovery.xml";
constexpr std::string_view SettingPath = "recovery_file";  // the path of the program that the copy is of

}  // namespace

Recovery::Recovery(const std::string& folder, Workbench& workbench)
    : path_(platform::PathIn(folder, FileName)), workbench_(workbench) {}

void Recovery::Offer() {
  TCBase::Program program;
  if (TCBase::LoadProgram(path_, program)) return;
  const Question question = {
      workbench_.Text(TR("Program modified")),
      workbench_.Text(TR("Halvex was not closed properly. Open the changes that were not saved?"))};
  if (workbench_.dialogs.Ask(question) == Answer::Yes) {
    workbench_.Recover(std::move(program), workbench_.services.settings.Get(SettingPath));
    kept_ = workbench_.document.Program();
  } else {
    platform::RemoveFile(path_);
  }
}

bool Recovery::Keep() {
  const Document& document = workbench_.document;
  if (!document.IsModified()) {
    Remove();
    return true;
  }
  if (kept_ == document.Program()) return true;
  if (platform::ReplaceWholeFile(path_, TCBase::WriteProgram(document.Program()))) return false;
  workbench_.services.settings.Set(SettingPath, document.Path());
  kept_ = document.Program();
  return true;
}

void Recovery::Remove() {
  if (!kept_) return;
  kept_.reset();
  platform::RemoveFile(path_);
}

}  // namespace UX
