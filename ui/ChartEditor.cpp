// SPDX-License-Identifier: MIT
#include "ui/ChartEditor.h"

#include <algorithm>
#include <cmath>

#include "formats/StepsText.h"
#include "model/Editing.h"
#include "model/ModeSample.h"
#include "model/TimeText.h"

namespace UX {
namespace {

using TCBase::Channel;
using TCBase::ChannelCount;
using TCBase::MinutesPerDay;
using TCBase::SecondsPerDay;

constexpr float WobblePixels = 3;
constexpr const char* DragRun = "drag";
constexpr const char* KeysRun = "keys";

/// Whether no step of the channel is on that minute.
bool IsFree(const Channel& channel, std::int64_t minute) {
  return std::ranges::none_of(channel.steps,
                              [minute](const TCBase::Step& step) { return step.MinuteOfDay() == minute; });
}

void SetMinute(TCBase::Step& step, int minuteOfDay) {
  step.hour = minuteOfDay / 60 % 24;
  step.minute = minuteOfDay % 60;
}

std::optional<std::size_t> IndexOf(const Channel& channel, std::uint32_t id) {
  const auto found = std::ranges::find(channel.steps, id, &TCBase::Step::id);
  if (found == channel.steps.end()) return std::nullopt;
  return static_cast<std::size_t>(found - channel.steps.begin());
}

/// Only one step of a channel can be on a minute: the one that was moved there stays. In a channel that would
/// be left with a single step it moves on to the next free minute instead.
void ClearMinuteOf(Channel& channel, std::uint32_t movedId) {
  const auto index = IndexOf(channel, movedId);
  if (!index) return;
  const TCBase::Step moved = channel.steps[*index];
  Channel others = channel;
  std::erase_if(others.steps, [&](const TCBase::Step& step) { return step.id == movedId; });
  if (IsFree(others, moved.MinuteOfDay())) return;
  Channel cleared = channel;
  std::erase_if(cleared.steps, [&](const TCBase::Step& step) {
    return step.id != movedId && step.MinuteOfDay() == moved.MinuteOfDay();
  });
  if (cleared.steps.size() >= TCBase::MinChannelSteps) {
    channel = std::move(cleared);
  } else {
    int minute = static_cast<int>(moved.MinuteOfDay());
    while (!IsFree(others, minute)) minute = (minute + 1) % MinutesPerDay;
    SetMinute(channel.steps[*index], minute);
  }
  channel.Sort();
}

}  // namespace

std::optional<StepIndex> ChartEditor::SelectedStep() const {
  if (!channel_ || !stepId_) return std::nullopt;
  const auto step = IndexOf(context_.document.Mode().channels[*channel_], *stepId_);
  return step ? std::optional(StepIndex{*channel_, *step}) : std::nullopt;
}

std::vector<qor::Sentence> ChartEditor::Hint() const {
  return !isDemoRunning_ && SelectedStep() ? hint_ : std::vector<qor::Sentence>();
}

void ChartEditor::SetDemoRunning(bool isRunning) {
  EndRun();
  isDemoRunning_ = isRunning;
  hint_.clear();
}

void ChartEditor::SetSelection(std::optional<std::size_t> channel, std::optional<std::uint32_t> stepId) {
  if (!stepId || !SelectedStep()) hint_.clear();
  channel_ = channel;
  stepId_ = stepId;
  context_.view.Refresh();
}

void ChartEditor::SelectChannel(std::optional<std::size_t> channel) {
  EndRun();
  SetSelection(channel, std::nullopt);
}

void ChartEditor::Select(const StepIndex& index) {
  const std::uint32_t id = Step(index).id;
  EndRun();
  SetSelection(index.channel, id);
}

void ChartEditor::Reset() {
  EndRun();
  hovered_.reset();
  SetSelection(std::nullopt, std::nullopt);
}

void ChartEditor::Undo() {
  GoBack(&Document::Undo);
}

void ChartEditor::Redo() {
  GoBack(&Document::Redo);
}

void ChartEditor::GoBack(void (Document::*where)()) {
  EndRun();
  if (!SelectedStep()) stepId_.reset();
  std::optional<std::uint32_t> known = stepId_;
  if (channel_ && !known && !Mode().channels[*channel_].steps.empty()) {
    known = Mode().channels[*channel_].steps.front().id;
  }
  (context_.document.*where)();
  for (std::size_t channel = 0; known && channel < ChannelCount; ++channel) {
    if (IndexOf(Mode().channels[channel], *known)) channel_ = channel;
  }
}

/// The step stays the same one, wherever it comes to stand; the run's end clears its minute.
void ChartEditor::ChangeStep(const EditRun& run, const StepIndex& index,
                             const std::function<void(TCBase::Step&)>& change) {
  const std::size_t mode = context_.document.CurrentMode();
  const std::uint32_t id = Step(index).id;
  EditRun moving = run;
  moving.finish = [mode, channel = index.channel, id](Content& content) {
    ClearMinuteOf(content.program.modes[mode].channels[channel], id);
  };
  context_.document.Change(moving, [&](Content& content) {
    Channel& channel = content.Mode().channels[index.channel];
    change(channel.steps[index.step]);
    channel.steps[index.step].Clamp();
    channel.Sort();
    return TCBase::EditResult{true, {}};
  });
}

// The mouse

void ChartEditor::ButtonDown(Point point) {
  EndRun();
  context_.view.CaptureMouse(true);
  press_ = Press{point};
  if (isDemoRunning_) return SeekDemo(point);
  if (const auto hit = geometry_.HitTest(Mode(), point)) {
    press_->step = Step(*hit);
    return SetSelection(hit->channel, Step(*hit).id);
  }
  if (const auto channel = geometry_.NameAt(point)) return SetSelection(channel, std::nullopt);
  for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
    if (geometry_.Lane(channel).Contains(point)) return PressInLane(channel, point);
  }
}

