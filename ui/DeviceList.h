// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "device/DeviceInfo.h"
#include "worker/DeviceOutcome.h"

namespace UX {

/// The controllers that the user can pick: those on the USB, then those on the network, then the emulator.
class DeviceList {
 public:
  const std::vector<TCBase::DeviceInfo>& Devices() const { return devices_; }

  /// What there is now. Devices that were there before keep their check marks. A device that is the first and
  /// only one is picked at once.
  void Update(const std::vector<TCBase::DeviceKind>& usb, const std::vector<TCBase::DeviceInfo>& network);
  /// False when it is there already.
  bool AddEmulator();
  void Pick(std::size_t index, bool isPicked);

  /// Those that jobs visit.
  std::vector<TCBase::DeviceInfo> Picked() const;
  /// Their names, as a sentence lists them.
  std::string PickedNames() const;

  /// How far a job is with its devices, or how it ended. What former jobs left is gone then.
  void Show(const std::vector<TCBase::DeviceOutcome>& job) { outcomes_ = job; }
  const TCBase::DeviceOutcome* LastOutcome(const TCBase::DeviceInfo& device) const;

 private:
  void Replace(std::vector<TCBase::DeviceInfo> devices);

  std::vector<TCBase::DeviceInfo> devices_;
  std::vector<TCBase::DeviceOutcome> outcomes_;
};

/// What a list shows beside a device's name: how it is reached.
enum class DeviceRoute { Usb, Network, Emulator };
DeviceRoute RouteOf(const TCBase::DeviceInfo& device);

}  // namespace UX
