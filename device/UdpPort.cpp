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
  openFault_ = {qor::Verbatim(line),
                error.kind == platform::ErrorKind::AccessDenied ? Denial::NoPermission : Denial::None};
  context_.log.Trace(line);
  if (error.kind == platform::ErrorKind::AddressInUse) {
    openFault_ = {{"UDP port {1} of this computer is in use by another program", {ControllerPort}},
                  Denial::InUse};
  }
  return false;
}

bool UdpPort::SendTo(const platform::SocketAddress& to, std::string_view datagram) {
  if (context_.log.IsTracing()) {
    context_.log.Trace("sendto_core " + platform::AddressAndPortText(to));
    context_.log.TraceDump(datagram);
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
  context_.log.Trace("recvfrom " + platform::AddressAndPortText(sender));
  context_.log.TraceDump(datagram);
}

}  // namespace TCBase
