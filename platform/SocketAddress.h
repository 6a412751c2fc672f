// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace platform {

/// An IPv4 socket address, 16 bytes: the family as the system numbers it, port and address in network order.
struct SocketAddress {
  std::uint16_t family = 0;
  std::array<std::uint8_t, 2> port{};
  std::array<std::uint8_t, 4> address{};
  std::array<std::uint8_t, 8> zero{};

  bool operator==(const SocketAddress&) const = default;
};

}  // namespace platform
