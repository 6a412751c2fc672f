// SPDX-License-Identifier: MIT
#include "model/ModeSample.h"

#include <gtest/gtest.h>

#include "tests/support/Curves.h"
#include "tests/support/PlainMode.h"

using test::Curve;

TEST(SampleTable, HasOneRecordForEachMinuteWithAStep) {
  TCBase::Mode mode;
  mode.channels = {Curve({{8, 0, 79.9f}, {10, 0, 10}}), Curve({{8, 0, 20, true}, {12, 0, 0}}),
                   Curve({{9, 0, 5}, {12, 0, 5}}), Curve({{10, 0, 0}, {12, 0, 100}}), Curve({})};
  const std::vector<TCBase::ModeSample> table = TCBase::SampleTable(mode);
  EXPECT_EQ(table, (std::vector<TCBase::ModeSample>{{8, 0, {79, 20, 5, 9, 0}, {0, 1, 0, 0, 0}},
                                                    {9, 0, {44, 20, 5, 4, 0}, {0, 0, 0, 0, 0}},
                                                    {10, 0, {10, 20, 5, 0, 0}, {0, 0, 0, 0, 0}},
                                                    {12, 0, {16, 0, 5, 100, 0}, {0, 0, 0, 0, 0}}}));
  EXPECT_EQ(TCBase::StepCount(mode), 4);
  EXPECT_EQ(TCBase::StepCount(TCBase::Mode()), 0);
}

TEST(SampleTable, IsTheOneOfTheDefinition) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (int round = 0; round < 60; ++round) {
    TCBase::Mode mode;
    for (TCBase::Channel& channel : mode.channels) channel = test::RandomCurve(random, 40, round % 2 == 0);
    // As a broken file may bring it:
    if (round % 5 == 4)
      mode.channels[0].steps.insert(mode.channels[0].steps.begin(), {{-3, 7, 50}, {40, 0, 20}});
    EXPECT_EQ(TCBase::SampleTable(mode), test::SampleTablePlainly(mode)) << "round " << round;
  }
}

TEST(SampleAt, TellsTheTimeOfTheSecond) {
  const TCBase::ModeSample sample = TCBase::SampleAt(TCBase::Mode(), 23 * 3600 + 59 * 60 + 59);
  EXPECT_EQ(sample.hour, 23);
  EXPECT_EQ(sample.minute, 59);
}
