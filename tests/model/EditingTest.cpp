// SPDX-License-Identifier: MIT
#include "model/Editing.h"

#include <gtest/gtest.h>

#include <set>

#include "model/ModeSample.h"
#include "model/Presets.h"
#include "tests/support/Curves.h"

namespace {

using namespace TCBase;
using test::Curve;

std::string Text(const EditResult& result) {
  return (result.isChanged ? "" : "- ") + result.status.In(qor::InEnglish);
}

Mode NormalMode() {
  Mode mode;
  FillNormal(mode, qor::InEnglish);
  return mode;
}

/// A mode with steps at `count` different minutes.
Mode ModeOfSteps(int count) {
  Mode mode = NormalMode();
  for (Channel& channel : mode.channels) channel = Curve({{0, 0, 1}, {0, 1, 2}});
  for (int i = 2; i < count; ++i) mode.channels[4].Add(MakeStep(i / 60, i % 60, 5));
  return mode;
}

std::set<std::uint32_t> IdsOf(const Channel& channel) {
  std::set<std::uint32_t> ids;
  for (const Step& step : channel.steps) ids.insert(step.id);
  return ids;
}

}  // namespace

TEST(Editing, AddsAStepThatDoesNotChangeTheLight) {
  Mode mode = NormalMode();
  EXPECT_EQ(Text(AddStepToAllChannels(mode, 11 * 3600 + 45 * 60 + 59)),
            "Added step at 11:45 to all channels. Current number of steps is 13.");
  EXPECT_EQ(mode.channels[0].steps[3], (Step{11, 45, 64}));  // sampled at the second, truncated
  EXPECT_EQ(mode.channels[4].steps[2], (Step{11, 45, 30}));

  mode.channels[0].steps[1].jump = true;
  const Mode before = mode;
  EXPECT_EQ(Text(AddStepToAllChannels(mode, 10 * 3600)),
            "Added step at 10:00 to all channels. Current number of steps is 13.");
  EXPECT_EQ(mode.channels[0], before.channels[0]) << "the step that is there already stays";
  EXPECT_EQ(mode.channels[4].steps.size(), before.channels[4].steps.size() + 1);
  EXPECT_EQ(Text(AddStepToAllChannels(mode, 10 * 3600)),
            "- All channels have a step at 10:00 already, nothing was added.");
}

TEST(Editing, AddsEndpointSteps) {
  Mode mode = NormalMode();
  EXPECT_EQ(Text(AddEndpointStep(mode, Endpoint::End)),
            "Added step at 23:59 to all channels. Current number of steps is 13.");
  EXPECT_EQ(Text(AddEndpointStep(mode, Endpoint::Start)),
            "Added step at 00:00 to all channels. Current number of steps is 14.");
  for (const Channel& channel : mode.channels) {
    EXPECT_EQ(channel.steps.front().MinuteOfDay(), 0);
    EXPECT_EQ(channel.steps.back().MinuteOfDay(), 1439);
  }
}

TEST(Editing, AddsNoStepBeyond48) {
  Mode full = ModeOfSteps(48);
  const Mode before = full;
  EXPECT_EQ(Text(AddStepToAllChannels(full, 86399)),
            "- Unable to add new step. Maximum number of 48 steps for the current mode reached");
  EXPECT_EQ(full, before);
  Mode almost = ModeOfSteps(47);
  EXPECT_TRUE(AddStepToAllChannels(almost, 86399).isChanged);
  EXPECT_EQ(StepCount(almost), 48);
}

