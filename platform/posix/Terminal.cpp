// SPDX-License-Identifier: MIT
#include "platform/Terminal.h"

#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "platform/Console.h"

namespace platform {
namespace {

bool IsInForeground() {
  return tcgetpgrp(STDIN_FILENO) == getpgrp();
}

/// The terminal of standard input without some of its local modes for a while. A shell that the program was
/// stopped from may have set them again: Enter sees to that.
class Mode {
 public:
  explicit Mode(tcflag_t without) : without_(without) {}
  ~Mode() {
    // In the background the terminal is somebody else's by now, and setting it would stop the program.
    if (isEntered_ && IsInForeground()) tcsetattr(STDIN_FILENO, TCSADRAIN, &before_);
  }
  Mode(const Mode&) = delete;
  Mode& operator=(const Mode&) = delete;

  /// Waits for the foreground, where the system stops who sets a terminal from behind.
  void Enter() {
    termios now{};
    if (tcgetattr(STDIN_FILENO, &now) != 0 || (now.c_lflag & without_) == 0) return;
    if (!isEntered_) before_ = now;
    now.c_lflag &= ~without_;
    isEntered_ = tcsetattr(STDIN_FILENO, TCSADRAIN, &now) == 0;
  }

 private:
  tcflag_t without_;
  termios before_{};
  bool isEntered_ = false;
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
  Key Next() override {
    if (!IsInForeground()) return Key::None;
    mode_.Enter();
    const bool isWaiting = !pressed_.empty();
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
    // The bytes of a key come together: what has waited since the last call was Esc by itself.
    return isWaiting ? Take(Key::Other) : Key::None;
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
  if (!IsInputTerminal()) return nullptr;
  return std::make_unique<TerminalKeyboard>();
}

std::optional<std::string> ReadHiddenLine() {
  Mode mode(ECHO);
  std::string line;
  while (true) {
    mode.Enter();
    char byte = 0;
    const ssize_t count = read(STDIN_FILENO, &byte, 1);
    if (count < 0 && errno == EINTR && !IsInterrupted()) continue;
    if (count <= 0) return std::nullopt;
    if (byte == '\n') return line;
    line += byte;
  }
}

bool RunEditor(const std::string& path) {
  std::string editor = Variable("VISUAL");
  if (editor.empty()) editor = Variable("EDITOR");
  if (editor.empty()) editor = "$(command -v editor || command -v nano || command -v vi)";
  // The shell takes the command apart; the path it gets whole.
  setenv("HALVEX_TEXT", path.c_str(), 1);
  return std::system((editor + " \"$HALVEX_TEXT\"").c_str()) == 0;
}

bool IsInputTerminal() {
  return isatty(STDIN_FILENO) != 0;
}

bool IsErrorTerminal() {
  return isatty(STDERR_FILENO) != 0;
}

}  // namespace platform
