// SPDX-License-Identifier: MIT
#include "cli/DeviceArguments.h"

#include <algorithm>
#include <optional>

#include "QorLib/Format.h"
#include "QorLib/qor_win_str_utils.h"
#include "cli/ArgumentFault.h"
#include "cli/ExitStatus.h"
#include "cli/LogPrinter.h"
#include "cli/ProgramArguments.h"
#include "device/USBDevice.h"

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
  return !text.empty() && std::ranges::none_of(text, qor::IsControl) &&
         qor::win::WellFormedUtf8(text) == text;
}

DeviceInfo NetworkDeviceOf(std::string_view target) {
  const std::size_t comma = target.find(',');
  const std::string_view text = target.substr(0, comma);
  const std::optional<platform::SocketAddress> address = platform::ParseIPv4(text);
  if (!address || !IsControllers(*address)) {
    throw CommandError(WrongUsage,
                       {TR("'{1}' is no address of a controller; give it in the form 192.168.1.20 "
                           "('halvex devices --scan' finds them)"),
                        {text}});
  }
  const std::string_view identity = comma == std::string_view::npos ? text : target.substr(comma + 1);
  if (identity.empty()) {
    throw CommandError(WrongUsage, {TR("the identity behind {1} is empty; leave the comma out"), {text}});
  }
  return TCBase::NetworkDevice(std::string(identity), *address);
}

constexpr std::string_view DeviceForms = "tc420, tc421, an address such as 192.168.1.20, emulator, all";
constexpr std::string_view All = "all";

const TCBase::UsbId* UsbIdOf(DeviceKind kind) {
  if (kind == DeviceKind::TC420) return &TCBase::TC420UsbId;
  return kind == DeviceKind::TC421Usb ? &TCBase::TC421UsbId : nullptr;
}

DeviceInfo DeviceOf(const std::string& argument) {
  const auto* known = std::ranges::find(DeviceNames, argument, &DeviceName::name);
  if (known != std::end(DeviceNames)) return TCBase::DeviceOfKind(known->kind);
  if (argument.starts_with(NetworkPrefix)) {
    return NetworkDeviceOf(std::string_view(argument).substr(NetworkPrefix.size()));
  }
  if (!argument.empty() && argument[0] >= '0' && argument[0] <= '9') return NetworkDeviceOf(argument);
  std::vector<std::string> names = {std::string(All)};
  for (const DeviceName& device : DeviceNames) names.emplace_back(device.name);
  qor::Sentence fault = {TR("there is no device '{1}'; devices are {2}"), {argument, DeviceForms}};
  const std::string meant = Nearest(argument, names);
  if (!meant.empty()) fault.reasons.push_back({TR("did you mean {1}?"), {meant}});
  throw CommandError(WrongUsage, fault);
}

/// The devices of those arguments.
std::vector<DeviceInfo> DevicesNamed(const std::vector<std::string>& arguments) {
  std::vector<DeviceInfo> devices;
  devices.reserve(arguments.size());
  for (const std::string& argument : arguments) {
    if (argument == All) throw CommandError(WrongUsage, TR("\"all\" stands alone"));
    const DeviceInfo device = DeviceOf(argument);
    if (std::ranges::any_of(devices,
                            [&](const DeviceInfo& other) { return TCBase::IsSameDevice(device, other); })) {
      throw CommandError(WrongUsage, {TR("the device {1} is named twice"), {argument}});
    }
    devices.push_back(device);
  }
  return devices;
}

bool IsAmong(const std::vector<UsbController>& plugged, const DeviceInfo& device) {
  return std::ranges::find(plugged, device.kind, &UsbController::kind) != plugged.end();
}

