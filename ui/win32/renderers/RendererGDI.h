// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "ui/win32/WindowRenderer.h"
#include "ui/win32/renderers/Masks.h"

namespace UX {

/// Draws by GDI+ into a picture in memory, which is then copied to the window.
class RendererGDI : public WindowRenderer {
 public:
  explicit RendererGDI(HWND window);

  void Draw(const ChartScene& scene) override;
  void Resize(int width, int height, float scale) override;
  bool IsLost() const override { return false; }

 private:
  void Paint(const Box& box);
  void Paint(const Area& area);
  void Paint(const Line& line);
  void Paint(const Mark& mark);
  void Paint(const Label& label);
  const std::vector<Gdiplus::PointF>& InPixels(const std::vector<Point>& points, int left = 0, int top = 0);

  HWND window_;
  PixelGrid grid_{1};
  Canvas picture_;
  Canvas shape_;  // one area at a time, in white on black; black between them
  Masks masks_;
  Gdiplus::Pen pen_{Gdiplus::Color()};
  Gdiplus::SolidBrush white_{Gdiplus::Color(0xFFFFFFFF)};
  std::vector<Gdiplus::PointF> points_;
};

}  // namespace UX
