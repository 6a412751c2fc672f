// SPDX-License-Identifier: MIT
// What a user does from morning to evening, by mouse and keys.
#include <algorithm>

#include "QorLib/qor_win_str_utils.h"
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

namespace command = UX::command;

void ExpectMenu(const App& app, std::initializer_list<const char*> lines) {
  Send(app.Window(), WM_INITMENUPOPUP);
  const std::string menus = '\n' + Ask(app.Window(), probe::Menus);
  for (const char* line : lines)
    Expect(Contains(menus, '\n' + std::string(line) + '\n'), line + (" is not in" + menus));
}

bool IsEnabled(const App& app, int button) {
  return IsWindowEnabled(app.Control(button)) != FALSE;
}

/// The new program is saved, and its file dropped on the window.
void Open(const App& app) {
  const std::string path = app.FileIn("reef.xml");
  app.Run(command::SaveAs);
  app.Dialog();
  Key('A', VK_CONTROL);
  Type(path);
  Key(VK_RETURN);
  app.AwaitTitle("Orvanta 24 - " + path);
  app.Run(command::New);
  app.AwaitTitle("Orvanta 24 - New program");
  lstrcpyW(probe::text, qor::win::WideFromUtf8(path).c_str());
  Ask(app.Window(), probe::Drop);
  app.AwaitTitle("Orvanta 24 - " + path);
}

/// The list of modes takes its own keys, and its check marks and the panels below it count.
void WorkOnModes(const App& app) {
  constexpr int CheckBox = 9, Name = 40;  // from the left
  const HWND modes = app.Control(UX::ModeListId);
  Click(app.ChartPoint(0, 600, 80));
  ClickInRow(modes, 1, Name);
  Key(VK_F2);
  app.Dialog();
  Type(" ");
  Key(VK_RETURN);
  app.AnswerTo("Rename: A mode needs a name.", IDOK);
  Type("Reef");
  Key(VK_RETURN);
  app.Await(UX::ModeListId, "Reef: ");
  ClickInRow(modes, 1, CheckBox);
  app.Press(command::CopyMode);
  app.Answer(IDOK);
  Until("the mode is copied", [=] { return std::ranges::count(TextOf(modes), '\n') == 3; });
  ClickInRow(modes, 2, Name);
  Key(VK_DELETE);
  ClickInRow(modes, 0, Name);
  app.Await(UX::DescriptionId, "afternoon");
  ExpectEqual("the rows", std::ranges::count(TextOf(modes), '\n'), 2);
}

/// A mode without a mark is not uploaded.
void Upload(const App& app) {
  app.Press(command::Upload);
  app.AnswerTo("Devices: Please select a device in the list first.", IDOK);
  app.Press(command::AddEmulator);  // as the only device it is picked at once
  app.Press(command::Upload);
  app.Await(UX::LogId, "Uploading finished");
  const std::string log = TextOf(app.Control(UX::LogId));
  Expect(Contains(log, "Uploading mode: Normal") && !Contains(log, "Uploading mode: Reef"), log);
  app.Await(UX::DeviceListId, "Done");
}

void PlayDemo(const App& app) {
  ExpectMenu(app, {" Channel", "G Stop demo", " Play demo", "C Fast (60 secs)"});
  app.Press(command::PlayDemo);
  app.Await(UX::LogId, "Playing whole day in 60 seconds");
  Until("the demo can be stopped", [&] { return IsEnabled(app, command::StopDemo); });
  Expect(!IsEnabled(app, command::Upload) && !IsEnabled(app, command::AddMode), "a demo leaves buttons on");
  ExpectMenu(app, {"G Channel", " Stop demo", "G Play demo", "G Undo\tCtrl+Z"});
  app.Press(UX::ChartId);
  Key(VK_SPACE);
  app.Await(UX::LogId, "Demo playback paused at ");
  Click(app.ChartPoint(0, 1203, 50));  // not a new step, but the evening in the demo
  const HWND time = GetWindow(app.Control(command::StopDemo), GW_HWNDNEXT);
  Until("the demo shows 20:0x", [=] { return TextOf(time).starts_with("20:0"); });
  app.Await(UX::ModeListId, "Normal: 12 steps");
  app.Press(command::StopDemo);
  app.Await(UX::LogId, "Demo finished");
  Until("the demo is over",
        [&] { return IsEnabled(app, command::Upload) && !IsEnabled(app, command::StopDemo); });
}

/// By the keys of the menu.
void ChooseGerman(const App& app) {
  Keys({VK_F10, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_DOWN, VK_DOWN, VK_RETURN});
  app.Await(command::CopyMode, "Kopieren");
  ExpectMenu(app, {" Datei", " English", "C Deutsch", " TMF importieren (PLED)"});
}

}  // namespace

/// The last change is saved when the window closes; the next day begins where this one has ended.
void SpendADay() {
  RECT place{}, after{};
  {
    const App app("day");
    SetWindowPos(app.Window(), nullptr, 120, 90, 300, 200, SWP_NOZORDER);
    Open(app);
    WorkOnModes(app);
    Upload(app);
    PlayDemo(app);
    ChooseGerman(app);
    GetWindowRect(app.Window(), &place);
    app.AskToClose();
    app.Answer(IDCANCEL);
    Expect(app.IsRunning(), "Cancel closes the window");
    app.AskToClose();
    app.Answer(IDYES);
    app.AwaitEnd();
  }
  const App app("day");
  app.Await(UX::ModeListId, "Reef: ");
  ExpectMenu(app, {"C Deutsch"});
  GetWindowRect(app.Window(), &after);
  Expect(EqualRect(&after, &place) && place.left == 120 && place.right == 920 && place.bottom == 790,
         "the window is not where it was, or smaller than 800 x 700");
  app.Close();
}

}  // namespace gui
