// SPDX-License-Identifier: MIT
#include "device/TC421/Reply.h"

#include "device/TC421/Packets.h"

namespace TC421 {
namespace {

constexpr std::size_t CommandCode = 2;
constexpr std::size_t TextStart = 4;

}  // namespace

std::optional<Reply> ReadReply(std::string_view bytes) {
  if (bytes.size() < TCBase::PacketBytes) return std::nullopt;
  const std::string_view text = bytes.substr(TextStart, TCBase::PacketBytes - TextStart);
  return Reply{static_cast<std::uint8_t>(bytes[CommandCode]), text.substr(0, text.find('\0'))};
}

std::optional<std::string_view> ReadFindAnswer(std::string_view bytes) {
  const std::optional<Reply> reply = ReadReply(bytes);
  if (!reply || reply->command != Packet_Find::Command) return std::nullopt;
  return reply->text;
}

}  // namespace TC421
