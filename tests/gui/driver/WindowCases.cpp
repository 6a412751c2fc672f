// SPDX-License-Identifier: MIT
// The window itself: what it draws, its keyboard, its log, its resources.
#include <set>

#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"
#include "ui/win32/ResourceIds.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

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
  const std::set<HWND> stops = TabStops(app);
  std::set<HWND> seen;
  while (seen.insert(FocusOf(app)).second) {
    Key(VK_TAB);
    app.Settle();
  }
  Expect(stops.size() >= 16 && seen == stops,
         "Tab comes to " + std::to_string(seen.size()) + " of " + std::to_string(stops.size()) + " controls");
  Expect(FocusOf(app) == app.Chart(), "Tab does not come round to the chart");
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

/// In another size than at the start.
Picture ChartBy(const char* renderer) {
  App app({std::string("renderer-") + renderer, "", std::string("--renderer ") + renderer, true});
  MoveMouse(OnScreen(app.Window(), 2, 2));
  SetWindowPos(app.Window(), nullptr, 0, 0, 1000, 740, SWP_NOMOVE | SWP_NOZORDER);
  app.Settle();
  Sleep(300);
  Picture picture = PictureOf(app.Chart());
  app.Close();
  return picture;
}

void DrawsTheSameByBothRenderers() {
  const Picture dx = ChartBy("dx"), gdi = ChartBy("gdi");
  Expect(std::set(gdi.begin(), gdi.end()).size() > 10, "GDI+ draws nothing");
  const double difference = MeanDifference(dx, gdi);
  Expect(difference < 0.02, "the pictures differ by " + std::to_string(difference));
}

std::string BytesIn(HMODULE module, int name, const wchar_t* type) {
  const HRSRC place = FindResourceW(module, MAKEINTRESOURCEW(name), type);
  if (place == nullptr) return {};
  const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module, place)));
  return {bytes, SizeofResource(module, place)};
}

void HasResources() {
  const HMODULE module = LoadLibraryExA(TheRig().program.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  for (const int icon : {IDI_HALVEX, IDI_SMALL}) {
    Expect(!BytesIn(module, icon, RT_GROUP_ICON).empty(), "an icon is missing");
  }
  Expect(BytesIn(module, IDP_LOGO, L"PNG").starts_with("\x89PNG"), "no logo");
  const std::string manifest = BytesIn(module, 1, RT_MANIFEST);
  for (const char* part : {"Microsoft.Windows.Common-Controls", "PerMonitorV2", "longPathAware"}) {
    Expect(Contains(manifest, part), std::string("the manifest lacks ") + part);
  }
  FreeLibrary(module);
}

constexpr Case Cases[] = {
    {"window.tab", ReachesAllByTab},
    {"window.log", LeavesTheReaderAlone},
    {"window.renderers", DrawsTheSameByBothRenderers},
    {"window.resources", HasResources},
};

}  // namespace

std::span<const Case> WindowCases() {
  return Cases;
}

}  // namespace gui
