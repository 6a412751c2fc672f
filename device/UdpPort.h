// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "device/DeviceBase.h"

namespace TCBase {

/// The UDP port of the controllers, and the one of this computer from which they are spoken to.
inline constexpr std::uint16_t ControllerPort = 5000;

/// This computer's port 5000 for talking to controllers; one at a time may have it. Datagrams and the
/// system's errors go into the communication trace.
class UdpPort {
 public:
  explicit UdpPort(const DeviceContext& context) : context_(context) {}

  bool Open();
  /// Why it could not be opened.
  const OpenFailure& OpenFault() const { return openFault_; }
  bool SendTo(const platform::SocketAddress& to, std::string_view datagram);
  /// Takes the next datagram that waits, of any length and from anyone; false when none does.
  bool ReceiveFrom(std::string& datagram, platform::SocketAddress& sender);
  /// Writes a datagram that was received into the trace.
  void TraceReceived(const platform::SocketAddress& sender, std::string_view datagram);
  /// The system's words for the last failure.
  std::string LastErrorText() const { return socket_->LastError().text; }

 private:
  bool Failed(std::string_view call);

  DeviceContext context_;
  std::unique_ptr<platform::UdpSocket> socket_;
  OpenFailure openFault_;
};

}  // namespace TCBase
