// SPDX-License-Identifier: MIT
#include "model/Editing.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "model/ModeSample.h"
#include "model/Program.h"
#include "model/StepLimit.h"
#include "model/TimeText.h"

namespace TCBase {
namespace {

constexpr std::int64_t LastMinuteSecond = SecondsPerDay - 60;

EditResult Changed(qor::English english, std::vector<qor::FormatArgument> arguments = {}) {
  return {true, {english, std::move(arguments)}};
}

EditResult Unchanged(qor::English english, std::vector<qor::FormatArgument> arguments = {}) {
  return {false, {english, std::move(arguments)}};
}

EditResult Refused(qor::English english, std::vector<qor::FormatArgument> arguments = {}) {
  return {false, {english, std::move(arguments)}, true};
}

EditResult RefusedAtLimit() {
  return Refused(TR("Unable to add new step. Maximum number of {1} steps for the current mode reached"),
                 {MaxModeSteps});
}

EditResult RefusedAtFewest() {
  return Refused(TR("Unable to delete step. Minimum 2 steps per channel is required."));
}

std::vector<Step> WithNewIds(std::vector<Step> steps) {
  for (Step& step : steps) step.id = NextStepId();
  return steps;
}

/// One step a minute, in order of time.
void PutInOrder(Channel& channel) {
  channel.Sort();
  channel.RemoveDuplicateTimes();
}

/// Whether the mode has come to have more steps than it may.
bool IsOverLimit(const Mode& changed, const Mode& before) {
  const int count = StepCount(changed);
  return count > MaxModeSteps && count > StepCount(before);
}

/// Whether the new step is the old one, of which a text tells whole percents only.
bool IsSame(const Step& before, const Step& step) {
  const bool isWhole = static_cast<float>(WholePercent(step.value)) == step.value;
  const float value = isWhole ? static_cast<float>(WholePercent(before.value)) : before.value;
  return before.MinuteOfDay() == step.MinuteOfDay() && value == step.value && before.jump == step.jump;
}

Step WithNewId(Step step) {
  step.id = NextStepId();
  return step;
}

/// The channel, in order, with the ids of those of its steps that were there before.
Channel WithKeptIds(Channel edited, const Channel& before) {
  PutInOrder(edited);
  for (Step& step : edited.steps) {
    const auto kept =
        std::ranges::find_if(before.steps, [&step](const Step& other) { return IsSame(other, step); });
    step = kept != before.steps.end() ? *kept : WithNewId(step);
  }
  return edited;
}

/// Puts what it was changed to in the place of the mode, unless there come to be too many steps.
EditResult Put(Mode& mode, Mode changed) {
  if (IsOverLimit(changed, mode)) return RefusedAtLimit();
  const bool isChanged = changed != mode;
  mode = std::move(changed);
  return {isChanged, {}};
}

Step StepAtMinute(std::int64_t minute, float value, bool jump) {
  Step step = MakeStep(static_cast<int>(minute / 60 % 24), static_cast<int>(minute % 60), value, jump);
  step.Clamp();
  return step;
}

/// The steps on a grid that runs from midnight: each rounded down, but at least one grid line behind the one
/// before it.
std::vector<Step> Aligned(const std::vector<Step>& steps, std::int64_t interval) {
  std::vector<Step> aligned;
  aligned.reserve(steps.size());
  std::int64_t cursor = 0;
  for (const Step& step : steps) {
    std::int64_t distance = std::max<std::int64_t>(step.MinuteOfDay() - cursor, 0);
    distance -= distance % interval;
    if (distance == 0 && !aligned.empty()) distance = interval;
    cursor += distance;
    aligned.push_back(StepAtMinute(cursor, step.value, step.jump));
    if (aligned.back() == step) aligned.back().id = step.id;  // it stays where it is
  }
  return aligned;
}

/// Swaps the channel's steps with those of the one `offset` further, if there is one.
bool SwapSteps(Mode& mode, std::size_t& channel, std::ptrdiff_t offset) {
  const std::size_t other = channel + static_cast<std::size_t>(offset);
  if (other >= ChannelCount) return false;
  std::swap(mode.channels[channel].steps, mode.channels[other].steps);
  channel = other;
  return true;
}

}  // namespace

EditResult AddStepToAllChannels(Mode& mode, std::int64_t second) {
  if (StepCount(mode) >= MaxModeSteps) return RefusedAtLimit();
  const ModeSample sample = SampleAt(mode, second);
  const std::int64_t minute = std::int64_t{sample.hour} * 60 + sample.minute;
  const Mode before = mode;
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    Channel& channel = mode.channels[i];
    channel.steps.push_back(StepAtMinute(minute, static_cast<float>(sample.values[i]), false));
    PutInOrder(channel);
  }
  const std::string time = MinuteText(minute % MinutesPerDay);
  if (mode == before)
    return Unchanged(TR("All channels have a step at {1} already, nothing was added."), {time});
  return Changed(TR("Added step at {1} to all channels. Current number of steps is {2}."),
                 {time, StepCount(mode)});
}

