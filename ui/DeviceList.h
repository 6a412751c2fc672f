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

  /// To be called before a job that waits for no other one: what former ones left is gone.
  void ForgetOutcomes();
  /// How far a job is with its devices, and how it ended.
  void ShowRunning(const std::vector<TCBase::DeviceOutcome>& job) { outcomes_ = job; }
  void ShowEnded(const std::vector<TCBase::DeviceOutcome>& job);
  /// What is to be shown of the device: what is being done with it, else what went wrong since
  /// ForgetOutcomes, else how the last job ended.
  const TCBase::DeviceOutcome* LastOutcome(const TCBase::DeviceInfo& device) const;

 private:
  void Replace(std::vector<TCBase::DeviceInfo> devices);

  std::vector<TCBase::DeviceInfo> devices_;
  std::vector<TCBase::DeviceOutcome> outcomes_;
  std::vector<TCBase::DeviceOutcome> faults_;  // a later job that goes well does not hide them
};

/// What a list shows beside a device's name: how it is reached.
enum class DeviceRoute { Usb, Network, Emulator };
DeviceRoute RouteOf(const TCBase::DeviceInfo& device);

}  // namespace UX
