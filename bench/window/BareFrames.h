// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>
// Direct2D's headers need what stands above.
#include <d2d1.h>
#include <wrl/client.h>

#include "ui/win32/renderers/Canvas.h"

/// The least that a frame takes: the window in one colour.
namespace bench {

/// Clears a target of Direct2D like that of UX::RendererDX and shows it.
class BareDirect2D {
 public:
  BareDirect2D(HWND window, int width, int height);
  bool Draw();

 private:
  Microsoft::WRL::ComPtr<ID2D1Factory> factory_;
  Microsoft::WRL::ComPtr<ID2D1DCRenderTarget> target_;
  HWND window_;
  UX::Canvas picture_;
};

/// Clears a picture like that of UX::RendererGDI by GDI+ and copies it to the window.
class BareGdi {
 public:
  BareGdi(HWND window, int width, int height) : window_(window), canvas_(width, height) {}
  bool Draw();

 private:
  HWND window_;
  UX::Canvas canvas_;
};

}  // namespace bench
