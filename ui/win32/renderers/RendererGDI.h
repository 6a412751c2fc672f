// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "ui/win32/WindowRenderer.h"
#include "ui/win32/renderers/Masks.h"

namespace UX {

/// Draws by GDI+ into a picture in memory, which it keeps: so a lane is drawn by itself.
class RendererGDI : public WindowRenderer {
 public:
  explicit RendererGDI(HWND window);

  void Draw(const ChartScene& scene) override;
  void DrawLane(const ChartScene& scene, std::size_t channel) override;
  void Resize(int width, int height, float scale) override;
  bool IsLost() const override { return false; }

 private:
  void DrawShapes(const ChartScene& scene, std::optional<std::size_t> onlyLane);
  void Paint(const Box& box);
  void Paint(const Area& area);
  void Paint(const Line& line);
  void Paint(const Mark& mark);
  void Paint(const Label& label);
  const std::vector<Gdiplus::PointF>& InPixels(const std::vector<Point>& points, int left = 0, int top = 0);

  HWND window_;
  PixelGrid grid_{1};
  Canvas picture_;
  Canvas shape_;          // one area at a time, in white on black; black between them
  bool isWhole_ = false;  // whether the picture holds a frame
  Masks masks_;
  Gdiplus::Pen pen_{Gdiplus::Color()};
  Gdiplus::SolidBrush white_{Gdiplus::Color(0xFFFFFFFF)};
  std::vector<Gdiplus::PointF> points_;
};

}  // namespace UX
