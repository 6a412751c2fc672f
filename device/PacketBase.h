// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace TCBase {

/// The length of every packet on the wire, on all models and transports.
inline constexpr std::size_t PacketBytes = 64;

/// One packet; the constructor of the concrete packet makes the payload.
class PacketBase {
 public:
  virtual ~PacketBase() = default;
  /// The most payload bytes that the packet can carry.
  virtual unsigned Capacity() const = 0;
  /// Makes `out` the packet's 64 bytes on the wire.
  virtual void Serialize(std::string& out) const = 0;
  virtual bool IsComplete() const { return true; }
  /// The packet in a line for the log. It is put together on each call: an upload that nobody traces should
  /// not pay for it.
  virtual std::string Text() const = 0;

  const std::string& Payload() const { return payload_; }

 protected:
  // Bytes beyond the capacity are dropped without a word.
  void AppendByte(std::uint8_t byte);
  /// High byte first.
  void Append16(std::uint16_t value);
  /// `width` bytes: the text cut, or filled with zero bytes; a width below 1 takes the whole text.
  void AppendText(std::string_view text, int width);

  std::string payload_;
};

}  // namespace TCBase
