// SPDX-License-Identifier: MIT
#include "ui/DeviceList.h"

#include <algorithm>
#include <iterator>

namespace UX {

using TCBase::DeviceInfo;
using TCBase::DeviceKind;
using TCBase::IsSameDevice;

void DeviceList::Update(const std::vector<DeviceKind>& usb, const std::vector<DeviceInfo>& network) {
  std::vector<DeviceInfo> now;
  now.reserve(usb.size() + network.size() + 1);
  for (const DeviceKind kind : usb) now.push_back(TCBase::DeviceOfKind(kind));
  now.insert(now.end(), network.begin(), network.end());
  const auto emulator = std::ranges::find(devices_, DeviceKind::Emulator, &DeviceInfo::kind);
  if (emulator != devices_.end()) now.push_back(*emulator);
  Replace(std::move(now));
}

bool DeviceList::AddEmulator() {
  if (std::ranges::find(devices_, DeviceKind::Emulator, &DeviceInfo::kind) != devices_.end()) return false;
  std::vector<DeviceInfo> now = devices_;
  now.push_back(TCBase::DeviceOfKind(DeviceKind::Emulator));
  Replace(std::move(now));
  return true;
}

void DeviceList::Replace(std::vector<DeviceInfo> devices) {
  for (DeviceInfo& device : devices) {
    const auto before = std::ranges::find_if(
        devices_, [&device](const DeviceInfo& other) { return IsSameDevice(device, other); });
    device.selected = before != devices_.end() && before->selected;
  }
  if (devices_.empty() && devices.size() == 1) devices[0].selected = true;
  devices_ = std::move(devices);
}

void DeviceList::Pick(std::size_t index, bool isPicked) {
  if (index < devices_.size()) devices_[index].selected = isPicked;
}

std::vector<DeviceInfo> DeviceList::Picked() const {
  std::vector<DeviceInfo> picked;
  std::ranges::copy_if(devices_, std::back_inserter(picked), &DeviceInfo::selected);
  return picked;
}

std::string DeviceList::PickedNames() const {
  std::string names;
  for (const DeviceInfo& device : Picked()) {
    if (!names.empty()) names += ", ";
    names += device.name;
  }
  return names;
}

void DeviceList::ForgetOutcomes() {
  outcomes_.clear();
  faults_.clear();
}

void DeviceList::ShowEnded(const std::vector<TCBase::DeviceOutcome>& job) {
  outcomes_ = job;
  std::ranges::copy_if(job, std::back_inserter(faults_), &TCBase::DeviceOutcome::IsFault);
}

const TCBase::DeviceOutcome* DeviceList::LastOutcome(const DeviceInfo& device) const {
  const auto of = [&device](const std::vector<TCBase::DeviceOutcome>& outcomes) {
    const auto isSame = [&device](const TCBase::DeviceOutcome& outcome) {
      return IsSameDevice(outcome.device, device);
    };
    const auto found = std::ranges::find_if(outcomes, isSame);
    return found != outcomes.end() ? &*found : nullptr;
  };
  const TCBase::DeviceOutcome* last = of(outcomes_);
  const bool isOver = last == nullptr || last->IsDone() || last->IsStop();
  const TCBase::DeviceOutcome* fault = of(faults_);
  return isOver && fault != nullptr ? fault : last;
}

DeviceRoute RouteOf(const DeviceInfo& device) {
  if (device.kind == DeviceKind::Emulator) return DeviceRoute::Emulator;
  return device.kind == DeviceKind::TC421Network ? DeviceRoute::Network : DeviceRoute::Usb;
}

}  // namespace UX
