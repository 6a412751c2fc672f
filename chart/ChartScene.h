// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "chart/ChartGeometry.h"
#include "model/Program.h"

/// The chart as a finished picture: a plain value, in pixels, that any renderer can draw without asking back.
namespace UX {

using Colour = std::uint32_t;  // 0xAARRGGBB, not premultiplied

struct Box {
  Rectangle area;
  Colour fill = 0;
};

/// A polygon, filled to its edge and not outlined.
struct Area {
  std::vector<Point> points;
  Colour fill = 0;
};

struct Line {
  std::vector<Point> points;
  Colour colour = 0;
  float width = 1;
  bool isDotted = false;
};

/// A step: round where the light fades on from it, square where it holds until the next one.
struct Mark {
  Point centre;
  float radius = 0;
  bool isSquare = false;
  Colour fill = 0, line = 0;
  float lineWidth = 1;
};

struct Label {
  enum class Anchor { Left, Middle, Right };
  Point at;  // on the base line
  std::string text;
  Colour colour = 0;
  float size = 12;  // height of the font
  Anchor anchor = Anchor::Left;
  bool isBold = false;
};

using Shape = std::variant<Box, Area, Line, Mark, Label>;

/// Drawn in the order of the members.
struct ChartScene {
  float width = 0, height = 0;
  std::vector<Shape> back;
  std::array<std::vector<Shape>, TCBase::ChannelCount> lanes;
  std::vector<Shape> front;
};

/// The chart's colours; the usual ones by themselves.
struct ChartPalette {
  Colour background = 0xFF14161C;
  Colour lane = 0xFF1C1F28, selectedLane = 0xFF262A35;
  Colour grid = 0xFF2C313D;
  Colour scale = 0xFF8B93A5;
  Colour selection = 0xFFFBAF24, onSelection = 0xFF14161C;
  Colour demo = 0xFF4FB4E6;
  Colour focus = 0xFF4A5164;
  std::optional<Colour> curve;  // of all channels, in the place of their own

  bool operator==(const ChartPalette&) const = default;
};

/// What the chart shows.
struct ChartContent {
  const TCBase::Program& program;
  std::size_t mode = 0;  // its index, which must be there
  std::optional<std::size_t> selectedChannel = {};
  std::optional<StepIndex> selectedStep = {};  // these two count only where there is such a step
  std::optional<StepIndex> hoveredStep = {};
  std::optional<int> demoSecond = {};  // of the day, while a demo runs
  bool hasFocus = false;               // whether keys go to the chart
  float hover = 1;                     // from 0 to 1: how far the touched step has grown
  float selection = 1;                 // and how far the selected lane stands out
  ChartPalette palette = {};
  std::string fade = "fade", jump = "jump";  // how a step goes on, in the user's language
};

ChartScene MakeChartScene(const ChartContent& content, const ChartGeometry& geometry);

}  // namespace UX
