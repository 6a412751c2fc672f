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

/// A picture in memory, black at first, of 32 bits a pixel without opacity. Smooth shapes are drawn into it
/// by GDI+; what fills whole pixels, or has a mask, is written into them directly, which takes a fraction of
/// the time.
class Canvas {
 public:
  Canvas() = default;
  /// Is empty when the system has no memory for it.
  Canvas(int width, int height);
  ~Canvas();
  Canvas(Canvas&& other) noexcept { *this = static_cast<Canvas&&>(other); }
  Canvas& operator=(Canvas&& other) noexcept;

  bool IsEmpty() const { return pixels_ == nullptr; }
  PixelArea Whole() const { return {0, 0, width_, height_}; }
  bool HasRoomFor(int width, int height) const { return width <= width_ && height <= height_; }
  // What follows is for a canvas that is not empty.
  /// To draw into it by GDI+, with antialiasing and in pixels; not to be kept.
  Gdiplus::Graphics& Smooth();

  void Fill(const PixelArea& area, Colour colour);
  void FillDots(const PixelArea& area, int length, int gap, Colour colour);
  void Put(const Mask& mask, int x, int y, Colour colour);
  /// Covers the area through what is drawn in the top left corner of another canvas, in white on black. What
  /// it took is black again there.
  void FillThrough(Canvas& mask, const PixelArea& area, Colour colour);
  /// How bright the pixels in the top left corner are, each the mean of a square of that many pixels a side.
  Mask AsMask(int width, int height, int reduction = 1);
  void CopyTo(HDC context);
  /// For other ways to draw into it.
  HDC Context() const { return context_; }

 private:
  void FinishSmooth();
  std::uint8_t MeanAt(int left, int top, int side) const;
  std::uint32_t* At(int x, int y) const;

  int width_ = 0, height_ = 0;
  std::uint32_t* pixels_ = nullptr;
  HDC context_ = nullptr;
  HBITMAP picture_ = nullptr;
  HGDIOBJ former_ = nullptr;
  std::unique_ptr<Gdiplus::Graphics> smooth_;
  bool isSmoothing_ = false;  // whether GDI+ may still be at it
};

}  // namespace UX
