// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/SocketAddress.h"

namespace TCBase {

/// Which controller, and how it is reached.
enum class DeviceKind : std::uint32_t { TC420 = 1, Emulator = 2, TC421Usb = 3, TC421Network = 4 };

/// The two hardware models as a user sees them, and the emulator's entry in a device list.
inline constexpr std::string_view TC420DisplayName = "Orvanta 24";
inline constexpr std::string_view TC421DisplayName = "Orvanta 24 Wi-Fi";
inline constexpr std::string_view EmulatorDisplayName = "TC420_Emulator";

/// How a model shows on the USB.
struct UsbId {
  std::uint16_t vendor;
  std::uint16_t product;
  const char* model;
};
inline constexpr UsbId TC420UsbId = {0x0888, 0x4000, "TC420"};
inline constexpr UsbId TC421UsbId = {0x0483, 0x5750, "TC421"};

/// What a device list knows of a controller; copied into jobs.
struct DeviceInfo {
  DeviceKind kind = DeviceKind::Emulator;
  std::string name;                 // as it is shown
  platform::SocketAddress address;  // of a network device
  std::uint32_t extra = 0;          // from the discovery on the network, carried along
  bool selected = false;            // whether jobs visit it
  std::string answer;               // what a network device called itself when it was found
};

/// An entry of that kind under its model's display name, not selected.
DeviceInfo DeviceOfKind(DeviceKind kind);

/// A TC421 on the network under the name by which packets address it; only the IPv4 address counts.
DeviceInfo NetworkDevice(std::string name, const platform::SocketAddress& address);

/// What a program holds that alone uses the device on this computer; empty for the emulator, which each has
/// to itself.
std::string LockNameOf(const DeviceInfo& info);

/// Whether the two are one device: of the same kind, and on the network at the same address. The port from
/// which it happened to answer plays no part, nor does its name.
bool IsSameDevice(const DeviceInfo& a, const DeviceInfo& b);

/// Whether it is a TC421, over whatever it is reached.
bool IsTC421(DeviceKind kind);

/// Whether a TC420 or its emulator is among the devices.
bool HasTC420(const std::vector<DeviceInfo>& devices);

}  // namespace TCBase
