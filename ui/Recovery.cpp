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
      workbench_.Text({"Program modified", {}}),
      workbench_.Text({"Halvex was not closed properly. Open the changes that were not saved?", {}})};
  if (workbench_.dialogs.Ask(question) == Answer::Yes) {
    workbench_.Recover(std::move(program), workbench_.services.settings.Get(SettingPath));
    kept_ = workbench_.document.Program();
  } else {
    platform::RemoveFile(path_);
  }
}

void Recovery::Keep() {
  if (!workbench_.document.IsModified()) return Remove();
  if (kept_ == workbench_.document.Program()) return;
  workbench_.services.settings.Set(SettingPath, workbench_.document.Path());
  kept_ = workbench_.document.Program();
  platform::ReplaceWholeFile(path_, TCBase::WriteProgram(*kept_));  // where that fails there is no copy
}

void Recovery::Remove() {
  if (!kept_) return;
  kept_.reset();
  platform::RemoveFile(path_);
}

}  // namespace UX
