// SPDX-License-Identifier: MIT
#include "ui/win32/renderers/Canvas.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace UX {
namespace {

struct PictureFormat {
  BITMAPINFOHEADER header{};
  DWORD masks[3] = {0xFF0000, 0xFF00, 0xFF};
};

/// With its masks spelled out a picture has no opacity: Wine's GDI+ draws into others the long way, many
/// times slower.
PictureFormat FormatOf(int width, int height) {
  PictureFormat format;
  format.header.biSize = sizeof format.header;
  format.header.biWidth = width;
  format.header.biHeight = -height;  // the first row on top
  format.header.biPlanes = 1;
  format.header.biBitCount = 32;
  format.header.biCompression = BI_BITFIELDS;
  return format;
}

/// 255 becomes the whole, 256, so that products need a shift only.
std::uint32_t WeightOf(std::uint32_t part) {
  return part + (part >> 7);
}

/// `weight` is that of the colour, of 256. Byte by byte, for that is what compilers make vectors of.
void MixRun(std::uint32_t* pixels, std::size_t count, Colour colour, std::uint32_t weight) {
  if (weight == 256) {
    std::fill_n(pixels, count, colour);
    return;
  }
  const auto under = static_cast<std::uint16_t>(256 - weight);
  std::uint16_t over[4];
  for (int i = 0; i < 4; ++i) over[i] = static_cast<std::uint16_t>((colour >> 8 * i & 0xFF) * weight);
  auto* const bytes = reinterpret_cast<std::uint8_t*>(pixels);
  for (std::size_t i = 0; i < 4 * count; i += 4) {
    for (std::size_t k = 0; k < 4; ++k) {
      const auto mixed = static_cast<std::uint16_t>(bytes[i + k] * under + over[k]);
      bytes[i + k] = static_cast<std::uint8_t>(mixed >> 8);
    }
  }
}

/// How many of the values, of which there is one at least, are as the first.
template <typename Value>
std::size_t RunLength(const Value* values, std::size_t count) {
  constexpr std::size_t Block = 32;
  std::size_t length = 1;
  while (length + Block <= count) {
    std::remove_const_t<Value> difference = 0;
    for (std::size_t i = 0; i < Block; ++i) difference |= values[length + i] ^ values[0];
    if (difference != 0) break;
    length += Block;
  }
  while (length < count && values[length] == values[0]) ++length;
  return length;
}

/// Most of a mask are long runs, of nothing or all. A mask that is not constant is used up: black again.
template <typename Coverage>
void MixRow(std::uint32_t* pixels, Coverage* coverage, std::size_t count, Colour colour) {
  const std::uint32_t weight = WeightOf(colour >> 24);
  for (std::size_t i = 0; i < count;) {
    const std::size_t length = RunLength(coverage + i, count - i);
    if (const std::uint32_t part = coverage[i] & 0xFF; part != 0) {
      MixRun(pixels + i, length, colour, WeightOf(part) * weight >> 8);
      if constexpr (!std::is_const_v<Coverage>) std::fill_n(coverage + i, length, 0);
    }
    i += length;
  }
}

}  // namespace

Canvas::Canvas(int width, int height) {
  const PictureFormat format = FormatOf(width, height);
  void* pixels = nullptr;
  picture_ = CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&format), DIB_RGB_COLORS, &pixels,
                              nullptr, 0);
  context_ = CreateCompatibleDC(nullptr);
  if (picture_ == nullptr || context_ == nullptr) return;
  former_ = SelectObject(context_, picture_);
  smooth_ = std::make_unique<Gdiplus::Graphics>(context_);
  smooth_->SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  smooth_->SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  smooth_->SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAliasGridFit);
  pixels_ = static_cast<std::uint32_t*>(pixels);
  width_ = width;
  height_ = height;
}

Canvas::~Canvas() {
  smooth_.reset();
  if (former_ != nullptr) SelectObject(context_, former_);
  if (context_ != nullptr) DeleteDC(context_);
  if (picture_ != nullptr) DeleteObject(picture_);
}

Canvas& Canvas::operator=(Canvas&& other) noexcept {
  std::swap(width_, other.width_);
  std::swap(height_, other.height_);
  std::swap(pixels_, other.pixels_);
  std::swap(context_, other.context_);
  std::swap(picture_, other.picture_);
  std::swap(former_, other.former_);
  std::swap(smooth_, other.smooth_);
  std::swap(isSmoothing_, other.isSmoothing_);
  return *this;
}

Gdiplus::Graphics& Canvas::Smooth() {
  isSmoothing_ = true;
  return *smooth_;
}

/// To be called before the pixels are touched otherwise.
void Canvas::FinishSmooth() {
  if (!isSmoothing_) return;
  smooth_->Flush(Gdiplus::FlushIntentionSync);
  GdiFlush();
  isSmoothing_ = false;
}

void Canvas::Fill(const PixelArea& area, Colour colour) {
  const PixelArea visible = Common(area, Whole());
  FinishSmooth();
  for (int y = visible.top; y < visible.bottom; ++y) {
    MixRun(At(visible.left, y), static_cast<std::size_t>(visible.Width()), colour, WeightOf(colour >> 24));
  }
}

void Canvas::FillDots(const PixelArea& area, int length, int gap, Colour colour) {
  const PixelArea visible = Common(area, Whole());
  FinishSmooth();
  for (int y = visible.top; y < visible.bottom; ++y) {
    for (int x = visible.left; x < visible.right; ++x) {
      if ((x - area.left) % (length + gap) < length) MixRun(At(x, y), 1, colour, WeightOf(colour >> 24));
    }
  }
}

void Canvas::Put(const Mask& mask, int x, int y, Colour colour) {
  const int left = x + mask.left, top = y + mask.top;
  const PixelArea visible = Common({left, top, left + mask.width, top + mask.height}, Whole());
  FinishSmooth();
  for (int row = visible.top; row < visible.bottom; ++row) {
    const std::uint8_t* const coverage =
        mask.coverage.data() + (row - top) * mask.width + (visible.left - left);
    MixRow(At(visible.left, row), coverage, static_cast<std::size_t>(visible.Width()), colour);
  }
}

void Canvas::FillThrough(Canvas& mask, const PixelArea& area, Colour colour) {
  const PixelArea visible = Common(area, Whole());
  FinishSmooth();
  mask.FinishSmooth();
  for (int y = visible.top; y < visible.bottom; ++y) {
    std::uint32_t* const coverage = mask.At(visible.left - area.left, y - area.top);
    MixRow(At(visible.left, y), coverage, static_cast<std::size_t>(visible.Width()), colour);
  }
}

Mask Canvas::AsMask(int width, int height, int reduction) {
  FinishSmooth();
  Mask mask{0, 0, width, height, {}};
  mask.coverage.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) mask.coverage.push_back(MeanAt(x * reduction, y * reduction, reduction));
  }
  return mask;
}

/// The mean brightness of a square of pixels.
std::uint8_t Canvas::MeanAt(int left, int top, int side) const {
  std::uint32_t sum = 0;
  for (int y = top; y < top + side; ++y) {
    for (int x = left; x < left + side; ++x) sum += *At(x, y) & 0xFF;
  }
  return static_cast<std::uint8_t>(sum / static_cast<std::uint32_t>(side * side));
}

void Canvas::CopyTo(HDC context) {
  FinishSmooth();
  BitBlt(context, 0, 0, width_, height_, context_, 0, 0, SRCCOPY);
}

std::uint32_t* Canvas::At(int x, int y) const {
  return pixels_ + y * width_ + x;
}

}  // namespace UX
