// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "device/DeviceBase.h"
#include "device/DeviceInfo.h"

namespace TCBase {

/// How a job ended for one device. The log tells the user what happened; this tells a front end whether it
/// may call the work done.
struct DeviceOutcome {
  enum class Stage {
    Done,          // all of it, and every packet got through
    NotReached,    // the job never came to the device
    NotConnected,  // the device could not be opened
    Failed,        // the device did not take what the job brought, in whole or in part
    Incomplete,    // taken, but packets were lost on the way
    Cancelled,     // stopped before the end
  };

  DeviceInfo device;
  Stage stage = Stage::NotReached;
  std::string detail;            // in plain words, for one line; empty where the stage says it all
  Denial denial = Denial::None;  // who kept it from being connected

  bool IsDone() const { return stage == Stage::Done; }
};

/// Opens the device for a job, and for nobody else meanwhile; on failure writes "Connect error" and gives the
/// outcome.
std::optional<DeviceOutcome> Connect(DeviceBase& device, const DeviceInfo& info, qor::Log& log);

/// The text, with why the device's last packet failed behind it: "the time did not get through: no answer"
std::string WithReason(std::string text, const DeviceBase& device);

/// "3 packets did not get through: no answer"
std::string LostPacketsText(const DeviceBase& device);

}  // namespace TCBase
