// SPDX-License-Identifier: MIT
#include "model/Presets.h"

#include <gtest/gtest.h>

#include <set>

#include "model/ModeSample.h"

namespace {

std::array<int, 5> ValuesAt(const TCBase::Mode& mode, int hour, int minute) {
  return TCBase::SampleAt(mode, (hour * 60 + minute) * 60).values;
}

}  // namespace

TEST(Presets, GiveTheirCurves) {
  const TCBase::Program program = TCBase::NewProgram(qor::InEnglish);
  ASSERT_EQ(program.modes.size(), 2u);
  const TCBase::Mode& normal = program.modes[0];
  EXPECT_EQ(normal.name, "Normal");
  EXPECT_EQ(TCBase::StepCount(normal), 12);
  EXPECT_EQ(ValuesAt(normal, 11, 45), (std::array<int, 5>{65, 65, 65, 65, 30}));
  EXPECT_EQ(ValuesAt(normal, 9, 15), (std::array<int, 5>{50, 50, 50, 50, 15}));
  EXPECT_EQ(ValuesAt(normal, 3, 0), (std::array<int, 5>{0, 0, 0, 0, 0}));
  const TCBase::Mode& alwaysOn = program.modes[1];
  EXPECT_EQ(alwaysOn.name, "AlwaysOn");
  EXPECT_EQ(TCBase::StepCount(alwaysOn), 2);
  EXPECT_EQ(ValuesAt(alwaysOn, 0, 1), (std::array<int, 5>{100, 100, 100, 100, 100}));
}

TEST(Presets, AreTranslatedAndHaveStepsOfTheirOwn) {
  const TCBase::Program program =
      TCBase::NewProgram([](std::string_view english) { return "<" + std::string(english) + ">"; });
  EXPECT_EQ(program.modes[0].name, "<Normal>");
  EXPECT_EQ(program.channelInfos[4].name, "<Channel 5>");
  EXPECT_EQ(program.channelInfos[4].colour, 0xFF90EE90u);
  std::set<std::uint32_t> ids;
  std::size_t steps = 0;
  for (const TCBase::Mode& mode : program.modes) {
    for (const TCBase::Channel& channel : mode.channels) {
      for (const TCBase::Step& step : channel.steps) ids.insert(step.id);
      steps += channel.steps.size();
    }
  }
  EXPECT_EQ(steps, 46u);
  EXPECT_EQ(ids.size(), steps);
}
