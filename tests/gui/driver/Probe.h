// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

/// A library that is hooked into the program under test, for what only its own process knows. It is asked by
/// a message of this name to one of the program's windows.
namespace probe {

inline constexpr const wchar_t* MessageName = L"HalvexProbe";

enum Question : WPARAM {
  Menus,  // of the window: a line for each item, of "G" (greyed), "C" (checked), a blank, its text
  Text,   // of a control; of a list a line for each row, with both columns, as in "Normal: 12 steps"
  Drop,   // lets the file whose path is in `text` fall on the window
};

/// The answer; all processes share it.
PROBE extern wchar_t text[16384];
/// For WH_CALLWNDPROC.
PROBE LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);

}  // namespace probe
