// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

namespace UX {

/// Which keys run commands, and which belong to the control that has the focus.
class Keys {
 public:
  explicit Keys(HINSTANCE instance);

  /// Whether the message was a key for a command of the window, or one that moves the focus; it is done with
  /// then. Esc only ever reaches controls that make something of it.
  bool Take(HWND window, MSG& message) const;

 private:
  HACCEL commands_;  // owned by the system
};

}  // namespace UX
