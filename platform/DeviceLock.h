// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace platform {

/// A hold on something that one program at a time may use on this computer. Its destructor lets go, and so
/// does the system when the program ends, in whatever way.
class DeviceLock {
 public:
  virtual ~DeviceLock() = default;
};

/// The holds of all programs and users of this computer, but for those in other containers (network
/// namespaces), and for programs of the other system under Wine.
class DeviceLocks {
 public:
  virtual ~DeviceLocks() = default;
  /// Null when somebody holds what is called `name` (in ASCII) already, this program included. Never waits.
  /// Where the system offers no such holds, everybody gets one.
  virtual std::unique_ptr<DeviceLock> TryTake(const std::string& name) = 0;
};

DeviceLocks& SystemDeviceLocks();

}  // namespace platform
