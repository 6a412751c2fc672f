// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace SimTC421 {

using Frame = std::array<std::uint8_t, 64>;
using Bytes = std::span<const std::uint8_t>;

enum class Transport { Usb, Network };

enum class Kind {
  ModeInit,
  ModeStep,
  ModeStepsStop,
  ModeStop,
  TimeSync,
  ClearAll,
  PlayInit,
  PlaySetChannels,
  Find,
  SetWiFi_SSID,
  SetWiFi_Password,
  SetWiFi_Open,
};

// Reads the name as the enumerator is written; throws std::invalid_argument with a sentence for any other.
Kind ParseKind(std::string_view name);

// What is wrong with a frame, in words; empty when nothing is. identity: that of the controller that it came
// to; its first 12 bytes count, and none over USB.
std::string FaultOf(Bytes frame, Transport transport, std::string_view identity);

// These take right frames only.
Kind KindOf(Bytes frame);
// Without the zero bytes that fill the frame. The text of a Wi-Fi packet ends where its length says.
Bytes PayloadOf(Bytes frame);

// The packet with its values, as "ModeStep 0 08:00 10 20 30 40 50"; any other bytes too.
std::string Describe(Bytes frame);

// The controller's answer over the network: an empty text means "accepted".
Frame MakeAnswer(Bytes frame, std::string_view text);

// Values in a payload.
std::string FixedText(Bytes field);            // up to the first zero byte
std::string Printable(std::string_view text);  // bytes outside 0x20 to 0x7E as \xNN
std::string Channels(Bytes values);
std::string HourAndMinute(Bytes two);
std::string DateAndTime(Bytes seven);

std::string Hex(Bytes bytes);

}  // namespace SimTC421
