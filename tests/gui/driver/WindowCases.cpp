// SPDX-License-Identifier: MIT
// The window itself: its keyboard, its log, what it is made of and what it draws, and how it ends.
#include <cstdlib>
#include <set>
#include <vector>

#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "ui/CommandTable.h"
#include "ui/win32/ResourceIds.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

HWND FocusOf(const App& app) {
  app.Settle();
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(app.Window(), nullptr), &info);
  return info.hwndFocus;
}

/// What nothing at the start would tell of.
void HasResources() {
  const HMODULE file = LoadLibraryExA(program.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  const auto has = [file](int name, const wchar_t* type) {
    return FindResourceW(file, MAKEINTRESOURCEW(name), type);
  };
  Expect(has(IDI_HALVEX, RT_GROUP_ICON) && has(IDI_SMALL, RT_GROUP_ICON) && has(IDP_LOGO, L"PNG"),
         "a picture is missing");
  for (const char* part : {"Microsoft.Windows.Common-Controls", "PerMonitorV2", "longPathAware"}) {
    Expect(Contains(BytesOf(program), part), std::string("the manifest lacks ") + part);
  }
}

/// In one round all controls that can be reached, beginning and ending in the chart.
void ReachAllByTab(const App& app) {
  int stops = 0;
  HWND next = app.Control(UX::ChartId);
  do {
    next = GetNextDlgTabItem(app.Window(), next, FALSE);
    Key(VK_TAB);
    ExpectEqual("the control that Tab comes to", GetDlgCtrlID(FocusOf(app)), GetDlgCtrlID(next));
    ++stops;
  } while (next != app.Control(UX::ChartId));
  Expect(stops >= 16, "Tab comes to " + std::to_string(stops) + " controls");
  Key(VK_TAB, VK_SHIFT);
  Expect(FocusOf(app) == app.Control(UX::LogId), "Shift and Tab do not go back to the log");
}

/// Who has scrolled up to read stays there; who is at the end sees the new lines, also with the focus in the
/// log, in which Tab selects nothing.
void LeaveTheReaderAlone(const App& app) {
  const HWND log = app.Control(UX::LogId);
  const auto lineAfterNews = [&] {
    app.Run(UX::command::ProgramInfo);
    return Send(log, EM_GETFIRSTVISIBLELINE);
  };
  lineAfterNews();
  lineAfterNews();
  const LRESULT end = lineAfterNews();
  Expect(end > 20, "the end is not in sight: line " + std::to_string(end));
  Send(log, WM_VSCROLL, SB_TOP);
  for (int i = 0; i < 5; ++i) Send(log, WM_VSCROLL, SB_LINEDOWN);
  const LRESULT reading = Send(log, EM_GETFIRSTVISIBLELINE);
  ExpectEqual("the first line in sight", lineAfterNews(), reading);
  Expect(reading < 10, "the log does not scroll");
  Send(log, WM_VSCROLL, SB_BOTTOM);
  Expect(lineAfterNews() > end + 10, "the log does not follow");
}

/// Some of the chart's pixels, in another size than at the start.
std::vector<COLORREF> ChartBy(const std::string& renderer) {
  constexpr int Step = 4, Width = 160, Height = 120;  // pixels from one to the next, and how many
  const App app("renderers", "--renderer " + renderer);
  MoveMouse(OnScreen(app.Window(), 2, 2));
  SetWindowPos(app.Window(), nullptr, 0, 0, 1000, 740, SWP_NOMOVE | SWP_NOZORDER);
  app.Settle();
  Sleep(300);
  std::vector<COLORREF> pixels;
  const HDC screen = GetDC(nullptr);
  const POINT corner = OnScreen(app.Control(UX::ChartId), 0, 0);
  for (int i = 0; i < Width * Height; ++i) {
    pixels.push_back(GetPixel(screen, corner.x + i % Width * Step, corner.y + i / Width * Step));
  }
  ReleaseDC(nullptr, screen);
  app.Close();
  return pixels;
}

}  // namespace

void UseTheWindow() {
  const App app("window");
  HasResources();
  ReachAllByTab(app);
  LeaveTheReaderAlone(app);
  app.Press(UX::command::AddEmulator);
  app.Press(UX::command::PlayDemo);
  app.Await(UX::LogId, "Playing whole day");
  app.AskToClose();
  app.AwaitEnd();
  Expect(Contains(BytesOf(app.FileIn("TC42xLog.txt")), "Demo finished"), "the demo was not ended");
}

void CompareRenderers() {
  const std::vector<COLORREF> dx = ChartBy("dx"), gdi = ChartBy("gdi");
  Expect(std::set(gdi.begin(), gdi.end()).size() > 10, "GDI+ draws nothing");
  int difference = 0;  // of one colour
  for (std::size_t i = 0; i < dx.size(); ++i) difference += std::abs(GetGValue(dx[i]) - GetGValue(gdi[i]));
  const double mean = difference / (255.0 * static_cast<double>(dx.size()));
  Expect(mean < 0.02, "the pictures differ by " + std::to_string(mean));
}

/// A kill in the middle of an edit leaves a copy, which the next start offers. Before that it opens the file
/// that it is given.
void RecoverAfterAKill() {
  std::string copy;
  {
    const App app("killed");
    copy = app.FileIn("HalvexRecovery.xml");
    Click(app.ChartPoint(0, 840, 20));
    Click(app.ChartPoint(0, 840, 20));
    Until("a copy is kept", [&] { return !BytesOf(copy).empty(); });
  }
  const App app("killed", '"' + copy + '"');
  app.Await(UX::LogId, "Loaded program file " + copy);
  app.AnswerTo("Program modified: Halvex was not closed properly. Open the changes that were not saved?",
               IDYES);
  app.AwaitTitle("Orvanta 24 - New program");
  app.Await(UX::ModeListId, "Normal: 13 steps");
  app.Close();
  ExpectEqual("the copy", BytesOf(copy), "");
}

}  // namespace gui
