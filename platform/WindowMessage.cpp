// SPDX-License-Identifier: MIT
#include "platform/WindowMessage.h"

#include "platform/WindowQueue.h"

namespace platform {
namespace {

std::function<void(const WindowMessage&)>& Handler() {
  static std::function<void(const WindowMessage&)> handler;
  return handler;
}

}  // namespace

void SetWindowMessageHandler(std::function<void(const WindowMessage&)> handler) {
  Handler() = std::move(handler);
}

void PostWindowMessage(void* window, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
  const WindowMessage posted{window, message, wParam, lParam};
  if (window != nullptr && PostToQueue(posted)) return;
  if (Handler()) Handler()(posted);
}

}  // namespace platform
