// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/Environment.h"
#include "device/DeviceInfo.h"

/// The devices of commands: "emulator", "tc420" and "tc421" on the USB, "tc421@ADDRESS[,IDENTITY]" on the
/// network, where "tc421@" may be left out, and "all" that are plugged in.
namespace cli {

struct DeviceOptions {
  std::vector<std::string> names;  // as they were given; none for the only controller
  int waitSeconds = 0;             // for one that another program has
};

/// Adds "--device D", which may be given several times, and "--wait SECONDS".
void AddDevices(CLI::App& parser, DeviceOptions& options);
/// Adds "--wait SECONDS".
void AddWait(CLI::App& parser, int& seconds);

/// The devices that the options name, all selected; else the one of the variable HALVEX_DEVICE, or the only
/// one that is plugged in. Throws CommandError for what names none, for one that is named twice, and where
/// all are to be on the USB and none is plugged in.
std::vector<TCBase::DeviceInfo> DevicesOf(const DeviceOptions& options, Invocation& invocation);

/// The controllers on the USB: of each model that is plugged in, where.
struct UsbController {
  TCBase::DeviceKind kind;
  std::vector<std::string> paths;
};
std::vector<UsbController> PluggedIn();
/// This computer, with an eye on the controllers that are plugged in.
platform::Computer LookAround(const Invocation& invocation);
/// Says where several are of one model that only the first can be reached; nothing where there is one.
qor::Sentence RemarkOnEquals(const UsbController& controller);
void WarnOfEquals(const std::vector<UsbController>& controllers, Invocation& invocation);

/// The argument that names the device. A network device's identity is the name that it gave itself where it
/// was found by a search; it is left out where it is the address, or cannot be typed.
std::string ArgumentOf(const TCBase::DeviceInfo& device);

}  // namespace cli
