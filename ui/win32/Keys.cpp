// SPDX-License-Identifier: MIT
#include "ui/win32/Keys.h"

#include <initializer_list>
#include <iterator>

#include "ui/win32/ResourceIds.h"

namespace UX {
namespace {

constexpr std::initializer_list<WPARAM> MovingKeys = {VK_HOME, VK_END, VK_PRIOR, VK_NEXT, VK_DELETE, VK_BACK};

enum class Kind { Text, Log, List, Other };

/// What kind of control a message goes to.
Kind KindOf(HWND control) {
  wchar_t name[32] = L"";
  GetClassNameW(control, name, static_cast<int>(std::size(name)));
  if (lstrcmpiW(name, L"EDIT") == 0) return Kind::Text;
  if (lstrcmpiW(name, L"SysListView32") == 0) return Kind::List;
  const bool isLog = CompareStringOrdinal(name, 8, L"RICHEDIT", 8, TRUE) == CSTR_EQUAL;
  return isLog ? Kind::Log : Kind::Other;
}

bool IsDown(int key) {
  return (GetKeyState(key) & 0x8000) != 0;
}

bool IsOneOf(WPARAM key, std::initializer_list<WPARAM> keys) {
  for (const WPARAM other : keys) {
    if (key == other) return true;
  }
  return false;
}

/// Whether the control with the focus needs the key itself.
bool IsForControl(const MSG& message) {
  const Kind kind = KindOf(message.hwnd);
  const WPARAM key = message.wParam;
  const bool isControl = IsDown(VK_CONTROL), isAlt = IsDown(VK_MENU);
  const bool isPlain = !isControl && !isAlt;
  switch (kind) {
    case Kind::Text:
      if (isControl && isAlt) return true;  // a character of keyboards that have AltGr
      if (isControl) return IsOneOf(key, MovingKeys) || IsOneOf(key, {'A', 'C', 'V', 'X', 'Z'});
      return isPlain;
    case Kind::Log:
      if (isControl && !isAlt) return IsOneOf(key, MovingKeys) || IsOneOf(key, {'A', 'C'});
      return isPlain;
    case Kind::List: return isPlain && IsOneOf(key, MovingKeys);
    case Kind::Other: break;
  }
  return false;
}

bool IsKey(const MSG& message) {
  return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

}  // namespace

Keys::Keys(HINSTANCE instance) : commands_(LoadAcceleratorsW(instance, MAKEINTRESOURCEW(IDC_HALVEX))) {}

bool Keys::Take(HWND window, MSG& message) const {
  if (IsKey(message)) {
    // A text of several lines would make of Esc that its window is to be closed.
    const Kind kind = KindOf(message.hwnd);
    if (message.wParam == VK_ESCAPE) return kind == Kind::Text || kind == Kind::Log;
    if (!IsForControl(message) && TranslateAcceleratorW(window, commands_, &message)) return true;
  }
  return IsDialogMessageW(window, &message) != FALSE;
}

}  // namespace UX
