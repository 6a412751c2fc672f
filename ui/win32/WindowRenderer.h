// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <memory>

#include "chart/RendererBase.h"

namespace UX {

/// Draws scenes into a window's client area. A scene's pixels are those of 96 dpi.
class WindowRenderer : public RendererBase {
 public:
  /// The client area in the screen's pixels, and how many of them make one of a scene's (1 at 96 dpi). What
  /// was drawn before is lost.
  virtual void Resize(int width, int height, float scale) = 0;
  /// Whether drawing failed in a way that only a new renderer can mend.
  virtual bool IsLost() const = 0;
};

/// The renderers; null when the system does not offer what they need.
std::unique_ptr<WindowRenderer> MakeRendererDX(HWND window);
/// GDI+ must have been started.
std::unique_ptr<WindowRenderer> MakeRendererGDI(HWND window);

}  // namespace UX
