// SPDX-License-Identifier: MIT
// The window itself: its size and place, what it draws, its keyboard, its log.
#include <algorithm>
#include <set>

#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

RECT PlaceOf(const App& app) {
  RECT place{};
  GetWindowRect(app.Window(), &place);
  return place;
}

void Resize(const App& app, int width, int height) {
  SetWindowPos(app.Window(), nullptr, 0, 0, width, height,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
}

std::string SizeOf(const App& app) {
  const RECT place = PlaceOf(app);
  return std::to_string(place.right - place.left) + " x " + std::to_string(place.bottom - place.top);
}

void KeepsItsPlace() {
  RECT before{};
  {
    App app("place");
    SetWindowPos(app.Window(), nullptr, 120, 90, 900, 720, SWP_NOZORDER);
    app.Settle();
    before = PlaceOf(app);
    app.Close();
  }
  App app("place");
  app.Settle();
  const RECT after = PlaceOf(app);
  ExpectEqual("the left edge", after.left, before.left);
  ExpectEqual("the upper edge", after.top, before.top);
  ExpectEqual("the size", SizeOf(app), "900 x 720");
  app.Close();
}

void HasALeastSize() {
  App app("least");
  Resize(app, 300, 200);
  app.Settle();
  ExpectEqual("the size", SizeOf(app), "800 x 700");
  app.Close();
}

/// Whether the chart shows what it did: it draws, and in the right size.
void ExpectDrawn(const App& app, const Picture& before) {
  Until("the chart looks as before", [&] { return MeanDifference(PictureOf(app.Chart()), before) < 0.01; });
}

/// Does something often, and expects that nothing is left of it. Some things are taken with the first use.
void ExpectNothingLeft(const App& app, int warmUp, int times, const std::function<void(int)>& use) {
  constexpr int Spare = 3;
  for (int i = 0; i < warmUp; ++i) use(i);
  app.Settle();
  const Objects before = app.CountObjects();
  for (int i = 0; i < times; ++i) use(i);
  app.Settle();
  const Objects after = app.CountObjects();
  const auto change = [](int from, int to) { return std::to_string(from) + " -> " + std::to_string(to); };
  Expect(after.gdi <= before.gdi + Spare, "GDI objects " + change(before.gdi, after.gdi));
  Expect(after.user <= before.user + Spare, "USER objects " + change(before.user, after.user));
}

void SurvivesResizing() {
  App app("resize");
  MoveMouse(OnScreen(app.Window(), 2, 2));
  Resize(app, 1000, 740);
  app.Settle();
  const Picture before = PictureOf(app.Chart());
  Expect(ColoursOf(before) > 10, "the chart is empty");
  ExpectNothingLeft(app, 10, 100, [&app](int i) {
    Resize(app, 800 + i * 37 % 400, 700 + i * 53 % 250);
    if (i % 10 == 0) app.Settle();
  });
  Resize(app, 1000, 740);
  ExpectDrawn(app, before);
  app.Close();
}

/// Dialogs, boxes, a menu of their own and another language leave nothing.
void ForgetsDialogs() {
  constexpr int Dialogs[] = {
      UX::command::SetTime,         UX::command::CustomDemo,    UX::command::AddStepsByText,
      UX::command::EditStepsByText, UX::command::RenameChannel, UX::command::AddMode,
      UX::command::RenameMode,      UX::command::About,         UX::command::KnownIssues};
  App app("dialogs");
  app.PickEmulator();
  Click(app.ChartPoint(0, 600, 80));
  ExpectNothingLeft(app, 2, 6, [&](int i) {
    for (const int command : Dialogs) {
      app.Run(command);
      const HWND dialog = app.Dialog();
      PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
      Until("the dialog of " + std::to_string(command) + " goes", [&] { return app.FindDialog() != dialog; });
    }
    app.Run(i % 2 == 0 ? UX::FirstLanguageCommand : UX::command::English);
  });
  app.Close();
}

HWND FocusOf(const App& app) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(app.Window(), nullptr), &info);
  return info.hwndFocus;
}

