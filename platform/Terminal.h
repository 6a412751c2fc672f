// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace platform {

enum class Key { None, Space, Left, Right, Quit, Other };

/// The keys of a terminal one by one, as they are pressed and without echo; its destructor puts the terminal
/// back in order. Ctrl+C stays what it is. In the background nothing is read and nothing changed.
class Keyboard {
 public:
  virtual ~Keyboard() = default;
  /// The next key that has been pressed; None when there is none, at once.
  virtual Key Next() = 0;
};

/// The keyboard of the terminal that is standard input; null when it is none. Interrupts must be watched.
std::unique_ptr<Keyboard> OpenKeyboard();

/// Reads a line from the terminal of standard input, in UTF-8, without showing what is typed. Nothing at an
/// interrupt, which must be watched, and at the end of the input.
std::optional<std::string> ReadHiddenLine();

/// Opens the file in the editor that the variable VISUAL or EDITOR names, with its arguments if there are
/// any, or else in the system's; returns when the editor has ended, whether well.
bool RunEditor(const std::string& path);

bool IsInputTerminal();
bool IsErrorTerminal();

}  // namespace platform
