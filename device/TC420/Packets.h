// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "device/PacketBase.h"
#include "model/ModeSample.h"
#include "platform/SystemTime.h"

/// The TC420's packets. Numbers of two bytes go high byte first; names go as their bytes stand.
namespace TC420 {

/// The frame of all packets: 55 AA, the command, 00, a length, 56 bytes of payload filled with zeros, the sum
/// of all bytes before it modulo 256, 0D 0A.
class Packet : public TCBase::PacketBase {
 public:
  unsigned Capacity() const override;
  void Serialize(std::string& out) const override;

 protected:
  enum class Command : std::uint8_t {
    ModeStepsStop = 0x01,
    ModeStop = 0x02,
    ClearAll = 0x03,
    TimeSync = 0x11,
    ModeInit = 0x12,
    ModeStep = 0x13,
    PlayInit = 0x15,
    PlaySetChannels = 0x16,
  };
  static constexpr int LengthOfPayload = -1;

  explicit Packet(Command command, int length = LengthOfPayload) : command_(command), length_(length) {}

 private:
  Command command_;
  int length_;  // what stands in the length byte
};

class Packet_ModeStepsStop : public Packet {
 public:
  Packet_ModeStepsStop() : Packet(Command::ModeStepsStop) {}
  std::string Text() const override { return "Packet_ModeStepsStop()"; }
};

class Packet_ModeStop : public Packet {
 public:
  Packet_ModeStop() : Packet(Command::ModeStop) {}
  std::string Text() const override { return "Packet_ModeStop()"; }
};

class Packet_ClearAll : public Packet {
 public:
  Packet_ClearAll() : Packet(Command::ClearAll) {}
  std::string Text() const override { return "Packet_ClearAll()"; }
};

/// Sets the clock; weekday and milliseconds are not sent.
class Packet_TimeSync : public Packet {
 public:
  explicit Packet_TimeSync(const platform::SYSTEMTIME& time);
  std::string Text() const override;

 private:
  platform::SYSTEMTIME time_;
};

/// Opens a mode in a bank. Bank and count go as their low bytes, the name as 8 bytes.
class Packet_ModeInit : public Packet {
 public:
  Packet_ModeInit(int bank, std::size_t sampleCount, std::string_view name);
  std::string Text() const override;

 private:
  int bank_;
  std::size_t sampleCount_;
  std::string name_;
};

/// One sample of the mode: what the channels show at a minute, and (bit 0 for channel 1) which ones jump
/// there.
class Packet_ModeStep : public Packet {
 public:
  explicit Packet_ModeStep(const TCBase::ModeSample& sample);
  std::string Text() const override;

 private:
  TCBase::ModeSample sample_;
};

/// Begins a demo; the name goes as 6 bytes.
class Packet_PlayInit : public Packet {
 public:
  explicit Packet_PlayInit(std::string_view name);
  std::string Text() const override;

 private:
  std::string name_;
};

/// Shows these percentages at once.
class Packet_PlaySetChannels : public Packet {
 public:
  explicit Packet_PlaySetChannels(const int (&channels)[TCBase::ChannelCount]);
  std::string Text() const override;

 private:
  std::array<int, TCBase::ChannelCount> channels_;
};

}  // namespace TC420
