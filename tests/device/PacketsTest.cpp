// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "device/TC420/Packets.h"

using namespace std::string_literals;

namespace {

std::string ImageOf(const TCBase::PacketBase& packet) {
  std::string image;
  packet.Serialize(image);
  return image;
}

/// A frame with the given bytes from the command to the end of the payload.
std::string Frame(std::string front, std::uint8_t checksum) {
  front.insert(0, "\x55\xAA");
  front.resize(61);
  return front + static_cast<char>(checksum) + "\x0D\x0A";
}

/// A packet that appends more than it can carry.
class Overfull : public TC420::Packet {
 public:
  explicit Overfull(int bytesBefore) : Packet(Command::ClearAll) {
    for (int i = 0; i < bytesBefore; ++i) AppendByte(1);
    Append16(0x0203);
    AppendText("more", 0);
  }
};

}  // namespace

TEST(TC420Packets, HaveTheirBytes) {
  EXPECT_EQ(ImageOf(TC420::Packet_ClearAll()), Frame("\x03\0\0"s, 0x02));
  EXPECT_EQ(ImageOf(TC420::Packet_ModeStop()), Frame("\x02\0\0"s, 0x01));
  EXPECT_EQ(ImageOf(TC420::Packet_ModeStepsStop()), Frame("\x01\0\0"s, 0x00));
  EXPECT_EQ(ImageOf(TC420::Packet_TimeSync({2024, 2, 4, 29, 23, 59, 58, 999})),
            Frame("\x11\0\x07\x07\xE8\x02\x1D\x17\x3B\x3A"s, 0xB1));
  EXPECT_EQ(ImageOf(TC420::Packet_ModeInit(63, 300, "Night")), Frame("\x12\0\x0A\x3F\x2CNight\0\0\0"s, 0x80));
  EXPECT_EQ(ImageOf(TC420::Packet_ModeStep({7, 30, {0, -40, 250, 75, 100}, {1, 1, 0, 0, 1}})),
            Frame("\x13\0\x08\x07\x1E\x00\x28\x64\x4B\x64\x13"s, 0x8D));
  EXPECT_EQ(ImageOf(TC420::Packet_PlayInit("Nightfall")), Frame("\x15\0\x08Nightf\x00\xFD"s, 0x79));
  EXPECT_EQ(ImageOf(TC420::Packet_PlaySetChannels({1, 2, 3, 4, 200})),
            Frame("\x16\0\x06\x01\x02\x03\x04\x64\0"s, 0x89));
}

TEST(TC420Packets, DescribeThemselves) {
  EXPECT_EQ(TC420::Packet_TimeSync({987, 1, 0, 2, 3, 4, 5, 0}).Text(),
            "Packet_TimeSync(Year=0987, Month=01, Day=02, Hour=03, Minute=04, Second=05)");
  EXPECT_EQ(TC420::Packet_ModeInit(1, 12, "Aquarium left").Text(),
            "Packet_ModeInit(Bank=1, Length=12, Name=Aquarium)");
  EXPECT_EQ(TC420::Packet_ModeStep({7, 30, {0, 25, 50, 75, 100}, {1, 1, 0, 0, 0}}).Text(),
            "Packet_ModeStep(Hour=07, Minute=30, Steps=(0 25 50 75 100), JumpsFlags=3)");
  EXPECT_EQ(TC420::Packet_PlayInit("Nightfall").Text(), "Packet_PlayInit(Name=Nightfall)");
  EXPECT_EQ(TC420::Packet_PlaySetChannels({0, -40, 3, 4, 200}).Text(),
            "Packet_PlaySetChannels(0 40 3 4 100)");
  EXPECT_EQ(TC420::Packet_ClearAll().Text() + TC420::Packet_ModeStop().Text() +
                TC420::Packet_ModeStepsStop().Text(),
            "Packet_ClearAll()Packet_ModeStop()Packet_ModeStepsStop()");
}

TEST(Packets, DropWhatDoesNotFit) {
  EXPECT_EQ(Overfull(0).Payload(), "\x02\x03more");
  const std::string payload = Overfull(55).Payload();
  EXPECT_EQ(payload.size(), 56u);
  EXPECT_EQ(payload.back(), '\x02') << "only the high byte has room";
  EXPECT_EQ(ImageOf(Overfull(55)).size(), 64u);
  EXPECT_EQ(static_cast<unsigned char>(ImageOf(Overfull(55))[61]), (0x55 + 0xAA + 3 + 56 + 55 + 2) % 256);
}
