// SPDX-License-Identifier: MIT
#include "model/Presets.h"

#include "QorLib/Format.h"
#include "model/Palette.h"

namespace TCBase {
namespace {

struct Point {
  int hour, minute;
  float value;
};

constexpr Point WorkingDay[] = {{8, 0, 0},   {10, 0, 80}, {11, 30, 80}, {12, 0, 50},
                                {18, 0, 50}, {19, 0, 90}, {20, 0, 90},  {23, 30, 0}};
constexpr Point DimDay[] = {{9, 0, 0}, {9, 30, 30}, {21, 30, 30}, {22, 0, 0}};
constexpr Point FullDay[] = {{9, 0, 100}, {22, 0, 100}};

template <std::size_t Count>
Channel Curve(const Point (&points)[Count]) {
  Channel channel;
  for (const Point& point : points) channel.steps.push_back(MakeStep(point.hour, point.minute, point.value));
  return channel;
}

}  // namespace

void FillNormal(Mode& mode, const qor::Translate& translate) {
  mode.name = translate(TR("Normal"));
  mode.description = translate(
      TR("Daily program that starts at 8:00, decreases intensity during the afternoon and finishes before "
         "midnight."));
  for (std::size_t i = 0; i + 1 < ChannelCount; ++i) mode.channels[i] = Curve(WorkingDay);
  mode.channels[ChannelCount - 1] = Curve(DimDay);
}

void FillAlwaysOn(Mode& mode, const qor::Translate& translate) {
  mode.name = translate(TR("AlwaysOn"));
  mode.description =
      translate(TR("Program that puts all light on maximum power. This is useful for cleaning."));
  for (Channel& channel : mode.channels) channel = Curve(FullDay);
}

Program NewProgram(const qor::Translate& translate) {
  Program program;
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    program.channelInfos[i].name = qor::Format(translate(TR("Channel {1}")), {i + 1});
    program.channelInfos[i].colour = ChannelPalette[i];
  }
  program.modes.resize(2);
  FillNormal(program.modes[0], translate);
  FillAlwaysOn(program.modes[1], translate);
  return program;
}

}  // namespace TCBase
