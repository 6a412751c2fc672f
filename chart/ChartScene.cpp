// SPDX-License-Identifier: MIT
#include "chart/ChartScene.h"

#include <algorithm>

#include "QorLib/Format.h"
#include "model/TimeText.h"

namespace UX {
namespace {

using TCBase::Channel;
using TCBase::Step;

constexpr Colour FillAlpha = 0x30000000;

constexpr float ScaleSize = 11, NameSize = 12;
constexpr float TagMargin = 14, TagCharacterWidth = 6;  // enough for most fonts
constexpr float NameCharacterWidth = 7;
constexpr float NameIndent = 8;           // beside the mark of a step at midnight
constexpr float LeastLabelDistance = 50;  // between two times on the scale
constexpr int GridMinutes[] = {5, 10, 15, 30, 60, 120, 180, 240};

Colour WithAlpha(Colour colour, Colour alpha) {
  return (colour & 0x00FFFFFF) | alpha;
}

/// Of a text in UTF-8.
std::size_t CharactersIn(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

/// The text, cut where it would be wider than that.
std::string Cut(const std::string& text, float width) {
  auto left = static_cast<std::ptrdiff_t>(width / NameCharacterWidth);
  const auto end = std::ranges::find_if(text, [&left](char c) { return (c & 0xC0) != 0x80 && left-- <= 0; });
  if (end == text.end()) return text;
  return std::string(text.begin(), end) + "\xE2\x80\xA6";
}

/// How far the lines of the grid are from each other.
int GridInterval(const ChartGeometry& geometry) {
  for (const int minutes : GridMinutes) {
    const float distance = geometry.XOf(minutes * 60.0) - geometry.XOf(0);
    if (distance >= LeastLabelDistance) return minutes;
  }
  return std::end(GridMinutes)[-1];
}

void AddTimeScale(const ChartPalette& palette, const ChartGeometry& geometry, ChartScene& scene) {
  const int interval = GridInterval(geometry);
  const Rectangle plot = geometry.Plot();
  const int first = (geometry.View().Start() / 60 + interval - 1) / interval * interval;
  for (int minute = first; minute * 60 <= geometry.View().End(); minute += interval) {
    const float x = geometry.XOf(minute * 60.0);
    for (std::size_t channel = 0; channel < TCBase::ChannelCount; ++channel) {
      const Rectangle lane = geometry.Lane(channel);
      scene.back.emplace_back(Line{{{x, lane.top}, {x, lane.Bottom()}}, palette.grid});
    }
    scene.back.emplace_back(Label{{x, plot.Bottom() + 14},
                                  TCBase::MinuteText(minute),
                                  palette.scale,
                                  ScaleSize,
                                  Label::Anchor::Middle});
  }
}

/// The colour that far on the way from one to another.
Colour Blend(Colour from, Colour to, float way) {
  Colour blend = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    const auto a = static_cast<float>(from >> shift & 0xFF), b = static_cast<float>(to >> shift & 0xFF);
    blend |= static_cast<Colour>(a + (b - a) * way) << shift;
  }
  return blend;
}

void AddLaneBack(const ChartPalette& palette, const ChartGeometry& geometry, std::size_t channel,
                 Colour colour, ChartScene& scene) {
  const Rectangle lane = geometry.Lane(channel);
  scene.back.emplace_back(Box{lane, colour});
  for (const float percent : {25.0F, 50.0F, 75.0F}) {
    const float y = geometry.YOf(channel, percent);
    scene.back.emplace_back(Line{{{lane.left, y}, {lane.Right(), y}}, palette.grid, 1, true});
  }
  constexpr float Gap = 8;
  const auto scale = [&](float y, const char* text) {
    scene.back.emplace_back(
        Label{{lane.left - Gap, y}, text, palette.scale, ScaleSize, Label::Anchor::Right});
  };
  scale(lane.top + ScaleSize - 2, "100");
  scale(lane.Bottom(), "0 %");
}

/// The curve over the view, as corners of a line. The channel is in order.
std::vector<Point> CurveOf(const Channel& channel, std::size_t number, const ChartGeometry& geometry) {
  const ViewSpan& view = geometry.View();
  std::vector<Point> points;
  points.reserve(2 * channel.steps.size() + 2);
  const auto add = [&](double second, float percent) {
    points.push_back({geometry.XOf(second), geometry.YOf(number, std::clamp(percent, 0.0F, 100.0F))});
  };
  add(view.Start(), channel.ValueAt(view.Start()));
  const Step* previous = channel.steps.empty() ? nullptr : &channel.steps.back();
  for (const Step& step : channel.steps) {
    const auto second = static_cast<double>(step.SecondOfDay());
    if (second > view.Start() && second < view.End()) {
      if (previous->jump) add(second, previous->value);
      add(second, step.value);
    }
    if (second < view.End()) previous = &step;
  }
  const bool isHeld = previous != nullptr && previous->jump;
  add(view.End(), isHeld ? previous->value : channel.ValueAt(view.End()));
  return points;
}

void AddCurve(std::vector<Shape>& shapes, std::vector<Point> curve, Colour colour, bool isSelected,
              float bottom) {
  std::vector<Point> area = curve;
  area.push_back({curve.back().x, bottom});
  area.push_back({curve.front().x, bottom});
  shapes.emplace_back(Area{std::move(area), WithAlpha(colour, FillAlpha)});
  shapes.emplace_back(Line{std::move(curve), colour, isSelected ? 2.0F : 1.5F});
}

/// Adds what tells time and value of the step beside it, within the lane.
void AddTag(const ChartContent& content, const Step& step, Point at, const Rectangle& lane,
            std::vector<Shape>& shapes) {
  constexpr float Height = 20, Distance = 10;
  const std::string text =
      qor::Format("{1} {2} % {3}", {TCBase::MinuteText(step.MinuteOfDay()), TCBase::WholePercent(step.value),
                                    step.jump ? content.jump : content.fade});
  const float width = TagMargin + TagCharacterWidth * static_cast<float>(CharactersIn(text));
  const float left = std::clamp(at.x - width / 2, lane.left, std::max(lane.left, lane.Right() - width));
  const bool isBelow = at.y + Distance + Height < lane.Bottom();
  const float top = isBelow ? at.y + Distance : std::max(lane.top, at.y - Distance - Height);
  shapes.emplace_back(Box{{left, top, width, Height}, content.palette.selection});
  shapes.emplace_back(Label{
      {left + width / 2, top + 14}, text, content.palette.onSelection, NameSize, Label::Anchor::Middle});
}

void AddMarks(const ChartContent& content, const ChartGeometry& geometry, std::size_t channel, Colour colour,
              ChartScene& scene) {
  const std::vector<Step>& steps = content.program.modes[content.mode].channels[channel].steps;
  std::vector<Shape> tags;  // over all marks
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const Point at = geometry.PointOf(channel, steps[i]);
    const auto second = steps[i].SecondOfDay();
    if (second < geometry.View().Start() || second > geometry.View().End()) continue;
    const StepIndex index{channel, i};
    const bool isSelected = content.selectedStep == index;
    const bool isTouched = isSelected || content.hoveredStep == index;
    const float growth = isSelected ? 1 : isTouched ? content.hover : 0;
    const Colour line = isSelected ? content.palette.selection : colour;
    scene.lanes[channel].emplace_back(Mark{at, 4 + growth, steps[i].jump,
                                           isSelected ? content.palette.selection : content.palette.lane,
                                           line, 2 + growth / 2});
    if (isTouched) AddTag(content, steps[i], at, geometry.Lane(channel), tags);
  }
  scene.lanes[channel].insert(scene.lanes[channel].end(), tags.begin(), tags.end());
}

void AddLane(const ChartContent& content, const ChartGeometry& geometry, std::size_t number,
             ChartScene& scene) {
  const TCBase::Program::ChannelInfo& info = content.program.channelInfos[number];
  const bool isSelected = content.selectedChannel == number;
  const Rectangle lane = geometry.Lane(number);
  Channel channel = content.program.modes[content.mode].channels[number];
  channel.Sort();
  channel.RemoveDuplicateTimes();
  const float selection = isSelected ? content.selection : 0;
  AddLaneBack(content.palette, geometry, number,
              Blend(content.palette.lane, content.palette.selectedLane, selection), scene);
  const Colour colour = content.palette.curve.value_or(info.colour);
  AddCurve(scene.lanes[number], CurveOf(channel, number, geometry), colour, isSelected, lane.Bottom());
  const Rectangle name = geometry.NameArea(number);
  scene.back.emplace_back(Label{{name.left + NameIndent, name.Bottom() - 2},
                                Cut(qor::Format("{1} {2}", {number + 1, info.name}), name.width - NameIndent),
                                colour,
                                NameSize,
                                Label::Anchor::Left,
                                isSelected});
  AddMarks(content, geometry, number, colour, scene);
}

void AddDemo(Colour colour, int second, const ChartGeometry& geometry, ChartScene& scene) {
  if (second < geometry.View().Start() || second >= geometry.View().End()) return;
  const Rectangle plot = geometry.Plot();
  const float x = geometry.XOf(second);
  scene.front.emplace_back(Line{{{x, plot.top}, {x, plot.Bottom() + 4}}, colour, 2});
  scene.front.emplace_back(Label{
      {x, plot.Bottom() + 27}, TCBase::TimeOfDayText(second), colour, ScaleSize, Label::Anchor::Middle});
}

void AddFocus(Colour colour, ChartScene& scene) {
  const float right = scene.width - 1.5F, bottom = scene.height - 1.5F;
  scene.front.emplace_back(
      Line{{{1.5F, 1.5F}, {right, 1.5F}, {right, bottom}, {1.5F, bottom}, {1.5F, 1.5F}}, colour, 1});
}

}  // namespace

ChartScene MakeChartScene(const ChartContent& content, const ChartGeometry& geometry) {
  ChartScene scene;
  scene.width = geometry.Width();
  scene.height = geometry.Height();
  scene.back.emplace_back(Box{{0, 0, scene.width, scene.height}, content.palette.background});
  for (std::size_t channel = 0; channel < TCBase::ChannelCount; ++channel) {
    AddLane(content, geometry, channel, scene);
  }
  AddTimeScale(content.palette, geometry, scene);
  if (content.demoSecond) AddDemo(content.palette.demo, *content.demoSecond, geometry, scene);
  if (content.hasFocus) AddFocus(content.palette.focus, scene);
  return scene;
}

}  // namespace UX
