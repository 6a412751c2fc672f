// SPDX-License-Identifier: MIT
#include "ui/win32/Logo.h"

// GDI+'s headers need this one.
#include <objidl.h>

#include <gdiplus.h>
#include <shlwapi.h>

#include "ui/win32/ResourceIds.h"

namespace UX {

Logo::Logo() = default;
Logo::~Logo() = default;

void Logo::Load(HINSTANCE instance) {
  const HRSRC resource = FindResourceW(instance, MAKEINTRESOURCEW(IDP_LOGO), L"PNG");
  const HGLOBAL loaded = resource != nullptr ? LoadResource(instance, resource) : nullptr;
  if (loaded == nullptr) return;
  IStream* stream =
      SHCreateMemStream(static_cast<const BYTE*>(LockResource(loaded)), SizeofResource(instance, resource));
  if (stream == nullptr) return;
  bitmap_ = std::make_unique<Gdiplus::Bitmap>(stream);
  stream->Release();
  if (bitmap_->GetLastStatus() != Gdiplus::Ok) bitmap_.reset();
}

void Logo::Release() {
  bitmap_.reset();
}

void Logo::Draw(HDC context, const RECT& area) const {
  if (!bitmap_) return;
  Gdiplus::Graphics graphics(context);
  graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
  graphics.DrawImage(bitmap_.get(), static_cast<INT>(area.left), static_cast<INT>(area.top),
                     static_cast<INT>(area.right - area.left), static_cast<INT>(area.bottom - area.top));
}

}  // namespace UX
