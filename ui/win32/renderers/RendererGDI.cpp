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
  Resize(area.right, area.bottom, 1);
}

void RendererGDI::Resize(int width, int height, float scale) {
  grid_ = PixelGrid(scale);
  isWhole_ = false;
  picture_ = Canvas();  // first of all, so that the new one may have its memory
  shape_ = Canvas();
  if (width > 0 && height > 0) picture_ = Canvas(width, height);
}

void RendererGDI::Draw(const ChartScene& scene) {
  if (picture_.IsEmpty()) return;
  isWhole_ = false;
  DrawScene(scene, grid_, std::nullopt, [this](const auto& shape) { Paint(shape); });
  isWhole_ = true;
  Show(picture_.Whole());
}

void RendererGDI::DrawLane(const ChartScene& scene, std::size_t channel) {
  if (!isWhole_) return Draw(scene);
  const PixelArea area = grid_.AreaAround(scene.laneAreas[channel]);
  picture_.SetClip(area);
  DrawScene(scene, grid_, channel, [this](const auto& shape) { Paint(shape); });
  picture_.ResetClip();
  Show(area);
}

void RendererGDI::Show(const PixelArea& area) {
  const HDC context = GetDC(window_);
  picture_.CopyTo(context, area);
  ReleaseDC(window_, context);
}

void RendererGDI::Paint(const Box& box) {
  picture_.Fill(grid_.AreaOf(box.area), box.fill);
}

void RendererGDI::Paint(const Area& area) {
  const PixelArea bounds = Common(grid_.AreaAround(BoundsOf(area.points)), picture_.Clip());
  if (area.points.empty() || bounds.IsEmpty()) return;
  if (shape_.Whole().right < bounds.Width() || shape_.Whole().bottom < bounds.Height()) {
    shape_ = Canvas(bounds.Width(), bounds.Height());
    if (shape_.IsEmpty()) return;
  }
  const std::vector<Gdiplus::PointF>& points = InPixels(area.points, bounds.left, bounds.top);
  shape_.Smooth().FillPolygon(&white_, points.data(), static_cast<int>(points.size()));
  picture_.FillThrough(shape_, bounds, area.fill);
}

void RendererGDI::Paint(const Line& line) {
  if (const std::optional<PixelArea> straight = grid_.AreaOfStraight(line)) {
    line.isDotted ? picture_.FillDots(*straight, grid_.DotLength(), grid_.DotGap(), line.colour) : picture_.Fill(*straight, line.colour);
    return;
  }
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

/// The result lives until the next call.
const std::vector<Gdiplus::PointF>& RendererGDI::InPixels(const std::vector<Point>& points, int left, int top) {
  points_.clear();
  for (const Point& point : points) {
    points_.emplace_back(point.x * grid_.Scale() - static_cast<float>(left),
                         point.y * grid_.Scale() - static_cast<float>(top));
  }
  return points_;
}

}  // namespace UX
