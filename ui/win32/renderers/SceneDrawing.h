// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "chart/ChartScene.h"

/// What the window's renderers share, so that both draw a scene to the same pixels.
namespace UX {

/// An area in the screen's pixels, from the client area's top left corner; its right and bottom lie outside.
struct PixelArea {
  int left = 0, top = 0, right = 0, bottom = 0;
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool IsEmpty() const { return right <= left || bottom <= top; }
  bool operator==(const PixelArea&) const = default;
};

/// What lies in both; where nothing does, an area without size.
PixelArea Common(const PixelArea& a, const PixelArea& b);
/// The area without a border of that many pixels.
PixelArea Inset(const PixelArea& area, int border);

/// Where lengths of a scene come to lie in the screen's pixels. What is straight fills whole pixels; all else
/// is smoothed, with a pixel's middle half a pixel from its edges, and has its corners on the edges, so that
/// level parts of a curve are all equally thick.
class PixelGrid {
 public:
  /// `scale` is the number of pixels for one of a scene's.
  explicit PixelGrid(float scale) : scale_(scale) {}
  float Scale() const { return scale_; }
  /// The length in pixels, at least one.
  int Pixels(float length) const;
  int Nearest(float coordinate) const;    // of the edges between pixels
  float Rounded(float coordinate) const;  // the same, in the scene's measure
  Point Rounded(Point point) const { return {Rounded(point.x), Rounded(point.y)}; }
  /// The points in the screen's pixels, at the edges between them, without those where a line only goes
  /// straight on: Direct2D under Wine draws a spike there.
  std::vector<Point> CornersOf(const std::vector<Point>& points) const;
  PixelArea AreaOf(const Rectangle& rectangle) const;
  /// With every pixel that it touches.
  PixelArea AreaAround(const Rectangle& rectangle) const;
  /// The areas that a line fills whose parts are all upright or level; none for other lines.
  std::vector<PixelArea> AreasOfStraight(const Line& line) const;
  /// All squares with the same half of a side have the same size.
  PixelArea AreaOfSquare(Point centre, float half) const;
  Rectangle InScene(const PixelArea& area) const;  // the way back
  // The dots of a dotted line, which is level, and what lies between them; it begins with a dot
  int DotLength() const { return Pixels(2); }
  int DotGap() const { return Pixels(4); }

 private:
  PixelArea AreaOfStraight(Point from, Point to, int thickness, bool isJoined) const;

  float scale_;
};

/// The family for all texts: the first of these that `isThere`; null when none is.
template <typename IsThere>
const wchar_t* ChooseFontFamily(IsThere isThere) {
  for (const wchar_t* family : {L"Segoe UI", L"Noto Sans", L"Liberation Sans", L"DejaVu Sans", L"Arial"}) {
    if (isThere(family)) return family;
  }
  return nullptr;
}

/// The label's text on one line; of an endless one, what may be seen of it.
std::wstring LineOfText(const Label& label);
/// Where the text begins when it is as wide as that.
float LeftOf(const Label& label, float width);

/// Where the area has any height: not where it only runs along its ground.
Rectangle FilledBoundsOf(const Area& area);
/// Hands `draw` the scene's shapes in their order.
template <typename Draw>
void DrawScene(const ChartScene& scene, Draw draw) {
  const auto drawAll = [&](const std::vector<Shape>& shapes) {
    for (const Shape& shape : shapes) std::visit(draw, shape);
  };
  drawAll(scene.back);
  for (const std::vector<Shape>& lane : scene.lanes) drawAll(lane);
  drawAll(scene.front);
}

}  // namespace UX
