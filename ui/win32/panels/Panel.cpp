// SPDX-License-Identifier: MIT
#include "ui/win32/panels/Panel.h"

#include <algorithm>

#include <commctrl.h>  // after windows.h

namespace UX {
namespace {

LRESULT CALLBACK KeepingSelection(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                  DWORD_PTR) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, KeepingSelection, 0);
  const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
  return message == WM_GETDLGCODE ? result & ~LRESULT{DLGC_HASSETSEL} : result;
}

}  // namespace

HWND MakeControl(const PanelContext& context, const wchar_t* windowClass, DWORD style, int id,
                 DWORD extendedStyle) {
  return CreateWindowExW(extendedStyle, windowClass, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                         context.window, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), context.instance,
                         nullptr);
}

HWND MakeLabel(const PanelContext& context) {
  return MakeControl(context, L"STATIC", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS);
}

HWND MakeButton(const PanelContext& context, int command, DWORD style) {
  return MakeControl(context, L"BUTTON", WS_TABSTOP | style, command);
}

void KeepSelection(HWND text) {
  SetWindowSubclass(text, KeepingSelection, 0, 0);
}

void Place(HWND control, const Frame& area) {
  SetWindowPos(control, nullptr, area.left, area.top, std::max(0, area.width), std::max(0, area.height),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void ShowText(HWND control, std::string_view text) {
  if (TextOf(control) != text) SetText(control, text);
}

int ButtonWidth(HWND button, HFONT font, int least) {
  const int text = static_cast<int>(TextSize(button, font, TextOf(button)).cx);
  return std::max(Scaled(button, least), text + Scaled(button, 14));
}

int PlaceButtons(const Frame& row, std::initializer_list<HWND> buttons, HFONT font, int least) {
  int left = row.left;
  for (HWND button : buttons) {
    const int width = ButtonWidth(button, font, least);
    Place(button, {left, row.top, width, row.height});
    left += width + Scaled(button, 3);
  }
  return left;
}

}  // namespace UX
