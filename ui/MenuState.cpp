// SPDX-License-Identifier: MIT
#include "ui/MenuState.h"

namespace UX {
namespace {

int DemoSpeedCommand(int seconds) {
  switch (seconds) {
    case 60: return command::FastDemo;
    case 180: return command::NormalDemo;
    case 300: return command::SlowDemo;
    default: return command::CustomDemo;
  }
}

}  // namespace

bool IsEnabled(const CommandRow& row, const MenuConditions& conditions) {
  switch (row.when) {
    case When::Always: return true;
    case When::NoDemo: return !conditions.isDemoRunning;
    case When::Demo: return conditions.isDemoRunning;
    case When::StepSelected: return conditions.isStepSelected && !conditions.isDemoRunning;
  }
  return true;
}

bool IsEnabled(Menu menu, const MenuConditions& conditions) {
  return !conditions.isDemoRunning || (menu != Menu::Channel && menu != Menu::Mode);
}

bool IsChecked(int command, const MenuConditions& conditions) {
  return command == DemoSpeedCommand(conditions.demoSeconds) || command == conditions.languageCommand ||
         (command == command::Logging && conditions.isLogging);
}

}  // namespace UX