void ChartEditor::PressInLane(std::size_t channel, Point point) {
  if (channel_ != channel) return SetSelection(channel, std::nullopt);
  const double second = geometry_.SecondAt(point.x);
  if (second < 0 || second >= SecondsPerDay) return;
  AddStep(channel, static_cast<int>(second), geometry_.PercentAt(channel, point.y));
}

void ChartEditor::AddStep(std::size_t channel, int second, float percent) {
  if (TCBase::StepCount(Mode()) >= TCBase::MaxModeSteps) {
    context_.log.Message(
        TR("Unable to add new step. Maximum number of {1} steps for the current mode reached"),
        {TCBase::MaxModeSteps});
    return;
  }
  TCBase::Step step = TCBase::MakeStep(second / 3600, second % 3600 / 60, percent);
  step.Clamp();
  context_.document.Change({DragRun}, [&](Content& content) {
    Channel& lane = content.Mode().channels[channel];
    lane.Sort();  // a file's steps may be in any order
    lane.Add(step);
    lane.RemoveDuplicateTimes();
    return TCBase::EditResult{true, {}};
  });
  const int count = TCBase::StepCount(Mode());
  context_.log.Message(TR("Added new step {1}. Current number of steps: {2}"),
                       {TCBase::StepText(step), count});
  const auto& steps = Mode().channels[channel].steps;
  const auto added = std::ranges::find(steps, step.MinuteOfDay(), &TCBase::Step::MinuteOfDay);
  SetSelection(channel, added->id);
  if (press_) press_->step = *added;
  if (count != TCBase::MaxModeStepsEarlier + 1) return;
  if (press_) press_->hasHint = true;
  hint_ = {{TR("The previous model ORVANTA (blue device) supports a maximum of {1} steps in "
               "the program. For more information check the \"Help / Known issues\" information."),
            {TCBase::MaxModeStepsEarlier}}};
}

void ChartEditor::MouseMove(Point point) {
  if (press_ && isDemoRunning_) return SeekDemo(point);
  if (press_ && press_->step && SelectedStep()) {
    const bool isOut =
        std::abs(point.x - press_->at.x) > WobblePixels || std::abs(point.y - press_->at.y) > WobblePixels;
    press_->isMoving = press_->isMoving || isOut;
    if (press_->isMoving) DragTo(point);
  }
  Hover(geometry_.NearestStep(Mode(), point));
}

