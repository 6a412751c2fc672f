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
  RECT place{};
  GetWindowRect(app.Window(), &place);
  std::cout << "shown " << place.right - place.left << 'x' << place.bottom - place.top << '+' << place.left
            << '+' << place.top << std::endl;
  std::cin.ignore(std::numeric_limits<std::streamsize>::max());
}

}  // namespace gui
