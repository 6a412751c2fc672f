// SPDX-License-Identifier: MIT
#include "device/PacketBase.h"

#include <algorithm>

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
  const std::size_t room = Capacity() - payload_.size();
  const std::size_t total = std::min(length, room);
  payload_.reserve(payload_.size() + total);
  payload_ += text.substr(0, total);
  payload_.append(total - std::min(text.size(), total), '\0');
}

}  // namespace TCBase