void ChartEditor::MouseLeave() {
  if (!press_) Hover(std::nullopt);
}

void ChartEditor::Hover(std::optional<StepIndex> index) {
  if (hovered_ == index) return;
  hovered_ = index;
  context_.view.Refresh();
}

/// The step goes as far as the pointer has gone since the press: where in the mark it was pressed plays no
/// part, and a pointer that goes straight up leaves the time as it is.
void ChartEditor::DragTo(Point point) {
  const StepIndex index = *SelectedStep();
  const TCBase::Step& pressed = *press_->step;
  const double moved = geometry_.SecondAt(point.x) - geometry_.SecondAt(press_->at.x);
  const auto minutes = static_cast<int>(std::round(moved) / 60);  // to either side, whole ones only
  auto second = static_cast<int>(pressed.SecondOfDay()) + minutes * 60;
  if (second >= SecondsPerDay) return;
  const ViewSpan& view = geometry_.View();
  if (minutes != 0) second = std::clamp(second, view.Start(), view.End() - 1);
  const float percent =
      geometry_.PercentAt(index.channel, point.y) - geometry_.PercentAt(index.channel, press_->at.y);
  ChangeStep({DragRun}, index, [&](TCBase::Step& step) {
    SetMinute(step, second / 60);
    step.value = pressed.value + percent;
  });
}

void ChartEditor::EndPress() {
  if (!press_) return;
  press_.reset();
  context_.view.CaptureMouse(false);
}

void ChartEditor::ButtonUp() {
  if (!press_) return;
  const bool hasHint = press_->hasHint;
  EndRun();
  const auto selected = SelectedStep();
  if (isDemoRunning_ || !selected) return;
  context_.log.Message(TR("Step {1}"), {TCBase::StepText(Step(*selected))});
  if (hasHint) return;
  hint_ = {TR("Press DELETE or BACKSPACE to remove the selected step."),
           TR("You can also use keyboard ARROWS to move the step with higher accuracy.")};
  context_.view.Refresh();
}

void ChartEditor::CancelDrag() {
  EndPress();
  context_.document.CancelRun();
}

void ChartEditor::SelectAt(Point point) {
  if (press_ || isDemoRunning_) return;
  EndRun();
  if (const auto hit = geometry_.HitTest(Mode(), point)) return Select(*hit);
  for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
    if (geometry_.Lane(channel).Contains(point)) SelectChannel(channel);
  }
}

void ChartEditor::SeekDemo(Point point) {
  const double second = geometry_.SecondAt(point.x);
  if (second >= 0 && second < SecondsPerDay) context_.control.PostSeek(static_cast<std::int32_t>(second));
}

// Keys

bool ChartEditor::Key(ChartKey key, std::int64_t milliseconds) {
  if (key == ChartKey::PauseDemo) return isDemoRunning_ && PauseDemo();
  if (isDemoRunning_) return false;
  if (press_) {
    if (key == ChartKey::Cancel) CancelDrag();
    return key == ChartKey::Cancel;
  }
  switch (key) {
    case ChartKey::PreviousStep: GoToStep(-1); return true;
    case ChartKey::NextStep: GoToStep(1); return true;
    case ChartKey::PreviousChannel: GoToChannel(-1); return true;
    case ChartKey::NextChannel: GoToChannel(1); return true;
    case ChartKey::Insert: InsertByKey(); return true;
    default: break;
  }
  const auto selected = SelectedStep();
  if (!selected) return false;
  switch (key) {
    case ChartKey::Delete: DeleteStep(*selected, milliseconds); return true;
    case ChartKey::ToggleJump: ToggleJump(); return true;
    case ChartKey::Earlier: MoveByKey(*selected, -1, 0, milliseconds); return true;
    case ChartKey::Later: MoveByKey(*selected, 1, 0, milliseconds); return true;
    case ChartKey::Brighter: MoveByKey(*selected, 0, 1, milliseconds); return true;
    case ChartKey::Darker: MoveByKey(*selected, 0, -1, milliseconds); return true;
    default: return false;
  }
}

