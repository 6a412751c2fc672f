// SPDX-License-Identifier: MIT
#pragma once

#include <netinet/in.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "../tc421/Frame.h"

namespace SimTC421 {

struct Datagram {
  std::vector<std::uint8_t> bytes;
  sockaddr_in peer;  // who sent it or gets it
  in_addr own;       // the local address: towards the sender, or to send from
};

std::string ToText(in_addr address);
std::string ToText(const sockaddr_in& address);  // with the port

// UDP port 5000 on every local address, so that broadcasts arrive too. SIGINT and SIGTERM are blocked from
// then on and end the waiting. Throws std::system_error.
class Port {
 public:
  Port();
  Port(const Port&) = delete;
  Port& operator=(const Port&) = delete;
  ~Port();

  enum class Event { Datagram, Timeout, End };
  // No timeout: waits for as long as it takes.
  Event Wait(std::optional<std::chrono::milliseconds> timeout) const;

  std::optional<Datagram> Receive() const;
  void Send(const Datagram& datagram) const;

 private:
  int endSignals;
  int port;
};

}  // namespace SimTC421
