// SPDX-License-Identifier: MIT
#include "ui/win32/Logo.h"

// GDI+'s headers need this one.
#include <objidl.h>

#include <gdiplus.h>

#include <algorithm>

#define STBI_NO_STDIO
#include <stb/stb_image.h>

#include "ui/win32/ResourceIds.h"
#include "ui/win32/controls/Metrics.h"

namespace UX {
namespace {

constexpr int BytesPerPixel = 4;
constexpr int LeastBrightness = 210;  // of the brightest part of a pixel's colour, on a dark window

/// Its dark writing would not be seen on a dark window.
void Lighten(unsigned char* colour) {
  const int lift = LeastBrightness - std::max({colour[0], colour[1], colour[2]});
  for (int part = 0; lift > 0 && part < 3; ++part) {
    colour[part] = static_cast<unsigned char>(colour[part] + lift);
  }
}

}  // namespace

void Logo::FreePixels::operator()(unsigned char* pixels) const {
  stbi_image_free(pixels);
}

Logo::Logo() = default;
Logo::~Logo() = default;

void Logo::Load(HINSTANCE instance) {
  const HRSRC resource = FindResourceW(instance, MAKEINTRESOURCEW(IDP_LOGO), L"PNG");
  const HGLOBAL loaded = resource != nullptr ? LoadResource(instance, resource) : nullptr;
  if (loaded == nullptr) return;
  int width = 0, height = 0, channels = 0;
  bitmap_.reset();
  pixels_.reset(stbi_load_from_memory(static_cast<const stbi_uc*>(LockResource(loaded)),
                                      static_cast<int>(SizeofResource(instance, resource)), &width, &height,
                                      &channels, BytesPerPixel));
  if (!pixels_) return;
  // The file has red first, the system blue.
  const std::ptrdiff_t bytes = static_cast<std::ptrdiff_t>(width) * height * BytesPerPixel;
  const bool isOnDark = IsDark(COLOR_3DFACE);
  for (std::ptrdiff_t i = 0; i < bytes; i += BytesPerPixel) {
    unsigned char* const pixel = pixels_.get() + i;
    std::swap(pixel[0], pixel[2]);
    if (isOnDark) Lighten(pixel);
  }
  bitmap_ = std::make_unique<Gdiplus::Bitmap>(width, height, width * BytesPerPixel, PixelFormat32bppARGB,
                                              pixels_.get());
}

void Logo::Release() {
  bitmap_.reset();
  pixels_.reset();
}

void Logo::Draw(HDC context, const RECT& area) const {
  if (!bitmap_) return;
  Gdiplus::Graphics graphics(context);
  graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
  graphics.DrawImage(bitmap_.get(), static_cast<INT>(area.left), static_cast<INT>(area.top),
                     static_cast<INT>(area.right - area.left), static_cast<INT>(area.bottom - area.top));
}

}  // namespace UX
