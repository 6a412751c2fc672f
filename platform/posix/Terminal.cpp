// SPDX-License-Identifier: MIT
#include "platform/Terminal.h"

#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cstring>
#include <string>

namespace platform {
namespace {

/// The terminal of standard input in another mode for a while.
class Mode {
 public:
  explicit Mode(tcflag_t without) {
    if (!IsInputTerminal() || tcgetpgrp(STDIN_FILENO) != getpgrp() || tcgetattr(STDIN_FILENO, &before_) != 0)
      return;
    termios changed = before_;
    changed.c_lflag &= ~without;
    isChanged_ = tcsetattr(STDIN_FILENO, TCSADRAIN, &changed) == 0;
  }
  ~Mode() {
    if (isChanged_) tcsetattr(STDIN_FILENO, TCSADRAIN, &before_);
  }
  Mode(const Mode&) = delete;
  Mode& operator=(const Mode&) = delete;
  bool IsChanged() const { return isChanged_; }

 private:
  termios before_{};
  bool isChanged_ = false;
};

bool HasInput() {
  pollfd input{STDIN_FILENO, POLLIN, 0};
  return poll(&input, 1, 0) > 0 && (input.revents & POLLIN) != 0;
}

struct Sequence {
  const char* bytes;
  Key key;
};
// Arrow keys as terminals send them: ECMA-48 cursor codes, and those of the application mode.
constexpr Sequence Sequences[] = {
    {" ", Key::Space},      {"q", Key::Quit},      {"Q", Key::Quit},       {"\x1B[D", Key::Left},
    {"\x1B[C", Key::Right}, {"\x1BOD", Key::Left}, {"\x1BOC", Key::Right},
};

class TerminalKeyboard : public Keyboard {
 public:
  bool IsOpen() const { return mode_.IsChanged(); }

  Key Next() override {
    char byte = 0;
    while (HasInput() && read(STDIN_FILENO, &byte, 1) == 1) {
      pressed_ += byte;
      bool isBegun = false;
      for (const Sequence& sequence : Sequences) {
        if (pressed_ == sequence.bytes) return Take(sequence.key);
        isBegun |= std::strncmp(sequence.bytes, pressed_.c_str(), pressed_.size()) == 0;
      }
      if (!isBegun) return Take(Key::Other);
    }
    return Key::None;
  }

 private:
  Key Take(Key key) {
    pressed_.clear();
    return key;
  }

  Mode mode_{ICANON | ECHO};
  std::string pressed_;  // the beginning of a key's bytes
};

}  // namespace

std::unique_ptr<Keyboard> OpenKeyboard() {
  auto keyboard = std::make_unique<TerminalKeyboard>();
  if (!keyboard->IsOpen()) return nullptr;
  return keyboard;
}

struct HiddenInput::State {
  Mode mode{ECHO};
};

HiddenInput::HiddenInput() : before_(std::make_unique<State>()) {}
HiddenInput::~HiddenInput() = default;

bool IsInputTerminal() {
  return isatty(STDIN_FILENO) != 0;
}

bool IsErrorTerminal() {
  return isatty(STDERR_FILENO) != 0;
}

}  // namespace platform
