// SPDX-License-Identifier: MIT
#pragma once

#include "device/DeviceBase.h"
#include "worker/JobControl.h"

namespace TCBase {

/// What a per-device job works with; all outlive it.
struct JobContext {
  DeviceContext device;
  JobControl& control;
};

}  // namespace TCBase
