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
constexpr std::int64_t RunPauseMilliseconds = 1000;

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

}  // namespace

std::optional<StepPlace> ChartEditor::SelectedStep() const {
  if (!channel_ || !stepId_) return std::nullopt;
  const auto step = IndexOf(context_.document.Mode().channels[*channel_], *stepId_);
  return step ? std::optional(StepPlace{*channel_, *step}) : std::nullopt;
}

void ChartEditor::SetDemoRunning(bool isRunning) {
  FinishRun();
  isDemoRunning_ = isRunning;
  context_.view.ShowHint({});
}

void ChartEditor::SetSelection(std::optional<std::size_t> channel, std::optional<std::uint32_t> stepId) {
  channel_ = channel;
  stepId_ = stepId;
  if (!stepId) context_.view.ShowHint({});
  context_.view.RedrawChart();
  context_.view.Refresh();
}

void ChartEditor::SelectChannel(std::optional<std::size_t> channel) {
  FinishRun();
  SetSelection(channel, std::nullopt);
}

void ChartEditor::Select(const StepPlace& place) {
  const std::uint32_t id = Step(place).id;
  FinishRun();
  SetSelection(place.channel, id);
}

void ChartEditor::Reset() {
  FinishRun();
  hovered_.reset();
  SetSelection(std::nullopt, std::nullopt);
}

void ChartEditor::ForgetLostStep() {
  if (stepId_ && !SelectedStep()) SetSelection(channel_, std::nullopt);
}

void ChartEditor::ShowContent(Snapshot content) {
  std::optional<std::uint32_t> known = SelectedStep() ? stepId_ : std::nullopt;
  if (channel_ && !known && !Mode().channels[*channel_].steps.empty()) {
    known = Mode().channels[*channel_].steps.front().id;
  }
  context_.document.SetContent(std::move(content));
  for (std::size_t channel = 0; known && channel < ChannelCount; ++channel) {
    if (IndexOf(Mode().channels[channel], *known)) channel_ = channel;
  }
  SetSelection(channel_, SelectedStep() ? stepId_ : std::nullopt);
}

void ChartEditor::ChannelChanged(std::size_t channel) {
  context_.view.RedrawLane(channel);
  context_.view.Refresh();
}

// The mouse

void ChartEditor::ButtonDown(Point point) {
  FinishRun();
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
    context_.log.Message("Unable to add new step. Maximum number of {1} steps for the current mode reached",
                         {TCBase::MaxModeSteps});
    return;
  }
  GoOnWith(EditRun::Drag);
  TCBase::Step step = TCBase::MakeStep(second / 3600, second % 3600 / 60, percent);
  step.Clamp();
  Channel& lane = Mode().channels[channel];
  lane.Sort();  // a file's steps may be in any order
  lane.Add(step);
  lane.RemoveDuplicateTimes();
  const int count = TCBase::StepCount(Mode());
  context_.log.Message("Added new step {1}. Current number of steps: {2}", {TCBase::StepText(step), count});
  if (count == TCBase::MaxModeStepsEarlier + 1) {
    if (press_) press_->hasHint = true;
    context_.view.ShowHint(
        {{"The previous model ORVANTA (blue device) supports a maximum of {1} steps in "
          "the program. For more information check the \"Help / Known issues\" information.",
          {TCBase::MaxModeStepsEarlier}}});
  }
  const auto added = std::ranges::find(lane.steps, step.MinuteOfDay(), &TCBase::Step::MinuteOfDay);
  channel_ = channel;
  stepId_ = added->id;
  if (press_) press_->step = *added;
  ChannelChanged(channel);
}

void ChartEditor::MouseMove(Point point) {
  if (press_ && isDemoRunning_) return SeekDemo(point);
  if (press_ && press_->step && SelectedStep()) {
    const bool isOut =
        std::abs(point.x - press_->at.x) > WobblePixels || std::abs(point.y - press_->at.y) > WobblePixels;
    if (isOut && !press_->isMoving) {
      press_->isMoving = true;
      GoOnWith(EditRun::Drag);
    }
    if (press_->isMoving) DragTo(point);
  }
  Hover(geometry_.NearestStep(Mode(), point));
}

void ChartEditor::MouseLeave() {
  if (!press_) Hover(std::nullopt);
}

void ChartEditor::Hover(std::optional<StepPlace> place) {
  if (hovered_ == place) return;
  const auto former = hovered_;
  hovered_ = place;
  if (former) context_.view.RedrawLane(former->channel);
  if (place && (!former || former->channel != place->channel)) context_.view.RedrawLane(place->channel);
}

/// The step goes as far as the pointer has gone since the press: where in the mark it was pressed plays no
/// part, and a pointer that goes straight up leaves the time as it is.
void ChartEditor::DragTo(Point point) {
  const StepPlace place = *SelectedStep();
  const TCBase::Step& pressed = *press_->step;
  const double moved = geometry_.SecondAt(point.x) - geometry_.SecondAt(press_->at.x);
  const auto minutes = static_cast<int>(std::round(moved) / 60);  // to either side, whole ones only
  auto second = static_cast<int>(pressed.SecondOfDay()) + minutes * 60;
  if (second >= SecondsPerDay) return;
  const ViewSpan& view = geometry_.View();
  if (minutes != 0) second = std::clamp(second, view.Start(), view.End() - 1);
  TCBase::Step& step = Step(place);
  SetMinute(step, second / 60);
  step.value = pressed.value + geometry_.PercentAt(place.channel, point.y) -
               geometry_.PercentAt(place.channel, press_->at.y);
  step.Clamp();
  isMoved_ = true;
  Mode().channels[place.channel].Sort();
  ChannelChanged(place.channel);
}

void ChartEditor::EndPress() {
  if (!press_) return;
  press_.reset();
  context_.view.CaptureMouse(false);
}