EditResult AddEndpointStep(Mode& mode, Endpoint endpoint) {
  return AddStepToAllChannels(mode, endpoint == Endpoint::Start ? 0 : LastMinuteSecond);
}

EditResult AlignSteps(Mode& mode, int minutes) {
  if (minutes < 1) return {};
  for (Channel& channel : mode.channels) {
    channel.steps = Aligned(channel.steps, minutes);
    PutInOrder(channel);
  }
  return Changed(TR("All steps were aligned to {1} minute intervals. Current number of steps is {2}."),
                 {minutes, StepCount(mode)});
}

EditResult DeleteStep(Mode& mode, std::size_t channel, std::size_t step) {
  if (channel >= ChannelCount) return {};
  std::vector<Step>& steps = mode.channels[channel].steps;
  if (step >= steps.size()) return {};
  if (steps.size() <= MinChannelSteps) return RefusedAtFewest();
  steps.erase(steps.begin() + static_cast<std::ptrdiff_t>(step));
  return Changed(TR("Step deleted. Current number of steps: {1}"), {StepCount(mode)});
}

EditResult OptimiseForTC421(Mode& mode) {
  mode = ResampleAt30Minutes(mode);
  RemoveRedundantSteps(mode);
  return Changed(
      TR("All steps were aligned to 30 minute intervals. This is useful for configuring TC421 device."));
}

EditResult CopySteps(const Mode& mode, std::size_t channel, StepClipboard& clipboard) {
  if (channel >= ChannelCount) return {};
  clipboard = mode.channels[channel].steps;
  return Unchanged(TR("Copied steps to clipboard"));
}

EditResult PasteSteps(Mode& mode, std::size_t channel, const StepClipboard& clipboard) {
  if (channel >= ChannelCount || !clipboard) return {};
  if (clipboard->size() < MinChannelSteps) return RefusedAtFewest();
  Mode changed = mode;
  changed.channels[channel].steps = WithNewIds(*clipboard);
  if (IsOverLimit(changed, mode)) return RefusedAtLimit();
  mode = std::move(changed);
  return Changed(TR("Pasted steps from clipboard"));
}

EditResult MoveStepsUp(Mode& mode, std::size_t& channel) {
  if (channel >= ChannelCount) return {};
  return {SwapSteps(mode, channel, -1), TR("Moved steps up")};
}

EditResult MoveStepsDown(Mode& mode, std::size_t& channel) {
  if (channel >= ChannelCount) return {};
  return {SwapSteps(mode, channel, 1), TR("Moved steps down")};
}

EditResult ClearSteps(Mode& mode, std::size_t channel) {
  if (channel >= ChannelCount) return {};
  mode.channels[channel].steps = {MakeStep(8, 0, 0), MakeStep(22, 0, 0)};
  return Changed(TR("Cleared all steps"));
}

EditResult AddSteps(Mode& mode, std::size_t channel, const std::vector<Step>& steps,
                    std::vector<Step>& added) {
  added.clear();
  if (channel >= ChannelCount || steps.empty()) return {};
  const Channel before = mode.channels[channel];
  // The first of a minute stays: the last of the new steps, then the old one.
  Channel edited{{steps.rbegin(), steps.rend()}};
  edited.steps.insert(edited.steps.end(), before.steps.begin(), before.steps.end());
  Mode changed = mode;
  changed.channels[channel] = WithKeptIds(std::move(edited), before);
  EditResult result = Put(mode, std::move(changed));
  if (result.isRefused) return result;
  if (!result.isChanged) return Unchanged(TR("The channel has these steps already, nothing was added."));
  std::ranges::copy_if(mode.channels[channel].steps, std::back_inserter(added), [&before](const Step& step) {
    return std::ranges::find(before.steps, step) == before.steps.end();
  });
  return result;
}

EditResult ReplaceSteps(Mode& mode, std::size_t channel, const std::vector<Step>& steps) {
  if (channel >= ChannelCount) return {};
  Mode changed = mode;
  Channel& edited = changed.channels[channel];
  edited = WithKeptIds({steps}, mode.channels[channel]);
  if (edited.steps.size() < MinChannelSteps) return RefusedAtFewest();
  return Put(mode, std::move(changed));
}

EditResult ReplaceAllSteps(Mode& mode, const std::array<std::vector<Step>, ChannelCount>& steps) {
  Mode changed = mode;
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    Channel& edited = changed.channels[i];
    edited = WithKeptIds({steps[i]}, mode.channels[i]);
    if (edited.steps.size() < MinChannelSteps) {
      return {false, {TR("Channel {1}"), {i + 1}, {RefusedAtFewest().status}}, true};
    }
  }
  return Put(mode, std::move(changed));
}

void RenewIds(Channel& channel) {
  channel.steps = WithNewIds(std::move(channel.steps));
}

}  // namespace TCBase
