// SPDX-License-Identifier: MIT
#include "worker/WiFiJob.h"

#include <gtest/gtest.h>

#include "tests/support/DeviceTest.h"

using test::Texts;
using Stage = TCBase::DeviceOutcome::Stage;

namespace {

class WiFiJob : public test::DeviceTest {
 protected:
  WiFiJob() {
    network.onSend = [this](const test::FakeNetwork::Datagram& sent) {
      kinds += sent.bytes[6];
      if (sent.bytes[6] != ignored) network.Deliver("10.0.0.7", std::string(64, '\0'));
    };
  }

  TCBase::DeviceOutcome SetUp(std::int32_t security) {
    kinds.clear();
    const TCBase::DeviceInfo info = TCBase::NetworkDevice("Reef", platform::ParseIPv4("10.0.0.7").value());
    return TCBase::SetupWiFi(info, {"net", "secret", 5, security}, context);
  }

  char ignored = 0;   // what is not answered
  std::string kinds;  // what was sent: name 1, password 2, open network 3
};

}  // namespace

TEST_F(WiFiJob, SendsWhatTheNetworksSecurityNeeds) {
  for (const auto& [security, sent] : {std::pair{0, "\x03"}, {1, "\x01\x02"}, {2, "\x01\x02"}, {3, ""}}) {
    EXPECT_TRUE(SetUp(security).IsDone()) << security;
    EXPECT_EQ(kinds, sent) << security;
    EXPECT_EQ(log.Texts(), Texts{"Setting up WiFi"});
  }
}

TEST_F(WiFiJob, EndsAtTheFirstPacketThatIsNotTaken) {
  for (const auto& [security, sent, line, lost] :
       {std::tuple{0, "\3\3\3", "Error setting open WiFi", "network's name"},
        {1, "\1\1\1", "Error setting WiFi SSID", "network's name"},
        {2, "\1\2\2\2", "Error setting WiFi password", "password"}}) {
    ignored = std::string(sent).back();
    EXPECT_EQ(SetUp(security).stage, Stage::Failed);
    EXPECT_EQ(kinds, sent);
    EXPECT_EQ(log.Texts(),
              (Texts{"Setting up WiFi", line,
                     std::string("Reef: Failed: the ") + lost + " did not get through: no answer"}));
  }
  network.isPortTaken = true;
  EXPECT_EQ(SetUp(0).denial, TCBase::Denial::InUse);
  EXPECT_EQ(log.Texts(), (Texts{"Connect error",
                                "Reef: Not connected: UDP port 5000 of this computer is in use "
                                "by another program"}));
}

TEST(WiFiSettings, AreRefusedWhenTheyWouldNotArriveWhole) {
  using Fault = TCBase::WiFiFault;
  const auto fault = [](std::size_t name, std::size_t password, std::int32_t security) {
    return TCBase::FaultOf({std::string(name, '\xC3'), std::string(password, 'p'), 0, security});
  };
  EXPECT_EQ(fault(42, 0, 0), Fault::None);
  EXPECT_EQ(fault(43, 0, 0), Fault::NameTooLong);
  EXPECT_EQ(fault(0, 0, 0), Fault::NoName);
  EXPECT_EQ(fault(32, 42, 1), Fault::None);
  EXPECT_EQ(fault(33, 42, 2), Fault::NameTooLong);
  EXPECT_EQ(fault(32, 43, 1), Fault::PasswordTooLong);
  EXPECT_EQ(fault(32, 0, 2), Fault::NoPassword);
}
