// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "device/DeviceBase.h"
#include "worker/JobControl.h"

namespace TCBase {

/// What a per-device job works with; all outlive it.
struct JobContext {
  DeviceContext device;
  JobControl& control;
  /// Told what the job is doing with the device now.
  std::function<void(qor::Sentence)> working = [](const qor::Sentence&) {};
};

}  // namespace TCBase
