// SPDX-License-Identifier: MIT
#include "tests/gui/driver/Desktop.h"

#include "QorLib/qor_win_str_utils.h"
#include "tests/gui/driver/Check.h"

#include <commctrl.h>  // after windows.h

namespace gui {
namespace {

constexpr DWORD PauseMilliseconds = 15;  // a hand is slower, but the window must see each place

void Button(DWORD flags) {
  mouse_event(flags, 0, 0, 0, 0);
  Sleep(PauseMilliseconds);
}

}  // namespace

void MoveMouse(POINT screen) {
  // This moves the display's pointer as well, which Wine asks for now and then.
  SetCursorPos(screen.x, screen.y);
  Sleep(PauseMilliseconds);
}

void Click(POINT screen) {
  MoveMouse(screen);
  Button(MOUSEEVENTF_LEFTDOWN);
  Button(MOUSEEVENTF_LEFTUP);
}

void Drag(POINT from, POINT to) {
  constexpr int Stops = 8;
  MoveMouse(from);
  Button(MOUSEEVENTF_LEFTDOWN);
  for (int i = 1; i <= Stops; ++i) {
    MoveMouse({from.x + (to.x - from.x) * i / Stops, from.y + (to.y - from.y) * i / Stops});
  }
  Sleep(4 * PauseMilliseconds);
  Button(MOUSEEVENTF_LEFTUP);
}

void Key(BYTE key, BYTE held) {
  if (held != 0) keybd_event(held, 0, 0, 0);
  keybd_event(key, 0, 0, 0);
  keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
  if (held != 0) keybd_event(held, 0, KEYEVENTF_KEYUP, 0);
  Sleep(PauseMilliseconds);
}

void Keys(std::initializer_list<BYTE> keys) {
  for (const BYTE key : keys) Key(key);
}

void Type(std::string_view text) {
  for (const char character : text) {
    keybd_event(0, static_cast<BYTE>(character), KEYEVENTF_UNICODE, 0);
    keybd_event(0, static_cast<BYTE>(character), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP, 0);
    Sleep(PauseMilliseconds);
  }
}

POINT OnScreen(HWND window, int x, int y) {
  POINT place{x, y};
  ClientToScreen(window, &place);
  return place;
}

POINT Within(HWND window, double across, double down) {
  RECT area{};
  GetClientRect(window, &area);
  return OnScreen(window, static_cast<int>(area.right * across), static_cast<int>(area.bottom * down));
}

LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  constexpr UINT PatienceMilliseconds = 20000;
  DWORD_PTR result = 0;
  Expect(
      SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, PatienceMilliseconds, &result) != 0,
      "message " + std::to_string(message) + " is not answered");
  return static_cast<LRESULT>(result);
}

std::string Ask(HWND window, probe::Question question) {
  static const UINT message = RegisterWindowMessageW(probe::MessageName);
  Send(window, message, question);
  return qor::win::Utf8FromWide(probe::text);
}

std::string TextOf(HWND control) {
  std::string text = Ask(control, probe::Text);
  std::erase(text, '\r');
  return text;
}

void ClickInRow(HWND list, int row, int x) {
  const auto heightOf = [list](WPARAM rows) { return HIWORD(Send(list, LVM_APPROXIMATEVIEWRECT, rows, -1)); };
  const int height = heightOf(2) - heightOf(1);
  Click(OnScreen(list, x, row * height + height / 2));
}

}  // namespace gui
