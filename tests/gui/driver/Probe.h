// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

/// What the driver asks of the library that the program under test loads: things that only its own process
/// knows. A question is a registered message to the program's window, the answer stands in a named mapping.
namespace probe {

inline constexpr const wchar_t* MessageName = L"HalvexProbeQuestion";
inline constexpr const wchar_t* MappingName = L"HalvexProbeAnswer";
inline constexpr const wchar_t* LibraryName = L"gui_probe.dll";
inline constexpr const char* HookName = "ProbeHook";

enum class Question : WPARAM {
  Menu,  // `text` becomes a line for each item: marks, of "G" (greyed) and "C" (checked), a blank, the text
  Rest,  // whether nothing waits for the program to take it
  Drop,  // `text` is the path of a file; posts its being dropped on the window
};

struct Answer {
  bool isAnswered;
  bool isAtRest;
  wchar_t text[32768];
};

}  // namespace probe
