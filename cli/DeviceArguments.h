// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "device/DeviceInfo.h"

/// The devices of commands: "emulator", "tc420", "tc421" on the USB, and "tc421@ADDRESS[,IDENTITY]" on the
/// network.
namespace cli {

inline constexpr const char* DeviceForms = "emulator, tc420, tc421, tc421@ADDRESS[,IDENTITY]";

/// Adds "--device D", which may be given several times.
void AddDevices(CLI::App& parser, std::vector<std::string>& devices);

/// The devices that the arguments name, all selected. Throws CommandError for what names none, and for one
/// that is named twice.
std::vector<TCBase::DeviceInfo> DevicesOf(const std::vector<std::string>& arguments);
TCBase::DeviceInfo DeviceOf(const std::string& argument);

/// The argument that names the device. A network device's identity is the name that it gave itself where it
/// was found by a search; it is left out where it is the address, or cannot be typed.
std::string ArgumentOf(const TCBase::DeviceInfo& device);

}  // namespace cli