void ChartEditor::EndRun() {
  EndPress();
  context_.document.EndRun();
}

/// The next step is selected then, or the one before where there is none, so that one key deletes several.
void ChartEditor::DeleteStep(const StepIndex& index, std::int64_t milliseconds) {
  const TCBase::EditResult result = context_.document.Change(
      {KeysRun, milliseconds},
      [&index](Content& content) { return TCBase::DeleteStep(content.Mode(), index.channel, index.step); });
  context_.log.Message(result.status);
  if (!result.isChanged) return;
  const std::vector<TCBase::Step>& steps = Mode().channels[index.channel].steps;
  stepId_ = steps[std::min(index.step, steps.size() - 1)].id;
  hovered_.reset();
}

void ChartEditor::MoveByKey(const StepIndex& index, int minutes, float percent, std::int64_t milliseconds) {
  ChangeStep({KeysRun, milliseconds}, index, [&](TCBase::Step& step) {
    SetMinute(step, static_cast<int>((step.MinuteOfDay() + minutes + MinutesPerDay) % MinutesPerDay));
    step.value += percent;
  });
}

void ChartEditor::ToggleJump() {
  EndRun();
  const auto selected = SelectedStep();  // ending the run may have moved it
  if (!selected) return;
  context_.document.Change({}, [&](Content& content) {
    TCBase::Step& step = content.Mode().channels[selected->channel].steps[selected->step];
    step.jump = !step.jump;
    return TCBase::EditResult{true, {}};
  });
  context_.log.Message(TR("Step jump toggle"));
}

bool ChartEditor::PauseDemo() {
  TCBase::JobControl& control = context_.control;
  if (control.demoState == TCBase::JobControl::NoDemo) return false;  // it is still connecting
  if (control.demoState == TCBase::JobControl::DemoPaused) {
    control.Post(TCBase::JobControl::Resume);
    context_.log.Message(TR("Demo playback resumed"));
  } else {
    control.Post(TCBase::JobControl::Pause);
    context_.log.Message(TR("Demo playback paused at {1}"), {TCBase::TimeOfDayText(control.demoSecond)});
  }
  return true;
}

void ChartEditor::GoToStep(int offset) {
  EndRun();
  if (!channel_) return GoToChannel(1);
  const auto count = static_cast<int>(Mode().channels[*channel_].steps.size());
  if (count == 0) return;
  const auto selected = SelectedStep();
  const int before = offset > 0 ? -1 : count;
  const int next = (selected ? static_cast<int>(selected->step) : before) + offset;
  Select({*channel_, static_cast<std::size_t>(std::clamp(next, 0, count - 1))});
}

void ChartEditor::GoToChannel(int offset) {
  const int before = offset > 0 ? -1 : static_cast<int>(ChannelCount);
  const int next = (channel_ ? static_cast<int>(*channel_) : before) + offset;
  SelectChannel(static_cast<std::size_t>(std::clamp(next, 0, static_cast<int>(ChannelCount) - 1)));
}

/// Adds a step on the curve, half way from the selected step to the next one.
void ChartEditor::InsertByKey() {
  EndRun();
  if (!channel_) return;
  const Channel& channel = Mode().channels[*channel_];
  const auto selected = SelectedStep();
  const int start = selected ? static_cast<int>(channel.steps[selected->step].MinuteOfDay()) : 0;
  const bool isLast = !selected || selected->step + 1 >= channel.steps.size();
  const int end = isLast ? MinutesPerDay : static_cast<int>(channel.steps[selected->step + 1].MinuteOfDay());
  const int minute = (start + end) / 2;
  const bool isTaken = std::ranges::any_of(channel.steps, [minute](const TCBase::Step& step) {
    return static_cast<int>(step.MinuteOfDay()) == minute;
  });
  if (isTaken) return;  // a step that is there stays
  AddStep(*channel_, minute * 60, channel.ValueAt(std::int64_t{minute} * 60));
  EndRun();
}

}  // namespace UX
