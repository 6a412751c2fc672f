// SPDX-License-Identifier: MIT
#include "bench/window/BareFrames.h"

namespace bench {

BareDirect2D::BareDirect2D(HWND window, int width, int height) : window_(window), picture_(width, height) {
  const auto format = D2D1::PixelFormat(DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_IGNORE);
  const auto properties = D2D1::RenderTargetProperties(D2D1_RENDER_TARGET_TYPE_DEFAULT, format);
  if (SUCCEEDED(D2D1CreateFactory(D2D1_FACTORY_TYPE_SINGLE_THREADED, factory_.GetAddressOf()))) {
    factory_->CreateDCRenderTarget(&properties, target_.GetAddressOf());
  }
}

bool BareDirect2D::Draw() {
  if (target_ == nullptr || picture_.IsEmpty()) return false;
  const RECT bounds{0, 0, picture_.Whole().right, picture_.Whole().bottom};
  if (FAILED(target_->BindDC(picture_.Context(), &bounds))) return false;
  target_->BeginDraw();
  target_->Clear(D2D1_COLOR_F{0.08F, 0.09F, 0.11F, 1});
  if (FAILED(target_->EndDraw())) return false;
  const HDC context = GetDC(window_);
  picture_.CopyTo(context);
  ReleaseDC(window_, context);
  return true;
}

bool BareGdi::Draw() {
  if (canvas_.IsEmpty()) return false;
  canvas_.Smooth().Clear(Gdiplus::Color(0xFF14161C));
  const HDC context = GetDC(window_);
  canvas_.CopyTo(context);
  ReleaseDC(window_, context);
  return true;
}

}  // namespace bench
