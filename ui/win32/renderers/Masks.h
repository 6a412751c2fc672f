// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <utility>

#include "ui/win32/renderers/Canvas.h"

namespace UX {

/// Small shapes that come back frame after frame, drawn by GDI+ once. All lengths are in pixels.
class Masks {
 public:
  struct Text {
    Mask mask;  // from the beginning of the base line
    float width = 0;
  };

  Masks();
  /// `size` is the height of the font. The result lives until the next call.
  const Text& TextOf(const std::wstring& text, float size, bool isBold);
  /// Around the common corner of four pixels. The result lives until the next call.
  const Mask& CircleOf(float radius);

 private:
  struct Face {
    std::unique_ptr<Gdiplus::Font> font;
    float ascent = 0;
  };

  const Face& FaceOf(float size, bool isBold);
  bool Clear(int width, int height);
  Text MakeText(const std::wstring& text, const Face& face);
  Mask MakeCircle(float radius);

  Canvas canvas_;
  Gdiplus::SolidBrush white_{Gdiplus::Color(0xFFFFFFFF)};
  std::unique_ptr<Gdiplus::StringFormat> format_;
  std::unique_ptr<Gdiplus::FontFamily> family_;
  std::map<std::pair<float, bool>, Face> faces_;
  std::map<std::tuple<std::wstring, float, bool>, Text> texts_;
  std::map<int, Mask> circles_;  // by quarters of a pixel
};

}  // namespace UX
