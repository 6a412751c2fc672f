// SPDX-License-Identifier: MIT
#include "platform/Network.h"

#include <winsock2.h>
// after winsock2.h
#include <mswsock.h>
#include <ws2tcpip.h>

#include <array>
#include <bit>

#include "QorLib/qor_win_str_utils.h"
#include "platform/HostName.h"

namespace platform {
namespace {

constexpr std::size_t LargestDatagram = 65536;

class Socket : public UdpSocket {
 public:
  ~Socket() override {
    if (socket_ != INVALID_SOCKET) closesocket(socket_);
  }

  bool Open() override {
    socket_ = socket(AF_INET, SOCK_DGRAM, 0);
    if (!Noted(socket_ != INVALID_SOCKET)) return false;
    // Else "port unreachable" from one controller would fail the next receive from another.
    BOOL report = FALSE;
    DWORD ignored = 0;
    WSAIoctl(socket_, SIO_UDP_CONNRESET, &report, sizeof report, nullptr, 0, &ignored, nullptr, nullptr);
    return true;
  }

  bool AllowBroadcast() override {
    const char on = 1;
    return Noted(setsockopt(socket_, SOL_SOCKET, SO_BROADCAST, &on, sizeof on) == 0);
  }

  bool MakeNonBlocking() override {
    u_long on = 1;
    return Noted(ioctlsocket(socket_, static_cast<long>(FIONBIO), &on) == 0);
  }

  bool Bind(std::uint16_t port) override {
    const auto any = std::bit_cast<sockaddr>(IPv4Address({}, port));
    return Noted(bind(socket_, &any, sizeof any) == 0);
  }

  bool SendTo(const SocketAddress& to, std::string_view datagram) override {
    const auto address = std::bit_cast<sockaddr>(to);
    const int length = static_cast<int>(datagram.size());
    return Noted(sendto(socket_, datagram.data(), length, 0, &address, sizeof address) >= 0);
  }

  bool ReceiveFrom(std::string& datagram, SocketAddress& sender) override {
    std::array<char, LargestDatagram> buffer;
    sockaddr address{};
    int length = sizeof address;
    const int count = recvfrom(socket_, buffer.data(), static_cast<int>(buffer.size()), 0, &address, &length);
    if (!Noted(count >= 0)) return false;
    datagram.assign(buffer.data(), static_cast<std::size_t>(count));
    sender = std::bit_cast<SocketAddress>(address);
    return true;
  }

  SystemError LastError() const override { return ErrorOf(static_cast<std::uint32_t>(lastError_)); }

 private:
  bool Noted(bool succeeded) {
    if (!succeeded) lastError_ = WSAGetLastError();
    return succeeded;
  }

  SOCKET socket_ = INVALID_SOCKET;
  int lastError_ = 0;
};

/// The computer sends to the address from this very address then; connecting a datagram socket only finds the
/// way.
bool IsOwnAddress(const SocketAddress& of) {
  const SOCKET way = socket(AF_INET, SOCK_DGRAM, 0);
  if (way == INVALID_SOCKET) return false;
  const auto to = std::bit_cast<sockaddr>(IPv4Address(of.address, 9));  // any port (RFC 863)
  sockaddr from{};
  int length = sizeof from;
  const bool isKnown = connect(way, &to, sizeof to) == 0 && getsockname(way, &from, &length) == 0;
  closesocket(way);
  return isKnown && std::bit_cast<SocketAddress>(from).address == of.address;
}

std::string LookUp(const SocketAddress& of) {
  const auto address = std::bit_cast<sockaddr>(of);
  std::array<wchar_t, NI_MAXHOST> host{};
  std::array<wchar_t, NI_MAXSERV> service{};
  const int failed =
      GetNameInfoW(&address, sizeof address, host.data(), host.size(), service.data(), service.size(), 0);
  return failed == 0 ? qor::win::Utf8FromWide(host.data()) : "";
}

class SystemSockets : public Network {
 public:
  SystemSockets() {
    WSADATA ignored;
    WSAStartup(MAKEWORD(1, 1), &ignored);  // a failure shows in every call that follows
  }
  ~SystemSockets() override { WSACleanup(); }

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
