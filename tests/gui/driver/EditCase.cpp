// SPDX-License-Identifier: MIT
// What the chart and its bars make of mouse and keys.
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

#include <commctrl.h>  // after windows.h

namespace gui {
namespace {

/// A first click in a lane selects its channel, the next one adds a step; a dragged step is found where it
/// was let go.
void WorkByMouse(const App& app) {
  Click(app.ChartPoint(1, 900, 70));
  Click(app.ChartPoint(1, 900, 70));
  app.Await(UX::ModeListId, "Normal: 13 steps");
  Drag(app.ChartPoint(1, 900, 70), app.ChartPoint(1, 960, 20));
  Click(app.ChartPoint(1, 960, 20));
  Key(VK_DELETE);
  app.Await(UX::LogId, "Step deleted. Current number of steps: 12");
}

/// As the dialog has the steps of the selected channel.
void ExpectStep(const App& app, const std::string& step) {
  app.Run(UX::command::EditStepsByText);
  const std::string steps = TextOf(FindWindowExW(app.Dialog(), nullptr, L"Edit", nullptr));
  Expect(Contains(steps, '\n' + step + '\n'), step + " is not in\n" + steps);
  app.Answer(IDCANCEL);
}

void WorkByKeys(const App& app) {
  Click(app.ChartPoint(0, 600, 80));
  Keys({VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_LEFT, VK_DOWN, VK_DOWN, VK_UP, 'J'});
  ExpectStep(app, "10:02 79 J");
  Key('Z', VK_CONTROL);  // the jump, then the whole run of keys
  Key('Z', VK_CONTROL);
  ExpectStep(app, "10:00 80");
  Key(VK_F1);
  ExpectStep(app, "10:00 80 J");
}

/// The view as both bars show it: "from the minute 120, 720 minutes, zoom 12".
void ExpectView(const App& app, const std::string& expected) {
  app.Settle();
  SCROLLINFO info{sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(app.Control(UX::ScrollBarId), SB_CTL, &info);
  std::ostringstream view;
  view << info.nPos << " +" << info.nPage << ", zoom " << Send(app.Control(UX::ZoomBarId), TBM_GETPOS);
  ExpectEqual("the view", view.str(), expected);
}

/// Keys that mean something to the chart belong to a text while it is typed.
void MoveTheView(const App& app) {
  const HWND zoom = app.Control(UX::ZoomBarId), scroll = app.Control(UX::ScrollBarId);
  Drag(OnScreen(zoom, 13, 8), Within(zoom, 1.5, 0.5));
  ExpectView(app, "0 +120, zoom 22");
  for (int i = 0; i < 2; ++i) Click(Within(scroll, 0.99, 0.5));
  ExpectView(app, "30 +120, zoom 22");
  Click(OnScreen(scroll, 200, 8));  // beside the thumb: a page
  ExpectView(app, "150 +120, zoom 22");
  Key(VK_END);
  ExpectView(app, "1320 +120, zoom 22");
  Key(VK_SUBTRACT);
  ExpectView(app, "1260 +180, zoom 21");
  app.Press(UX::DescriptionId);
  Key('A', VK_CONTROL);
  Type("ab j+");
  Keys({VK_BACK, VK_HOME, VK_DELETE, VK_END, VK_NEXT, VK_ESCAPE});
  ExpectView(app, "1260 +180, zoom 21");
  ExpectEqual("the description", TextOf(app.Control(UX::DescriptionId)), "b j");
  app.Await(UX::ModeListId, "Normal: 12 steps");
}

}  // namespace

void EditOnTheChart() {
  const App app("edit");
  WorkByMouse(app);
  WorkByKeys(app);
  MoveTheView(app);
  app.Close();
}

}  // namespace gui
