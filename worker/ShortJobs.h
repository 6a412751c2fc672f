// SPDX-License-Identifier: MIT
#pragma once

#include "worker/DeviceOutcome.h"
#include "worker/JobContext.h"

namespace TCBase {

/// Sets the device's clock to the time as it was captured, however long the job has waited.
DeviceOutcome SyncTimeDevice(const DeviceInfo& info, const SYSTEMTIME& time, const JobContext& job);

/// Removes all modes from the device, and waits 3 seconds while it erases its memory.
DeviceOutcome ClearAllDevice(const DeviceInfo& info, const JobContext& job);

}  // namespace TCBase
