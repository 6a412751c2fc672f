// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "worker/DeviceOutcome.h"

namespace TCBase {

/// The wireless network that a TC421 is to join; texts as bytes, which the controller takes as they are.
struct WiFiSettings {
  static constexpr std::int32_t Open = 0;  // security: no password; 1 and 2 are protected networks

  std::string ssid;
  std::string password;
  std::int32_t encryption = 0;  // a number that goes along with the name of a protected network
  std::int32_t security = Open;
};

/// What of the settings would not reach a controller whole; it must not be tried then.
enum class WiFiFault { None, NoName, NameTooLong, NoPassword, PasswordTooLong };
WiFiFault FaultOf(const WiFiSettings& settings);
/// The most bytes of the network's name: the packet for protected networks has less room for it.
std::size_t MostNameBytes(std::int32_t security);
inline constexpr std::size_t MostPasswordBytes = 42;

/// Has the device join the network. Runs on the caller's thread, and blocks it until the device has answered.
DeviceOutcome SetupWiFi(const DeviceInfo& info, const WiFiSettings& settings, const DeviceContext& context);

}  // namespace TCBase
