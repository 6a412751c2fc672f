// SPDX-License-Identifier: MIT
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

/// A frame with the given bytes from the command to the end of the payload.
std::string Frame(std::string front, std::uint8_t checksum) {
  front.insert(0, "\x55\xAA");
  front.resize(61);
  return front + static_cast<char>(checksum) + "\x0D\x0A";
}

constexpr TC421::Route Usb = {{}, true};
constexpr TC421::Route Net = {"192.168.178.20", false};

/// A frame of the TC421 over the USB with the given bytes from the command to the end of the payload.
std::string UsbFrame(std::string front, std::uint8_t checksum) {
  front.insert(0, "\x55\xAA");
  front.resize(63);
  return front + static_cast<char>(checksum);
}

/// The same over the network, where the first twelve bytes of the identity come before the checksum.
std::string NetFrame(std::string front, const std::string& identity, std::uint8_t checksum) {
  front.insert(0, "\x55\xAA");
  front.resize(49);
  front += identity;
  front.resize(61);
  return front + static_cast<char>(checksum) + "\0\0"s;
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

TEST(TC420Packets, CutAndBoundWhatTheyAreGiven) {
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
  EXPECT_EQ(TC420::Packet_PlayInit("Nightfall").Text(), "Packet_PlayInit(Name=Nightfall)");
  EXPECT_EQ(TC420::Packet_PlaySetChannels({0, -40, 3, 4, 200}).Text(),
            "Packet_PlaySetChannels(0 40 3 4 100)");
}

TEST(TC421Packets, CutAndBoundWhatTheyAreGiven) {
  using namespace TC421;
  EXPECT_EQ(ImageOf(Packet_ClearAll(Net)), NetFrame("\x05\xFE\0\0"s, "192.168.178.", 0x02));
  EXPECT_EQ(ImageOf(Packet_TimeSync(Usb, {2024, 2, 4, 29, 23, 59, 58, 999})),
            UsbFrame("\x02\0\0\x07\x07\xE8\x02\x1D\x17\x3B\x3A"s, 0xA2));
  EXPECT_EQ(ImageOf(Packet_ModeInit(Usb, 63, 300, "NightNight")),
            UsbFrame("\x01\x01\0\x0A\x3FNightNi\0\x2C"s, 0x27));
  EXPECT_EQ(ImageOf(Packet_ModeStep(Usb, 258, {7, 30, {0, -40, 250, 75, 100}, {1, 1, 0, 0, 1}})),
            UsbFrame("\x01\x02\0\x08\x02\x07\x1E\x00\x28\x64\x4B\x64"s, 0x6C));
  EXPECT_EQ(ImageOf(Packet_PlaySetChannels(Usb, {1, 2, 3, 4, 200})),
            UsbFrame("\x06\x02\0\x05\x01\x02\x03\x04\x64"s, 0x7A));
  EXPECT_EQ(ImageOf(Packet_SetWiFi_SSID("\xC3\x84!", 2, 258)),
            NetFrame("\x18\0\0\x03\x01\xC3\x84!"s + std::string(29, '\0') + "\x02\x02", "", 0x87));
}

TEST(TC421Packets, LoseTheEndOfALongPasswordToTheIdentity) {
  const std::string password = std::string(42, 'p') + "lost but its end";
  const std::string image = ImageOf(TC421::Packet_SetWiFi_Password(password));
  const std::uint8_t sum = (0x55 + 0xAA + 0x18 + 58 + 2 + 42 * 'p') % 256;
  EXPECT_EQ(image, NetFrame("\x18\0\0\x3A\x02"s + std::string(42, 'p'), "", sum));
  EXPECT_EQ(TC421::Packet_SetWiFi_Open(password).Payload().size(), 54u);
}

TEST(TC421Packets, DescribeThemselves) {
  using namespace TC421;
  EXPECT_EQ(Packet_ModeInit(Usb, 1, 12, "Aquarium left").Text(),
            "Packet_ModeInit(Bank=1, Length=12, Name=Aquarium)");
  EXPECT_EQ(Packet_ModeStep(Usb, 3, {7, 5, {0, 25, -50, 75, 101}, {1}}).Text(),
            "Packet_ModeStep(Hour=07, Minute=05, Steps=(0 25 50 75 100");
  EXPECT_EQ(Packet_TimeSync(Usb, {987, 1, 0, 2, 3, 4, 5, 0}).Text(),
            "Packet_TimeSync(Year=0987, Month=01, Day=02, Hour=03, Minute=04, Second=05)");
  EXPECT_EQ(Packet_PlaySetChannels(Usb, {0, -40, 3, 4, 200}).Text(), "Packet_PlaySetChannels(0 40 3 4 100)");
  EXPECT_EQ(Packet_SetWiFi_SSID("Reef {1}", 2, -1).Text(),
            "Packet_SetWiFi_SSID(SSID=Reef {1}, Security=2, Encryption=-1)");
}

TEST(Packets, DropWhatDoesNotFit) {
  EXPECT_EQ(Overfull(0).Payload(), "\x02\x03more");
  const std::string payload = Overfull(55).Payload();
  EXPECT_EQ(payload.size(), 56u);
  EXPECT_EQ(payload.back(), '\x02') << "only the high byte has room";
  EXPECT_EQ(ImageOf(Overfull(55)).size(), 64u);
  EXPECT_EQ(static_cast<unsigned char>(ImageOf(Overfull(55))[61]), (0x55 + 0xAA + 3 + 56 + 55 + 2) % 256);
}
