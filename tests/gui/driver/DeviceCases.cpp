// SPDX-License-Identifier: MIT
// What is done with a controller; the emulator stands for one.
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

bool IsEnabled(const App& app, int command) {
  return IsWindowEnabled(app.Control(command)) != FALSE;
}

/// Whether a label of the window begins so.
bool ShowsText(const App& app, const std::string& beginning) {
  for (HWND child = GetWindow(app.Window(), GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (GetDlgCtrlID(child) == 0 && TextOf(child).starts_with(beginning)) return true;
  }
  return false;
}

/// A demo of the whole day in ten seconds.
App::Start QuickDemo(const std::string& folder) {
  return {folder, "<demo_speed>10</demo_speed>", "", true};
}

void StartDemo(const App& app) {
  app.PickEmulator();
  Click(MiddleOf(app.Control(UX::command::PlayDemo)));
  app.AwaitLog("Playing whole day in 10 seconds");
}

void Uploads() {
  App app("upload");
  const HWND devices = app.Control(UX::DeviceListId), upload = app.Control(UX::command::Upload);
  Click(MiddleOf(upload));
  ExpectEqual("what the box says", app.Question(), "Devices: Please select a device in the list first.");
  app.Answer(IDOK);
  app.PickEmulator();
  ClickCheckBox(devices, 0);
  Until("the emulator is not picked", [=] { return !RowsOf(devices).front().isChecked; });
  ClickCheckBox(app.Control(UX::ModeListId), 1);
  ClickCheckBox(devices, 0);
  Click(MiddleOf(upload));
  app.AwaitLog("Uploading finished");
  const std::string log = app.LogText();
  Expect(Contains(log, "Uploading started") && Contains(log, "Uploading mode: Normal"), log);
  Expect(!Contains(log, "Uploading mode: AlwaysOn"), "a mode without a mark was uploaded");
  Until("the list says how it went", [=] { return Contains(RowsOf(devices).front().info, "Done"); });
  Expect(Contains(BytesOf(app.FileIn("TC42xLog.txt")), "Uploading finished"), "the log's file lacks it");
  app.Close();
}

void PlaysADemo() {
  App app(QuickDemo("demo"));
  Expect(IsEnabled(app, UX::command::PlayDemo) && !IsEnabled(app, UX::command::StopDemo) &&
             !IsEnabled(app, UX::command::PauseDemo),
         "the buttons are wrong before the demo");
  StartDemo(app);
  Until("the demo can be stopped", [&] { return IsEnabled(app, UX::command::StopDemo); });
  for (const int command : {UX::command::PlayDemo, UX::command::Upload, UX::command::AddMode}) {
    Expect(!IsEnabled(app, command), "enabled while a demo runs: " + std::to_string(command));
  }
  Click(MiddleOf(app.Chart()));
  Key(VK_SPACE);
  app.AwaitLog("Demo playback paused at ");
  Click(app.ChartPoint(0, 1203, 50));  // not a new step, but the evening in the demo
  Until("the demo shows 20:0x", [&] { return ShowsText(app, "20:0"); });
  ExpectEqual("the steps", app.StepsShown(), "12 steps");
  Key(VK_SPACE);
  app.AwaitLog("Demo playback resumed");
  Click(MiddleOf(app.Control(UX::command::StopDemo)));
  app.AwaitLog("Demo finished");
  Until("all is enabled again", [&] {
    return IsEnabled(app, UX::command::PlayDemo) && IsEnabled(app, UX::command::Upload) &&
           !IsEnabled(app, UX::command::StopDemo);
  });
  app.Close();
}

void ClosesDuringADemo() {
  App app(QuickDemo("demo-close"));
  StartDemo(app);
  PostMessageW(app.Window(), WM_CLOSE, 0, 0);
  ExpectEqual("the exit code", app.AwaitEnd(3000), 0U);
  Expect(Contains(BytesOf(app.FileIn("TC42xLog.txt")), "Demo finished"), "the demo was not ended");
}

constexpr Case Cases[] = {
    {"device.upload", Uploads},
    {"device.demo", PlaysADemo},
    {"device.demo-closed", ClosesDuringADemo},
};

}  // namespace

std::span<const Case> DeviceCases() {
  return Cases;
}

}  // namespace gui
