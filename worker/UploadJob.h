// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "model/ModeSample.h"
#include "model/Program.h"
#include "worker/DeviceOutcome.h"
#include "worker/JobContext.h"

namespace TCBase {

/// The samples that a device of that kind gets for a mode. A TC421 takes no more than the step limit: what is
/// too long for it is brought under the limit in a copy, of which the log tells.
std::vector<ModeSample> SamplesFor(DeviceKind kind, const Mode& mode, qor::Log& log);

/// Writes the modes into the device, in order and from bank 0 on. A mode that is refused does not keep the
/// next ones back, and the upload is always closed, after a Stop as well.
DeviceOutcome UploadDevice(const DeviceInfo& info, const Program::ModeListView& modes, const JobContext& job);

/// The same with a device that has been made for `info`.
DeviceOutcome Upload(DeviceBase& device, const DeviceInfo& info, const Program::ModeListView& modes,
                     const JobContext& job);

}  // namespace TCBase
