// SPDX-License-Identifier: MIT
#include "model/StepLimit.h"

#include <gtest/gtest.h>

#include "model/ModeSample.h"
#include "model/StepThinner.h"
#include "tests/support/Curves.h"
#include "tests/support/TestLog.h"

using test::Curve;
using Texts = std::vector<std::string>;

namespace {

/// A mode whose first channel has a step on each of the day's first `count` minutes.
TCBase::Mode ModeOf(int count, const char* name) {
  TCBase::Mode mode;
  mode.name = name;
  for (int i = 0; i < count; ++i) {
    mode.channels[0].steps.push_back(TCBase::MakeStep(i / 60, i % 60, static_cast<float>(i * i % 97)));
  }
  return mode;
}

}  // namespace

TEST(RemovalCandidate, IsTheStepThatChangesTheLightLeast) {
  TCBase::Mode mode;
  mode.channels[1] = Curve({{8, 0, 0}, {12, 0, 50}, {16, 0, 100}});
  mode.channels[3] = Curve({{6, 0, 7}, {7, 0, 7}, {9, 0, 7}, {10, 0, 90}});
  EXPECT_EQ(TCBase::FindRemovalCandidate(mode), (TCBase::RemovalCandidate{1, 1, 0}))
      << "the lower channel first";
  mode.channels[1].steps.pop_back();
  EXPECT_EQ(TCBase::FindRemovalCandidate(mode), (TCBase::RemovalCandidate{3, 1, 0}))
      << "two steps are never thinned";
  mode.channels[3].steps.resize(2);
  EXPECT_FALSE(TCBase::FindRemovalCandidate(mode));
}

TEST(OptimiseProgram, BringsLongModesUnderTheLimitAndSaysSo) {
  test::TestLog log;
  TCBase::Program program;
  program.modes = {ModeOf(49, "A"), ModeOf(48, "B"), ModeOf(60, "C")};
  const TCBase::Mode within = program.modes[1];
  EXPECT_TRUE(TCBase::OptimiseProgram(program, log));
  for (const TCBase::Mode& mode : program.modes) EXPECT_EQ(TCBase::StepCount(mode), 48);
  EXPECT_EQ(program.modes[1], within);
  EXPECT_EQ(log.Texts(), (Texts{"Mode A has more than 48 steps, optimizing...",
                                "Mode C has more than 48 steps, optimizing..."}));
}

TEST(StepThinner, RemovesWhatTheDefinitionRemovesInItsOrder) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (int round = 0; round < 40; ++round) {
    TCBase::Mode plain;
    for (TCBase::Channel& channel : plain.channels)
      channel = test::RandomCurve(random, 30, random() % 4 != 0);
    // Values as only a broken file brings them, for costs at the end of their range.
    if (round % 8 == 7) {
      for (std::size_t i = 0; i < plain.channels[0].steps.size(); ++i) {
        plain.channels[0].steps[i].value = i % 2 == 0 ? 2147483647.0f : -2147483648.0f;
      }
    }
    TCBase::Mode thinned = plain;
    const TCBase::Mode original = plain;
    TCBase::StepThinner thinner(thinned);
    while (const TCBase::RemovalCandidate expected = TCBase::FindRemovalCandidate(plain)) {
      const TCBase::RemovalCandidate found = thinner.Cheapest();
      ASSERT_EQ(found.channel, expected.channel) << "round " << round;
      ASSERT_EQ(found.cost, expected.cost) << "round " << round;
      const auto channel = static_cast<std::size_t>(expected.channel);
      auto& steps = plain.channels[channel].steps;
      const auto step = steps.begin() + expected.step;
      ASSERT_EQ(original.channels[channel].steps[static_cast<std::size_t>(found.step)].id, step->id);
      steps.erase(step);
      thinner.Remove(found);
      ASSERT_EQ(thinner.StepCount(), TCBase::StepCount(plain));
    }
    EXPECT_FALSE(thinner.Cheapest());
    thinner.PutBack();
    EXPECT_EQ(thinned, plain);
  }
}

TEST(RemoveRedundantSteps, KeepsTheCurve) {
  TCBase::Mode mode;
  mode.channels[0] = Curve({{0, 0, 0}, {6, 0, 25}, {12, 0, 50}, {18, 0, 25}});
  mode.channels[2] = Curve({{8, 0, 10}, {9, 0, 10}, {10, 0, 11.5f}, {11, 0, 90}});
  TCBase::RemoveRedundantSteps(mode);
  EXPECT_EQ(mode.channels[0], Curve({{0, 0, 0}, {12, 0, 50}}));
  EXPECT_EQ(mode.channels[2].steps.size(), 3u);
}
