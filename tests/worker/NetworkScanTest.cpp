// SPDX-License-Identifier: MIT
#include "worker/NetworkScan.h"

#include <gtest/gtest.h>

#include "tests/support/DeviceTest.h"

using test::Texts;
using namespace std::string_literals;

namespace {

std::string Answer(const std::string& name) {
  std::string answer = "\x55\xAA\x17\0"s + name;
  answer.resize(64);
  return answer;
}

class NetworkScan : public test::DeviceTest {
 protected:
  /// What a search gives, as "name@address" each.
  Texts Scan() {
    std::vector<TCBase::DeviceInfo> found;
    failure = TCBase::ScanNetwork(found, 1.0F, context);
    Texts texts;
    for (const TCBase::DeviceInfo& device : found) {
      EXPECT_EQ(device.kind, TCBase::DeviceKind::TC421Network);
      EXPECT_FALSE(device.selected);
      texts.push_back(device.name + "@" + platform::AddressText(device.address));
    }
    return texts;
  }

  std::optional<TCBase::OpenFailure> failure;
};

}  // namespace

TEST_F(NetworkScan, FindsWhoAnswersWithinASecond) {
  network.onSend = [this](const test::FakeNetwork::Datagram& sent) {
    EXPECT_EQ(platform::AddressAndPortText(sent.peer), "255.255.255.255:5000");
    network.Deliver("10.0.0.1", sent.bytes);  // the question itself, come back
    network.Deliver("10.0.0.7", Answer("10.0.0.7"), 50);
    network.Deliver("10.0.0.8", Answer(std::string(60, 'n')) + "more", 300);
    network.Deliver("10.0.0.9", Answer("10.0.0.9"), 1100);
    network.Deliver("10.0.0.9", Answer("short").substr(0, 63));
    network.Deliver("10.0.0.9", std::string(64, 'x'));
  };
  const std::int64_t start = clock.Milliseconds();
  EXPECT_EQ(Scan(), (Texts{"10.0.0.7@10.0.0.7", std::string(60, 'n') + "@10.0.0.8"}));
  EXPECT_EQ(network.sent.size(), 1u);
  EXPECT_EQ(clock.Milliseconds() - start, 1000);
  EXPECT_FALSE(failure || network.isPortTaken);
}

TEST_F(NetworkScan, AsksThreeTimesWhenNobodyAnswers) {
  const std::int64_t start = clock.Milliseconds();
  EXPECT_EQ(Scan(), Texts{});
  EXPECT_EQ(network.sent.size(), 3u);
  EXPECT_EQ(clock.Milliseconds() - start, 3000);
}

TEST_F(NetworkScan, EndsWhereTheNetworkFails) {
  network.failingCall = "sendto";
  EXPECT_EQ(Scan(), Texts{});
  ASSERT_TRUE(failure);
  EXPECT_NE(failure->text.In(qor::InEnglish).find("no luck"), std::string::npos);
  EXPECT_TRUE(network.sent.empty());
  network.failingCall.clear();
  network.isPortTaken = true;
  Scan();
  EXPECT_TRUE(failure && failure->denial == TCBase::Denial::InUse);
}

TEST_F(NetworkScan, ListsByNameThenAddress) {
  std::vector<TCBase::DeviceInfo> found;
  for (const auto& [name, address] :
       {std::pair{"reef", "10.0.0.9"}, {"lagoon", "10.0.0.8"}, {"reef", "10.0.0.7"}}) {
    found.push_back(TCBase::NetworkDevice(name, *platform::ParseIPv4(address)));
  }
  TCBase::SortByName(found);
  EXPECT_EQ(found[0].name, "lagoon");
  EXPECT_EQ(platform::AddressText(found[1].address), "10.0.0.7");
}

TEST_F(NetworkScan, NamesDevicesAfterTheirHosts) {
  network.hostNames["10.0.0.7"] = "reef";
  for (const auto& [text, name] : {std::pair{"10.0.0.7", "reef"}, {"10.0.0.8", "10.0.0.8"}, {"x", "x"}}) {
    TCBase::DeviceInfo device = TCBase::NetworkDevice(text, {});
    TCBase::NameAfterHost(device, context);
    EXPECT_EQ(device.name, name);
  }
  EXPECT_EQ(log.Texts(),
            (Texts{"Trying to find hostname for 10.0.0.7...", "Found hostname reef",
                   "Trying to find hostname for 10.0.0.8...", "Hostname not found, using 10.0.0.8",
                   "Trying to find hostname for x...", "Hostname not found, using x"}));
}
