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
  /// Around the pixels' common corner. The result lives until the next call.
  const Mask& CircleOf(float radius);

 private:
  struct Face {
    std::unique_ptr<Gdiplus::Font> font;
    float ascent = 0;
  };

  const Face& FaceOf(float size, bool isBold);
  Text Draw(const std::wstring& text, const Face& face);

  Canvas measure_;
  std::unique_ptr<Gdiplus::FontFamily> family_;
  std::map<std::pair<float, bool>, Face> faces_;
  std::map<std::tuple<std::wstring, float, bool>, Text> texts_;
  std::map<float, Mask> circles_;
};

}  // namespace UX
