// SPDX-License-Identifier: MIT
#pragma once

#include "device/CreateDevice.h"
#include "model/Program.h"
#include "worker/DeviceOutcome.h"
#include "worker/JobControl.h"

namespace TCBase {

/// What a per-device job works with; all outlive it.
struct JobContext {
  DeviceContext device;
  JobControl& control;
};

/// Writes the modes into the device, in order and from bank 0 on. A mode that is refused does not keep the
/// next ones back, and the upload is always closed, after a Stop as well.
DeviceOutcome UploadDevice(const DeviceInfo& info, const Program::ModeListView& modes, const JobContext& job);

/// The same with a device that has been made for `info`.
DeviceOutcome Upload(DeviceBase& device, const DeviceInfo& info, const Program::ModeListView& modes,
                     const JobContext& job);

}  // namespace TCBase
