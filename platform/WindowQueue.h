// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WindowMessage.h"

namespace platform {

/// Puts the message into the window's queue; false on a system without windows.
bool PostToQueue(const WindowMessage& posted);

}  // namespace platform
