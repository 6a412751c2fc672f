// SPDX-License-Identifier: MIT
#include "ui/ChartEditor.h"

#include <gtest/gtest.h>

#include "formats/StepsText.h"
#include "model/Editing.h"
#include "model/ModeSample.h"
#include "tests/support/Curves.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/TestLog.h"

namespace {

using test::Curve;
using UX::ChartKey;
using Texts = std::vector<std::string>;

/// A chart over the whole day, 744 x 520, with the first channel selected.
class ChartEditor : public testing::Test {
 protected:
  ChartEditor() {
    TCBase::Program program = document.Program();
    for (TCBase::Channel& channel : program.modes[0].channels) channel = Curve({{8, 0, 0}, {22, 0, 0}});
    document.Recover(program, {});
    editor.SetGeometry(chart);
    editor.SelectChannel(0);
  }

  UX::Point At(int hour, int minute, float percent, std::size_t channel = 0) const {
    return {chart.XOf(hour * 3600.0 + minute * 60 + 30), chart.YOf(channel, percent)};
  }
  void Click(UX::Point point) {
    editor.ButtonDown(point);
    editor.ButtonUp();
  }
  void Drag(UX::Point from, UX::Point to) {
    editor.ButtonDown(from);
    editor.MouseMove(to);
    editor.ButtonUp();
  }
  void Zoom(int position, int hour) {
    UX::ViewSpan span;
    span.ZoomTo(position);
    span.ScrollTo(hour * 60);
    chart = {744, 520, span};
    editor.SetGeometry(chart);
  }
  /// "08:00 0, 22:00 0*": values in whole percents, a star behind the selected step.
  std::string Steps(std::size_t channel = 0) {
    std::string text;
    const auto& steps = document.Mode().channels[channel].steps;
    for (std::size_t i = 0; i < steps.size(); ++i) {
      text += (i > 0 ? ", " : "") + TCBase::StepText(steps[i]);
      if (editor.SelectedStep() == UX::StepIndex{channel, i}) text += '*';
    }
    return text;
  }
  void SetCurve(const TCBase::Channel& curve) {
    document.Change({}, [&curve](UX::Content& content) {
      content.Mode().channels[0] = curve;
      return TCBase::EditResult{true, {}};
    });
  }
  bool Undo() {
    const TCBase::Program before = document.Program();
    document.Undo();
    return document.Program() != before;
  }

  test::TestLog log;
  TCBase::JobControl control;
  test::FakeView view;
  UX::Document document{qor::InEnglish, view};
  UX::ChartEditor editor{{document, log, control, view}};
  UX::ChartGeometry chart{744, 520, UX::ViewSpan()};
};

}  // namespace

TEST_F(ChartEditor, AddsAStepInTheSelectedChannelAndSelectsTheOthersFirst) {
  Click(At(12, 0, 40));
  EXPECT_EQ(Steps(), "08:00 0, 12:00 40*, 22:00 0");
  EXPECT_EQ(log.Texts(), (Texts{"Added new step 12:00 40. Current number of steps: 3", "Step 12:00 40"}));
  ASSERT_EQ(editor.Hint().size(), 2u);
  EXPECT_EQ(editor.Hint()[0].english, TR("Press DELETE or BACKSPACE to remove the selected step."));
  Click(At(12, 0, 40, 3));
  EXPECT_EQ(Steps(3), "08:00 0, 22:00 0") << "the press selected the channel only";
  EXPECT_EQ(editor.SelectedChannel(), 3u);
  EXPECT_FALSE(editor.SelectedStep());
  Click(At(13, 0, 60, 3));
  EXPECT_EQ(Steps(3), "08:00 0, 13:00 60*, 22:00 0");
  Click({5, 5});
  EXPECT_EQ(Steps(3), "08:00 0, 13:00 60*, 22:00 0") << "outside of all lanes";
  editor.MouseMove(At(22, 0, 0, 4));
  EXPECT_EQ(editor.HoveredStep(), (UX::StepIndex{4, 1}));
  editor.MouseLeave();
  EXPECT_FALSE(editor.HoveredStep());
  const UX::Rectangle name = chart.NameArea(2);
  Click({name.left + 20, name.top + 5});
  Click({name.left + 20, name.top + 5});
  EXPECT_EQ(editor.SelectedChannel(), 2u);
  EXPECT_EQ(Steps(2), "08:00 0, 22:00 0") << "a click on the name adds no step";
  EXPECT_FALSE(view.isCaptured);
  EXPECT_TRUE(Undo());
  EXPECT_TRUE(Undo());
  EXPECT_FALSE(Undo());
  EXPECT_EQ(document.Mode().channels[3].steps.size(), 2u);
}

