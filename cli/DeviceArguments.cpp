// SPDX-License-Identifier: MIT
#include "cli/DeviceArguments.h"

#include <algorithm>
#include <optional>

#include "QorLib/Format.h"
#include "QorLib/qor_win_str_utils.h"
#include "cli/ExitStatus.h"

namespace cli {
namespace {

using TCBase::DeviceInfo;
using TCBase::DeviceKind;

constexpr std::string_view NetworkPrefix = "tc421@";

struct DeviceName {
  std::string_view name;
  DeviceKind kind;
};
constexpr DeviceName DeviceNames[] = {
    {"emulator", DeviceKind::Emulator}, {"tc420", DeviceKind::TC420}, {"tc421", DeviceKind::TC421Usb}};

/// Whether a controller can have the address. In nearly all networks 255 at the end is the broadcast, which
/// would reach every controller at once.
bool IsControllers(const platform::SocketAddress& address) {
  constexpr std::uint8_t Loopback = 127;
  constexpr std::uint8_t FirstMulticast = 224;  // RFC 5771; the limited broadcast is above
  constexpr std::uint8_t Broadcast = 255;
  const std::uint8_t first = address.address[0];
  return first != 0 && first != Loopback && first < FirstMulticast && address.address[3] != Broadcast;
}

bool IsTypeable(std::string_view text) {
  const bool hasControls =
      std::ranges::any_of(text, [](char c) { return (c >= 0 && c < 0x20) || c == 0x7F; });
  return !text.empty() && !hasControls && qor::win::WellFormedUtf8(text) == text;
}

DeviceInfo NetworkDeviceOf(std::string_view place) {
  const std::size_t comma = place.find(',');
  const std::string_view text = place.substr(0, comma);
  const std::optional<platform::SocketAddress> address = platform::ParseIPv4(text);
  if (!address || !IsControllers(*address)) {
    throw CommandError(WrongUsage, {"'{1}' is no address of a controller; give it in the form 192.168.1.20 "
                                    "('halvex devices --scan' finds them)",
                                    {text}});
  }
  const std::string_view identity = comma == std::string_view::npos ? text : place.substr(comma + 1);
  if (identity.empty()) {
    throw CommandError(WrongUsage, {"the identity behind {1} is empty; leave the comma out", {text}});
  }
  return TCBase::NetworkDevice(std::string(identity), *address);
}

}  // namespace

void AddDevices(CLI::App& parser, std::vector<std::string>& devices) {
  parser
      .add_option("--device", devices,
                  std::string("Which controller: ") + DeviceForms + "; may be given several times")
      ->required()
      ->type_name("D")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

DeviceInfo DeviceOf(const std::string& argument) {
  DeviceInfo device;
  const auto* known = std::ranges::find(DeviceNames, argument, &DeviceName::name);
  if (known != std::end(DeviceNames)) {
    device = TCBase::DeviceOfKind(known->kind);
  } else if (argument.starts_with(NetworkPrefix)) {
    device = NetworkDeviceOf(std::string_view(argument).substr(NetworkPrefix.size()));
  } else {
    throw CommandError(WrongUsage, {"there is no device '{1}'; devices are {2}", {argument, DeviceForms}});
  }
  device.selected = true;
  return device;
}

std::vector<DeviceInfo> DevicesOf(const std::vector<std::string>& arguments) {
  std::vector<DeviceInfo> devices;
  devices.reserve(arguments.size());
  for (const std::string& argument : arguments) {
    const DeviceInfo device = DeviceOf(argument);
    if (std::ranges::any_of(devices,
                            [&](const DeviceInfo& other) { return TCBase::IsSameDevice(device, other); })) {
      throw CommandError(WrongUsage, {"the device {1} is named twice", {argument}});
    }
    devices.push_back(device);
  }
  return devices;
}

std::string ArgumentOf(const DeviceInfo& device) {
  const auto* known = std::ranges::find(DeviceNames, device.kind, &DeviceName::kind);
  if (known != std::end(DeviceNames)) return std::string(known->name);
  const std::string address = platform::AddressText(device.address);
  const std::string& identity = device.answer.empty() ? device.name : device.answer;
  const bool isNamed = identity != address && IsTypeable(identity);
  return qor::Format(isNamed ? "{1}{2},{3}" : "{1}{2}", {NetworkPrefix, address, identity});
}

}  // namespace cli
