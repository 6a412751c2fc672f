// SPDX-License-Identifier: MIT
// What WireProtocolTest's examples do not show: what packets make of values out of the usual.
#include <gtest/gtest.h>

#include "device/TC420/Packets.h"
#include "device/TC421/Packets.h"

using namespace std::string_literals;

namespace {

std::string ImageOf(const TCBase::PacketBase& packet) {
  std::string image;
  packet.Serialize(image);
  return image;
}

void ExpectPacket(const TCBase::PacketBase& packet, const std::string& text, const std::string& payload) {
  EXPECT_EQ(packet.Text(), text);
  EXPECT_EQ(packet.Payload(), payload) << text;
}

/// A packet that appends more than it can carry.
class Overfull : public TC420::Packet {
 public:
  explicit Overfull(int bytesBefore) : Packet(Command::ClearAll) {
    for (int i = 0; i < bytesBefore; ++i) AppendByte(1);
    Append16(0x0203);
    AppendText("more", 0);
  }
  std::string Text() const override { return {}; }
};

}  // namespace

TEST(Packets, CutAndBoundWhatTheyAreGiven) {
  const TC421::Route usb = {{}, true};
  const TCBase::ModeSample sample{7, 5, {0, -40, 101, 75, 100}, {1, 1, 0, 0, 1}};
  ExpectPacket(TC420::Packet_ModeInit(63, 300, "Nightfall 12"),
               "Packet_ModeInit(Bank=63, Length=300, Name=Nightfal)", "\x3F\x2CNightfal");
  ExpectPacket(TC421::Packet_ModeInit(usb, 63, 300, "Nightfall 12"),
               "Packet_ModeInit(Bank=63, Length=300, Name=Nightfal)", "\x3FNightfa\0\x2C"s);
  ExpectPacket(TC420::Packet_ModeStep(sample),
               "Packet_ModeStep(Hour=07, Minute=05, Steps=(0 40 100 75 100), JumpsFlags=19)",
               "\x07\x05\x00\x28\x64\x4B\x64\x13"s);
  ExpectPacket(TC421::Packet_ModeStep(usb, 258, sample),
               "Packet_ModeStep(Hour=07, Minute=05, Steps=(0 40 100 75 100",
               "\x02\x07\x05\x00\x28\x64\x4B\x64"s);
  ExpectPacket(TC420::Packet_PlayInit("Nightfall"), "Packet_PlayInit(Name=Nightfall)", "Nightf\x00\xFD"s);
  ExpectPacket(TC420::Packet_PlaySetChannels({0, -40, 3, 4, 200}), "Packet_PlaySetChannels(0 40 3 4 100)",
               "\x00\x28\x03\x04\x64\x00"s);
  ExpectPacket(TC421::Packet_SetWiFi_SSID("Reef {1}", 2, 258),
               "Packet_SetWiFi_SSID(SSID=Reef {1}, Security=2, Encryption=258)",
               "\x01Reef {1}"s + std::string(24, '\0') + "\x02\x02");
}

TEST(Packets, LeaveTheLastBytesToTheIdentity) {
  const TC421::Route network = {"192.168.178.20", false};
  EXPECT_EQ(ImageOf(TC421::Packet_ClearAll(network)).substr(49), "192.168.178.\x02\0\0"s);
  const std::string password = std::string(42, 'p') + "lost but its end";
  EXPECT_EQ(ImageOf(TC421::Packet_SetWiFi_Password(password)).substr(5),
            "\x3A\x02"s + std::string(42, 'p') + std::string(12, '\0') + "\xB3\0\0"s);
  EXPECT_EQ(TC421::Packet_SetWiFi_Open(password).Payload().size(), 54u);
}

TEST(Packets, DropWhatDoesNotFit) {
  EXPECT_EQ(Overfull(0).Payload(), "\x02\x03more");
  EXPECT_EQ(Overfull(55).Payload(), std::string(55, '\1') + "\x02") << "only the high byte has room";
}
