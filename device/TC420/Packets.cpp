// SPDX-License-Identifier: MIT
#include "device/TC420/Packets.h"

#include <numeric>

#include "QorLib/Format.h"

namespace TC420 {
namespace {

// Offsets in the frame
constexpr std::size_t Start = 0;
constexpr std::size_t CommandCode = 2;
constexpr std::size_t Length = 4;
constexpr std::size_t PayloadStart = 5;
constexpr std::size_t Checksum = 61;
constexpr std::size_t End = 62;
constexpr unsigned PayloadBytes = Checksum - PayloadStart;

constexpr int ModeNameBytes = 8;
constexpr int DemoNameBytes = 6;
constexpr std::uint8_t ModeInitLength = 10;
constexpr std::uint16_t PlayInitValue = 253;

std::uint8_t LowByte(std::int64_t number) {
  return static_cast<std::uint8_t>(number & 0xFF);
}

/// What is sent for a percentage: its magnitude, at most 100.
std::uint8_t ChannelByte(int percent) {
  const std::int64_t magnitude = percent < 0 ? -std::int64_t{percent} : percent;
  return static_cast<std::uint8_t>(magnitude > 100 ? 100 : magnitude);
}

template <typename Channels>
std::string ChannelText(const Channels& channels) {
  std::string text;
  for (const int percent : channels)
    text += qor::Format("{1}{2}", {text.empty() ? "" : " ", ChannelByte(percent)});
  return text;
}

std::uint8_t JumpFlags(const TCBase::ModeSample& sample) {
  unsigned flags = 0;
  for (std::size_t i = 0; i < sample.jumps.size(); ++i) flags |= (sample.jumps[i] != 0 ? 1u : 0u) << i;
  return static_cast<std::uint8_t>(flags);
}

}  // namespace

unsigned Packet::Capacity() const {
  return PayloadBytes;
}

void Packet::Serialize(std::string& out) const {
  out.assign(TCBase::PacketBytes, '\0');
  out[Start] = '\x55';
  out[Start + 1] = '\xAA';
  out[CommandCode] = static_cast<char>(command_);
  out[Length] =
      static_cast<char>(length_ == LengthOfPayload ? LowByte(static_cast<int>(payload_.size())) : length_);
  out.replace(PayloadStart, payload_.size(), payload_);
  const unsigned sum =
      std::accumulate(out.begin(), out.begin() + Checksum, 0u,
                      [](unsigned total, char byte) { return total + static_cast<unsigned char>(byte); });
  out[Checksum] = static_cast<char>(sum & 0xFF);
  out[End] = '\x0D';
  out[End + 1] = '\x0A';
}

Packet_ModeStepsStop::Packet_ModeStepsStop() : Packet(Command::ModeStepsStop) {
  text_ = "Packet_ModeStepsStop()";
}

Packet_ModeStop::Packet_ModeStop() : Packet(Command::ModeStop) {
  text_ = "Packet_ModeStop()";
}

Packet_ClearAll::Packet_ClearAll() : Packet(Command::ClearAll) {
  text_ = "Packet_ClearAll()";
}

Packet_TimeSync::Packet_TimeSync(const platform::SYSTEMTIME& time) : Packet(Command::TimeSync) {
  Append16(time.wYear);
  for (const std::uint16_t field : {time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond}) {
    AppendByte(LowByte(field));
  }
  text_ = qor::Format(
      "Packet_TimeSync(Year={1}, Month={2}, Day={3}, Hour={4}, Minute={5}, Second={6})",
      {qor::ZeroFilled(time.wYear, 4), qor::ZeroFilled(time.wMonth, 2), qor::ZeroFilled(time.wDay, 2),
       qor::ZeroFilled(time.wHour, 2), qor::ZeroFilled(time.wMinute, 2), qor::ZeroFilled(time.wSecond, 2)});
}

Packet_ModeInit::Packet_ModeInit(int bank, std::size_t sampleCount, std::string_view name)
    : Packet(Command::ModeInit, ModeInitLength) {
  AppendByte(LowByte(bank));
  AppendByte(LowByte(static_cast<std::int64_t>(sampleCount)));
  AppendText(name, ModeNameBytes);
  text_ = qor::Format("Packet_ModeInit(Bank={1}, Length={2}, Name={3})",
                      {bank, sampleCount, name.substr(0, ModeNameBytes)});
}

Packet_ModeStep::Packet_ModeStep(const TCBase::ModeSample& sample) : Packet(Command::ModeStep) {
  AppendByte(LowByte(sample.hour));
  AppendByte(LowByte(sample.minute));
  for (const int percent : sample.values) AppendByte(ChannelByte(percent));
  AppendByte(JumpFlags(sample));
  text_ = qor::Format("Packet_ModeStep(Hour={1}, Minute={2}, Steps=(",
                      {qor::ZeroFilled(sample.hour, 2), qor::ZeroFilled(sample.minute, 2)}) +
          ChannelText(sample.values) + qor::Format("), JumpsFlags={1})", {JumpFlags(sample)});
}

Packet_PlayInit::Packet_PlayInit(std::string_view name) : Packet(Command::PlayInit) {
  AppendText(name, DemoNameBytes);
  Append16(PlayInitValue);
  text_ = qor::Format("Packet_PlayInit(Name={1})", {name});
}

Packet_PlaySetChannels::Packet_PlaySetChannels(const int (&channels)[TCBase::ChannelCount])
    : Packet(Command::PlaySetChannels) {
  for (const int percent : channels) AppendByte(ChannelByte(percent));
  AppendByte(0);
  text_ = "Packet_PlaySetChannels(" + ChannelText(channels) + ")";
}

}  // namespace TC420
