// SPDX-License-Identifier: MIT
#include "worker/DeviceOutcome.h"

namespace TCBase {

std::optional<DeviceOutcome> Connect(DeviceBase& device, const DeviceInfo& info, qor::Log& log) {
  if (device.Open()) return std::nullopt;
  log.Message("Connect error");
  const OpenFailure& failure = device.OpenFault();
  return DeviceOutcome{info, DeviceOutcome::Stage::NotConnected, failure.text, failure.isDenied};
}

std::string LostPacketsText(int count) {
  return qor::Format(count == 1 ? "{1} packet did not get through" : "{1} packets did not get through",
                     {count});
}

}  // namespace TCBase
