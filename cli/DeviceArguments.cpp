// SPDX-License-Identifier: MIT
#include "cli/DeviceArguments.h"

#include <algorithm>
#include <optional>

#include "QorLib/Format.h"
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

/// Whether a single computer can have the address.
bool IsHost(const platform::SocketAddress& address) {
  constexpr std::uint8_t FirstMulticast = 224;  // RFC 5771; the limited broadcast is above
  return address.address[0] != 0 && address.address[0] < FirstMulticast;
}

DeviceInfo NetworkDeviceOf(std::string_view place) {
  const std::size_t comma = place.find(',');
  const std::string_view text = place.substr(0, comma);
  const std::optional<platform::SocketAddress> address = platform::ParseIPv4(text);
  if (!address || !IsHost(*address)) {
    throw CommandError(WrongUsage, qor::Format("'{1}' is no address of a controller; give it in the form "
                                               "192.168.1.20 ('halvex devices --scan' finds them)",
                                               {text}));
  }
  const std::string_view identity = comma == std::string_view::npos ? text : place.substr(comma + 1);
  return TCBase::NetworkDevice(std::string(identity), *address);
}

bool IsSame(const DeviceInfo& a, const DeviceInfo& b) {
  return a.kind == b.kind && a.address.address == b.address.address;
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
    throw CommandError(WrongUsage,
                       qor::Format("there is no device '{1}'; devices are {2}", {argument, DeviceForms}));
  }
  device.selected = true;
  return device;
}

std::vector<DeviceInfo> DevicesOf(const std::vector<std::string>& arguments) {
  std::vector<DeviceInfo> devices;
  devices.reserve(arguments.size());
  for (const std::string& argument : arguments) {
    const DeviceInfo device = DeviceOf(argument);
    if (std::ranges::any_of(devices, [&](const DeviceInfo& other) { return IsSame(device, other); })) {
      throw CommandError(WrongUsage, qor::Format("the device {1} is named twice", {argument}));
    }
    devices.push_back(device);
  }
  return devices;
}

std::string ArgumentOf(const DeviceInfo& networkDevice) {
  const std::string address = platform::AddressText(networkDevice.address);
  const bool isNamedByAddress = networkDevice.name == address;
  return qor::Format(isNamedByAddress ? "{1}{2}" : "{1}{2},{3}",
                     {NetworkPrefix, address, networkDevice.name});
}

}  // namespace cli
