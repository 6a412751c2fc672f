// SPDX-License-Identifier: MIT
#include "platform/Network.h"

#include <gtest/gtest.h>

#include <future>

#include "platform/HostName.h"

TEST(SocketAddress, IsReadInDottedFormOnly) {
  for (const char* text : {"0.0.0.0", "192.168.1.20", "255.255.255.255", "10.0.0.7"}) {
    const auto address = platform::ParseIPv4(text);
    ASSERT_TRUE(address) << text;
    EXPECT_EQ(platform::AddressText(*address), text);
  }
  for (const char* text : {"", "1.2.3", "1.2.3.4.5", "1.2.3.256", "1.2.3.04", "1.2.3.-4", " 1.2.3.4",
                           "1.2.3.4 ", "1..2.3", "1.2.3.", "0x1.2.3.4", "reef", "1.2.3.4:5"}) {
    EXPECT_FALSE(platform::ParseIPv4(text)) << text;
  }
  EXPECT_EQ(platform::AddressAndPortText(platform::IPv4Address({192, 168, 1, 20}, 5000)),
            "192.168.1.20:5000");
}

TEST(HostName, IsNotWaitedForLongerThanAsked) {
  EXPECT_EQ(platform::LookUpWithin(60000, [] { return std::string("reef"); }), "reef");
  const auto never = std::make_shared<std::promise<void>>();
  EXPECT_EQ(platform::LookUpWithin(1,
                                   [never] {
                                     never->get_future().wait();
                                     return std::string("too late");
                                   }),
            "");
  never->set_value();
}
