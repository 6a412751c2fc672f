// SPDX-License-Identifier: MIT
// Editing on the chart, by mouse and keys, as the saved file shows it.
#include <cstdlib>

#include "formats/ProgramFile.h"
#include "platform/Files.h"
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

#include <commctrl.h>  // after windows.h

namespace gui {
namespace {

/// The steps of a channel of the first mode, after the program is saved.
std::vector<TCBase::Step> SavedSteps(const App& app, std::size_t channel) {
  const std::string path = app.FileIn("saved.xml");
  const bool isNew = BytesOf(path).empty();
  platform::RemoveFile(path);
  app.Run(isNew ? UX::command::SaveAs : UX::command::Save);
  if (isNew) app.ChooseFile(path);
  Until("the program is saved", [&] { return !BytesOf(path).empty(); });
  TCBase::Program program;
  const qor::Sentence fault = TCBase::LoadProgram(path, program);
  Expect(!fault, "the saved file cannot be read: " + fault.In(qor::InEnglish));
  return program.modes.front().channels[channel].steps;
}

/// As exactly as pixels allow.
bool IsAt(const TCBase::Step& step, int minute, float percent) {
  return std::abs(step.MinuteOfDay() - minute) <= 3 && std::abs(step.value - percent) <= 3;
}

/// A first click in a lane selects its channel, the next one adds a step; steps are dragged, then deleted.
void WorksByMouse() {
  App app("mouse");
  Click(app.ChartPoint(1, 900, 70));
  app.Settle();
  ExpectEqual("the steps", app.StepsShown(), "12 steps");
  Click(app.ChartPoint(1, 900, 70));
  Until("a step is added", [&] { return app.StepsShown() == "13 steps"; });
  app.AwaitLog("Added new step ");
  Drag(app.ChartPoint(1, 900, 70), app.ChartPoint(1, 960, 20));
  Until("the step is where it was dragged to", [&] { return IsAt(SavedSteps(app, 1)[4], 960, 20); });
  Key(VK_DELETE);
  app.AwaitLog("Step deleted. Current number of steps: 12");
  app.Close();
}

void WorksByKeys() {
  App app("arrows");
  Click(app.ChartPoint(0, 600, 80));
  Keys({VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_LEFT, VK_DOWN, VK_DOWN, VK_UP});
  Key('J');
  app.AwaitLog("Step jump toggle");
  const TCBase::Step moved = SavedSteps(app, 0)[1];
  Expect(moved.MinuteOfDay() == 602 && moved.value == 79 && moved.jump, "the keys move to somewhere else");
  Key('Z', VK_CONTROL);  // the jump, then the whole run of keys
  Key('Z', VK_CONTROL);
  const TCBase::Step back = SavedSteps(app, 0)[1];
  Expect(back.MinuteOfDay() == 600 && back.value == 80 && !back.jump, "Ctrl+Z does not bring the step back");
  Key(VK_F1);
  Expect(SavedSteps(app, 0)[1].jump, "F1 makes no jump");
  app.Close();
}

/// The view as both bars show it: "from the minute 120, 720 minutes, zoom 12".
std::string ViewOf(const App& app) {
  SCROLLINFO info{sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(app.Control(UX::ScrollBarId), SB_CTL, &info);
  const auto zoom = SendMessageW(app.Control(UX::ZoomBarId), TBM_GETPOS, 0, 0);
  return std::to_string(info.nPos) + " +" + std::to_string(info.nPage) + ", zoom " + std::to_string(zoom);
}

void ExpectView(const App& app, const std::string& expected) {
  app.Settle();
  HoldsWithin(1000, [&] { return ViewOf(app) == expected; });
  ExpectEqual("the view", ViewOf(app), expected);
}

/// Keys that mean something to the chart belong to a text while it is typed.
void MovesTheView() {
  App app("view");
  const HWND zoom = app.Control(UX::ZoomBarId), scroll = app.Control(UX::ScrollBarId);
  const HWND description = app.Control(UX::DescriptionId);
  RECT area{};
  GetClientRect(zoom, &area);
  const POINT left = OnScreen(zoom, 13, area.bottom / 2),
              right = OnScreen(zoom, area.right - 13, area.bottom / 2);
  Drag(left, {right.x + 80, right.y});
  ExpectView(app, "0 +120, zoom 22");
  GetClientRect(scroll, &area);
  for (int i = 0; i < 2; ++i) Click(OnScreen(scroll, area.right - 8, area.bottom / 2));
  ExpectView(app, "30 +120, zoom 22");
  Click(OnScreen(scroll, 200, 8));  // beside the thumb: a page
  ExpectView(app, "150 +120, zoom 22");
  Key(VK_END);
  ExpectView(app, "1320 +120, zoom 22");
  Key(VK_SUBTRACT);
  ExpectView(app, "1260 +180, zoom 21");
  Click(MiddleOf(description));
  Key('A', VK_CONTROL);
  Type(L"ab j+");
  Keys({VK_BACK, VK_HOME, VK_DELETE, VK_END, VK_NEXT, VK_ESCAPE});
  Until("the text is typed", [=] { return TextOf(description) == "b j"; });
  ExpectView(app, "1260 +180, zoom 21");
  ExpectEqual("the steps", app.StepsShown(), "12 steps");
  app.Close();
}

constexpr Case Cases[] = {
    {"edit.mouse", WorksByMouse},
    {"edit.keys", WorksByKeys},
    {"edit.view", MovesTheView},
};

}  // namespace

std::span<const Case> EditCases() {
  return Cases;
}

}  // namespace gui
