// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>

#include "QorLib/Format.h"
#include "platform/SystemTime.h"

/// What the packets of both models have in common.
namespace TCBase {

inline constexpr int BankCount = 64;             // places for modes in a controller
inline constexpr std::size_t FewestSamples = 2;  // that make a mode
inline constexpr std::size_t ModeNameBytes = 8;  // of a mode's name; the TC421 keeps one less

inline std::uint8_t LowByte(std::int64_t number) {
  return static_cast<std::uint8_t>(number & 0xFF);
}

/// What is sent for a percentage: its magnitude, at most 100.
inline std::uint8_t ChannelByte(int percent) {
  const std::int64_t magnitude = percent < 0 ? -std::int64_t{percent} : percent;
  return static_cast<std::uint8_t>(magnitude > 100 ? 100 : magnitude);
}

/// The sum of the first `count` bytes, modulo 256.
inline char Checksum(std::string_view image, std::size_t count) {
  const std::string_view summed = image.substr(0, count);
  const unsigned sum = std::accumulate(summed.begin(), summed.end(), 0u, [](unsigned total, char byte) {
    return total + static_cast<unsigned char>(byte);
  });
  return static_cast<char>(sum & 0xFF);
}

// Parts of the packets' texts for the log

/// "0 25 50 75 100", as they are sent
template <typename Channels>
std::string ChannelText(const Channels& channels) {
  std::string text;
  for (const int percent : channels)
    text += qor::Format("{1}{2}", {text.empty() ? "" : " ", ChannelByte(percent)});
  return text;
}

/// "Hour=07, Minute=30"
inline std::string HourAndMinuteText(int hour, int minute) {
  return qor::Format("Hour={1}, Minute={2}", {qor::ZeroFilled(hour, 2), qor::ZeroFilled(minute, 2)});
}

inline std::string ModeInitText(int bank, std::size_t sampleCount, std::string_view name) {
  return qor::Format("Packet_ModeInit(Bank={1}, Length={2}, Name={3})", {bank, sampleCount, name});
}

inline std::string TimeSyncText(const platform::SYSTEMTIME& time) {
  return qor::Format(
      "Packet_TimeSync(Year={1}, Month={2}, Day={3}, Hour={4}, Minute={5}, Second={6})",
      {qor::ZeroFilled(time.wYear, 4), qor::ZeroFilled(time.wMonth, 2), qor::ZeroFilled(time.wDay, 2),
       qor::ZeroFilled(time.wHour, 2), qor::ZeroFilled(time.wMinute, 2), qor::ZeroFilled(time.wSecond, 2)});
}

}  // namespace TCBase