TEST(Editing, AlignsStepsToAGrid) {
  Mode mode;
  mode.channels[0] = Curve({{8, 7, 10, true}, {8, 9, 20}, {20, 0, 30.5f}});
  mode.channels[1] = Curve({{0, 5, 1}, {23, 58, 2}, {23, 59, 3}});  // the last comes round to midnight
  mode.channels[2] = Curve({{9, 0, 1}, {7, 0, 2}});                 // not in order
  EXPECT_EQ(Text(AlignSteps(mode, 15)),
            "All steps were aligned to 15 minute intervals. Current number of steps is 7.");
  EXPECT_EQ(mode.channels[0], Curve({{8, 0, 10, true}, {8, 15, 20}, {20, 0, 30.5f}}));
  EXPECT_EQ(mode.channels[1], Curve({{0, 0, 1}, {23, 45, 2}}));
  EXPECT_EQ(mode.channels[2], Curve({{9, 0, 1}, {9, 15, 2}}));
  EXPECT_TRUE(mode.channels[3].steps.empty());

  mode.channels[0] = Curve({{0, 30, 7}, {12, 0, 8}});
  const std::uint32_t aligned = mode.channels[0].steps[1].id;
  AlignSteps(mode, 60);
  EXPECT_EQ(mode.channels[0], Curve({{0, 0, 7}, {12, 0, 8}}));
  EXPECT_EQ(mode.channels[0].steps[1].id, aligned) << "it was on the grid already";
}

TEST(Editing, DeletesDownToTwoSteps) {
  Mode mode;
  mode.channels[3] = Curve({{1, 0, 1}, {2, 0, 2}, {3, 0, 3}});
  EXPECT_EQ(Text(DeleteStep(mode, 3, 1)), "Step deleted. Current number of steps: 2");
  EXPECT_EQ(Text(DeleteStep(mode, 3, 0)),
            "- Unable to delete step. Minimum 2 steps per channel is required.");
  EXPECT_EQ(mode.channels[3], Curve({{1, 0, 1}, {3, 0, 3}}));
  for (const auto& [channel, step] : {std::pair{3u, 2u}, {5u, 0u}}) {
    EXPECT_EQ(Text(DeleteStep(mode, channel, step)), "- ");
  }
}

TEST(Editing, CopiesAndPastes) {
  Mode mode = NormalMode();
  StepClipboard clipboard;
  EXPECT_EQ(Text(PasteSteps(mode, 0, clipboard)), "- ");
  EXPECT_EQ(Text(CopySteps(mode, 4, clipboard)), "- Copied steps to clipboard");
  EXPECT_EQ(Text(PasteSteps(mode, 0, clipboard)), "Pasted steps from clipboard");
  EXPECT_EQ(mode.channels[0], mode.channels[4]);
  const std::set<std::uint32_t> first = IdsOf(mode.channels[0]);
  PasteSteps(mode, 0, clipboard);
  for (const std::uint32_t id : IdsOf(mode.channels[0])) EXPECT_FALSE(first.contains(id));
  EXPECT_EQ(Text(PasteSteps(mode, 5, clipboard)), "- ");
  clipboard->resize(1);
  EXPECT_EQ(Text(PasteSteps(mode, 0, clipboard)),
            "- Unable to delete step. Minimum 2 steps per channel is required.");
}

TEST(Editing, MovesACurveAndTheSelectionWithIt) {
  Mode mode = NormalMode();
  const Mode before = mode;
  std::size_t channel = 4;
  EXPECT_EQ(Text(MoveStepsUp(mode, channel)), "Moved steps up");
  EXPECT_EQ(channel, 3u);
  EXPECT_EQ(mode.channels[3], before.channels[4]);
  EXPECT_EQ(Text(MoveStepsDown(mode, channel)), "Moved steps down");
  EXPECT_EQ(Text(MoveStepsDown(mode, channel)), "- Moved steps down");
  EXPECT_EQ(channel, 4u);
  channel = 0;
  EXPECT_EQ(Text(MoveStepsUp(mode, channel)), "- Moved steps up");
  EXPECT_EQ(channel, 0u);
  EXPECT_EQ(mode, before);
  channel = 5;
  EXPECT_EQ(Text(MoveStepsUp(mode, channel)), "- ");
}

TEST(Editing, ClearsAChannel) {
  Mode mode = NormalMode();
  EXPECT_EQ(Text(ClearSteps(mode, 2)), "Cleared all steps");
  EXPECT_EQ(mode.channels[2], Curve({{8, 0, 0}, {22, 0, 0}}));
  EXPECT_EQ(Text(ClearSteps(mode, 5)), "- ");
}