TEST_F(ChartEditor, RefusesTheFortyNinthStepAndWarnsOfTheTwentyFirst) {
  int hints = 0;
  for (int step = 0; step < 47; ++step) {
    Click(At(step / 2, step % 2 * 30 + 15, 50));
    if (std::string_view(editor.Hint()[0].english).starts_with("The previous model ORVANTA")) ++hints;
  }
  EXPECT_EQ(hints, 1);
  EXPECT_EQ(TCBase::StepCount(document.Mode()), 48);
  const std::vector<std::string> lines = log.Texts();
  EXPECT_EQ(lines.at(lines.size() - 2),
            "Unable to add new step. Maximum number of 48 steps for the current mode reached");
}

TEST_F(ChartEditor, DragsAStepWithinTheViewAsOneEdit) {
  Drag(At(8, 0, 0), {At(8, 0, 0).x + 2, At(8, 0, 0).y - 2});
  EXPECT_EQ(Steps(), "08:00 0*, 22:00 0") << "a wobble is no edit";
  EXPECT_FALSE(Undo());
  editor.ButtonDown(At(8, 0, 0));
  for (int hour = 9; hour < 23; ++hour) editor.MouseMove(At(hour, 0, 30));
  editor.ButtonUp();
  EXPECT_EQ(Steps(), "22:00 0, 22:01 30*");
  EXPECT_TRUE(Undo());
  EXPECT_FALSE(Undo());
}

TEST_F(ChartEditor, MovesAStepByWhatThePointerMoved) {
  Click(At(13, 0, 50));
  const UX::Point pressed = {At(13, 0, 50).x + 3, At(13, 0, 50).y - 2};
  Drag(pressed, {pressed.x, pressed.y - 20});
  EXPECT_EQ(document.Mode().channels[0].steps[1].MinuteOfDay(), 13 * 60) << "straight up";
  Drag({pressed.x, pressed.y - 20}, {pressed.x + chart.XOf(3600) - chart.XOf(0), pressed.y});
  EXPECT_EQ(Steps(), "08:00 0, 14:00 50*, 22:00 0");
  Zoom(16, 6);  // 06:00 to 14:00
  const UX::Point edge = chart.PointOf(0, document.Mode().channels[0].steps[1]);
  Drag({edge.x - 2, edge.y}, {edge.x - 2, edge.y - 30});
  EXPECT_EQ(document.Mode().channels[0].steps[1].MinuteOfDay(), 14 * 60) << "at the end of the view, too";
}

TEST_F(ChartEditor, KeepsADraggedStepInTheVisiblePartOfTheDay) {
  Zoom(18, 6);  // 06:00 to 12:00
  Drag(At(8, 0, 0), {chart.Plot().Right() + 300, chart.YOf(0, 130)});
  EXPECT_EQ(Steps(), "11:59 100*, 22:00 0");
  Drag(At(11, 59, 100), {-50, chart.YOf(0, -7)});
  EXPECT_EQ(Steps(), "06:00 0*, 22:00 0");
  EXPECT_TRUE(Undo());
  EXPECT_TRUE(Undo());
  EXPECT_EQ(Steps(), "08:00 0*, 22:00 0");
}

TEST_F(ChartEditor, PutsEverythingBackWhenADragIsCancelled) {
  editor.ButtonDown(At(8, 0, 0));
  editor.MouseMove(At(15, 0, 70));
  EXPECT_EQ(Steps(), "15:00 70*, 22:00 0");
  EXPECT_TRUE(editor.Key(ChartKey::Cancel, 0));
  EXPECT_EQ(Steps(), "08:00 0*, 22:00 0");
  editor.MouseMove(At(16, 0, 70));
  editor.ButtonUp();
  EXPECT_EQ(Steps(), "08:00 0*, 22:00 0");
  EXPECT_FALSE(Undo());
  editor.ButtonDown(At(10, 0, 70));
  editor.Key(ChartKey::Cancel, 0);
  EXPECT_EQ(Steps(), "08:00 0, 22:00 0") << "a step that the press had added";
}

TEST_F(ChartEditor, MovesOnlyTheStepThatWasPressed) {
  Click(At(8, 0, 0));
  Drag({chart.Plot().left - 30, 5}, At(12, 0, 50));
  EXPECT_EQ(Steps(), "08:00 0*, 22:00 0") << "pressed outside of all lanes";
  editor.SetDemoRunning(true);
  editor.ButtonDown(At(12, 0, 50));
  editor.SetDemoRunning(false);
  editor.MouseMove(At(15, 0, 50));
  EXPECT_EQ(Steps(), "08:00 0*, 22:00 0") << "the press was meant for the demo";
  EXPECT_FALSE(view.isCaptured);
}

TEST_F(ChartEditor, LeavesOneStepOnAMinuteWhenAMoveEnds) {
  SetCurve(Curve({{8, 0, 0}, {12, 0, 50}, {22, 0, 0}}));
  Drag(At(8, 0, 0), At(12, 0, 80));
  EXPECT_EQ(Steps(), "12:00 80*, 22:00 0") << "the moved one stays";
  EXPECT_TRUE(Undo());
  EXPECT_EQ(document.Mode().channels[0].steps.size(), 3u) << "one edit with the move";
  SetCurve(Curve({{8, 0, 0}, {12, 0, 50}}));
  Drag(At(8, 0, 0), At(12, 0, 80));
  EXPECT_EQ(Steps(), "12:00 50, 12:01 80*") << "a channel keeps two steps";
}

