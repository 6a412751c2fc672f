// SPDX-License-Identifier: MIT
#include "tests/support/FakeNetwork.h"

namespace test {

class FakeNetwork::Socket : public platform::UdpSocket {
 public:
  explicit Socket(FakeNetwork& network) : network_(network) {}
  ~Socket() override {
    if (isBound_) network_.isPortTaken = false;
  }

  bool Open() override { return true; }
  bool AllowBroadcast() override { return Succeeds("setsockopt"); }
  bool MakeNonBlocking() override { return Succeeds("ioctlsocket"); }

  bool Bind(std::uint16_t) override {
    error_ = {98, platform::ErrorKind::AddressInUse, "Address already in use"};
    if (network_.isPortTaken || !Succeeds("bind")) return false;
    network_.isPortTaken = isBound_ = true;
    return true;
  }

  bool SendTo(const platform::SocketAddress& to, std::string_view datagram) override {
    if (!Succeeds("sendto")) return false;
    network_.sent.push_back({to, std::string(datagram)});
    if (network_.onSend) network_.onSend(network_.sent.back());
    return true;
  }

  bool ReceiveFrom(std::string& datagram, platform::SocketAddress& sender) override {
    const auto next = network_.waiting_.begin();
    if (next == network_.waiting_.end() || next->first > network_.clock_.Milliseconds()) return false;
    datagram = next->second.bytes;
    sender = next->second.peer;
    network_.waiting_.erase(next);
    return true;
  }

  platform::SystemError LastError() const override { return error_; }

 private:
  bool Succeeds(const std::string& call) {
    if (network_.failingCall != call) return true;
    error_ = {5, network_.failure, "no luck"};
    return false;
  }

  FakeNetwork& network_;
  platform::SystemError error_;
  bool isBound_ = false;
};

void FakeNetwork::Deliver(const std::string& from, std::string bytes, std::int64_t afterMilliseconds,
                          std::uint16_t port) {
  const platform::SocketAddress address = platform::ParseIPv4(from).value();
  waiting_.emplace(clock_.Milliseconds() + afterMilliseconds,
                   Datagram{platform::IPv4Address(address.address, port), std::move(bytes)});
}

std::unique_ptr<platform::UdpSocket> FakeNetwork::NewUdpSocket() {
  return std::make_unique<Socket>(*this);
}

std::string FakeNetwork::HostNameOf(const platform::SocketAddress& address, std::uint32_t) {
  return hostNames[platform::AddressText(address)];
}

}  // namespace test
