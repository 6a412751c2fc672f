// SPDX-License-Identifier: MIT
#include "ui/win32/Logo.h"

// GDI+'s headers need this one.
#include <objidl.h>

#include <gdiplus.h>

#define STBI_NO_STDIO
#include <stb/stb_image.h>

#include "ui/win32/ResourceIds.h"

namespace UX {
namespace {

constexpr int BytesPerPixel = 4;

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
  pixels_.reset(stbi_load_from_memory(static_cast<const stbi_uc*>(LockResource(loaded)),
                                      static_cast<int>(SizeofResource(instance, resource)), &width, &height,
                                      &channels, BytesPerPixel));
  if (!pixels_) return;
  // The file has red first, the system blue.
  const std::ptrdiff_t bytes = static_cast<std::ptrdiff_t>(width) * height * BytesPerPixel;
  for (std::ptrdiff_t i = 0; i < bytes; i += BytesPerPixel) std::swap(pixels_.get()[i], pixels_.get()[i + 2]);
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
