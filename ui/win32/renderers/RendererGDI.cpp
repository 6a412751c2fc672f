// SPDX-License-Identifier: MIT
#include "ui/win32/renderers/RendererGDI.h"

#include <algorithm>

namespace UX {

std::unique_ptr<WindowRenderer> MakeRendererGDI(HWND window) {
  return std::make_unique<RendererGDI>(window);
}

RendererGDI::RendererGDI(HWND window) : window_(window) {
  pen_.SetLineJoin(Gdiplus::LineJoinRound);
  RECT area{};
  GetClientRect(window, &area);
  RendererGDI::Resize(area.right, area.bottom, 1);
}

void RendererGDI::Resize(int width, int height, float scale) {
  grid_ = PixelGrid(scale);
  picture_ = Canvas();  // first of all, so that the new one may have its memory
  shape_ = Canvas();
  if (width > 0 && height > 0) picture_ = Canvas(width, height);
}

void RendererGDI::Draw(const ChartScene& scene) {
  if (picture_.IsEmpty()) return;
  DrawScene(scene, [this](const auto& shape) { Paint(shape); });
  const HDC context = GetDC(window_);
  picture_.CopyTo(context);
  ReleaseDC(window_, context);
}

void RendererGDI::Paint(const Box& box) {
  picture_.Fill(grid_.AreaOf(box.area), box.fill);
}

void RendererGDI::Paint(const Area& area) {
  const PixelArea whole = grid_.AreaAround(FilledBoundsOf(area));
  const PixelArea visible = Common(whole, picture_.Whole());
  if (visible.IsEmpty()) return;
  if (!shape_.HasRoomFor(visible.Width(), visible.Height()))
    shape_ = Canvas(visible.Width(), visible.Height());
  if (shape_.IsEmpty()) return;
  const std::vector<Gdiplus::PointF>& points = InPixels(area.points, visible.left, visible.top);
  shape_.Smooth().FillPolygon(&white_, points.data(), static_cast<int>(points.size()));
  picture_.FillThrough(shape_, visible, area.fill);
  if (visible != whole) shape_.Fill(shape_.Whole(), 0xFF000000);
}

void RendererGDI::Paint(const Line& line) {
  const std::vector<PixelArea> areas = grid_.AreasOfStraight(line);
  for (const PixelArea& area : areas) {
    line.isDotted ? picture_.FillDots(area, grid_.DotLength(), grid_.DotGap(), line.colour)
                  : picture_.Fill(area, line.colour);
  }
  if (!areas.empty()) return;
  const std::vector<Gdiplus::PointF>& points = InPixels(line.points);
  pen_.SetColor(Gdiplus::Color(line.colour));
  pen_.SetWidth(line.width * grid_.Scale());
  picture_.Smooth().DrawLines(&pen_, points.data(), static_cast<int>(points.size()));
}

void RendererGDI::Paint(const Mark& mark) {
  const float half = mark.lineWidth / 2;
  if (mark.isSquare) {
    const PixelArea outer = grid_.AreaOfSquare(mark.centre, mark.radius + half);
    picture_.Fill(outer, mark.line);
    picture_.Fill(Inset(outer, grid_.Pixels(mark.lineWidth)), mark.fill);
  } else {
    const int x = grid_.Nearest(mark.centre.x), y = grid_.Nearest(mark.centre.y);
    picture_.Put(masks_.CircleOf((mark.radius + half) * grid_.Scale()), x, y, mark.line);
    picture_.Put(masks_.CircleOf((mark.radius - half) * grid_.Scale()), x, y, mark.fill);
  }
}

void RendererGDI::Paint(const Label& label) {
  const Masks::Text& text = masks_.TextOf(LineOfText(label), label.size * grid_.Scale(), label.isBold);
  const int left = grid_.Nearest(LeftOf(label, text.width / grid_.Scale()));
  picture_.Put(text.mask, left, grid_.Nearest(label.at.y), label.colour);
}

/// The corners, counted from that pixel. The result lives until the next call.
const std::vector<Gdiplus::PointF>& RendererGDI::InPixels(const std::vector<Point>& points, int left,
                                                          int top) {
  points_.clear();
  for (const Point& corner : grid_.CornersOf(points)) {
    points_.emplace_back(corner.x - static_cast<float>(left), corner.y - static_cast<float>(top));
  }
  return points_;
}

}  // namespace UX
