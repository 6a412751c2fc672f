// SPDX-License-Identifier: MIT
#include "platform/Terminal.h"

#include <windows.h>

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

struct HiddenInput::State {
  DWORD mode = 0;
  bool isConsole = false;
};

HiddenInput::HiddenInput() : before_(std::make_unique<State>()) {
  before_->isConsole = GetConsoleMode(Input(), &before_->mode) != 0;
  if (before_->isConsole) SetConsoleMode(Input(), before_->mode & ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
}

HiddenInput::~HiddenInput() {
  if (before_->isConsole) SetConsoleMode(Input(), before_->mode);
}

bool IsInputTerminal() {
  return IsConsole(STD_INPUT_HANDLE);
}

bool IsErrorTerminal() {
  return IsConsole(STD_ERROR_HANDLE);
}

}  // namespace platform
