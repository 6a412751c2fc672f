// SPDX-License-Identifier: MIT
#include "platform/Network.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cerrno>

#include "platform/HostName.h"

namespace platform {
namespace {

constexpr std::size_t LargestDatagram = 65536;

class Socket : public UdpSocket {
 public:
  ~Socket() override {
    if (descriptor_ >= 0) close(descriptor_);
  }

  bool Open() override {
    descriptor_ = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    return Noted(descriptor_ >= 0);
  }

  bool AllowBroadcast() override {
    const int on = 1;
    return Noted(setsockopt(descriptor_, SOL_SOCKET, SO_BROADCAST, &on, sizeof on) == 0);
  }

  bool MakeNonBlocking() override {
    const int flags = fcntl(descriptor_, F_GETFL);
    return Noted(flags >= 0 && fcntl(descriptor_, F_SETFL, flags | O_NONBLOCK) == 0);
  }

  bool Bind(std::uint16_t port) override {
    const auto any = std::bit_cast<sockaddr>(IPv4Address({}, port));
    return Noted(bind(descriptor_, &any, sizeof any) == 0);
  }

  bool SendTo(const SocketAddress& to, std::string_view datagram) override {
    const auto address = std::bit_cast<sockaddr>(to);
    ssize_t sent = -1;
    do {
      sent = sendto(descriptor_, datagram.data(), datagram.size(), 0, &address, sizeof address);
    } while (sent < 0 && errno == EINTR);
    return Noted(sent >= 0);
  }

  bool ReceiveFrom(std::string& datagram, SocketAddress& sender) override {
    std::array<char, LargestDatagram> buffer;
    sockaddr address{};
    socklen_t length = sizeof address;
    const ssize_t count = recvfrom(descriptor_, buffer.data(), buffer.size(), 0, &address, &length);
    if (!Noted(count >= 0)) return false;
    datagram.assign(buffer.data(), static_cast<std::size_t>(count));
    sender = std::bit_cast<SocketAddress>(address);
    return true;
  }

  SystemError LastError() const override { return ErrorOf(static_cast<std::uint32_t>(lastError_)); }

 private:
  bool Noted(bool succeeded) {
    if (!succeeded) lastError_ = errno;
    return succeeded;
  }

  int descriptor_ = -1;
  int lastError_ = 0;
};

/// The computer sends to the address from this very address then; connecting a datagram socket only finds the
/// way.
bool IsOwnAddress(const SocketAddress& of) {
  const int way = socket(AF_INET, SOCK_DGRAM, 0);
  if (way < 0) return false;
  const auto to = std::bit_cast<sockaddr>(IPv4Address(of.address, 9));  // any port (RFC 863)
  sockaddr from{};
  socklen_t length = sizeof from;
  const bool isKnown = connect(way, &to, sizeof to) == 0 && getsockname(way, &from, &length) == 0;
  close(way);
  return isKnown && std::bit_cast<SocketAddress>(from).address == of.address;
}

std::string LookUp(const SocketAddress& of) {
  const auto address = std::bit_cast<sockaddr>(of);
  std::array<char, NI_MAXHOST> host{};
  std::array<char, NI_MAXSERV> service{};
  const int failed =
      getnameinfo(&address, sizeof address, host.data(), host.size(), service.data(), service.size(), 0);
  return failed == 0 ? host.data() : "";
}

class SystemSockets : public Network {
 public:
  std::unique_ptr<UdpSocket> NewUdpSocket() override { return std::make_unique<Socket>(); }
  bool IsOwn(const SocketAddress& address) override { return IsOwnAddress(address); }
  std::string HostNameOf(const SocketAddress& address, std::uint32_t milliseconds) override {
    return LookUpWithin(milliseconds, [address] { return LookUp(address); });
  }
};

}  // namespace

std::optional<SocketAddress> ParseIPv4(std::string_view text) {
  std::array<std::uint8_t, 4> address{};
  if (inet_pton(AF_INET, std::string(text).c_str(), address.data()) != 1) return std::nullopt;
  return IPv4Address(address, 0);
}

std::string AddressText(const SocketAddress& address) {
  std::array<char, INET_ADDRSTRLEN> text{};
  inet_ntop(AF_INET, address.address.data(), text.data(), text.size());
  return text.data();
}

Network& SystemNetwork() {
  static SystemSockets network;
  return network;
}

}  // namespace platform
