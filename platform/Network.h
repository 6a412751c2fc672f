// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/SocketAddress.h"
#include "platform/SystemError.h"

namespace platform {

/// A socket for datagrams of UDP (RFC 768) over IPv4; closed by its destructor. What fails returns false,
/// with the system's reason in LastError.
class UdpSocket {
 public:
  virtual ~UdpSocket() = default;
  virtual bool Open() = 0;
  virtual bool AllowBroadcast() = 0;
  virtual bool MakeNonBlocking() = 0;
  /// Takes the port on all of the computer's addresses, without sharing it (no address reuse).
  virtual bool Bind(std::uint16_t port) = 0;
  virtual bool SendTo(const SocketAddress& to, std::string_view datagram) = 0;
  /// Takes the next datagram that waits, whole; false when none does.
  virtual bool ReceiveFrom(std::string& datagram, SocketAddress& sender) = 0;
  virtual SystemError LastError() const = 0;
};

/// The network as the program sees it.
class Network {
 public:
  virtual ~Network() = default;
  /// A socket that is not open yet.
  virtual std::unique_ptr<UdpSocket> NewUdpSocket() = 0;
  /// Whether the address is one of this computer's own. Nothing is sent.
  virtual bool IsOwn(const SocketAddress& address) = 0;
  /// The name of the host at the address, in UTF-8: what the system knows it by, which may be the address
  /// itself in dotted form. Empty when there is none, or no answer within that time.
  virtual std::string HostNameOf(const SocketAddress& address, std::uint32_t milliseconds) = 0;
};

/// The computer's own network.
Network& SystemNetwork();

}  // namespace platform
