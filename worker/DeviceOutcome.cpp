// SPDX-License-Identifier: MIT
#include "worker/DeviceOutcome.h"

namespace TCBase {

std::optional<DeviceOutcome> Connect(DeviceBase& device, const DeviceInfo& info, qor::Log& log) {
  if (device.OpenAlone(LockNameOf(info))) return std::nullopt;
  log.Message("Connect error");
  const OpenFailure& failure = device.OpenFault();
  return DeviceOutcome{info, DeviceOutcome::Stage::NotConnected, failure.text, failure.denial};
}

std::string WithReason(std::string text, const DeviceBase& device) {
  if (!device.LastFailure().empty()) text += ": " + device.LastFailure();
  return text;
}

std::string LostPacketsText(const DeviceBase& device) {
  const int count = device.FailedTransactions();
  const char* words = count == 1 ? "{1} packet did not get through" : "{1} packets did not get through";
  return WithReason(qor::Format(words, {count}), device);
}

}  // namespace TCBase
