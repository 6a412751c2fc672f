// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string_view>

/// Mouse and keyboard as a user has them: places are on the screen, keys go to the window in front.
namespace gui {

void MoveMouse(POINT screen);
void PressButton();
void ReleaseButton();
void Click(POINT screen);
/// Presses at the first place, goes to the second one on the way and lets go there.
void Drag(POINT from, POINT to);

/// The system's code of a key, with Ctrl, Shift or Alt held where `held` names one of their codes.
void Key(WORD key, WORD held = 0);
void Keys(std::initializer_list<WORD> keys);
void Type(std::wstring_view text);

/// A place in a window as one on the screen.
POINT OnScreen(HWND window, int x, int y);
POINT MiddleOf(HWND window);

}  // namespace gui
