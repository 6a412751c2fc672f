// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>

#include "tests/gui/driver/Probe.h"

/// Mouse and keyboard as a user has them, and the windows of another process.
namespace gui {

// Places are on the screen; keys go to the window in front.

void MoveMouse(POINT screen);
void Click(POINT screen);
/// Presses at the first place, goes to the second one on the way and lets go there.
void Drag(POINT from, POINT to);

/// The system's code of a key, with Ctrl, Shift or Alt held where `held` names one of their codes.
void Key(BYTE key, BYTE held = 0);
void Keys(std::initializer_list<BYTE> keys);
/// ASCII characters.
void Type(std::string_view text);

/// A place in a window as one on the screen.
POINT OnScreen(HWND window, int x, int y);
/// By parts of its width and height.
POINT Within(HWND window, double across, double down);

/// Sends a message, which the window must answer.
LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
/// By the probe in the window's process.
std::string Ask(HWND window, probe::Question question);
/// What the control holds; lines end with LF.
std::string TextOf(HWND control);
/// So many pixels from the left, in a list that is not scrolled.
void ClickInRow(HWND list, int row, int x);

}  // namespace gui
