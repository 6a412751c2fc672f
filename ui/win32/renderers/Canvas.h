// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>
// GDI+'s headers need what stands above.
#include <objidl.h>

#include <gdiplus.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "ui/win32/renderers/SceneDrawing.h"

namespace UX {

/// How much of each pixel a shape covers, from 0 to 255, row by row.
struct Mask {
  int left = 0, top = 0;  // its corner, from the pixel that it is put to
  int width = 0, height = 0;
  std::vector<std::uint8_t> coverage;
};

/// A picture in memory, black at first, of 32 bits a pixel without opacity. Smooth shapes are drawn into it by GDI+;
/// what fills whole pixels, or has a mask, is written into them directly, which takes a fraction of the time.
class Canvas {
 public:
  Canvas() = default;
  /// Is empty, and drawing into it does nothing, when the system has no memory for it.
  Canvas(int width, int height);
  ~Canvas();
  Canvas(Canvas&& other) noexcept { *this = static_cast<Canvas&&>(other); }
  Canvas& operator=(Canvas&& other) noexcept;

  bool IsEmpty() const { return pixels_ == nullptr; }
  const PixelArea& Clip() const { return clip_; }
  PixelArea Whole() const { return {0, 0, width_, height_}; }
  /// To draw into the canvas by GDI+, with antialiasing and in pixels; only when it is not empty.
  Gdiplus::Graphics& Smooth();
  // What limits all drawing; these only when the canvas is not empty
  void SetClip(const PixelArea& area);
  void ResetClip();

  void Fill(const PixelArea& area, Colour colour);
  void FillDots(const PixelArea& area, int length, int gap, Colour colour);
  void Put(const Mask& mask, int x, int y, Colour colour);
  /// Covers the area through what is drawn in the top left corner of another canvas, in white on black, which
  /// is black again afterwards.
  void FillThrough(Canvas& mask, const PixelArea& area, Colour colour);
  /// How bright the pixels are.
  Mask AsMask() const;
  void CopyTo(HDC context, const PixelArea& area) const;

 private:
  std::uint32_t* At(int x, int y) const;

  int width_ = 0, height_ = 0;
  std::uint32_t* pixels_ = nullptr;
  HDC context_ = nullptr;
  HBITMAP picture_ = nullptr;
  HGDIOBJ former_ = nullptr;
  std::unique_ptr<Gdiplus::Graphics> smooth_;
  PixelArea clip_;
};

}  // namespace UX
