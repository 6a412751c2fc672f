// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include "ui/Workbench.h"

/// Menus made of the table of commands, in the user's language.
namespace UX {

/// The menu bar; the caller owns it until a window gets it.
HMENU BuildMenuBar(Workbench& workbench);
/// One of the menus by itself, to be shown anywhere; the caller destroys it.
HMENU BuildMenu(Workbench& workbench, Menu menu);
/// Enables, disables and checks everything as it is to be now.
void UpdateMenuBar(HMENU bar, Workbench& workbench);

}  // namespace UX
