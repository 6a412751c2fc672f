// SPDX-License-Identifier: MIT
#include "device/UdpPort.h"

namespace TCBase {
namespace {

std::string ErrorLine(std::string_view call, const platform::SystemError& error) {
  return qor::Format("{1} error: {2}", {call, error.text});
}

}  // namespace

bool UdpPort::Open() {
  socket_ = context_.network.NewUdpSocket();
  socket_->Open();  // without a socket the next call fails
  if (!socket_->AllowBroadcast()) return Failed("setsockopt");
  if (!socket_->MakeNonBlocking()) return Failed("ioctlsocket");
  if (!socket_->Bind(ControllerPort)) return Failed("bind");
  return true;
}

bool UdpPort::Failed(std::string_view call) {
  const platform::SystemError error = socket_->LastError();
  const std::string line = ErrorLine(call, error);
  context_.log.Trace(line);
  switch (error.kind) {
    case platform::ErrorKind::AddressInUse:
      openFault_ = {{TR("UDP port {1} of this computer is in use by another program"), {ControllerPort}},
                    Denial::InUse};
      break;
    case platform::ErrorKind::AccessDenied:
      openFault_ = {
          {TR("no permission to use UDP port {1} of this computer"), {ControllerPort}, {qor::Verbatim(line)}},
          Denial::NoPermission};
      break;
    default: openFault_ = {qor::Verbatim(line)};
  }
  return false;
}

bool UdpPort::SendTo(const platform::SocketAddress& to, std::string_view datagram) {
  if (context_.log.IsTracing()) {
    context_.log.Trace("sendto_core " + platform::AddressAndPortText(to), datagram);
  }
  if (socket_->SendTo(to, datagram)) return true;
  context_.log.Trace(ErrorLine("sendto", socket_->LastError()));
  return false;
}

bool UdpPort::ReceiveFrom(std::string& datagram, platform::SocketAddress& sender) {
  return socket_->ReceiveFrom(datagram, sender);
}

void UdpPort::TraceReceived(const platform::SocketAddress& sender, std::string_view datagram) {
  if (!context_.log.IsTracing()) return;
  context_.log.Trace("recvfrom " + platform::AddressAndPortText(sender), datagram);
}

}  // namespace TCBase
