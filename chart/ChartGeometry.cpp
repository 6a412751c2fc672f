// SPDX-License-Identifier: MIT
#include "chart/ChartGeometry.h"

#include <algorithm>
#include <cmath>

namespace UX {
namespace {

// What is left free around the plot, for the scales
constexpr float LeftMargin = 64, RightMargin = 16, TopMargin = 18, BottomMargin = 34;
constexpr float LaneGap = 14;

float Distance(Point a, Point b) {
  return std::floor(std::hypot(a.x - b.x, a.y - b.y));
}

}  // namespace

bool Rectangle::Contains(Point point, float margin) const {
  return point.x >= left - margin && point.x < Right() + margin && point.y >= top - margin &&
         point.y < Bottom() + margin;
}

ChartGeometry::ChartGeometry(float width, float height, const ViewSpan& view)
    : width_(width), height_(height), view_(view) {
  constexpr float Count = TCBase::ChannelCount;
  laneHeight_ = std::max(1.0F, (height - TopMargin - BottomMargin - (Count - 1) * LaneGap) / Count);
}

Rectangle ChartGeometry::Lane(std::size_t channel) const {
  const float top = TopMargin + static_cast<float>(channel) * (laneHeight_ + LaneGap);
  return {LeftMargin, top, std::max(1.0F, width_ - LeftMargin - RightMargin), laneHeight_};
}

Rectangle ChartGeometry::Plot() const {
  Rectangle plot = Lane(0);
  plot.height = Lane(TCBase::ChannelCount - 1).Bottom() - plot.top;
  return plot;
}

Rectangle ChartGeometry::NameArea(std::size_t channel) const {
  const Rectangle lane = Lane(channel);
  return {lane.left, lane.top - LaneGap, lane.width / 2, LaneGap};
}

std::optional<std::size_t> ChartGeometry::NameAt(Point point) const {
  for (std::size_t channel = 0; channel < TCBase::ChannelCount; ++channel) {
    if (NameArea(channel).Contains(point)) return channel;
  }
  return std::nullopt;
}

float ChartGeometry::XOf(double second) const {
  const Rectangle lane = Lane(0);
  const double perSecond = static_cast<double>(lane.width) / view_.Seconds();
  return static_cast<float>((second - view_.Start()) * perSecond) + lane.left;
}

float ChartGeometry::YOf(std::size_t channel, float percent) const {
  return Lane(channel).Bottom() - percent * (laneHeight_ / 100);
}

Point ChartGeometry::PointOf(std::size_t channel, const TCBase::Step& step) const {
  return {XOf(static_cast<double>(step.SecondOfDay())), YOf(channel, step.value)};
}

double ChartGeometry::SecondAt(float x) const {
  const Rectangle lane = Lane(0);
  return static_cast<double>(x - lane.left) / (static_cast<double>(lane.width) / view_.Seconds()) +
         view_.Start();
}

float ChartGeometry::PercentAt(std::size_t channel, float y) const {
  return (Lane(channel).Bottom() - y) / (laneHeight_ / 100);
}

float ChartGeometry::HitRadius() const {
  const int diameter = std::clamp(static_cast<int>(height_) / 50, 10, 20);
  return static_cast<float>(diameter + 1) / 2;
}

std::optional<StepIndex> ChartGeometry::HitTest(const TCBase::Mode& mode, Point point) const {
  const float radius = HitRadius();
  for (std::size_t channel = 0; channel < mode.channels.size(); ++channel) {
    if (!Lane(channel).Contains(point, radius)) continue;
    const std::vector<TCBase::Step>& steps = mode.channels[channel].steps;
    for (std::size_t i = 0; i < steps.size(); ++i) {
      if (Distance(PointOf(channel, steps[i]), point) < radius) return StepIndex{channel, i};
    }
  }
  return std::nullopt;
}

std::optional<StepIndex> ChartGeometry::NearestStep(const TCBase::Mode& mode, Point point) const {
  std::optional<StepIndex> nearest;
  float least = HitRadius();
  for (std::size_t channel = 0; channel < mode.channels.size(); ++channel) {
    const std::vector<TCBase::Step>& steps = mode.channels[channel].steps;
    for (std::size_t i = 0; i < steps.size(); ++i) {
      const float distance = Distance(PointOf(channel, steps[i]), point);
      if (distance >= least) continue;
      least = distance;
      nearest = StepIndex{channel, i};
    }
  }
  return nearest;
}

}  // namespace UX
