// SPDX-License-Identifier: MIT
#include "device/ControllerLimits.h"

#include <algorithm>

#include "QorLib/qor_win_str_utils.h"
#include "device/PacketEncoding.h"
#include "model/ModeSample.h"

namespace TCBase {
namespace {

using Remarks = std::vector<qor::Sentence>;

constexpr std::size_t NameBytesTC420 = ModeNameBytes;
constexpr std::size_t NameBytesTC421 = ModeNameBytes - 1;
constexpr std::size_t MaxModes = BankCount;
constexpr int FewestSteps = static_cast<int>(FewestSamples);  // of a mode

void AddStepCount(const Mode& mode, Models models, Remarks& remarks) {
  const int steps = StepCount(mode);
  if (steps > MaxModeSteps) {
    remarks.push_back({TR("{1} steps are over the limit of {2}"), {steps, MaxModeSteps}});
  } else if (steps > MaxModeStepsEarlier && models.tc420) {
    remarks.push_back({TR("{1} steps are over {2}, the limit of the earlier TC420 in the blue case"),
                       {steps, MaxModeStepsEarlier}});
  }
  if (steps < FewestSteps) remarks.push_back(TR("controllers refuse a mode of fewer than 2 steps"));
}

void AddCutName(const Mode& mode, std::size_t bytes, const char* model, Remarks& remarks) {
  if (mode.name.size() <= bytes) return;
  const std::string shown = qor::win::WellFormedUtf8(mode.name.substr(0, bytes));
  remarks.push_back({TR("the name is cut to {1} bytes on a {2}: '{3}'"), {bytes, model, shown}});
}

void AddName(const Mode& mode, Models models, Remarks& remarks) {
  if (mode.name.empty()) remarks.push_back(TR("controllers refuse a mode without a name"));
  if (models.tc420) AddCutName(mode, NameBytesTC420, "TC420", remarks);
  if (models.tc421) AddCutName(mode, NameBytesTC421, "TC421", remarks);
}

/// What a file may bring that no edit leaves behind.
void AddOddSteps(const Channel& channel, std::size_t number, Remarks& remarks) {
  const auto isOutsideDay = [](const Step& step) {
    return step.MinuteOfDay() < 0 || step.MinuteOfDay() >= MinutesPerDay;
  };
  const auto isOutsideRange = [](const Step& step) { return step.value < 0 || step.value > 100; };
  const auto isNotLater = [](const Step& a, const Step& b) { return !IsEarlier(a, b); };
  if (std::ranges::any_of(channel.steps, isOutsideDay)) {
    remarks.push_back({TR("channel {1} has steps outside the day, which are never sent"), {number}});
  }
  if (std::ranges::any_of(channel.steps, isOutsideRange)) {
    remarks.push_back({TR("channel {1} has values outside 0 to 100 %"), {number}});
  }
  if (std::ranges::adjacent_find(channel.steps, isNotLater) != channel.steps.end()) {
    remarks.push_back({TR("channel {1} has steps that are out of order or at the same minute"), {number}});
  }
}

void AddFewSteps(const Channel& channel, std::size_t number, Remarks& remarks) {
  if (channel.steps.empty()) {
    remarks.push_back({TR("channel {1} has no steps; at least 2 are needed"), {number}});
  } else if (channel.steps.size() < MinChannelSteps) {
    remarks.push_back({TR("channel {1} has 1 step; at least 2 are needed"), {number}});
  }
}

void AddJumps(const Mode& mode, Remarks& remarks) {
  std::ptrdiff_t jumps = 0;
  for (const Channel& channel : mode.channels) jumps += std::ranges::count_if(channel.steps, &Step::jump);
  if (jumps > 0) remarks.push_back({TR("a TC421 carries no jumps and fades instead ({1} here)"), {jumps}});
}

Remarks RemarksOnCount(std::size_t modes) {
  if (modes <= MaxModes) return {};
  return {{TR("a controller has {1} places; the modes from {2} on are refused"), {MaxModes, MaxModes + 1}}};
}

}  // namespace

Models ModelsOf(const std::vector<DeviceInfo>& devices) {
  return {HasTC420(devices),
          std::ranges::any_of(devices, [](const DeviceInfo& info) { return IsTC421(info.kind); })};
}

Remarks RemarksOn(const Mode& mode, Models models) {
  Remarks remarks;
  AddStepCount(mode, models, remarks);
  AddName(mode, models, remarks);
  for (std::size_t i = 0; i < ChannelCount; ++i) AddFewSteps(mode.channels[i], i + 1, remarks);
  if (models.tc421) AddJumps(mode, remarks);
  for (std::size_t i = 0; i < ChannelCount; ++i) AddOddSteps(mode.channels[i], i + 1, remarks);
  return remarks;
}

Remarks RemarksOn(const Program& program) {
  return RemarksOnCount(program.modes.size());
}

Remarks RemarksOn(const Program::ModeListView& modes, Models models) {
  Remarks remarks = RemarksOnCount(modes.Size());
  for (const Mode& mode : modes) {
    for (const qor::Sentence& remark : RemarksOn(mode, models)) {
      remarks.push_back({TR("Mode '{1}'"), {mode.name}, {remark}});
    }
  }
  return remarks;
}

}  // namespace TCBase
