// SPDX-License-Identifier: MIT
// The commands of the menus "Language" and "Help", and of the view
#include "model/ModeSample.h"
#include "ui/Commands.h"
#include "ui/Workbench.h"

namespace UX {
namespace {

constexpr std::string_view EarlierModel = "ORVANTA";
constexpr int PageSeconds = 900;

void ViewMoved(Workbench& workbench) {
  workbench.view.RedrawChart();
  workbench.view.Refresh();
}

void MoveView(Workbench& workbench, int seconds) {
  workbench.span.MoveBy(seconds);
  ViewMoved(workbench);
}

}  // namespace

void ChooseEnglish(Workbench& workbench) {
  ChooseLanguage(workbench, TCBase::EnglishId);
}

void ChooseLanguage(Workbench& workbench, std::string_view id) {
  TCBase::ChooseLanguage(id, workbench.services.texts, workbench.services.settings, workbench.services.log);
  workbench.view.Retranslate();
}

void ToggleLogging(Workbench& workbench) {
  const bool isOn = !workbench.services.log.IsTracing();
  workbench.services.log.SetTracing(isOn);
  workbench.services.settings.Set(TCBase::SettingLogging, isOn ? "on" : "off");
  workbench.Say({"Device communication logging {1}", {workbench.Text({isOn ? "ON." : "OFF.", {}})}});
  workbench.view.Refresh();
}

void KnownIssues(Workbench& workbench) {
  std::string text =
      workbench.Text({"The previous model {1} (blue device) supports a maximum of 20 steps in the program.",
                      {EarlierModel}});
  text += '\n';
  for (const TCBase::Mode& mode : workbench.document.Program().modes) {
    text += '\n' + workbench.Text({"\"{1}\" ({2} steps)", {mode.name, TCBase::StepCount(mode)}});
  }
  workbench.dialogs.Tell(workbench.Text({"{1} device limitations", {EarlierModel}}), text);
}

void ExportTranslation(Workbench& workbench) {
  const std::string name = qor::Format("HalvexStrings_{1}.XML", {workbench.services.texts.CurrentLanguage()});
  const auto path = workbench.dialogs.PathToSave(FileKind::Translation, name);
  if (!path) return;
  const TCBase::ExportResult result = workbench.services.texts.Export(*path);
  workbench.Say(result.message);
  if (!result.isExported) {
    workbench.dialogs.Tell(workbench.Text({"Export localization XML", {}}),
                           workbench.Text(result.message) + "\n\n" + result.reason);
  }
}

void TestTranslation(Workbench& workbench) {
  const auto path = workbench.dialogs.PathToOpen(FileKind::Translation);
  if (!path) return;
  const TCBase::TranslationTest result = workbench.services.texts.Test(*path);
  if (!result.isLoaded) {
    workbench.dialogs.Tell(workbench.Text(result.caption), workbench.Text(result.message));
    return;
  }
  workbench.Say(result.message);
  workbench.view.Retranslate();
}

void About(Workbench& workbench) {
  workbench.dialogs.ShowAbout();
}

void Zoom(Workbench& workbench, BarMove move) {
  workbench.span.Zoom(move);
  ViewMoved(workbench);
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
