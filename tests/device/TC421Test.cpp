// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "device/TC421/Devices.h"
#include "device/TC421/Reply.h"
#include "tests/support/DeviceTest.h"

using test::Texts;
using namespace std::string_literals;

namespace {

std::string ReplyWith(std::string text) {
  std::string reply = "\x55\xAA\x05\xFE"s + std::move(text);
  reply.resize(64);
  return reply;
}

class TC421Device : public test::DeviceTest {
 protected:
  TC421Device() {
    hid.plugged = TCBase::TC421UsbId;
    hid.answer = [](const std::string&) { return Texts{ReplyWith("")}; };
  }

  /// Command, sub-command and first payload byte of each frame.
  std::string Sent() {
    std::string sent;
    for (const std::string& frame : hid.Frames()) sent += frame.substr(2, 2) + frame[6];
    return sent;
  }

  std::vector<TCBase::ModeSample> samples = std::vector<TCBase::ModeSample>(3);
};

}  // namespace

TEST(TC421Reply, EndsAtAZeroByteOrWithTheFrame) {
  EXPECT_FALSE(TC421::ReadReply(std::string(63, 'x')));
  EXPECT_EQ(TC421::ReadReply(ReplyWith("ok\0no"s))->text, "ok");
  EXPECT_EQ(TC421::ReadReply(ReplyWith(std::string(60, 'n')) + "more")->text, std::string(60, 'n'));
  EXPECT_FALSE(TC421::ReadFindAnswer(ReplyWith("10.0.0.7"))) << "another command";
  EXPECT_EQ(TC421::ReadFindAnswer("??\x17?10.0.0.7"s + std::string(52, '\0')), "10.0.0.7");
}

TEST_F(TC421Device, ChecksRepliesByLengthAndVerdict) {
  TC421::USBDevice device(context);
  EXPECT_FALSE(device.CheckReply(std::string(63, '\0'), -1));
  EXPECT_TRUE(device.CheckReply(ReplyWith(""), -1) && device.CheckReply(ReplyWith(""), 0));
  EXPECT_FALSE(device.CheckReply(ReplyWith(""), 1));
  EXPECT_TRUE(device.CheckReply(ReplyWith("\x01"), 1) && device.CheckReply(ReplyWith("\xFF"), -1));
  EXPECT_FALSE(device.CheckReply(ReplyWith("\x80"), 128)) << "a signed byte";
}

TEST_F(TC421Device, UploadsAModeWithAPauseBeforeEachStep) {
  TC421::USBDevice device(context);
  ASSERT_TRUE(device.Open());
  const std::int64_t start = clock.Milliseconds();
  EXPECT_TRUE(device.UploadStart() && device.UploadMode(2, "Lagoon 12", samples) && device.UploadFinish());
  EXPECT_EQ(Sent(), "\x01\x01\x02\x01\x02\x00\x01\x02\x01\x01\x02\x02\x04\x0A\x00"s);
  EXPECT_EQ(clock.Milliseconds() - start, 4 * 20);
}

TEST_F(TC421Device, RefusesModesThatItCannotHold) {
  TC421::USBDevice device(context);
  ASSERT_TRUE(device.Open());
  EXPECT_FALSE(device.UploadMode(64, "Reef", samples) || device.UploadMode(0, "", samples) ||
               device.UploadMode(0, "Reef", {samples[0]}));
  EXPECT_EQ(Sent(), "");
}

TEST_F(TC421Device, TakesSilenceForAFailure) {
  hid.answer = nullptr;
  TC421::USBDevice device(context);
  ASSERT_TRUE(device.Open());
  EXPECT_FALSE(device.TimeSync({}) || device.ClearAll() || device.UploadMode(0, "Reef", samples));
  EXPECT_EQ(Sent(), "\x02\x00\x00\x05\xFE\x00\x01\x01\x00"s) << "no step follows a lost beginning";
  EXPECT_TRUE(device.DemoStart("Reef") && device.DemoSetChannels({1, 2, 3, 4, 5}) && device.DemoFinish());
  EXPECT_EQ(Sent().substr(9), "\x06\x01\x01\x06\x02\x01\x03\x08\x00"s);
  EXPECT_EQ(device.FailedTransactions(), 6) << "but what was lost is counted";
}

TEST_F(TC421Device, WaitsForSecondAnswersOnceOneWasSeen) {
  hid.clock = &clock;
  hid.answer = [](const std::string&) { return Texts(2, ReplyWith("")); };
  TC421::USBDevice device(context);
  ASSERT_TRUE(device.Open());
  EXPECT_TRUE(device.ClearAll());
  const std::int64_t start = clock.Milliseconds();
  hid.answer = [&](const std::string&) {
    EXPECT_GE(clock.Milliseconds() - start, 20);
    return Texts{ReplyWith("")};
  };
  EXPECT_TRUE(device.ClearAll());
}

TEST_F(TC421Device, SendsNothingWhileAnswersDoNotEnd) {
  hid.clock = &clock;
  hid.answer = [this](const std::string&) {
    for (int i = 0; i < 100; ++i) hid.Deliver(ReplyWith(""), i * 150);
    return Texts();
  };
  TC421::USBDevice device(context);
  ASSERT_TRUE(device.Open());
  EXPECT_TRUE(device.ClearAll());
  clock.Sleep(1000);
  EXPECT_FALSE(device.ClearAll());
  EXPECT_EQ(hid.Frames().size(), 1u);
  EXPECT_EQ(device.LastFailure().english, TR("answers that belong to no packet do not end"));
}
