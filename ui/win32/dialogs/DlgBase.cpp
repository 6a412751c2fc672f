// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/DlgBase.h"

#include <commctrl.h>

#include <algorithm>

#include "QorLib/qor_win_str_utils.h"

namespace UX {
namespace {

// Lengths for 96 dpi
constexpr int Margin = 14;
constexpr int ButtonGap = 8;
constexpr int AboveButtons = 16;
constexpr int LeastWidth = 320;

/// A dialog's template in memory: the header, and behind it neither menu, class nor title.
struct EmptyTemplate {
  DLGTEMPLATE header{};
  WORD menu = 0, windowClass = 0, title = 0;
};

EmptyTemplate NewTemplate() {
  EmptyTemplate empty;
  empty.header.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
  return empty;
}

/// The system's own scaling of dialogs knows nothing of the rows. Windows has the function since its version
/// 1703, and Wine has not.
void SwitchOffOwnScaling(HWND dialog) {
  const HMODULE user = GetModuleHandleW(L"user32.dll");
  const auto address = reinterpret_cast<void*>(GetProcAddress(user, "SetDialogDpiChangeBehavior"));
  const auto set = reinterpret_cast<decltype(&SetDialogDpiChangeBehavior)>(address);
  if (set != nullptr) set(dialog, DDC_DISABLE_ALL, DDC_DISABLE_ALL);
}

RECT WorkAreaAt(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

SIZE WindowSizeFor(HWND window, const SIZE& client) {
  RECT area{0, 0, client.cx, client.cy};
  AdjustWindowRectExForDpi(&area, static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)),
                           GetDpiForWindow(window));
  return {area.right - area.left, area.bottom - area.top};
}

/// The place of a length within another that has it in its middle, and in the work area.
LONG MiddleOf(LONG start, LONG end, LONG length, LONG least, LONG most) {
  return std::max(std::min((start + end - length) / 2, most - length), least);
}

}  // namespace

bool DlgBase::Run(HWND owner) {
  const INITCOMMONCONTROLSEX classes{sizeof classes,
                                     ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES};
  InitCommonControlsEx(&classes);
  const EmptyTemplate empty = NewTemplate();
  owner_ = owner;
  return DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &empty.header, owner, &DlgBase::Procedure,
                                 reinterpret_cast<LPARAM>(this)) == IDOK;
}

INT_PTR CALLBACK DlgBase::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lParam);
  auto* const dialog = reinterpret_cast<DlgBase*>(GetWindowLongPtrW(window, DWLP_USER));
  if (dialog == nullptr) return FALSE;
  try {
    dialog->window_ = window;
    return dialog->OnMessage(message, wParam, lParam);
  } catch (...) {
    EndDialog(window, IDCANCEL);
    return FALSE;
  }
}

INT_PTR DlgBase::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG: Initialise(); return FALSE;  // the focus is set
    case WM_COMMAND:
      if (IsButton(LOWORD(wParam))) {
        OnButton(LOWORD(wParam));
      } else {
        OnCommand(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
      }
      return TRUE;
    case WM_NOTIFY: OnNotify(*reinterpret_cast<const NMHDR*>(lParam)); return FALSE;
    case WM_DPICHANGED: OnScalingChanged(*reinterpret_cast<const RECT*>(lParam)); return TRUE;
    case WM_DESTROY: OnClosing(); return FALSE;
    default: return FALSE;
  }
}

bool DlgBase::IsButton(int id) const {
  const auto has = [id](const Cell& button) { return GetDlgCtrlID(button.control) == id; };
  return id == IDCANCEL || std::ranges::any_of(buttons_, has);
}

void DlgBase::OnCommand(HWND, int) {}

void DlgBase::OnNotify(const NMHDR&) {}

void DlgBase::OnButton(int id) {
  Close(id == IDOK);
}

void DlgBase::Close(bool counts) {
  EndDialog(window_, counts ? IDOK : IDCANCEL);
}

bool DlgBase::Stays(const std::string& fault, HWND control) {
  if (fault.empty()) return false;
  MessageBoxW(window_, qor::win::WideFromUtf8(fault).c_str(), qor::win::WideFromUtf8(TextOf(window_)).c_str(),
              MB_OK | MB_ICONWARNING);
  Focus(control);
  return true;
}

