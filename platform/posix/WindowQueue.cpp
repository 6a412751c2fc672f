// SPDX-License-Identifier: MIT
#include "platform/WindowQueue.h"

namespace platform {

bool PostToQueue(const WindowMessage&) {
  return false;
}

}  // namespace platform
