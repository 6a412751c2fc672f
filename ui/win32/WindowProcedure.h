// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <exception>

namespace UX {

/// The procedure of windows that are made with their object as the parameter. `Window` has
///     void Attach(HWND window);                              the window is being made
///     LRESULT OnMessage(UINT message, WPARAM, LPARAM);       all messages but the last
///     void OnFailure(const std::exception& failed);          something threw: none passes through the system
template <typename Window>
LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* made = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    made->Attach(window);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
  }
  auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr || message == WM_NCDESTROY) return DefWindowProcW(window, message, wParam, lParam);
  try {
    return self->OnMessage(message, wParam, lParam);
  } catch (const std::exception& failed) {
    self->OnFailure(failed);
    return 0;
  }
}

}  // namespace UX