/// The devices where none was named: all that are plugged in, or the only one.
std::vector<DeviceInfo> DevicesFrom(const std::vector<UsbController>& plugged, bool isAll) {
  if (plugged.empty()) {
    throw CommandError(NothingFound, TR("no controller is plugged in (halvex doctor says more)"));
  }
  std::vector<DeviceInfo> devices;
  std::string list;
  std::size_t count = 0;
  for (const UsbController& controller : plugged) {
    devices.push_back(TCBase::DeviceOfKind(controller.kind));
    for (std::size_t i = 0; i < controller.paths.size(); ++i) {
      list += (list.empty() ? "" : ", ") + ArgumentOf(devices.back());
    }
    count += controller.paths.size();
  }
  if (!isAll && count > 1) {
    throw CommandError(NotUnique,
                       {TR("{1} controllers are plugged in: {2}; name one with --device, or all of them with "
                           "--device all"),
                        {count, list}});
  }
  return devices;
}

}  // namespace

void AddWait(CLI::App& parser, int& seconds) {
  constexpr int MostSeconds = 86400;
  parser
      .add_option("--wait", seconds,
                  "Wait so long for a controller, or a UDP port, that another program uses")
      ->type_name("SECONDS")
      ->check(CheckNumber(0, MostSeconds));
}

void AddDevices(CLI::App& parser, DeviceOptions& options) {
  parser
      .add_option("-d,--device", options.names,
                  "Which controller, such as tc420 or 192.168.1.20; may be given several times. Without it: "
                  "the one in $HALVEX_DEVICE, or the only one plugged in")
      ->type_name("D")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  AddWait(parser, options.waitSeconds);
}

std::vector<UsbController> PluggedIn() {
  std::vector<UsbController> controllers;
  for (const DeviceKind kind : {DeviceKind::TC420, DeviceKind::TC421Usb}) {
    std::vector<std::string> paths = TCBase::PathsOnUsb(*UsbIdOf(kind));
    if (!paths.empty()) controllers.push_back({kind, std::move(paths)});
  }
  return controllers;
}

platform::Computer LookAround(const Invocation& invocation) {
  std::vector<std::string> paths;
  for (const UsbController& controller : PluggedIn())
    paths.insert(paths.end(), controller.paths.begin(), controller.paths.end());
  return invocation.environment.lookAtComputer(paths);
}

qor::Sentence RemarkOnEquals(const UsbController& controller) {
  if (controller.paths.size() < 2) return {};
  return {TR("{1} {2} are plugged in; only the first of them can be reached"),
          {controller.paths.size(), UsbIdOf(controller.kind)->model}};
}

void WarnOfEquals(const std::vector<UsbController>& controllers, Invocation& invocation) {
  for (const UsbController& controller : controllers) {
    if (const qor::Sentence remark = RemarkOnEquals(controller)) invocation.printer.Warn(remark);
  }
}

std::vector<DeviceInfo> DevicesOf(const DeviceOptions& options, Invocation& invocation) {
  std::vector<std::string> names = options.names;
  const std::string usual = invocation.environment.variable("HALVEX_DEVICE");
  if (names.empty() && !usual.empty()) names = {usual};
  const bool isAll = names.size() == 1 && names[0] == All;

  std::vector<DeviceInfo> devices;
  if (!isAll) devices = DevicesNamed(names);
  const auto isUsb = [](const DeviceInfo& device) { return UsbIdOf(device.kind) != nullptr; };
  if (devices.empty() || std::ranges::any_of(devices, isUsb)) {
    std::vector<UsbController> plugged = PluggedIn();
    const auto isThere = [&plugged](const DeviceInfo& device) { return IsAmong(plugged, device); };
    if (devices.empty()) devices = DevicesFrom(plugged, isAll);
    // One of several that is missing is no reason to leave the others out.
    if (std::ranges::all_of(devices, isUsb) && std::ranges::none_of(devices, isThere)) {
      throw CommandError(NothingFound, {TR("no {1} is plugged in (halvex doctor says more)"),
                                        {UsbIdOf(devices.front().kind)->model}});
    }
    std::erase_if(plugged, [&devices](const UsbController& controller) {
      return std::ranges::find(devices, controller.kind, &DeviceInfo::kind) == devices.end();
    });
    WarnOfEquals(plugged, invocation);
  }
  for (DeviceInfo& device : devices) device.selected = true;
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
