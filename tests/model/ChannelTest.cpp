// SPDX-License-Identifier: MIT
#include "model/Channel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "model/Power.h"
#include "tests/support/Curves.h"

using test::Curve;

namespace {

constexpr std::int64_t At(int hour, int minute, int second = 0) {
  return (hour * 60 + minute) * 60 + second;
}

/// The times and values of a channel: "08:00 50, 12:30 100J"
std::string Drawn(const TCBase::Channel& channel) {
  std::string text;
  for (const TCBase::Step& step : channel.steps) {
    char drawn[32];
    std::snprintf(drawn, sizeof drawn, "%s%02d:%02d %g%s", text.empty() ? "" : ", ", step.hour, step.minute,
                  static_cast<double>(step.value), step.jump ? "J" : "");
    text += drawn;
  }
  return text;
}

}  // namespace

TEST(Channel, FadesBetweenStepsAndAcrossMidnight) {
  const TCBase::Channel channel = Curve({{8, 0, 0}, {20, 0, 100}});
  EXPECT_EQ(channel.ValueAt(At(8, 0)), 0);
  EXPECT_EQ(channel.ValueAt(At(14, 0)), 50);
  EXPECT_EQ(channel.ValueAt(At(20, 0)), 100);
  EXPECT_EQ(channel.ValueAt(At(2, 0)), 50);
  EXPECT_FLOAT_EQ(channel.ValueAt(At(0, 0)), 66.66667f);
}

TEST(Channel, HoldsUntilTheNextStepAfterAJump) {
  const TCBase::Channel channel = Curve({{8, 0, 0, true}, {20, 0, 100, true}});
  EXPECT_EQ(channel.ValueAt(At(8, 0)), 0);
  EXPECT_EQ(channel.ValueAt(At(19, 59, 59)), 0);
  EXPECT_EQ(channel.ValueAt(At(20, 0)), 100);
  EXPECT_EQ(channel.ValueAt(At(7, 59, 59)), 100);
}

TEST(Channel, TakesTimesOutsideTheDay) {
  const TCBase::Channel channel = Curve({{0, 0, 10}, {1, 0, 40}});
  EXPECT_EQ(channel.ValueAt(-5), channel.ValueAt(0));
  EXPECT_EQ(channel.ValueAt(86400), channel.ValueAt(0));
  EXPECT_EQ(channel.ValueAt(90000), 40);
}

TEST(Channel, HasAValueWithFewOrOddSteps) {
  EXPECT_EQ(Curve({}).ValueAt(100), 0);
  EXPECT_EQ(Curve({{9, 0, 33}}).ValueAt(100), 33);
  const TCBase::Channel sameMinute = Curve({{9, 0, 20}, {9, 0, 80}});
  EXPECT_EQ(sameMinute.ValueAt(At(9, 0)), 20);
  EXPECT_EQ(sameMinute.ValueAt(At(10, 0)), 80) << "no span: the value of the step before";
  // Walked in their order: the first step that is not earlier ends the walk.
  EXPECT_EQ(Curve({{12, 0, 50}, {8, 0, 0}, {20, 0, 100}}).ValueAt(At(8, 0)), 62.5f)
      << "between the last step, 20:00, and the first, 12:00, across midnight";
}

TEST(Channel, KeepsAStepsOwnValueExactly) {
  // 1.7 is no binary fraction, and scaling there and back would give a little less.
  for (const float value : {1.7f, 31.0f, 99.9f}) {
    const TCBase::Channel channel = Curve({{7, 1, 3.3f}, {13, 8, value}, {22, 59, 0.1f}});
    EXPECT_EQ(channel.ValueAt(At(13, 8)), value);
  }
}

TEST(Channel, InsertsBeforeStepsOfTheSameTime) {
  TCBase::Channel channel = Curve({{8, 0, 1}, {9, 0, 2}, {10, 0, 3}});
  const std::uint32_t oldId = channel.steps[1].id;
  channel.Add({9, 0, 50, true, oldId});
  EXPECT_EQ(Drawn(channel), "08:00 1, 09:00 50J, 09:00 2, 10:00 3");
  EXPECT_NE(channel.steps[1].id, oldId);
  channel.RemoveDuplicateTimes();
  EXPECT_EQ(Drawn(channel), "08:00 1, 09:00 50J, 10:00 3");
}

TEST(Channel, SortsStably) {
  TCBase::Channel channel = Curve({{9, 0, 1}, {8, 0, 2}, {9, 0, 3}, {7, 59, 4}});
  channel.Sort();
  EXPECT_EQ(Drawn(channel), "07:59 4, 08:00 2, 09:00 1, 09:00 3");
}

TEST(Channel, NormalizesWithinTheRange) {
  TCBase::Channel channel = Curve({{8, 0, 40}, {9, 0, 80}});
  channel.Normalize(0.5f);
  EXPECT_EQ(Drawn(channel), "08:00 80, 09:00 100");
  channel.Normalize(0);
  EXPECT_EQ(Drawn(channel), "08:00 100, 09:00 100");
  channel.steps[0].value = 0;
  channel.Normalize(0);
  EXPECT_EQ(Drawn(channel), "08:00 0, 09:00 100") << "0 / 0 is no percentage";
}

TEST(Step, ClampsTimeAndValue) {
  TCBase::Channel channel;
  channel.steps = {{25, 0, 120}, {-1, 0, -3}, {0, 90, 79.5f}, {2147483647, 2147483647, 1}, {23, 59, 100}};
  for (TCBase::Step& step : channel.steps) step.Clamp();
  EXPECT_EQ(Drawn(channel), "23:59 100, 00:00 0, 01:30 79.5, 23:59 1, 23:59 100");
}

TEST(Step, TruncatesToWholePercents) {
  EXPECT_EQ(TCBase::WholePercent(79.9f), 79);
  EXPECT_EQ(TCBase::WholePercent(-0.9f), 0);
  EXPECT_EQ(TCBase::WholePercent(3e9f), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(TCBase::WholePercent(-3e9f), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(TCBase::WholePercent(std::nanf("")), 0);
}

TEST(Step, IsEqualInWhatAUserSees) {
  const TCBase::Step step = TCBase::MakeStep(8, 30, 1);
  EXPECT_EQ(step, TCBase::MakeStep(8, 30, 1)) << "with another id";
  for (const TCBase::Step& other : {TCBase::Step{9, 30, 1}, {8, 31, 1}, {8, 30, 1.5f}, {8, 30, 1, true}}) {
    EXPECT_FALSE(step == other);
  }
}

TEST(Channel, HasThePowerThatItWasGiven) {
  for (int from = 1; from <= 100; ++from) {
    for (int to = 1; to <= 100; ++to) {
      TCBase::Channel channel = Curve({{8, 0, static_cast<float>(from)}, {20, 0, 0}});
      TCBase::SetPower(channel, to);
      ASSERT_EQ(TCBase::WholePercent(TCBase::PowerOf(channel)), to) << "from " << from;
    }
  }
}
