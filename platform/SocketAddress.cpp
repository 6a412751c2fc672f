// SPDX-License-Identifier: MIT
#include "platform/SocketAddress.h"

#include <charconv>

namespace platform {
namespace {

/// Takes a number from 0 to 255 off the front of the text.
std::optional<std::uint8_t> TakeByte(std::string_view& text) {
  std::uint8_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const auto digits = static_cast<std::size_t>(end - text.data());
  if (error != std::errc() || (digits > 1 && text.front() == '0')) return std::nullopt;
  text.remove_prefix(digits);
  return number;
}

}  // namespace

SocketAddress IPv4Address(const std::array<std::uint8_t, 4>& address, std::uint16_t port) {
  const auto high = static_cast<std::uint8_t>(port >> 8);
  const auto low = static_cast<std::uint8_t>(port & 0xFF);
  return {SocketAddress::IPv4, {high, low}, address, {}};
}

std::optional<SocketAddress> ParseIPv4(std::string_view text) {
  std::array<std::uint8_t, 4> address{};
  for (std::size_t i = 0; i < address.size(); ++i) {
    if (i > 0) {
      if (!text.starts_with('.')) return std::nullopt;
      text.remove_prefix(1);
    }
    const std::optional<std::uint8_t> byte = TakeByte(text);
    if (!byte) return std::nullopt;
    address[i] = *byte;
  }
  if (!text.empty()) return std::nullopt;
  return IPv4Address(address, 0);
}

std::string AddressText(const SocketAddress& address) {
  std::string text;
  for (const std::uint8_t byte : address.address) {
    if (!text.empty()) text += '.';
    text += std::to_string(byte);
  }
  return text;
}

std::string AddressAndPortText(const SocketAddress& address) {
  std::string text = AddressText(address);
  text += ':';
  text += std::to_string(address.port[0] << 8 | address.port[1]);
  return text;
}

}  // namespace platform
