// SPDX-License-Identifier: MIT
#include "worker/NetworkScan.h"

#include <algorithm>

#include "device/TC421/Devices.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/support/FakeHid.h"
#include "tests/support/FakeNetwork.h"
#include "tests/support/TestLog.h"

/// The input is what strangers send: datagrams, each after a byte with its length over 8 and a byte that says
/// who sends it. Neither the search nor a device may take longer for it than for silence.
void Feed(std::string_view input) {
  const test::FakeHid emptyBus;
  test::VirtualClock clock;
  test::TestLog log;
  log.SetTracing(true);
  test::FakeNetwork network(clock);
  while (input.size() >= 2) {
    const std::size_t length = static_cast<unsigned char>(input[0]) * std::size_t{8};
    const std::string from = "10.0.0." + std::to_string(static_cast<unsigned char>(input[1]));
    network.Deliver(from, std::string(input.substr(2, length)), static_cast<unsigned char>(input[1]) * 10);
    input.remove_prefix(std::min(input.size(), 2 + length));
  }
  const TCBase::DeviceContext context{clock, log, network};
  std::vector<TCBase::DeviceInfo> found;
  const std::int64_t start = clock.Milliseconds();
  TCBase::ScanNetwork(found, 1.0F, context);
  Expect(clock.Milliseconds() - start <= 3000, "a search ends after three attempts");
  for (TCBase::DeviceInfo& device : found) TCBase::NameAfterHost(device, context);

  TC421::UDPDevice device(context, TCBase::NetworkDevice("Reef", platform::ParseIPv4("10.0.0.7").value()));
  Expect(device.Open(), "the search has given the port back");
  const std::int64_t asked = clock.Milliseconds();
  device.ClearAll();
  Expect(clock.Milliseconds() - asked <= 16100,
         "a packet ends after ten seconds of strangers and three attempts");
}
