// SPDX-License-Identifier: MIT
#include "tests/gui/driver/Probe.h"

#include <shlobj.h>

#include <string>

#include <commctrl.h>  // after windows.h

namespace probe {
namespace {

std::wstring ItemsOf(HMENU menu) {
  std::wstring lines;
  for (int position = 0; position < GetMenuItemCount(menu); ++position) {
    const auto item = static_cast<UINT>(position);
    wchar_t name[256] = L"";
    GetMenuStringW(menu, item, name, static_cast<int>(std::size(name)), MF_BYPOSITION);
    const UINT state = GetMenuState(menu, item, MF_BYPOSITION);
    if ((state & MF_GRAYED) != 0) lines += L'G';
    if ((state & MF_CHECKED) != 0) lines += L'C';
    lines += std::wstring(L" ") + name + L'\n';
    if (const HMENU below = GetSubMenu(menu, position)) lines += ItemsOf(below);
  }
  return lines;
}

std::wstring TextOf(HWND control) {
  std::wstring content(std::size(text), L'\0');
  content.resize(static_cast<std::size_t>(
      SendMessageW(control, WM_GETTEXT, content.size(), reinterpret_cast<LPARAM>(content.data()))));
  for (int row = 0; row < ListView_GetItemCount(control); ++row) {
    wchar_t name[256] = L"", info[256] = L"";
    ListView_GetItemText(control, row, 0, name, static_cast<int>(std::size(name)));
    ListView_GetItemText(control, row, 1, info, static_cast<int>(std::size(info)));
    content += std::wstring(name) + L": " + info + L'\n';
  }
  return content;
}

/// What Explorer hands over; the program frees it.
void PostDrop(HWND window) {
  auto* const files = static_cast<DROPFILES*>(GlobalAlloc(GPTR, sizeof(DROPFILES) + sizeof text));
  files->pFiles = sizeof *files;
  files->fWide = TRUE;
  lstrcpyW(reinterpret_cast<wchar_t*>(files + 1), text);
  PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(files), 0);
}

void Write(const std::wstring& answer) {
  lstrcpynW(text, answer.c_str(), static_cast<int>(std::size(text)));
}

}  // namespace

wchar_t text[16384] __attribute__((section("shared"), shared)) = L"?";

LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam) {
  static const UINT message = RegisterWindowMessageW(MessageName);
  const auto* sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && sent->message == message) {
    if (sent->wParam == Menus) Write(ItemsOf(GetMenu(sent->hwnd)));
    if (sent->wParam == Text) Write(TextOf(sent->hwnd));
    if (sent->wParam == Drop) PostDrop(sent->hwnd);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace probe