void ChartEditor::ButtonUp() {
  if (!press_) return;
  const bool hasHint = press_->hasHint;
  FinishRun();
  const auto selected = SelectedStep();
  if (isDemoRunning_ || !selected) return;
  context_.log.Message("Step {1}", {TCBase::StepText(Step(*selected))});
  if (hasHint) return;
  context_.view.ShowHint({{"Press DELETE or BACKSPACE to remove the selected step.", {}},
                          {"You can also use keyboard ARROWS to move the step with higher accuracy.", {}}});
}

void ChartEditor::CancelDrag() {
  EndPress();
  isMoved_ = false;
  run_ = EditRun::None;
  if (auto before = context_.history.Withdraw()) context_.document.SetContent(std::move(*before));
  ForgetLostStep();
  context_.view.RedrawChart();
  context_.view.Refresh();
}

void ChartEditor::SelectAt(Point point) {
  if (press_ || isDemoRunning_) return;
  FinishRun();
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
    case ChartKey::ToggleJump: ToggleJump(*selected); return true;
    case ChartKey::Earlier: MoveByKey(*selected, -1, 0, milliseconds); return true;
    case ChartKey::Later: MoveByKey(*selected, 1, 0, milliseconds); return true;
    case ChartKey::Brighter: MoveByKey(*selected, 0, 1, milliseconds); return true;
    case ChartKey::Darker: MoveByKey(*selected, 0, -1, milliseconds); return true;
    default: return false;
  }
}

void ChartEditor::Tick(std::int64_t milliseconds) {
  const bool mayPause = run_ == EditRun::Keys || run_ == EditRun::Description;
  if (mayPause && milliseconds - lastEdit_ >= RunPauseMilliseconds) FinishRun();
}

void ChartEditor::GoOnWith(EditRun run, std::int64_t milliseconds) {
  if (run_ != EditRun::None && run_ != run) FinishRun();
  run_ = run;
  lastEdit_ = milliseconds;
  context_.history.TakePending(context_.document.Content());
}

void ChartEditor::FinishRun() {
  EndPress();
  run_ = EditRun::None;
  if (const auto selected = SelectedStep(); isMoved_ && selected) ClearMinuteOf(*selected);
  isMoved_ = false;
  context_.history.Commit();
}

/// Only one step of a channel can be on a minute: the one that was moved there stays. In a channel that would
/// be left with a single step it moves on to the next free minute instead.
void ChartEditor::ClearMinuteOf(const StepPlace& place) {
  Channel& channel = Mode().channels[place.channel];
  const TCBase::Step moved = Step(place);
  Channel others = channel;
  std::erase_if(others.steps, [&](const TCBase::Step& step) { return step.id == moved.id; });
  if (IsFree(others, moved.MinuteOfDay())) return;
  Channel cleared = channel;
  std::erase_if(cleared.steps, [&](const TCBase::Step& step) {
    return step.id != moved.id && step.MinuteOfDay() == moved.MinuteOfDay();
  });
  if (cleared.steps.size() >= TCBase::MinChannelSteps) {
    channel = std::move(cleared);
  } else {
    int minute = static_cast<int>(moved.MinuteOfDay());
    while (!IsFree(others, minute)) minute = (minute + 1) % MinutesPerDay;
    SetMinute(Step(place), minute);
  }
  Mode().channels[place.channel].Sort();
  ChannelChanged(place.channel);
}

/// The next step is selected then, or the one before where there is none, so that one key deletes several.
void ChartEditor::DeleteStep(const StepPlace& place, std::int64_t milliseconds) {
  const std::vector<TCBase::Step>& steps = Mode().channels[place.channel].steps;
  if (steps.size() > TCBase::MinChannelSteps) GoOnWith(EditRun::Keys, milliseconds);
  const TCBase::EditResult result = TCBase::DeleteStep(Mode(), place.channel, place.step);
  context_.log.Message(result.status);
  if (!result.isChanged) return;
  stepId_ = steps[std::min(place.step, steps.size() - 1)].id;
  isMoved_ = false;
  hovered_.reset();
  ChannelChanged(place.channel);
}

void ChartEditor::MoveByKey(const StepPlace& place, int minutes, float percent, std::int64_t milliseconds) {
  GoOnWith(EditRun::Keys, milliseconds);
  TCBase::Step& step = Step(place);
  SetMinute(step, static_cast<int>((step.MinuteOfDay() + minutes + MinutesPerDay) % MinutesPerDay));
  step.value += percent;
  step.Clamp();
  isMoved_ = isMoved_ || minutes != 0;
  Mode().channels[place.channel].Sort();
  ChannelChanged(place.channel);
}

void ChartEditor::ToggleJump(const StepPlace& place) {
  FinishRun();
  const auto selected = SelectedStep();  // ending the run may have moved it
  if (!selected) return;
  context_.history.Push(context_.document.Content());
  Step(*selected).jump = !Step(*selected).jump;
  ChannelChanged(place.channel);
  context_.log.Message("Step jump toggle");
}

bool ChartEditor::PauseDemo() {
  TCBase::JobControl& control = context_.control;
  if (control.demoState == TCBase::JobControl::NoDemo) return false;  // it is still connecting
  if (control.demoState == TCBase::JobControl::DemoPaused) {
    control.Post(TCBase::JobControl::Resume);
    context_.log.Message("Demo playback resumed");
  } else {
    control.Post(TCBase::JobControl::Pause);
    context_.log.Message("Demo playback paused at {1}", {TCBase::TimeOfDayText(control.demoSecond)});
  }
  return true;
}

void ChartEditor::GoToStep(int offset) {
  FinishRun();
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
  FinishRun();
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
  FinishRun();
}

}  // namespace UX
