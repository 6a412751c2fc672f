// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "device/PacketBase.h"
#include "model/ModeSample.h"
#include "platform/SystemTime.h"

/// The TC421's packets. Numbers of two bytes go high byte first; names go as their bytes stand. Unlike the
/// TC420's, a step says nothing of jumps.
namespace TC421 {

/// By which way packets go, and to which controller: its identity of up to 12 bytes, which on the USB is
/// empty.
struct Route {
  std::string_view identity;
  bool isUsb = false;
};

/// The frame of all packets: 55 AA, command, sub-command, 00, a length, payload from byte 6, the identity in
/// bytes 49 to 60. The sum of bytes 0 to 48 modulo 256 stands in byte 63 on the USB and in byte 61 on the
/// network. A payload of more than 43 bytes is overwritten by the identity from its 44th byte on.
class Packet : public TCBase::PacketBase {
 public:
  unsigned Capacity() const override;
  void Serialize(std::string& out) const override;

 protected:
  struct Code {
    std::uint8_t command, subCommand;
  };
  static constexpr int LengthOfPayload = -1;

  Packet(Code code, const Route& route, int length = LengthOfPayload);

 private:
  Code code_;
  int length_;  // what stands in the length byte
  std::string identity_;
  bool isUsb_;
};

/// Opens a mode in a bank. Bank and count go as their low bytes, the name as 7 bytes and a zero.
class Packet_ModeInit : public Packet {
 public:
  Packet_ModeInit(const Route& route, int bank, std::size_t sampleCount, std::string_view name);
  std::string Text() const override;

 private:
  int bank_;
  std::size_t sampleCount_;
  std::string name_;
};

/// One sample of the mode, by its index from 0.
class Packet_ModeStep : public Packet {
 public:
  Packet_ModeStep(const Route& route, int index, const TCBase::ModeSample& sample);
  std::string Text() const override;

 private:
  TCBase::ModeSample sample_;
};

/// Sets the clock; weekday and milliseconds are not sent.
class Packet_TimeSync : public Packet {
 public:
  Packet_TimeSync(const Route& route, const platform::SYSTEMTIME& time);
  std::string Text() const override;

 private:
  platform::SYSTEMTIME time_;
};

/// Ends a demo.
class Packet_ModeStop : public Packet {
 public:
  explicit Packet_ModeStop(const Route& route) : Packet({0x03, 0x08}, route) {}
  std::string Text() const override { return "Packet_ModeStop()"; }
};

class Packet_ModeStepsStop : public Packet {
 public:
  explicit Packet_ModeStepsStop(const Route& route) : Packet({0x04, 0x0A}, route) {}
  std::string Text() const override { return "Packet_ModeStepsStop()"; }
};

class Packet_ClearAll : public Packet {
 public:
  explicit Packet_ClearAll(const Route& route) : Packet({0x05, 0xFE}, route) {}
  std::string Text() const override { return "Packet_ClearAll()"; }
};

/// Begins a demo; the name goes as 7 bytes.
class Packet_PlayInit : public Packet {
 public:
  Packet_PlayInit(const Route& route, std::uint8_t leading, std::string_view name);
  std::string Text() const override;

 private:
  std::string name_;
};

/// Shows these percentages at once.
class Packet_PlaySetChannels : public Packet {
 public:
  Packet_PlaySetChannels(const Route& route, const int (&channels)[TCBase::ChannelCount]);
  std::string Text() const override;

 private:
  std::array<int, TCBase::ChannelCount> channels_;
};

// These carry no identity and the network's checksum on every way.

/// Asks all controllers on the network for their names.
class Packet_Find : public Packet {
 public:
  static constexpr std::uint8_t Command = 0x17;  // of the answers, too
  Packet_Find();
  std::string Text() const override { return "Packet_Find()"; }
};

/// The name of the wireless network to join, in 32 bytes, and how it is protected.
class Packet_SetWiFi_SSID : public Packet {
 public:
  Packet_SetWiFi_SSID(std::string_view ssid, int security, int encryption);
  std::string Text() const override;

 private:
  std::string ssid_;
  int security_, encryption_;
};

/// The password of the wireless network; what is longer than 42 bytes does not get through.
class Packet_SetWiFi_Password : public Packet {
 public:
  explicit Packet_SetWiFi_Password(std::string_view password);
  std::string Text() const override;

 private:
  std::string password_;
};

/// The name of an open wireless network to join; what is longer than 42 bytes does not get through.
class Packet_SetWiFi_Open : public Packet {
 public:
  explicit Packet_SetWiFi_Open(std::string_view ssid);
  std::string Text() const override;

 private:
  std::string ssid_;
};

}  // namespace TC421
