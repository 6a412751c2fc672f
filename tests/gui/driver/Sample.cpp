// SPDX-License-Identifier: MIT
#include <iostream>
#include <limits>

#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

/// When animations have come to their ends, says where it is, and waits for the end of the input.
void TellPlace(HWND window) {
  Sleep(700);
  RECT place{};
  GetWindowRect(window, &place);
  std::cout << "shown " << place.right - place.left << 'x' << place.bottom - place.top << '+' << place.left
            << '+' << place.top << std::endl;
  std::cin.ignore(std::numeric_limits<std::streamsize>::max());
}

}  // namespace

void ShowSample(const std::string& arguments) {
  constexpr int Morning = 600, Afternoon = 870;
  const App app("sample", arguments);
  app.Run(UX::command::SlowDemo);
  app.Press(UX::command::AddEmulator);
  Click(app.ChartPoint(0, Morning, 80));
  app.Run(UX::command::PlayDemo);
  app.Await(UX::LogId, "Playing whole day");
  app.Settle();
  Click(app.ChartPoint(0, Afternoon, 20));
  MoveMouse(app.ChartPoint(0, Morning, 80));
  TellPlace(app.Window());
}

void ShowWiFiSample() {
  constexpr int NextButton = 11;
  const App app("sample");
  app.Run(UX::command::SetUpWiFi);
  const HWND dialog = app.Dialog();
  Send(dialog, WM_COMMAND, NextButton);
  Type("Reef");
  TellPlace(dialog);
}

}  // namespace gui
