// SPDX-License-Identifier: MIT
#include "ui/win32/panels/Panel.h"

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

HWND MakeLabel(const PanelContext& context) {
  return MakeControl(context.window, L"STATIC", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS);
}

HWND MakeButton(const PanelContext& context, int command, DWORD style) {
  return MakeControl(context.window, L"BUTTON", WS_TABSTOP | style, command);
}

Cell Heading(HWND label) {
  return {.control = label, .height = 18, .fills = true};
}

Cell Plain(HWND control, int height) {
  return {.control = control, .kind = Cell::Kind::Plain, .height = height, .fills = true};
}

Cell Tall(HWND control) {
  return {.control = control, .kind = Cell::Kind::Plain, .fills = true, .isTall = true};
}

Cell SmallButton(HWND button, int leastWidth) {
  return {.control = button,
          .kind = Cell::Kind::SmallButton,
          .width = leastWidth,
          .height = ButtonHeight,
          .gap = SmallGap};
}

void KeepSelection(HWND text) {
  SetWindowSubclass(text, KeepingSelection, 0, 0);
}

void ShowText(HWND control, std::string_view text) {
  if (TextOf(control) != text) SetText(control, text);
}

}  // namespace UX