TEST(Editing, AddsAndReplacesStepsOfAChannel) {
  Mode mode = ModeOfSteps(2);
  mode.channels[0] = Curve({{8, 0, 1}, {9, 0, 2}});
  const std::uint32_t kept = mode.channels[0].steps[0].id;
  const std::vector<Step> steps = {{9, 0, 3}, {7, 0, 4, true}, {9, 0, 5}, {8, 0, 1}};
  std::vector<Step> added;
  EXPECT_EQ(Text(AddSteps(mode, 0, steps, added)), "");
  EXPECT_EQ(mode.channels[0], Curve({{7, 0, 4, true}, {8, 0, 1}, {9, 0, 5}}));
  EXPECT_EQ(added, Curve({{7, 0, 4, true}, {9, 0, 5}}).steps);
  EXPECT_EQ(Text(AddSteps(mode, 0, {{8, 0, 1}}, added)),
            "- The channel has these steps already, nothing was added.");
  EXPECT_EQ(Text(ReplaceSteps(mode, 0, steps)), "");
  EXPECT_EQ(mode.channels[0], Curve({{7, 0, 4, true}, {8, 0, 1}, {9, 0, 3}}));
  EXPECT_EQ(mode.channels[0].steps[1].id, kept) << "a step that stays is the same one";
  EXPECT_FALSE(IdsOf(mode.channels[0]).contains(0));

  mode.channels[0] = Curve({{8, 0, 47.4f}, {9, 0, 3}});
  ReplaceSteps(mode, 0, {{8, 0, 47}, {9, 0, 4}});
  EXPECT_EQ(mode.channels[0], Curve({{8, 0, 47.4f}, {9, 0, 4}})) << "a text has whole percents only";
}

TEST(Editing, HoldsAChannelToItsLimits) {
  Mode mode = ModeOfSteps(47);
  std::vector<Step> many(49, Step{20, 0, 1});
  for (int i = 0; i < 49; ++i) many[static_cast<std::size_t>(i)].minute = i;
  const Mode before = mode;
  std::vector<Step> added;
  for (const EditResult& refused :
       {AddSteps(mode, 1, {{20, 0, 1}, {20, 1, 1}}, added), ReplaceSteps(mode, 4, many)}) {
    EXPECT_EQ(Text(refused),
              "- Unable to add new step. Maximum number of 48 steps for the current mode reached");
    EXPECT_TRUE(refused.isRefused);
  }
  EXPECT_EQ(Text(ReplaceSteps(mode, 1, {{8, 0, 1}, {8, 0, 2}})),
            "- Unable to delete step. Minimum 2 steps per channel is required.");
  EXPECT_EQ(mode, before);
  EXPECT_TRUE(AddSteps(mode, 1, {{20, 0, 1}}, added).isChanged);
  mode.channels[4].steps = many;
  EXPECT_TRUE(ReplaceSteps(mode, 4, {many.begin() + 1, many.end()}).isChanged)
      << "fewer is nearer to the limit";
}

TEST(Editing, PreparesAModeForTheTC421) {
  Mode mode = NormalMode();
  mode.channels[0] = Curve({{8, 10, 0}, {12, 10, 80, true}, {20, 10, 0}});
  const Mode before = mode;
  EXPECT_EQ(Text(OptimiseForTC421(mode)),
            "All steps were aligned to 30 minute intervals. This is useful for configuring TC421 device.");
  EXPECT_EQ(mode.name, before.name);
  for (const Channel& channel : mode.channels) {
    EXPECT_LT(channel.steps.size(), 20u);
    for (const Step& step : channel.steps) {
      EXPECT_EQ(step.MinuteOfDay() % 30, 0);
      EXPECT_FALSE(step.jump);
    }
  }
  EXPECT_EQ(SampleAt(mode, 19 * 3600).values[0], 80);
}
