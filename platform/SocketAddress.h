// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// An IPv4 socket address, 16 bytes: the family as the system numbers it, port and address in network order.
struct SocketAddress {
  static constexpr std::uint16_t IPv4 = 2;  // AF_INET, the same on all systems

  std::uint16_t family = 0;
  std::array<std::uint8_t, 2> port{};
  std::array<std::uint8_t, 4> address{};
  std::array<std::uint8_t, 8> zero{};

  bool operator==(const SocketAddress&) const = default;
};

SocketAddress IPv4Address(const std::array<std::uint8_t, 4>& address, std::uint16_t port);

/// The address in dotted decimal form, four numbers from 0 to 255 without leading zeros; nothing when the
/// text is no such address. The port is 0.
std::optional<SocketAddress> ParseIPv4(std::string_view text);

/// "192.168.1.20"
std::string AddressText(const SocketAddress& address);
/// "192.168.1.20:5000"
std::string AddressAndPortText(const SocketAddress& address);

}  // namespace platform
