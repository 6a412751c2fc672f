// SPDX-License-Identifier: MIT
#include <iostream>
#include <limits>

#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"

namespace gui {
namespace {

/// Says where it is, and waits for the end of the input.
void TellPlace(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  std::cout << "shown " << place.right - place.left << 'x' << place.bottom - place.top << '+' << place.left
            << '+' << place.top << std::endl;
  std::cin.ignore(std::numeric_limits<std::streamsize>::max());
}

}  // namespace

void ShowSample(const std::string& arguments) {
  constexpr int Morning = 600, Afternoon = 870;
  App app({"sample", "<demo_speed>300</demo_speed>", arguments, true});
  app.PickEmulator();
  Click(app.ChartPoint(0, Morning, 80));
  app.Run(UX::command::PlayDemo);
  app.AwaitLog("Playing whole day");
  app.Settle();
  Click(app.ChartPoint(0, Afternoon, 20));
  MoveMouse(app.ChartPoint(0, Morning, 80));
  Sleep(700);  // animations come to their ends
  TellPlace(app.Window());
}

void ShowWiFiSample() {
  constexpr int NextButton = 11;
  App app({"sample", "", "", true});
  app.Run(UX::command::SetUpWiFi);
  const HWND dialog = app.Dialog();
  SendMessageW(dialog, WM_COMMAND, NextButton, 0);
  Type(L"Reef");
  Sleep(300);
  TellPlace(dialog);
}

}  // namespace gui
