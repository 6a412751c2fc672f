// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>

#include "chart/ViewSpan.h"
#include "model/Mode.h"

namespace UX {

/// A place in the chart in pixels, from its top left corner.
struct Point {
  float x = 0, y = 0;
  bool operator==(const Point&) const = default;
};

struct Rectangle {
  float left = 0, top = 0, width = 0, height = 0;
  float Right() const { return left + width; }
  float Bottom() const { return top + height; }
  /// Whether the point is in it when it is widened by `margin` on every side; left and top edges belong to
  /// it.
  bool Contains(Point point, float margin = 0) const;
};

/// A step of a mode, by its channel and its position in the channel's list.
struct StepIndex {
  std::size_t channel = 0, step = 0;
  bool operator==(const StepIndex&) const = default;
};

/// Where times and brightnesses stand in a chart of a size: five lanes of equal height, one below the other,
/// and the times of the day below them.
class ChartGeometry {
 public:
  /// A chart that has no room for lanes gets lanes of one pixel.
  ChartGeometry(float width, float height, const ViewSpan& view);

  float Width() const { return width_; }
  float Height() const { return height_; }
  const ViewSpan& View() const { return view_; }
  Rectangle Lane(std::size_t channel) const;
  /// All lanes and the gaps between them.
  Rectangle Plot() const;
  /// Where the channel's name stands: in the gap above its lane, where no curve crosses it.
  Rectangle NameArea(std::size_t channel) const;
  /// The channel whose name stands there.
  std::optional<std::size_t> NameAt(Point point) const;

  float XOf(double second) const;
  float YOf(std::size_t channel, float percent) const;
  Point PointOf(std::size_t channel, const TCBase::Step& step) const;
  /// Back: the second of the day, which may lie outside the view, and the brightness, not rounded.
  double SecondAt(float x) const;
  float PercentAt(std::size_t channel, float y) const;

  /// How near to a step's middle a pointer must come to touch it.
  float HitRadius() const;
  /// The step that a click there picks: of several, that of the first channel, and in it the first.
  std::optional<StepIndex> HitTest(const TCBase::Mode& mode, Point point) const;
  /// The step nearest to the pointer, when it touches one.
  std::optional<StepIndex> NearestStep(const TCBase::Mode& mode, Point point) const;

 private:
  float width_, height_;
  ViewSpan view_;
  float laneHeight_;
};

}  // namespace UX
