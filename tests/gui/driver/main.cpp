// SPDX-License-Identifier: MIT
// What is run: gui_driver HALVEX_EXE and
//   [CASE]              the cases whose names begin so, or all, in the current folder
//   show [ARGUMENTS]    a window to be looked at
//   show-wifi           and a page of the Wi-Fi set-up
#include <iostream>

#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"

namespace {

constexpr struct {
  const char* name;
  void (*run)();
} Cases[] = {{"day", gui::SpendADay},
             {"edit", gui::EditOnTheChart},
             {"window", gui::UseTheWindow},
             {"renderers", gui::CompareRenderers},
             {"killed", gui::RecoverAfterAKill},
             {"monkey", gui::RunMonkey}};

bool Passes(const std::string& name, const std::function<void()>& run) {
  try {
    run();
    std::cout << "ok      " << name << std::endl;
    return true;
  } catch (const gui::Failure& failure) {
    std::cout << "FAILED  " << name << ": " << failure.why << std::endl;
    return false;
  }
}

}  // namespace

int main(int count, char** arguments) {
  gui::program = arguments[1];
  const std::string wanted = count > 2 ? arguments[2] : "";
  if (wanted == "show") return !Passes(wanted, [&] { gui::ShowSample(count > 3 ? arguments[3] : ""); });
  if (wanted == "show-wifi") return !Passes(wanted, gui::ShowWiFiSample);
  int passed = 0, failed = 0;
  for (const auto& [name, run] : Cases) {
    if (std::string(name).starts_with(wanted)) ++(Passes(name, run) ? passed : failed);
  }
  std::cout << passed << " passed, " << failed << " failed" << std::endl;
  return failed;
}
