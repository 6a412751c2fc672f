// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace TC421 {

/// What a TC421 answers: 64 bytes, the command in byte 2, from byte 4 a text that ends at the first zero byte
/// or with byte 63.
struct Reply {
  std::uint8_t command = 0;
  std::string_view text;  // within the bytes that were read

  /// The text's first byte as a signed number, 0 when it is empty: what tells accepted from refused.
  int Verdict() const { return text.empty() ? 0 : static_cast<signed char>(text.front()); }
};

/// Reads a reply; bytes after the 64th do not count. Nothing when there are fewer.
std::optional<Reply> ReadReply(std::string_view bytes);

/// The name in a controller's answer to Packet_Find; nothing when the bytes are no such answer.
std::optional<std::string_view> ReadFindAnswer(std::string_view bytes);

}  // namespace TC421
