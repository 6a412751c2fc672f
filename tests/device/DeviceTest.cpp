// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "device/CreateDevice.h"
#include "device/TC420/Device.h"
#include "device/TC420/Mock.h"
#include "device/TC421/Devices.h"
#include "tests/support/DeviceTest.h"

using test::Texts;

namespace {

class DeviceTest : public test::DeviceTest {
 protected:
  std::vector<TCBase::ModeSample> samples = std::vector<TCBase::ModeSample>(3);
};

using Emulator = DeviceTest;
using TC420Device = DeviceTest;

/// The command bytes of images.
std::string Commands(const std::vector<std::string>& images) {
  std::string commands;
  for (const std::string& image : images) commands += image[2];
  return commands;
}

}  // namespace

TEST(SameDevice, IsTheSameKindAtTheSameAddress) {
  const auto at = [](const char* address, std::uint16_t port) {
    return TCBase::NetworkDevice("Reef", platform::IPv4Address(platform::ParseIPv4(address)->address, port));
  };
  EXPECT_TRUE(TCBase::IsSameDevice(at("10.0.0.7", 5000), at("10.0.0.7", 1234)));
  EXPECT_FALSE(TCBase::IsSameDevice(at("10.0.0.7", 5000), at("10.0.0.8", 5000)));
  EXPECT_FALSE(
      TCBase::IsSameDevice(at("10.0.0.7", 5000), TCBase::DeviceOfKind(TCBase::DeviceKind::TC421Usb)));
}

TEST_F(Emulator, RecordsWhatATC420WouldGet) {
  TC420::Mock device(context);
  const std::int64_t start = clock.Milliseconds();
  EXPECT_TRUE(device.Open() && device.UploadStart() && device.UploadMode(0, "Reef", samples) &&
              device.UploadFinish());
  EXPECT_EQ(Commands(device.Written()), "\x12\x13\x13\x13\x01\x02");
  EXPECT_TRUE(device.TimeSync({}) && device.ClearAll() && device.DemoStart("x") &&
              device.DemoSetChannels({1, 2, 3, 4, 5}) && device.DemoFinish());
  EXPECT_EQ(Commands(device.Written()).substr(6), "\x11\x03\x15\x16\x02");
  EXPECT_EQ(clock.Milliseconds(), start);
}

TEST_F(Emulator, TracesLikeARealOneWithoutDumps) {
  log.SetTracing(true);
  TC420::Mock device(context);
  device.UploadMode(0, "", samples);
  device.DemoFinish();
  EXPECT_EQ(log.Texts(), (Texts{"9:05:07:042 UploadMode", "9:05:07:042 DemoFinish",
                                "9:05:07:042 WritePacket: Packet_ModeStop()"}));
}

TEST_F(TC420Device, RefusesModesThatItCannotHold) {
  TC420::Mock device(context);
  EXPECT_FALSE(device.UploadMode(64, "Reef", samples));
  EXPECT_FALSE(device.UploadMode(0, "", samples));
  EXPECT_FALSE(device.UploadMode(0, "Reef", {samples[0]}));
  EXPECT_TRUE(device.Written().empty());
  EXPECT_TRUE(device.UploadMode(63, "Reef", {samples[0], samples[1]}));
  EXPECT_TRUE(device.UploadMode(-1, "Reef", samples));
  EXPECT_EQ(device.Written()[4][5], '\xFF') << "a negative bank goes as its low byte";
}

TEST_F(TC420Device, GoesOnAfterALostStepButRemembersIt) {
  hid.plugged = TCBase::TC420UsbId;
  int reads = 0;
  hid.answer = [](const std::string&) { return std::vector<std::string>{"k"}; };
  hid.readResult = [&reads] {
    return ++reads == 5 ? -1 : 0;
  };  // three reads a packet: the second packet's reply
  TC420::Device device(context);
  ASSERT_TRUE(device.Open());
  EXPECT_TRUE(device.UploadMode(0, "Reef", samples));
  EXPECT_EQ(hid.Frames().size(), 5u);
  EXPECT_EQ(device.FailedTransactions(), 1);
}
