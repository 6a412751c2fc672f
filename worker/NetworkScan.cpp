// SPDX-License-Identifier: MIT
#include "worker/NetworkScan.h"

#include <algorithm>
#include <utility>

#include "device/TC421/Packets.h"
#include "device/TC421/Reply.h"
#include "device/UdpPort.h"
#include "worker/Stopwatch.h"

namespace TCBase {
namespace {

constexpr int Attempts = 3;
constexpr std::uint32_t PollMilliseconds = 100;
constexpr std::uint32_t HostNameMilliseconds = 1000;
const platform::SocketAddress Everybody = platform::IPv4Address({255, 255, 255, 255}, ControllerPort);

/// Takes one datagram, if one waits; a controller's answer goes to the list. `question` is what was sent and
/// comes back from the network as well.
void ReceiveAnswer(UdpPort& port, const std::string& question, std::vector<DeviceInfo>& found) {
  std::string datagram;
  platform::SocketAddress sender;
  if (!port.ReceiveFrom(datagram, sender)) return;
  port.TraceReceived(sender, datagram);
  if (datagram == question) return;
  if (const auto name = TC421::ReadFindAnswer(datagram)) {
    found.push_back(NetworkDevice(std::string(*name), sender));
    found.back().answer = *name;
  }
}

}  // namespace

std::optional<OpenFailure> ScanNetwork(std::vector<DeviceInfo>& found, float timeoutSeconds,
                                       const DeviceContext& context) {
  UdpPort port(context);
  while (!port.Open()) {
    if (!WaitsFor(port.OpenFault(), context)) return port.OpenFault();
  }
  found.clear();
  std::string question;
  TC421::Packet_Find().Serialize(question);
  for (int attempt = 0; attempt < Attempts && found.empty(); ++attempt) {
    if (!port.SendTo(Everybody, question)) return OpenFailure{qor::Verbatim(port.LastErrorText())};
    const Stopwatch listening(context.clock);
    while (listening.Elapsed() < static_cast<double>(timeoutSeconds)) {
      ReceiveAnswer(port, question, found);
      context.clock.Sleep(PollMilliseconds);
    }
  }
  return std::nullopt;
}

void SortByName(std::vector<DeviceInfo>& devices) {
  std::ranges::stable_sort(
      devices, {}, [](const DeviceInfo& device) { return std::pair(device.name, device.address.address); });
}

void NameAfterHost(DeviceInfo& device, const DeviceContext& context) {
  const std::string text = device.name;
  context.log.Message(TR("Trying to find hostname for {1}..."), {text});
  std::string host;
  if (const auto address = platform::ParseIPv4(text)) {
    host = context.network.HostNameOf(*address, HostNameMilliseconds);
  }
  if (host.empty()) {
    context.log.Message(TR("Hostname not found, using {1}"), {text});
  } else {
    context.log.Message(TR("Found hostname {1}"), {host});
    device.name = host;
  }
}

}  // namespace TCBase
