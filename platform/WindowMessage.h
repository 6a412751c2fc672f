// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

namespace platform {

/// A message to a window; the handle is opaque.
struct WindowMessage {
  void* window = nullptr;
  std::uint32_t message = 0;
  std::uintptr_t wParam = 0;
  std::intptr_t lParam = 0;
};

/// Posts the message to the window's queue. Without a window, and on systems that have none, it goes to the
/// handler, on the calling thread. Safe to call from any thread.
void PostWindowMessage(void* window, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam);

/// Installs the handler of a program without windows; set before other threads post.
void SetWindowMessageHandler(std::function<void(const WindowMessage&)> handler);

}  // namespace platform
