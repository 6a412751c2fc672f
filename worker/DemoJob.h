// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "model/Program.h"
#include "worker/DeviceOutcome.h"
#include "worker/JobContext.h"

namespace TCBase {

// In how many seconds a demo may play the whole day
inline constexpr int FewestDemoSeconds = 10;
inline constexpr int MostDemoSeconds = 86400;
inline constexpr int UsualDemoSeconds = 60;

/// The seconds that the setting "demo_speed" asks for: the usual ones when it is missing or empty, else its
/// number within the limits.
int DemoSecondsOf(std::string_view setting);

/// How a demo goes through the day.
struct DemoTime {
  int seconds = UsualDemoSeconds;  // for the whole day
  int startSecond = 0;             // of the day, where it begins
};

/// Plays the view's current mode on the device until the end of the day or a Stop; the other commands of
/// JobControl pause, resume and move it. The channels' values go out every 50 ms while they change, and every
/// 200 ms while they do not. The demo is always closed.
DeviceOutcome DemoDevice(const DeviceInfo& info, const Program::ModeListView& modes, const DemoTime& time,
                         const JobContext& job);

}  // namespace TCBase
