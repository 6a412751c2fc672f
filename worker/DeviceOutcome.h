// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "device/DeviceInfo.h"

namespace TCBase {

/// How a job ended for one device. The log tells the user what happened; this tells a front end whether it
/// may call the work done.
struct DeviceOutcome {
  enum class Stage {
    Done,          // all of it, and every packet got through
    NotReached,    // the job never came to the device
    NotConnected,  // the device could not be opened
    Refused,       // a mode was not taken
    Incomplete,    // taken, but packets were lost on the way
    Cancelled,     // stopped before all modes were sent
  };

  DeviceInfo device;
  Stage stage = Stage::NotReached;
  std::string detail;  // in plain words, for one line; empty where the stage says it all

  bool IsDone() const { return stage == Stage::Done; }
};

}  // namespace TCBase
