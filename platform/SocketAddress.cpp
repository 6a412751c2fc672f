// SPDX-License-Identifier: MIT
#include "platform/SocketAddress.h"

namespace platform {

SocketAddress IPv4Address(const std::array<std::uint8_t, 4>& address, std::uint16_t port) {
  const auto high = static_cast<std::uint8_t>(port >> 8);
  const auto low = static_cast<std::uint8_t>(port & 0xFF);
  return {SocketAddress::IPv4, {high, low}, address, {}};
}

std::string AddressAndPortText(const SocketAddress& address) {
  std::string text = AddressText(address);
  text += ':';
  text += std::to_string(address.port[0] << 8 | address.port[1]);
  return text;
}

}  // namespace platform
