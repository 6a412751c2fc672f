// SPDX-License-Identifier: MIT
#include "platform/Terminal.h"

#include <windows.h>

#include "QorLib/qor_win_str_utils.h"
#include "platform/Console.h"

namespace platform {
namespace {

HANDLE Input() {
  return GetStdHandle(STD_INPUT_HANDLE);
}

bool IsConsole(DWORD standardHandle) {
  DWORD ignored = 0;
  return GetConsoleMode(GetStdHandle(standardHandle), &ignored) != 0;
}

Key KeyOf(const KEY_EVENT_RECORD& event) {
  switch (event.wVirtualKeyCode) {
    case VK_SPACE: return Key::Space;
    case VK_LEFT: return Key::Left;
    case VK_RIGHT: return Key::Right;
    case 'Q': return Key::Quit;
    default: return Key::Other;
  }
}

class ConsoleKeyboard : public Keyboard {
 public:
  Key Next() override {
    INPUT_RECORD record;
    DWORD count = 0;
    while (PeekConsoleInputW(Input(), &record, 1, &count) && count > 0) {
      if (!ReadConsoleInputW(Input(), &record, 1, &count)) break;
      if (record.EventType == KEY_EVENT && record.Event.KeyEvent.bKeyDown)
        return KeyOf(record.Event.KeyEvent);
    }
    return Key::None;
  }
};

}  // namespace

std::unique_ptr<Keyboard> OpenKeyboard() {
  if (!IsInputTerminal()) return nullptr;
  return std::make_unique<ConsoleKeyboard>();
}

std::optional<std::string> ReadHiddenLine() {
  DWORD before = 0;
  if (!GetConsoleMode(Input(), &before)) return std::nullopt;
  SetConsoleMode(Input(), before & ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
  std::wstring line;
  wchar_t character = 0;
  DWORD count = 0;
  bool isEnded = false;
  while (!isEnded && ReadConsoleW(Input(), &character, 1, &count, nullptr) && count == 1 &&
         !IsInterrupted()) {
    isEnded = character == L'\n';
    if (!isEnded && character != L'\r') line += character;
  }
  SetConsoleMode(Input(), before);
  if (!isEnded) return std::nullopt;
  return qor::win::Utf8FromWide(line);
}

bool RunEditor(const std::string& path) {
  std::string editor = Variable("VISUAL");
  if (editor.empty()) editor = Variable("EDITOR");
  if (editor.empty()) editor = "notepad";
  // The command processor takes the outer quotes off (cmd /c).
  return _wsystem(qor::win::WideFromUtf8("\"" + editor + " \"" + path + "\"\"").c_str()) == 0;
}

bool IsInputTerminal() {
  return IsConsole(STD_INPUT_HANDLE);
}

bool IsErrorTerminal() {
  return IsConsole(STD_ERROR_HANDLE);
}

}  // namespace platform
