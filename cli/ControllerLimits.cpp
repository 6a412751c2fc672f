// SPDX-License-Identifier: MIT
#include "cli/ControllerLimits.h"

#include <algorithm>

#include "QorLib/Format.h"
#include "QorLib/qor_win_str_utils.h"
#include "device/PacketEncoding.h"
#include "model/ModeSample.h"

namespace cli {
namespace {

using namespace TCBase;

constexpr std::size_t NameBytesTC420 = ModeNameBytes;
constexpr std::size_t NameBytesTC421 = ModeNameBytes - 1;
constexpr std::size_t MaxModes = BankCount;
constexpr int FewestSteps = static_cast<int>(FewestSamples);  // of a mode

void AddStepCount(const Mode& mode, std::vector<std::string>& remarks) {
  const int steps = StepCount(mode);
  if (steps > MaxModeSteps) {
    remarks.push_back(qor::Format("{1} steps are over the limit of {2}; 'halvex optimize' thins them out",
                                  {steps, MaxModeSteps}));
  } else if (steps > MaxModeStepsEarlier) {
    remarks.push_back(qor::Format("{1} steps are over {2}, the limit of the earlier TC420 in the blue case",
                                  {steps, MaxModeStepsEarlier}));
  }
  if (steps < FewestSteps) remarks.push_back("controllers refuse a mode of fewer than 2 steps");
}

void AddName(const Mode& mode, std::vector<std::string>& remarks) {
  const auto shown = [&mode](std::size_t bytes) {
    return qor::win::WellFormedUtf8(mode.name.substr(0, bytes));
  };
  if (mode.name.empty()) remarks.push_back("controllers refuse a mode without a name");
  if (mode.name.size() > NameBytesTC420) {
    remarks.push_back(qor::Format("the name is cut to {1} bytes on a TC420: '{2}'",
                                  {NameBytesTC420, shown(NameBytesTC420)}));
  }
  if (mode.name.size() > NameBytesTC421) {
    remarks.push_back(qor::Format("the name is cut to {1} bytes on a TC421: '{2}'",
                                  {NameBytesTC421, shown(NameBytesTC421)}));
  }
}

/// What a file may bring that no edit leaves behind.
void AddOddSteps(const Mode& mode, std::vector<std::string>& remarks) {
  const auto isOutsideDay = [](const Step& step) {
    return step.MinuteOfDay() < 0 || step.MinuteOfDay() >= MinutesPerDay;
  };
  const auto isOutsideRange = [](const Step& step) { return step.value < 0 || step.value > 100; };
  const auto isNotLater = [](const Step& a, const Step& b) { return !IsEarlier(a, b); };
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    const std::vector<Step>& steps = mode.channels[i].steps;
    const auto add = [&](const char* what) { remarks.push_back(qor::Format(what, {i + 1})); };
    if (std::ranges::any_of(steps, isOutsideDay))
      add("channel {1} has steps outside the day, which are never sent");
    if (std::ranges::any_of(steps, isOutsideRange)) add("channel {1} has values outside 0 to 100 %");
    if (std::ranges::adjacent_find(steps, isNotLater) != steps.end()) {
      add("channel {1} has steps that are out of order or at the same minute");
    }
  }
}

void AddChannels(const Mode& mode, std::vector<std::string>& remarks) {
  std::ptrdiff_t jumps = 0;
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    const std::vector<Step>& steps = mode.channels[i].steps;
    jumps += std::ranges::count_if(steps, &Step::jump);
    if (steps.size() < MinChannelSteps) {
      remarks.push_back(qor::Format("channel {1} has {2}; at least 2 are needed",
                                    {i + 1, steps.empty() ? "no steps" : "1 step"}));
    }
  }
  if (jumps > 0) {
    remarks.push_back(qor::Format(
        "a TC421 carries no jumps and fades instead ({1} here); see 'halvex optimize --tc421'", {jumps}));
  }
}

}  // namespace

std::vector<std::string> RemarksOn(const Mode& mode) {
  std::vector<std::string> remarks;
  AddStepCount(mode, remarks);
  AddName(mode, remarks);
  AddChannels(mode, remarks);
  AddOddSteps(mode, remarks);
  return remarks;
}

std::vector<std::string> RemarksOn(const Program& program) {
  if (program.modes.size() <= MaxModes) return {};
  return {qor::Format("a controller has {1} places; the modes from {2} on are refused",
                      {MaxModes, MaxModes + 1})};
}

}  // namespace cli