TEST_F(ChartEditor, MovesAStepByKeysAroundMidnightAsOneEdit) {
  SetCurve(Curve({{0, 0, 99.5F}, {12, 0, 50}}));
  Click(At(0, 0, 99.5F));
  editor.Key(ChartKey::Earlier, 100);
  EXPECT_EQ(Steps(), "12:00 50, 23:59 99*");
  editor.Key(ChartKey::Later, 200);
  editor.Key(ChartKey::Brighter, 300);
  EXPECT_EQ(Steps(), "00:00 100*, 12:00 50");
  editor.Key(ChartKey::Darker, 400);
  EXPECT_EQ(Steps(), "00:00 99*, 12:00 50");
  document.EndPausedRun(1399);
  EXPECT_TRUE(document.IsInRun("keys"));
  document.EndPausedRun(1400);
  EXPECT_FALSE(document.IsInRun("keys")) << "a second without a key ends the run";
  EXPECT_TRUE(Undo());
  EXPECT_EQ(document.Mode().channels[0].steps[0].value, 99.5F);
}

TEST_F(ChartEditor, DeletesDownToTwoSteps) {
  EXPECT_FALSE(editor.Key(ChartKey::Delete, 0)) << "nothing is selected";
  Click(At(12, 0, 40));
  log.Texts();
  Click(At(10, 0, 40));
  log.Texts();
  editor.Key(ChartKey::Delete, 0);
  EXPECT_EQ(Steps(), "08:00 0, 12:00 40*, 22:00 0") << "the next one is selected";
  editor.Key(ChartKey::Delete, 900);
  EXPECT_EQ(Steps(), "08:00 0, 22:00 0*");
  editor.Key(ChartKey::Delete, 1800);
  EXPECT_EQ(Steps(), "08:00 0, 22:00 0*");
  EXPECT_EQ(log.Texts(),
            (Texts{"Step deleted. Current number of steps: 3", "Step deleted. Current number of steps: 2",
                   "Unable to delete step. Minimum 2 steps per channel is required."}));
  document.EndPausedRun(1900);
  EXPECT_FALSE(document.IsInRun("keys")) << "a second after the last deletion";
  EXPECT_TRUE(Undo());
  EXPECT_EQ(document.Mode().channels[0].steps.size(), 4u) << "one run";
}

TEST_F(ChartEditor, GoesThroughChannelsAndStepsByKeys) {
  editor.SelectChannel({});
  editor.Key(ChartKey::NextChannel, 0);
  editor.Key(ChartKey::NextChannel, 0);
  editor.Key(ChartKey::NextStep, 0);
  EXPECT_EQ(editor.SelectedStep(), (UX::StepIndex{1, 0}));
  editor.Key(ChartKey::ToggleJump, 0);
  editor.Key(ChartKey::Insert, 0);
  EXPECT_EQ(Steps(1), "08:00 0 J, 15:00 0*, 22:00 0");
  editor.Key(ChartKey::NextStep, 0);
  editor.Key(ChartKey::NextStep, 0);
  EXPECT_EQ(editor.SelectedStep(), (UX::StepIndex{1, 2})) << "the last stays the last";
  editor.Key(ChartKey::PreviousChannel, 0);
  editor.Key(ChartKey::PreviousChannel, 0);
  EXPECT_EQ(editor.SelectedChannel(), 0u);
}

TEST_F(ChartEditor, MovesTheDemoInsteadOfEditing) {
  editor.SetDemoRunning(true);
  control.demoState = TCBase::JobControl::DemoPlaying;
  control.demoSecond = 52560;
  const std::string before = Steps();
  Click(At(12, 0, 40));
  auto command = control.Take();
  ASSERT_TRUE(command);
  EXPECT_EQ(command->type, TCBase::JobControl::Seek);
  EXPECT_EQ(command->value, 43200);
  Click({chart.Plot().left - 20, 100});
  EXPECT_FALSE(control.Take()) << "before the day's begin";
  EXPECT_FALSE(editor.Key(ChartKey::Earlier, 0));
  editor.Key(ChartKey::PauseDemo, 0);
  EXPECT_EQ(control.Take()->type, TCBase::JobControl::Pause);
  control.demoState = TCBase::JobControl::DemoPaused;
  editor.Key(ChartKey::PauseDemo, 0);
  EXPECT_EQ(control.Take()->type, TCBase::JobControl::Resume);
  EXPECT_EQ(log.Texts(), (Texts{"Demo playback paused at 14:36:00", "Demo playback resumed"}));
  EXPECT_EQ(Steps(), before);
  editor.SetDemoRunning(false);
  EXPECT_FALSE(editor.Key(ChartKey::PauseDemo, 0));
}