/// The controls that Tab can reach.
std::set<HWND> TabStops(const App& app) {
  std::set<HWND> stops;
  for (HWND child = GetWindow(app.Window(), GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    const bool isStop = (GetWindowLongW(child, GWL_STYLE) & WS_TABSTOP) != 0;
    if (isStop && IsWindowVisible(child) && IsWindowEnabled(child)) stops.insert(child);
  }
  return stops;
}

void ReachesAllByTab() {
  App app("tabs");
  std::set<HWND> unseen = TabStops(app);
  Expect(unseen.size() >= 16, "only " + std::to_string(unseen.size()) + " controls");
  ExpectEqual("the first focus", FocusOf(app) == app.Chart(), true);
  const HWND start = FocusOf(app);
  for (std::size_t i = unseen.size(); i > 0; --i) {
    unseen.erase(FocusOf(app));
    Key(VK_TAB);
    app.Settle();
  }
  for (const HWND missed : unseen)
    Expect(false, "never: Tab comes to " + std::to_string(GetDlgCtrlID(missed)));
  Expect(FocusOf(app) == start, "Tab does not come round");
  Key(VK_TAB, VK_SHIFT);
  app.Settle();
  ExpectEqual("the control before the first", GetDlgCtrlID(FocusOf(app)), static_cast<int>(UX::LogId));
  app.Close();
}

/// Who has scrolled up to read stays there; who is at the end sees the new lines.
void LeavesTheReaderAlone() {
  App app("log");
  const HWND log = app.Log();
  const auto firstLine = [log] { return static_cast<int>(SendMessageW(log, EM_GETFIRSTVISIBLELINE, 0, 0)); };
  for (int i = 0; i < 3; ++i) app.Run(UX::command::ProgramInfo);
  app.Settle();
  const int end = firstLine();
  Expect(end > 20, "the end is not in sight: line " + std::to_string(end));
  SendMessageW(log, WM_VSCROLL, SB_TOP, 0);
  for (int i = 0; i < 5; ++i) SendMessageW(log, WM_VSCROLL, SB_LINEDOWN, 0);
  const int reading = firstLine();
  Expect(reading < 10, "the log does not scroll");
  app.Run(UX::command::ProgramInfo);
  app.Settle();
  ExpectEqual("the first line in sight", firstLine(), reading);
  SendMessageW(log, WM_VSCROLL, SB_BOTTOM, 0);
  app.Run(UX::command::ProgramInfo);
  app.Settle();
  const int followed = firstLine();
  Expect(followed > end, "the log does not follow");
  Key(VK_TAB, VK_SHIFT);  // into the log, in which that selects nothing
  Key(VK_ESCAPE);
  app.Run(UX::command::ProgramInfo);
  app.Settle();
  Expect(firstLine() > followed, "the log does not follow after Tab and Esc");
  app.Close();
}

Picture ChartBy(const char* renderer) {
  App app({std::string("renderer-") + renderer, "", std::string("--renderer ") + renderer, true});
  MoveMouse(OnScreen(app.Window(), 2, 2));
  Resize(app, 1000, 740);
  app.Settle();
  Sleep(300);
  Picture picture = PictureOf(app.Chart());
  app.Close();
  return picture;
}

void DrawsTheSameByBothRenderers() {
  const Picture dx = ChartBy("dx"), gdi = ChartBy("gdi");
  Expect(ColoursOf(gdi) > 10, "GDI+ draws nothing");
  Expect(ColoursOf(dx) > 10, "Direct2D draws nothing");
  const double difference = MeanDifference(dx, gdi);
  Expect(difference < 0.02, "the pictures differ by " + std::to_string(difference));
}

constexpr Case Cases[] = {
    {"window.place", KeepsItsPlace},
    {"window.least-size", HasALeastSize},
    {"window.resized", SurvivesResizing},
    {"window.tab", ReachesAllByTab},
    {"window.dialogs", ForgetsDialogs},
    {"window.log", LeavesTheReaderAlone},
    {"window.renderers", DrawsTheSameByBothRenderers},
};

}  // namespace

std::span<const Case> WindowCases() {
  return Cases;
}

}  // namespace gui
