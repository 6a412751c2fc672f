// SPDX-License-Identifier: MIT
#include "ui/win32/panels/DemoPanel.h"

#include "model/TimeText.h"

namespace UX {
namespace {

// Signs that nearly all fonts have: a triangle, a square, two bars
constexpr const char *Play = "\xE2\x96\xBA", *Stop = "\xE2\x96\xA0", *Pause = "\xE2\x96\x8C\xE2\x96\x8C";

bool IsPaused(const Workbench& workbench) {
  return workbench.services.worker.Control().demoState == TCBase::JobControl::DemoPaused;
}

}  // namespace

DemoPanel::DemoPanel(const PanelContext& context)
    : context_(context),
      play_(MakeButton(context, command::PlayDemo)),
      pause_(MakeButton(context, command::PauseDemo)),
      stop_(MakeButton(context, command::StopDemo)),
      time_(MakeLabel(context)),
      status_(MakeLabel(context)),
      hint_(MakeControl(context.window, L"STATIC", SS_LEFT | SS_NOPREFIX)),
      row_(context.window) {
  constexpr int LeastWidth = 32, TimeWidth = 78;
  Cell time{
      .control = time_, .kind = Cell::Kind::Plain, .width = TimeWidth, .height = ButtonHeight, .gap = 9};
  Cell status = Plain(status_, 20);
  status.gap = 0;
  status.top = 4;
  row_.Add({SmallButton(play_, LeastWidth), SmallButton(pause_, LeastWidth), SmallButton(stop_, LeastWidth),
            time, status});
}

void DemoPanel::Translate() {
  const auto translate = context_.workbench.services.texts.Translator();
  ShowText(play_, std::string(Play) + " " + translate(TR("Play demo")));
  ShowText(pause_, Pause);
  ShowText(stop_, std::string(Stop) + " " + translate(TR("Stop demo")));
}

void DemoPanel::Refresh() {
  const Workbench& workbench = context_.workbench;
  const auto translate = workbench.services.texts.Translator();
  const auto second = workbench.DemoSecond();
  ShowText(time_, second ? TCBase::TimeOfDayText(*second) : "");
  ShowText(status_, workbench.IsDemoRunning()
                        ? workbench.Text({TR("Playing whole day in {1} seconds"), {workbench.DemoSeconds()}})
                        : translate(TR("No demo is playing")));
  ShowText(pause_, IsPaused(workbench) ? Play : Pause);
}

qor::English DemoPanel::PauseTip() const {
  return IsPaused(context_.workbench) ? TR("Resume demo") : TR("Pause demo");
}

bool DemoPanel::ShowHint(const std::string& hint) {
  if (TextOf(hint_) == hint) return false;
  ShowText(hint_, hint);
  return true;
}

int DemoPanel::HintHeight(int width) const {
  return TextHeight(hint_, context_.fonts.Of(Face::Usual), TextOf(hint_), width);
}

void DemoPanel::LayOutHint(const RECT& area) const {
  Place({.control = hint_}, area);
}

void DemoPanel::LayOut(const RECT& area) const {
  row_.Place(context_.fonts, area);
}

}  // namespace UX
