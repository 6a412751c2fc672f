// SPDX-License-Identifier: MIT
#include "device/UDPDevice.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "device/TC421/Devices.h"
#include "tests/support/DeviceTest.h"

using test::Texts;

namespace {

constexpr const char* Controller = "192.168.1.20";

class UDPDevice : public test::DeviceTest {
 protected:
  /// From each datagram on, what the controller answers.
  void Answer(std::function<void()> deliver) {
    network.onSend = [deliver](const test::FakeNetwork::Datagram&) { deliver(); };
  }

  TC421::UDPDevice device{context, TCBase::NetworkDevice("Reef", platform::ParseIPv4(Controller).value())};
  const std::string reply = std::string(64, '\0');
};

}  // namespace

TEST_F(UDPDevice, SendsToPort5000AndTracesBothWays) {
  log.SetTracing(true);
  Answer([this] { network.Deliver(Controller, reply, 30, 1234); });
  ASSERT_TRUE(device.Open());
  const std::int64_t start = clock.Milliseconds();
  EXPECT_TRUE(device.ClearAll());
  EXPECT_EQ(clock.Milliseconds() - start, 40) << "looked for every 20 ms";
  ASSERT_EQ(network.sent.size(), 1u);
  EXPECT_EQ(platform::AddressAndPortText(network.sent[0].peer), "192.168.1.20:5000");
  EXPECT_EQ(network.sent[0].bytes.substr(49, 12), std::string("Reef") + std::string(8, '\0'));
  const Texts texts = log.Texts();
  ASSERT_EQ(texts.size(), 6u);
  EXPECT_EQ(texts[1], "9:05:07:042 WritePacket: Packet_ClearAll()");
  EXPECT_EQ(texts[2], "9:05:07:042 sendto_core 192.168.1.20:5000");
  EXPECT_EQ(texts[3].substr(0, 18), "0000  55 AA 05 FE ");
  EXPECT_EQ(texts[4], "9:05:07:042 recvfrom 192.168.1.20:1234");
}

TEST_F(UDPDevice, AsksASilentControllerThreeTimesInSixSeconds) {
  ASSERT_TRUE(device.Open());
  const std::int64_t start = clock.Milliseconds();
  EXPECT_FALSE(device.ClearAll());
  EXPECT_EQ(network.sent.size(), 3u);
  EXPECT_EQ(clock.Milliseconds() - start, 6000);
}

TEST_F(UDPDevice, TakesNoLateAnswerForTheNextPackets) {
  Answer([this] {
    if (network.sent.size() == 1) network.Deliver(Controller, reply, 2100);
    if (network.sent.size() == 2) network.Deliver(Controller, reply);
  });
  ASSERT_TRUE(device.Open());
  EXPECT_TRUE(device.ClearAll()) << "by the answer to the second sending";
  EXPECT_EQ(device.FailedTransactions(), 0);
  EXPECT_EQ(network.sent.at(0).bytes, network.sent.at(1).bytes);
  EXPECT_FALSE(device.ClearAll()) << "it was lost, three times";
}

TEST_F(UDPDevice, WaitsForSecondAnswersOnceOneWasSeen) {
  const auto timeToSend = [this] {
    const std::int64_t start = clock.Milliseconds();
    EXPECT_TRUE(device.ClearAll());
    return clock.Milliseconds() - start;
  };
  Answer([this] { network.Deliver(Controller, reply); });
  ASSERT_TRUE(device.Open());
  timeToSend();
  network.Deliver("192.168.1.21", reply);
  EXPECT_LT(timeToSend(), 100) << "a stranger's is none";
  network.Deliver(Controller, reply, 300);
  clock.Advance(400);
  EXPECT_GT(timeToSend(), 400);
}

TEST_F(UDPDevice, WaitsForLateAnswersBeforeTheNextJob) {
  Answer([this] { network.Deliver(Controller, reply, network.sent.size() == 1 ? 2100 : 50); });
  const std::int64_t start = clock.Milliseconds();
  {
    TC421::UDPDevice other(context, TCBase::NetworkDevice("Reef", platform::ParseIPv4(Controller).value()));
    ASSERT_TRUE(other.Open());
    EXPECT_TRUE(other.ClearAll());
  }
  EXPECT_GT(clock.Milliseconds() - start, 2100);
}

TEST_F(UDPDevice, PassesOverStrangersAndOtherSizes) {
  log.SetTracing(true);
  Answer([this] {
    network.Deliver("192.168.1.21", reply);
    for (const std::size_t size : {0u, 63u, 65u, 65507u}) network.Deliver(Controller, std::string(size, 'x'));
    if (network.sent.size() == 3) network.Deliver(Controller, reply, 1970);
  });
  ASSERT_TRUE(device.Open());
  EXPECT_TRUE(device.ClearAll());
  const Texts texts = log.Texts();
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "9:05:07:042 Received invalid packet size"), 12);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "9:05:07:042 recvfrom 192.168.1.21:5000"), 3);
}

TEST_F(UDPDevice, GivesUpAtOnceWhenSendingFails) {
  log.SetTracing(true);
  network.failingCall = "sendto";
  ASSERT_TRUE(device.Open());
  EXPECT_FALSE(device.ClearAll());
  EXPECT_EQ(log.Texts().back(), "9:05:07:042 sendto error: no luck");
  EXPECT_EQ(device.FailedTransactions(), 1);
}

TEST_F(UDPDevice, SaysWhyItCannotBeOpened) {
  log.SetTracing(true);
  for (const std::string call : {"setsockopt", "ioctlsocket", "bind"}) {
    network.failingCall = call;
    EXPECT_FALSE(device.Open());
    EXPECT_EQ(log.Texts(), Texts{"9:05:07:042 " + call + " error: no luck"});
    EXPECT_EQ(device.OpenFault().text.In(qor::InEnglish), call + " error: no luck");
    EXPECT_EQ(device.OpenFault().denial, TCBase::Denial::None);
  }
  network.failure = platform::ErrorKind::AccessDenied;
  EXPECT_FALSE(device.Open());
  EXPECT_EQ(log.Texts().size(), 1u);
  EXPECT_EQ(device.OpenFault().text.In(qor::InEnglish),
            "no permission to use UDP port 5000 of this computer: bind error: no luck");
  EXPECT_EQ(device.OpenFault().denial, TCBase::Denial::NoPermission);
  network.failingCall.clear();
  TC421::UDPDevice other(context, {});
  ASSERT_TRUE(other.Open());
  EXPECT_FALSE(device.Open()) << "one at a time";
  EXPECT_EQ(log.Texts(), Texts{"9:05:07:042 bind error: Address already in use"});
  EXPECT_EQ(device.OpenFault().text.In(qor::InEnglish),
            "UDP port 5000 of this computer is in use by another program");
  EXPECT_EQ(device.OpenFault().denial, TCBase::Denial::InUse);
}
