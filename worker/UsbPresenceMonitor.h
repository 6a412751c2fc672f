// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>

#include "device/DeviceBase.h"
#include "device/DeviceInfo.h"
#include "worker/Stopwatch.h"

namespace TCBase {

/// Watches whether a model is plugged in, by opening it for a moment every 5 seconds.
class UsbPresenceMonitor {
 public:
  /// `onChange` is called from Tick with the new presence; the first presence is "not connected".
  UsbPresenceMonitor(DeviceKind kind, const DeviceContext& context, std::function<void(bool)> onChange);

  /// Probes when it is time to.
  void Tick();
  /// The last presence; from any thread.
  bool IsConnected() const { return isConnected_; }

 private:
  bool Probe();

  DeviceKind kind_;
  DeviceContext context_;
  Stopwatch sinceProbe_;
  std::atomic<bool> isConnected_ = false;
  std::function<void(bool)> onChange_;
};

}  // namespace TCBase
