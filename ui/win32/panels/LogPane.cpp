// SPDX-License-Identifier: MIT
#include "ui/win32/panels/LogPane.h"

#include <richedit.h>

#include <algorithm>

#include "QorLib/qor_win_str_utils.h"

namespace UX {
namespace {

constexpr LRESULT MostLines = 5000;
constexpr LRESULT DroppedLines = 1000;  // at a time
constexpr LPARAM MostCharacters = 64 << 20;

/// The system's control for rich text; a plain one where that is missing.
HWND MakeWindow(const PanelContext& context) {
  constexpr DWORD Style =
      WS_TABSTOP | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_NOHIDESEL | ES_AUTOVSCROLL;
  const bool isRich = LoadLibraryW(L"Msftedit.dll") != nullptr;
  HWND window = isRich ? MakeControl(context.window, MSFTEDIT_CLASS, Style, LogId) : nullptr;
  return window != nullptr ? window : MakeControl(context.window, L"EDIT", Style, LogId);
}

}  // namespace

LogPane::LogPane(const PanelContext& context) : context_(context), window_(MakeWindow(context)) {
  SendMessageW(window_, EM_EXLIMITTEXT, 0, MostCharacters);
  SendMessageW(window_, EM_SETBKGNDCOLOR, 1, 0);  // the system's, also when that changes
  KeepSelection(window_);
}

int LogPane::HeightFor(int most) const {
  const int line = static_cast<int>(TextSize(window_, context_.fonts.Of(Face::Fixed), "0").cy);
  const int borders = 2 * GetSystemMetrics(SM_CYBORDER);
  return borders + std::max(1, (most - borders) / line) * line;
}

bool LogPane::IsEndInSight() const {
  SCROLLINFO scroll{};
  scroll.cbSize = sizeof scroll;
  scroll.fMask = SIF_ALL;
  if (!GetScrollInfo(window_, SB_VERT, &scroll)) return true;
  return scroll.nPos + static_cast<int>(scroll.nPage) + Scaled(window_, 20) >= scroll.nMax;
}

void LogPane::LayOut(const RECT& area) {
  const bool isFollowing = IsEndInSight();
  Place({.control = window_}, area);
  if (isFollowing) SendMessageW(window_, WM_VSCROLL, SB_BOTTOM, 0);
}

void LogPane::Append(const std::string& lines) {
  CHARRANGE selected{};
  POINT scroll{};
  SendMessageW(window_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selected));
  const bool isFollowing = selected.cpMin == selected.cpMax && IsEndInSight();
  SendMessageW(window_, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scroll));
  SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
  CHARRANGE end{-1, -1};
  SendMessageW(window_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&end));
  const std::wstring text = qor::win::WideFromUtf8(lines);
  SendMessageW(window_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
  if (isFollowing) {
    DropOldest();
    SendMessageW(window_, WM_VSCROLL, SB_BOTTOM, 0);
  } else {
    SendMessageW(window_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selected));
    SendMessageW(window_, EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scroll));
  }
  SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(window_, nullptr, FALSE);
}

void LogPane::DropOldest() {
  if (SendMessageW(window_, EM_GETLINECOUNT, 0, 0) <= MostLines) return;
  CHARRANGE oldest{0, static_cast<LONG>(SendMessageW(window_, EM_LINEINDEX, DroppedLines, 0))};
  SendMessageW(window_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&oldest));
  SendMessageW(window_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
  CHARRANGE end{-1, -1};
  SendMessageW(window_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&end));
}

void LogPane::ShowMenu(POINT at) {
  if (at.x == -1 && at.y == -1) {  // by the keyboard
    at = {0, 0};
    ClientToScreen(window_, &at);
  }
  const HMENU menu = CreatePopupMenu();
  const std::wstring copy =
      qor::win::WideFromUtf8(context_.workbench.services.texts.Translator()(TR("Copy")));
  AppendMenuW(menu, MF_STRING, 1, copy.c_str());
  if (TrackPopupMenu(menu, TPM_RETURNCMD, at.x, at.y, 0, context_.window, nullptr) == 1) {
    SendMessageW(window_, WM_COPY, 0, 0);
  }
  DestroyMenu(menu);
}

}  // namespace UX
