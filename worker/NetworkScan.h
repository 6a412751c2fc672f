// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "device/DeviceBase.h"
#include "device/DeviceInfo.h"

namespace TCBase {

/// Asks all of the local network for TC421 controllers and collects their answers for `timeoutSeconds`; up to
/// three times, as long as none has come. A device that answers twice is listed twice, under the name that it
/// gives, which is its address. Gives the failure that ended the search early; `found` keeps what had come by
/// then, or stays as it was when the search could not begin.
std::optional<OpenFailure> ScanNetwork(std::vector<DeviceInfo>& found, float timeoutSeconds,
                                       const DeviceContext& context);

/// The order of a list: by name, then by address, whoever answered first.
void SortByName(std::vector<DeviceInfo>& devices);

/// Names the device after its host where the network knows the host's name, within a second.
void NameAfterHost(DeviceInfo& device, const DeviceContext& context);

}  // namespace TCBase
