// SPDX-License-Identifier: MIT
// The commands of the menus "Language" and "Help", and of the view
#include "model/ModeSample.h"
#include "ui/Commands.h"
#include "ui/Workbench.h"

namespace UX {
namespace {

constexpr std::string_view EarlierModel = "ORVANTA";
constexpr int PageSeconds = 900;

void MoveView(Workbench& workbench, int seconds) {
  workbench.span.MoveBy(seconds);
  workbench.view.Refresh();
}

}  // namespace

void ChooseEnglish(Workbench& workbench) {
  ChooseLanguage(workbench, TCBase::EnglishId);
}

void ChooseLanguage(Workbench& workbench, std::string_view id) {
  const std::vector<qor::Sentence> report = workbench.services.texts.SetLanguage(id);
  workbench.services.settings.Set(TCBase::SettingLocale, workbench.services.texts.CurrentLanguage());
  for (const qor::Sentence& sentence : report) workbench.Say(sentence);
  workbench.view.Retranslate();
}

void ToggleLogging(Workbench& workbench) {
  const bool isOn = !workbench.services.log.IsTracing();
  workbench.services.log.SetTracing(isOn);
  workbench.services.settings.Set(TCBase::SettingLogging, isOn ? "on" : "off");
  workbench.Say(
      {TR("Device communication logging {1}"), {workbench.Text({isOn ? TR("ON.") : TR("OFF."), {}})}});
  workbench.view.Refresh();
}

void KnownIssues(Workbench& workbench) {
  std::string text = workbench.Text(
      {TR("The previous model {1} (blue device) supports a maximum of 20 steps in the program."),
       {EarlierModel}});
  text += '\n';
  for (const TCBase::Mode& mode : workbench.document.Program().modes) {
    text += '\n' + workbench.Text({TR("\"{1}\" ({2} steps)"), {mode.name, TCBase::StepCount(mode)}});
  }
  workbench.dialogs.Tell(workbench.Text({TR("{1} device limitations"), {EarlierModel}}), text);
}

void ExportTranslation(Workbench& workbench) {
  const std::string name = qor::Format("HalvexStrings_{1}.XML", {workbench.services.texts.CurrentLanguage()});
  const auto path = workbench.dialogs.PathToSave(FileKind::Translation, name);
  if (!path) return;
  if (const qor::Sentence failure = workbench.services.texts.Export(*path))
    return workbench.TellFailure(failure);
  workbench.Say({TR("Localization file {1} exported successfully!"), {*path}});
}

void TestTranslation(Workbench& workbench) {
  const auto path = workbench.dialogs.PathToOpen(FileKind::Translation);
  if (!path) return;
  const TCBase::TranslationTest result = workbench.services.texts.Test(*path);
  if (result.isLoaded) {
    workbench.Say(result.message);
    workbench.view.Retranslate();
  }
  if (result.isWhole && result.remarks.empty()) return;
  std::string text = workbench.Text(result.message) + (result.remarks.empty() ? "" : "\n");
  for (const qor::Sentence& remark : result.remarks) text += "\n" + workbench.Text(remark);
  workbench.dialogs.Tell(workbench.Text(result.caption), text);
}

void About(Workbench& workbench) {
  workbench.dialogs.ShowAbout();
}

void Zoom(Workbench& workbench, BarMove move) {
  workbench.span.Zoom(move);
  workbench.view.Refresh();
}

void ViewEarlier(Workbench& workbench) {
  MoveView(workbench, -PageSeconds);
}

void ViewLater(Workbench& workbench) {
  MoveView(workbench, PageSeconds);
}

void ViewDayStart(Workbench& workbench) {
  MoveView(workbench, -TCBase::SecondsPerDay);
}

void ViewDayEnd(Workbench& workbench) {
  MoveView(workbench, TCBase::SecondsPerDay);
}

}  // namespace UX
