// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace UX {

/// Which keys run commands, and which belong to the control that has the focus.
class Keys {
 public:
  explicit Keys(HINSTANCE instance);
  ~Keys();
  Keys(const Keys&) = delete;
  Keys& operator=(const Keys&) = delete;

  /// Whether the message was a key for a command of the window, or one that moves the focus; it is done with
  /// then. Esc only ever reaches controls that make something of it.
  bool Take(HWND window, MSG& message) const;

 private:
  HACCEL resource_;  // owned by the system
  HACCEL further_;
};

}  // namespace UX
