// SPDX-License-Identifier: MIT
#include "ui/win32/renderers/SceneDrawing.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "QorLib/qor_win_str_utils.h"

namespace UX {
namespace {

Rectangle BoundsOf(const std::vector<Point>& points) {
  if (points.empty()) return {};
  Point least = points.front(), most = points.front();
  for (const Point& point : points) {
    least = {std::min(least.x, point.x), std::min(least.y, point.y)};
    most = {std::max(most.x, point.x), std::max(most.y, point.y)};
  }
  return {least.x, least.y, most.x - least.x, most.y - least.y};
}

bool GoesStraightOn(Point a, Point b, Point c) {
  const float firstX = b.x - a.x, firstY = b.y - a.y, secondX = c.x - b.x, secondY = c.y - b.y;
  return firstX * secondY == firstY * secondX && firstX * secondX + firstY * secondY > 0;
}

}  // namespace

PixelArea Common(const PixelArea& a, const PixelArea& b) {
  const PixelArea common{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                         std::min(a.bottom, b.bottom)};
  return common.IsEmpty() ? PixelArea() : common;
}

PixelArea Inset(const PixelArea& area, int border) {
  return {area.left + border, area.top + border, area.right - border, area.bottom - border};
}

int PixelGrid::Nearest(float coordinate) const {
  return static_cast<int>(std::floor(coordinate * scale_ + 0.5F));
}

int PixelGrid::Pixels(float length) const {
  return std::max(1, Nearest(length));
}

float PixelGrid::Rounded(float coordinate) const {
  return static_cast<float>(Nearest(coordinate)) / scale_;
}

std::vector<Point> PixelGrid::CornersOf(const std::vector<Point>& points) const {
  std::vector<Point> corners;
  for (const Point& point : points) {
    const Point next{static_cast<float>(Nearest(point.x)), static_cast<float>(Nearest(point.y))};
    if (corners.size() > 1 && GoesStraightOn(corners.end()[-2], corners.back(), next)) corners.pop_back();
    if (corners.empty() || corners.back() != next) corners.push_back(next);
  }
  return corners;
}

PixelArea PixelGrid::AreaOf(const Rectangle& rectangle) const {
  return {Nearest(rectangle.left), Nearest(rectangle.top), Nearest(rectangle.Right()),
          Nearest(rectangle.Bottom())};
}

PixelArea PixelGrid::AreaAround(const Rectangle& rectangle) const {
  const auto below = [this](float length) { return static_cast<int>(std::floor(length * scale_)); };
  const auto above = [this](float length) { return static_cast<int>(std::ceil(length * scale_)); };
  return {below(rectangle.left), below(rectangle.top), above(rectangle.Right()), above(rectangle.Bottom())};
}

std::vector<PixelArea> PixelGrid::AreasOfStraight(const Line& line) const {
  const std::vector<Point>& points = line.points;
  const auto isBent = [](Point from, Point to) { return from.x != to.x && from.y != to.y; };
  std::vector<PixelArea> areas;
  if (std::adjacent_find(points.begin(), points.end(), isBent) != points.end()) return areas;
  for (std::size_t i = 1; i < points.size(); ++i) {
    areas.push_back(AreaOfStraight(points[i - 1], points[i], Pixels(line.width), points.size() > 2));
  }
  return areas;
}

/// Where several are joined, each end reaches to the farther side of the next one.
PixelArea PixelGrid::AreaOfStraight(Point from, Point to, int thickness, bool isJoined) const {
  const float half = static_cast<float>(thickness) / scale_ / 2;
  const auto side = [&](float a, float b, bool isThick) {
    const auto [least, most] = std::minmax({a, b});
    if (!isThick) return std::pair(Nearest(least), Nearest(most));
    return std::pair(Nearest(least - half), Nearest(most - half) + thickness);
  };
  const bool isUpright = from.x == to.x;
  const auto [left, right] = side(from.x, to.x, isUpright || isJoined);
  const auto [top, bottom] = side(from.y, to.y, !isUpright || isJoined);
  return {left, top, right, bottom};
}

PixelArea PixelGrid::AreaOfSquare(Point centre, float half) const {
  const int left = Nearest(centre.x - half), top = Nearest(centre.y - half), side = Pixels(2 * half);
  return {left, top, left + side, top + side};
}

Rectangle PixelGrid::InScene(const PixelArea& area) const {
  const auto length = [this](int pixels) { return static_cast<float>(pixels) / scale_; };
  return {length(area.left), length(area.top), length(area.Width()), length(area.Height())};
}

std::wstring LineOfText(const Label& label) {
  constexpr std::size_t MostBytes = 256;
  constexpr std::wstring_view LineEnds = L"\u0085\u2028\u2029";
  std::wstring text = qor::win::WideFromUtf8(std::string_view(label.text).substr(0, MostBytes));
  const auto isControl = [&](wchar_t c) { return c < L' ' || LineEnds.find(c) != LineEnds.npos; };
  std::replace_if(text.begin(), text.end(), isControl, L' ');
  return text;
}

float LeftOf(const Label& label, float width) {
  constexpr float Parts[] = {0, 0.5F, 1};
  return label.at.x - width * Parts[static_cast<std::size_t>(label.anchor)];
}

Rectangle FilledBoundsOf(const Area& area) {
  const std::size_t count = area.points.size();
  const Rectangle bounds = BoundsOf(area.points);
  const auto isGround = [&](std::size_t i) { return area.points[i % count].y >= bounds.Bottom(); };
  std::vector<Point> filled;
  for (std::size_t i = 0; i < count; ++i) {
    if (!isGround(i) || !isGround(i + 1) || !isGround(i + count - 1)) filled.push_back(area.points[i]);
  }
  return BoundsOf(filled);
}

}  // namespace UX
