// SPDX-License-Identifier: MIT
#include "device/PacketBase.h"

namespace TCBase {

void PacketBase::AppendByte(std::uint8_t byte) {
  if (payload_.size() < Capacity()) payload_ += static_cast<char>(byte);
}

void PacketBase::Append16(std::uint16_t value) {
  AppendByte(static_cast<std::uint8_t>(value >> 8));
  AppendByte(static_cast<std::uint8_t>(value & 0xFF));
}

void PacketBase::AppendText(std::string_view text, int width) {
  const std::size_t length = width < 1 ? text.size() : static_cast<std::size_t>(width);
  for (std::size_t i = 0; i < length; ++i)
    AppendByte(i < text.size() ? static_cast<std::uint8_t>(text[i]) : 0);
}

}  // namespace TCBase
