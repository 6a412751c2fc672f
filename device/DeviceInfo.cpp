// SPDX-License-Identifier: MIT
#include "device/DeviceInfo.h"

#include <algorithm>

namespace TCBase {

DeviceInfo DeviceOfKind(DeviceKind kind) {
  DeviceInfo info;
  info.kind = kind;
  switch (kind) {
    case DeviceKind::TC420: info.name = TC420DisplayName; break;
    case DeviceKind::TC421Usb:
    case DeviceKind::TC421Network: info.name = TC421DisplayName; break;
    case DeviceKind::Emulator: info.name = EmulatorDisplayName; break;
  }
  return info;
}

DeviceInfo NetworkDevice(std::string name, const platform::SocketAddress& address) {
  DeviceInfo info;
  info.kind = DeviceKind::TC421Network;
  info.name = std::move(name);
  info.address = address;
  return info;
}

std::string LockNameOf(const DeviceInfo& info) {
  switch (info.kind) {
    case DeviceKind::TC420: return "tc420";
    case DeviceKind::TC421Usb: return "tc421";
    case DeviceKind::TC421Network: return "tc421@" + platform::AddressText(info.address);
    case DeviceKind::Emulator: return {};
  }
  return {};
}

bool IsSameDevice(const DeviceInfo& a, const DeviceInfo& b) {
  return a.kind == b.kind && (a.kind != DeviceKind::TC421Network || a.address.address == b.address.address);
}

bool IsTC421(DeviceKind kind) {
  return kind == DeviceKind::TC421Usb || kind == DeviceKind::TC421Network;
}

bool HasTC420(const std::vector<DeviceInfo>& devices) {
  return std::any_of(devices.begin(), devices.end(), [](const DeviceInfo& info) {
    return info.kind == DeviceKind::TC420 || info.kind == DeviceKind::Emulator;
  });
}

}  // namespace TCBase
