// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "device/DeviceBase.h"
#include "device/DeviceInfo.h"

namespace TCBase {

/// The device for an entry of a device list, not opened yet. A kind that is not known gives the emulator.
std::unique_ptr<DeviceBase> CreateDevice(const DeviceInfo& info, const DeviceContext& context);

}  // namespace TCBase
