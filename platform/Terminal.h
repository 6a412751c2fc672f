// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace platform {

enum class Key { None, Space, Left, Right, Quit, Other };

/// The keys of a terminal one by one, as they are pressed and without echo; its destructor puts the terminal
/// back in order. Ctrl+C stays what it is.
class Keyboard {
 public:
  virtual ~Keyboard() = default;
  /// The next key that has been pressed; None when there is none, at once.
  virtual Key Next() = 0;
};

/// The keyboard of the terminal that is standard input; null when it is none, or belongs to another program.
std::unique_ptr<Keyboard> OpenKeyboard();

/// While it lives, what is typed into the terminal of standard input does not show.
class HiddenInput {
 public:
  HiddenInput();
  ~HiddenInput();
  HiddenInput(const HiddenInput&) = delete;
  HiddenInput& operator=(const HiddenInput&) = delete;

 private:
  struct State;
  std::unique_ptr<State> before_;
};

bool IsInputTerminal();
bool IsErrorTerminal();

}  // namespace platform
