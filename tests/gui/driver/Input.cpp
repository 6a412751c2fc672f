// SPDX-License-Identifier: MIT
#include "tests/gui/driver/Input.h"

namespace gui {
namespace {

constexpr DWORD PauseMilliseconds = 15;  // a hand is slower, but the window must see each place

void Send(INPUT input) {
  SendInput(1, &input, sizeof input);
}

void SendButton(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  Send(input);
  Sleep(PauseMilliseconds);
}

void SendKey(WORD key, WORD character, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = character;
  input.ki.dwFlags = flags;
  Send(input);
}

/// The keys that stand apart from the number pad.
DWORD FlagsOf(WORD key) {
  const bool isExtended = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
  return isExtended ? KEYEVENTF_EXTENDEDKEY : 0;
}

}  // namespace

void MoveMouse(POINT screen) {
  // This moves the display's pointer as well, which Wine asks for now and then.
  SetCursorPos(screen.x, screen.y);
  Sleep(PauseMilliseconds);
}

void PressButton() {
  SendButton(MOUSEEVENTF_LEFTDOWN);
}

void ReleaseButton() {
  SendButton(MOUSEEVENTF_LEFTUP);
}

void Click(POINT screen) {
  MoveMouse(screen);
  PressButton();
  ReleaseButton();
}

void Drag(POINT from, POINT to) {
  constexpr int Stops = 8;
  MoveMouse(from);
  PressButton();
  for (int i = 1; i <= Stops; ++i) {
    MoveMouse({from.x + (to.x - from.x) * i / Stops, from.y + (to.y - from.y) * i / Stops});
  }
  Sleep(4 * PauseMilliseconds);
  ReleaseButton();
}

void Key(WORD key, WORD held) {
  if (held != 0) SendKey(held, 0, 0);
  SendKey(key, 0, FlagsOf(key));
  SendKey(key, 0, FlagsOf(key) | KEYEVENTF_KEYUP);
  if (held != 0) SendKey(held, 0, KEYEVENTF_KEYUP);
  Sleep(PauseMilliseconds);
}

void Keys(std::initializer_list<WORD> keys) {
  for (const WORD key : keys) Key(key);
}

void Type(std::wstring_view text) {
  for (const wchar_t character : text) {
    SendKey(0, character, KEYEVENTF_UNICODE);
    SendKey(0, character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    Sleep(PauseMilliseconds);
  }
}

POINT OnScreen(HWND window, int x, int y) {
  POINT place{x, y};
  ClientToScreen(window, &place);
  return place;
}

POINT MiddleOf(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  return OnScreen(window, area.right / 2, area.bottom / 2);
}

}  // namespace gui
