// SPDX-License-Identifier: MIT
#include "device/USBDevice.h"

#include <gtest/gtest.h>

#include "device/TC420/Device.h"
#include "device/TC420/Packets.h"
#include "tests/support/DeviceTest.h"

using test::Texts;

namespace {

class USBDevice : public test::DeviceTest {
 protected:
  USBDevice() { hid.plugged = TCBase::TC420UsbId; }

  bool SendStop() { return device.Transact(TC420::Packet_ModeStop(), -1); }

  TC420::Device device{context};
};

}  // namespace

TEST_F(USBDevice, OpensOnlyItsModelAndClosesIt) {
  {
    TC420::Device other{context};
    EXPECT_TRUE(other.Open());
    EXPECT_EQ(hid.OpenHandles(), 1);
  }
  EXPECT_EQ(hid.OpenHandles(), 0);
  hid.plugged = TCBase::TC421UsbId;
  EXPECT_FALSE(device.Open());
  EXPECT_EQ(device.OpenFault().text.In(qor::InEnglish), "no TC420 is plugged in");
  EXPECT_EQ(log.Texts(), Texts{});
  hid.isDenied = true;
  EXPECT_FALSE(device.Open());
  EXPECT_EQ(device.OpenFault().text.english, TR("no permission to open it"));
  EXPECT_EQ(device.OpenFault().denial, TCBase::Denial::NoPermission);
}

TEST_F(USBDevice, SendsReportsOf65BytesAndTracesThem) {
  hid.answer = [](const std::string&) { return std::vector<std::string>{"OK"}; };
  log.SetTracing(true);
  ASSERT_TRUE(device.Open());
  EXPECT_TRUE(SendStop());
  ASSERT_EQ(hid.Reports().size(), 1u);
  EXPECT_EQ(hid.Reports()[0].size(), 65u);
  EXPECT_EQ(hid.Reports()[0].substr(0, 4), std::string("\0\x55\xAA\x02", 4));
  const Texts texts = log.Texts();
  ASSERT_EQ(texts.size(), 5u);
  EXPECT_EQ(texts[0], "9:05:07:042 WritePacket: Packet_ModeStop()");
  EXPECT_EQ(texts[1], "9:05:07:042 hid_write:");
  EXPECT_EQ(texts[2].substr(0, 70), "0000  55 AA 02 00 00 00 00 00  00 00 00 00 00 00 00 00    U....... ...");
  EXPECT_EQ(texts[3], "9:05:07:042 hid_read:");
  EXPECT_EQ(texts[4].substr(0, 12), "0000  4F 4B ");
}

TEST_F(USBDevice, RefusesImagesOfAnotherLength) {
  ASSERT_TRUE(device.Open());
  EXPECT_FALSE(device.Write(std::string(63, 'x')));
  EXPECT_FALSE(device.Write(std::string(65, 'x')));
  EXPECT_TRUE(hid.Reports().empty());
}

TEST_F(USBDevice, JoinsAReplyOfSeveralReports) {
  hid.answer = [](const std::string&) {
    return std::vector<std::string>{std::string(64, 'a'), std::string(64, 'b')};
  };
  ASSERT_TRUE(device.Open());
  ASSERT_TRUE(device.Write(std::string(64, 'x')));
  std::string reply = "before";
  EXPECT_TRUE(device.Read(reply));
  EXPECT_EQ(reply, std::string(64, 'a') + std::string(64, 'b'));
}

TEST_F(USBDevice, WaitsForASilentControllerAndAcceptsItsSilence) {
  ASSERT_TRUE(device.Open());
  const std::int64_t start = clock.Milliseconds();
  EXPECT_TRUE(SendStop());
  EXPECT_EQ(clock.Milliseconds() - start, 800);
  EXPECT_EQ(device.FailedTransactions(), 0);
}

TEST_F(USBDevice, ReportsFailuresOfTheBus) {
  ASSERT_TRUE(device.Open());
  log.SetTracing(true);
  hid.writeResult = 64;
  EXPECT_FALSE(SendStop()) << "a short write";
  EXPECT_EQ(log.Texts().size(), 3u) << "without an error line";
  hid.writeResult = -1;
  EXPECT_FALSE(SendStop());
  EXPECT_EQ(log.Texts().back(), "9:05:07:042 hid_write error: Ger\xC3\xA4t weg");
  hid.isErrorless = true;
  EXPECT_FALSE(SendStop());
  EXPECT_EQ(log.Texts().back(), "9:05:07:042 hid_write error: Success");
  EXPECT_EQ(device.FailedTransactions(), 3);
}

TEST_F(USBDevice, FailsAReplyThatBreaksOff) {
  int reads = 0;
  hid.answer = [](const std::string&) { return std::vector<std::string>{"first"}; };
  hid.readResult = [&reads] { return ++reads == 3 ? -1 : 0; };
  log.SetTracing(true);
  ASSERT_TRUE(device.Open());
  EXPECT_FALSE(SendStop());
  EXPECT_EQ(log.Texts().back(), "9:05:07:042 hid_read error: Ger\xC3\xA4t weg");
}
