// SPDX-License-Identifier: MIT
#include "device/TC420/Packets.h"

#include "device/PacketEncoding.h"

namespace TC420 {
namespace {

using TCBase::ChannelByte;
using TCBase::ChannelText;
using TCBase::LowByte;

// Offsets in the frame
constexpr std::size_t Start = 0;
constexpr std::size_t CommandCode = 2;
constexpr std::size_t Length = 4;
constexpr std::size_t PayloadStart = 5;
constexpr std::size_t Sum = 61;
constexpr std::size_t End = 62;
constexpr unsigned PayloadBytes = Sum - PayloadStart;

constexpr int DemoNameBytes = 6;
constexpr std::uint8_t ModeInitLength = 10;
constexpr std::uint16_t PlayInitValue = 253;

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
  out[Sum] = TCBase::Checksum(out, Sum);
  out[End] = '\x0D';
  out[End + 1] = '\x0A';
}

Packet_TimeSync::Packet_TimeSync(const platform::SYSTEMTIME& time) : Packet(Command::TimeSync), time_(time) {
  Append16(time.wYear);
  for (const std::uint16_t field : {time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond}) {
    AppendByte(LowByte(field));
  }
}

std::string Packet_TimeSync::Text() const {
  return TCBase::TimeSyncText(time_);
}

Packet_ModeInit::Packet_ModeInit(int bank, std::size_t sampleCount, std::string_view name)
    : Packet(Command::ModeInit, ModeInitLength),
      bank_(bank),
      sampleCount_(sampleCount),
      name_(name.substr(0, TCBase::ModeNameBytes)) {
  AppendByte(LowByte(bank));
  AppendByte(LowByte(static_cast<std::int64_t>(sampleCount)));
  AppendText(name, TCBase::ModeNameBytes);
}

std::string Packet_ModeInit::Text() const {
  return TCBase::ModeInitText(bank_, sampleCount_, name_);
}

Packet_ModeStep::Packet_ModeStep(const TCBase::ModeSample& sample)
    : Packet(Command::ModeStep), sample_(sample) {
  AppendByte(LowByte(sample.hour));
  AppendByte(LowByte(sample.minute));
  for (const int percent : sample.values) AppendByte(ChannelByte(percent));
  AppendByte(JumpFlags(sample));
}

std::string Packet_ModeStep::Text() const {
  return qor::Format("Packet_ModeStep({1}, Steps=({2}), JumpsFlags={3})",
                     {TCBase::HourAndMinuteText(sample_.hour, sample_.minute), ChannelText(sample_.values),
                      JumpFlags(sample_)});
}

Packet_PlayInit::Packet_PlayInit(std::string_view name) : Packet(Command::PlayInit), name_(name) {
  AppendText(name, DemoNameBytes);
  Append16(PlayInitValue);
}

std::string Packet_PlayInit::Text() const {
  return qor::Format("Packet_PlayInit(Name={1})", {name_});
}

Packet_PlaySetChannels::Packet_PlaySetChannels(const int (&channels)[TCBase::ChannelCount])
    : Packet(Command::PlaySetChannels), channels_(std::to_array(channels)) {
  for (const int percent : channels) AppendByte(ChannelByte(percent));
  AppendByte(0);
}

std::string Packet_PlaySetChannels::Text() const {
  return qor::Format("Packet_PlaySetChannels({1})", {ChannelText(channels_)});
}

}  // namespace TC420
