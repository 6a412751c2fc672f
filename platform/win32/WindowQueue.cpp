// SPDX-License-Identifier: MIT
#include "platform/WindowQueue.h"

#include <windows.h>

namespace platform {

bool PostToQueue(const WindowMessage& posted) {
  PostMessageW(static_cast<HWND>(posted.window), posted.message, posted.wParam, posted.lParam);
  return true;
}

}  // namespace platform
