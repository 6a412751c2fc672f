// SPDX-License-Identifier: MIT
#pragma once

#include "ui/CommandTable.h"

namespace UX {

/// What the state of the menus depends on.
struct MenuConditions {
  bool isDemoRunning = false;
  bool isStepSelected = false;
  bool isLogging = false;
  int demoSeconds = 60;
  int languageCommand = command::English;  // of the current language
};

bool IsEnabled(const CommandRow& row, const MenuConditions& conditions);
/// Also for the commands of languages, which the table does not have.
bool IsChecked(int command, const MenuConditions& conditions);
/// Of a menu of the menu bar, as a whole.
bool IsEnabled(Menu menu, const MenuConditions& conditions);

}  // namespace UX
