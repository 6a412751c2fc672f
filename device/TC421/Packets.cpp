// SPDX-License-Identifier: MIT
#include "device/TC421/Packets.h"

#include "device/PacketEncoding.h"

namespace TC421 {
namespace {

using TCBase::ChannelByte;
using TCBase::ChannelText;
using TCBase::LowByte;

// Offsets in the frame
constexpr std::size_t Start = 0;
constexpr std::size_t CommandCode = 2;
constexpr std::size_t SubCommandCode = 3;
constexpr std::size_t Length = 5;
constexpr std::size_t PayloadStart = 6;
constexpr std::size_t Identity = 49;  // the sum is of the bytes before it
constexpr std::size_t NetworkSum = 61;
constexpr std::size_t UsbSum = 63;

constexpr unsigned PayloadBytes = 54;
constexpr std::size_t IdentityBytes = 12;
constexpr int NameBytes = 7;
constexpr int SsidBytes = 32;
constexpr Route AnyController = {};

// What a Wi-Fi packet brings
constexpr std::uint8_t Ssid = 0x01;
constexpr std::uint8_t Password = 0x02;
constexpr std::uint8_t OpenSsid = 0x03;

}  // namespace

Packet::Packet(Code code, const Route& route, int length)
    : code_(code), length_(length), identity_(route.identity.substr(0, IdentityBytes)), isUsb_(route.isUsb) {}

unsigned Packet::Capacity() const {
  return PayloadBytes;
}

void Packet::Serialize(std::string& out) const {
  const int length = length_ == LengthOfPayload ? static_cast<int>(payload_.size()) : length_;
  out.assign(TCBase::PacketBytes, '\0');
  out[Start] = '\x55';
  out[Start + 1] = '\xAA';
  out[CommandCode] = static_cast<char>(code_.command);
  out[SubCommandCode] = static_cast<char>(code_.subCommand);
  out[Length] = static_cast<char>(LowByte(length));
  out.replace(PayloadStart, payload_.size(), payload_);
  out.replace(Identity, IdentityBytes, IdentityBytes, '\0');
  out.replace(Identity, identity_.size(), identity_);
  out[isUsb_ ? UsbSum : NetworkSum] = TCBase::Checksum(out, Identity);
}

Packet_ModeInit::Packet_ModeInit(const Route& route, int bank, std::size_t sampleCount, std::string_view name)
    : Packet({0x01, 0x01}, route),
      bank_(bank),
      sampleCount_(sampleCount),
      name_(name.substr(0, TCBase::ModeNameBytes)) {
  AppendByte(LowByte(bank));
  AppendText(name, NameBytes);
  AppendByte(0);
  AppendByte(LowByte(static_cast<std::int64_t>(sampleCount)));
}

std::string Packet_ModeInit::Text() const {
  return TCBase::ModeInitText(bank_, sampleCount_, name_);
}

Packet_ModeStep::Packet_ModeStep(const Route& route, int index, const TCBase::ModeSample& sample)
    : Packet({0x01, 0x02}, route), sample_(sample) {
  AppendByte(LowByte(index));
  AppendByte(LowByte(sample.hour));
  AppendByte(LowByte(sample.minute));
  for (const int percent : sample.values) AppendByte(ChannelByte(percent));
}

// The brackets are not closed: logs have always looked so.
std::string Packet_ModeStep::Text() const {
  return qor::Format("Packet_ModeStep({1}, Steps=({2}",
                     {TCBase::HourAndMinuteText(sample_.hour, sample_.minute), ChannelText(sample_.values)});
}

Packet_TimeSync::Packet_TimeSync(const Route& route, const platform::SYSTEMTIME& time)
    : Packet({0x02, 0x00}, route), time_(time) {
  Append16(time.wYear);
  for (const std::uint16_t field : {time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond}) {
    AppendByte(LowByte(field));
  }
}

std::string Packet_TimeSync::Text() const {
  return TCBase::TimeSyncText(time_);
}

Packet_PlayInit::Packet_PlayInit(const Route& route, std::uint8_t leading, std::string_view name)
    : Packet({0x06, 0x01}, route), name_(name) {
  AppendByte(leading);
  AppendText(name, NameBytes);
  Append16(0);
}

std::string Packet_PlayInit::Text() const {
  return qor::Format("Packet_PlayInit(Name={1})", {name_});
}

Packet_PlaySetChannels::Packet_PlaySetChannels(const Route& route,
                                               const int (&channels)[TCBase::ChannelCount])
    : Packet({0x06, 0x02}, route), channels_(std::to_array(channels)) {
  for (const int percent : channels) AppendByte(ChannelByte(percent));
}

std::string Packet_PlaySetChannels::Text() const {
  return qor::Format("Packet_PlaySetChannels({1})", {ChannelText(channels_)});
}

Packet_Find::Packet_Find() : Packet({Command, 0x00}, AnyController) {
  for (const std::uint8_t byte : std::array<std::uint8_t, 3>{0xDD, 0xEE, 0xFF}) AppendByte(byte);
}

Packet_SetWiFi_SSID::Packet_SetWiFi_SSID(std::string_view ssid, int security, int encryption)
    : Packet({0x18, 0x00}, AnyController, static_cast<int>(ssid.size())),
      ssid_(ssid),
      security_(security),
      encryption_(encryption) {
  payload_.reserve(1 + SsidBytes + 2);
  AppendByte(Ssid);
  AppendText(ssid, SsidBytes);
  AppendByte(LowByte(security));
  AppendByte(LowByte(encryption));
}

std::string Packet_SetWiFi_SSID::Text() const {
  return qor::Format("Packet_SetWiFi_SSID(SSID={1}, Security={2}, Encryption={3})",
                     {ssid_, security_, encryption_});
}

Packet_SetWiFi_Password::Packet_SetWiFi_Password(std::string_view password)
    : Packet({0x18, 0x00}, AnyController, static_cast<int>(password.size())), password_(password) {
  AppendByte(Password);
  AppendText(password, 0);
}

std::string Packet_SetWiFi_Password::Text() const {
  return qor::Format("Packet_SetWiFi_Password(Password={1})", {password_});
}

Packet_SetWiFi_Open::Packet_SetWiFi_Open(std::string_view ssid)
    : Packet({0x18, 0x00}, AnyController, static_cast<int>(ssid.size())), ssid_(ssid) {
  AppendByte(OpenSsid);
  AppendText(ssid, 0);
}

std::string Packet_SetWiFi_Open::Text() const {
  return qor::Format("Packet_SetWiFi_Open(SSID={1})", {ssid_});
}

}  // namespace TC421
