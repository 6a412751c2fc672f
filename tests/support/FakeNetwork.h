// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Network.h"
#include "tests/support/VirtualClock.h"

namespace test {

/// A network in memory, on virtual time. What is sent goes to `onSend`, which may `Deliver` answers.
class FakeNetwork : public platform::Network {
 public:
  struct Datagram {
    platform::SocketAddress peer;  // who it is for, or from
    std::string bytes;
  };

  explicit FakeNetwork(VirtualClock& clock) : clock_(clock) {}

  // Set up before the code under test runs
  std::function<void(const Datagram& sent)> onSend;
  std::map<std::string, std::string> hostNames;  // by address
  std::string failingCall;                       // "setsockopt", "ioctlsocket", "bind" or "sendto"
  platform::ErrorKind failure = platform::ErrorKind::Other;

  std::vector<Datagram> sent;
  bool isPortTaken = false;

  /// Puts a datagram into the program's queue, from port 5000 of an address unless told otherwise.
  void Deliver(const std::string& from, std::string bytes, std::int64_t afterMilliseconds = 0,
               std::uint16_t port = 5000);

  std::unique_ptr<platform::UdpSocket> NewUdpSocket() override;
  bool IsOwn(const platform::SocketAddress& address) override {
    return platform::AddressText(address) == "10.0.0.1";
  }
  std::string HostNameOf(const platform::SocketAddress& address, std::uint32_t milliseconds) override;

 private:
  class Socket;
  VirtualClock& clock_;
  std::multimap<std::int64_t, Datagram> waiting_;  // by when they arrive
};

}  // namespace test
