// SPDX-License-Identifier: MIT
// What a user does from morning to evening, by mouse and keys.
#include "formats/ProgramFile.h"
#include "model/Presets.h"
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

namespace command = UX::command;

void ExpectMenu(const App& app, std::initializer_list<const char*> lines) {
  const std::string menu = '\n' + app.MenuText();
  for (const char* line : lines)
    Expect(Contains(menu, '\n' + std::string(line) + '\n'), line + (" is not in" + menu));
}

bool IsEnabled(const App& app, int button) {
  return IsWindowEnabled(app.Control(button)) != FALSE;
}

/// The list of modes takes its own keys, and its check marks and the panels below it count.
void WorkOnModes(const App& app) {
  const HWND modes = app.Control(UX::ModeListId), description = app.Control(UX::DescriptionId);
  Click(app.ChartPoint(0, 600, 80));
  ClickRow(modes, 1);
  Until("the second mode is shown", [=] { return RowsOf(modes)[1].isSelected; });
  Key(VK_F2);
  app.Dialog();
  Type(L" ");
  Key(VK_RETURN);
  ExpectEqual("the box", app.Question(), "Rename: A mode needs a name.");
  app.Answer(IDOK);
  Type(L"Reef");
  Key(VK_RETURN);
  Until("the mode has its name", [=] { return RowsOf(modes)[1].name == "Reef"; });
  ClickCheckBox(modes, 1);
  Click(MiddleOf(app.Control(command::CopyMode)));
  app.Answer(IDOK);
  Until("the mode is copied", [=] { return RowsOf(modes).size() == 3; });
  ClickRow(modes, 2);
  Key(VK_DELETE);
  Until("the copy is gone", [=] { return RowsOf(modes).size() == 2; });
  ClickRow(modes, 0);
  Until("the first mode is shown", [=] { return Contains(TextOf(description), "afternoon"); });
}

/// A mode without a mark is not uploaded.
void Upload(const App& app) {
  const HWND devices = app.Control(UX::DeviceListId), upload = app.Control(command::Upload);
  Click(MiddleOf(upload));
  ExpectEqual("the box", app.Question(), "Devices: Please select a device in the list first.");
  app.Answer(IDOK);
  app.PickEmulator();
  Click(MiddleOf(upload));
  app.AwaitLog("Uploading finished");
  const std::string log = app.LogText();
  Expect(Contains(log, "Uploading mode: Normal") && !Contains(log, "Uploading mode: Reef"), log);
  Until("the list says how it went", [=] { return Contains(RowsOf(devices).front().info, "Done"); });
  Expect(Contains(BytesOf(app.FileIn("TC42xLog.txt")), "Uploading finished"), "the log's file lacks it");
}

void PlayDemo(const App& app) {
  ExpectMenu(app, {" Channel", "G Stop demo", " Play demo", "C Custom..."});
  Click(MiddleOf(app.Control(command::PlayDemo)));
  app.AwaitLog("Playing whole day in 10 seconds");
  Until("the demo can be stopped", [&] { return IsEnabled(app, command::StopDemo); });
  Expect(!IsEnabled(app, command::Upload) && !IsEnabled(app, command::AddMode), "a demo leaves buttons on");
  ExpectMenu(app, {"G Channel", " Stop demo", "G Play demo", "G Undo\tCtrl+Z"});
  Click(MiddleOf(app.Chart()));
  Key(VK_SPACE);
  app.AwaitLog("Demo playback paused at ");
  Click(app.ChartPoint(0, 1203, 50));  // not a new step, but the evening in the demo
  Until("the demo shows 20:0x", [&] { return app.ShowsText("20:0"); });
  ExpectEqual("the steps", app.StepsShown(), "12 steps");
  Click(MiddleOf(app.Control(command::StopDemo)));
  app.AwaitLog("Demo finished");
  Until("the demo is over",
        [&] { return IsEnabled(app, command::Upload) && !IsEnabled(app, command::StopDemo); });
}

/// By the keys of the menu.
void ChooseGerman(const App& app) {
  constexpr int Menus = 5, Items = 2;  // to the right, and down
  Key(VK_F10);
  for (int i = 0; i < Menus; ++i) Key(VK_RIGHT);
  for (int i = 0; i < Items; ++i) Key(VK_DOWN);
  Key(VK_RETURN);
  ExpectMenu(app, {" Datei", " English", "C Deutsch", " TMF importieren (PLED)"});
  Until("the buttons are German", [&] { return TextOf(app.Control(command::CopyMode)) == "Kopieren"; });
}

/// A file is dropped on the window, changed, and saved when the window closes.
void SpendADay() {
  const std::string path = TheRig().folder + "\\day.xml";
  RECT place{};
  {
    App app({"day", "<demo_speed>10</demo_speed>", "", true});
    SetWindowPos(app.Window(), nullptr, 120, 90, 300, 200, SWP_NOZORDER);
    WriteBytes(path, TCBase::WriteProgram(TCBase::NewProgram(qor::InEnglish)));
    app.Drop(path);
    Until("the file is open", [&] { return app.Title() == "Orvanta 24 - " + path; });
    WorkOnModes(app);
    Upload(app);
    PlayDemo(app);
    ChooseGerman(app);
    GetWindowRect(app.Window(), &place);
    PostMessageW(app.Window(), WM_CLOSE, 0, 0);
    app.Answer(IDCANCEL);
    Expect(app.IsRunning(), "Cancel closes the window");
    PostMessageW(app.Window(), WM_CLOSE, 0, 0);
    app.Answer(IDYES);
    ExpectEqual("the exit code", app.AwaitEnd(), 0U);
  }
  App app("day");
  ExpectEqual("the mode", RowsOf(app.Control(UX::ModeListId))[1].name, "Reef");
  ExpectMenu(app, {"C Deutsch"});
  RECT after{};
  GetWindowRect(app.Window(), &after);
  Expect(EqualRect(&after, &place) && place.left == 120 && place.right == 920 && place.bottom == 790,
         "the window is not where it was, or smaller than 800 x 700");
  app.Close();
}

constexpr Case Cases[] = {{"day", SpendADay}};

}  // namespace

std::span<const Case> DayCases() {
  return Cases;
}

}  // namespace gui