void DlgBase::Initialise() {
  SwitchOffOwnScaling(window_);
  Build(translate_);
  SetFonts();
  Centre(LayOut());
  ShowPage(page_);
}

StackLayout& DlgBase::AddPage() {
  return pages_.emplace_back(window_);
}

void DlgBase::ShowPage(std::size_t page) {
  page_ = page;
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    if (i != page) pages_[i].Show(false);
  }
  pages_[page].Show(true);
  const HWND input = pages_[page].FirstInput();
  Focus(input != nullptr ? input : GetDlgItem(window_, LOWORD(SendMessageW(window_, DM_GETDEFID, 0, 0))));
}

void DlgBase::Focus(HWND control) {
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
  const bool hasLines = (GetWindowLongPtrW(control, GWL_STYLE) & ES_MULTILINE) != 0;
  const bool isEdit = (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0;
  if (!isEdit) return;
  // What stands in many lines would be lost by one key: there, typing goes on at the end.
  const int end = GetWindowTextLengthW(control);
  SendMessageW(control, EM_SETSEL, static_cast<WPARAM>(hasLines ? end : 0), end);
}

HWND DlgBase::AddButton(int id, std::string_view text, bool isDefault) {
  buttons_.push_back(DialogButton(window_, text, id, isDefault));
  return buttons_.back().control;
}

void DlgBase::AddOkAndCancel(const qor::Translate& translate) {
  AddButton(IDOK, translate(TR("OK")), true);
  AddButton(IDCANCEL, translate(TR("Cancel")));
}

void DlgBase::SetFonts() {
  Fonts fonts(window_);
  for (const StackLayout& page : pages_) page.SetFonts(fonts);
  for (const Cell& button : buttons_) {
    SendMessageW(button.control, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.Of(button.face)), TRUE);
  }
  fonts_ = std::move(fonts);  // the former ones go when no control has them any more
}

SIZE DlgBase::LayOut() {
  int width = std::max(Scaled(window_, LeastWidth), ButtonRowWidth());
  for (const StackLayout& page : pages_) width = std::max(width, page.LeastWidth(fonts_));
  int height = 0;
  for (const StackLayout& page : pages_) height = std::max(height, page.Height(fonts_, width));
  const int margin = Scaled(window_, Margin);
  for (const StackLayout& page : pages_)
    page.Place(fonts_, {margin, margin, margin + width, margin + height});
  const int buttons = static_cast<int>(NaturalSize(buttons_[0], fonts_).cy);
  const SIZE client{width + 2 * margin, height + Scaled(window_, AboveButtons) + buttons + 2 * margin};
  PlaceButtons(client);
  const SIZE size = WindowSizeFor(window_, client);
  SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  OnLaidOut();
  return size;
}

int DlgBase::ButtonWidth() const {
  int width = 0;
  for (const Cell& button : buttons_) {
    width = std::max(width, static_cast<int>(NaturalSize(button, fonts_).cx));
  }
  return width;
}

int DlgBase::ButtonRowWidth() const {
  const auto count = static_cast<int>(buttons_.size());
  return count * ButtonWidth() + (count - 1) * Scaled(window_, ButtonGap);
}

void DlgBase::PlaceButtons(const SIZE& client) {
  const int margin = Scaled(window_, Margin);
  const int width = ButtonWidth();
  int left = static_cast<int>(client.cx) - margin - ButtonRowWidth();
  for (const Cell& button : buttons_) {
    const int height = static_cast<int>(NaturalSize(button, fonts_).cy);
    Place(button, {left, client.cy - margin - height, left + width, client.cy - margin});
    left += width + Scaled(window_, ButtonGap);
  }
}

void DlgBase::Centre(const SIZE& size) {
  const RECT work = WorkAreaAt(owner_ != nullptr ? owner_ : window_);
  RECT around = work;
  if (owner_ != nullptr && !IsIconic(owner_)) GetWindowRect(owner_, &around);
  SetWindowPos(window_, nullptr, MiddleOf(around.left, around.right, size.cx, work.left, work.right),
               MiddleOf(around.top, around.bottom, size.cy, work.top, work.bottom), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DlgBase::OnScalingChanged(const RECT& suggested) {
  SetFonts();
  LayOut();
  SetWindowPos(window_, nullptr, suggested.left, suggested.top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace UX
