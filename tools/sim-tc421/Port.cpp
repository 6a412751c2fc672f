// SPDX-License-Identifier: MIT
#include "Port.h"

#include <arpa/inet.h>
#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

namespace SimTC421 {
namespace {

constexpr std::uint16_t PortNumber = 5000;
constexpr std::size_t MostBytes = 65536;

int Checked(int result, const char* call) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), call);
  return result;
}

int OpenEndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return Checked(::signalfd(-1, &signals, SFD_CLOEXEC), "signalfd");
}

int OpenPort() {
  const int opened = Checked(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0), "socket");
  // Each datagram brings the local address along, and each answer names one.
  const int on = 1;
  Checked(::setsockopt(opened, IPPROTO_IP, IP_PKTINFO, &on, sizeof on), "setsockopt");
  sockaddr_in any{};
  any.sin_family = AF_INET;
  any.sin_port = htons(PortNumber);
  Checked(::bind(opened, reinterpret_cast<const sockaddr*>(&any), sizeof any), "bind");
  return opened;
}

// A message of one buffer with the local address beside it.
struct Message {
  alignas(cmsghdr) unsigned char control[CMSG_SPACE(sizeof(in_pktinfo))]{};
  iovec buffer{};
  msghdr header{};

  Message(void* bytes, std::size_t size, sockaddr_in& peer) : buffer{bytes, size} {
    header.msg_name = &peer;
    header.msg_namelen = sizeof peer;
    header.msg_iov = &buffer;
    header.msg_iovlen = 1;
    header.msg_control = control;
    header.msg_controllen = sizeof control;
  }
  Message(const Message&) = delete;
  Message& operator=(const Message&) = delete;
};

}  // namespace

std::string ToText(in_addr address) {
  char text[INET_ADDRSTRLEN];
  return ::inet_ntop(AF_INET, &address, text, sizeof text);
}

std::string ToText(const sockaddr_in& address) {
  return ToText(address.sin_addr) + ":" + std::to_string(ntohs(address.sin_port));
}

Port::Port() : endSignals(OpenEndSignals()), port(OpenPort()) {}

Port::~Port() {
  ::close(port);
  ::close(endSignals);
}

Port::Event Port::Wait(std::optional<std::chrono::milliseconds> timeout) const {
  pollfd both[] = {{endSignals, POLLIN, 0}, {port, POLLIN, 0}};
  ::poll(both, 2, timeout ? static_cast<int>(timeout->count()) : -1);
  if (both[0].revents != 0) return Event::End;
  return both[1].revents != 0 ? Event::Datagram : Event::Timeout;
}

std::optional<Datagram> Port::Receive() const {
  Datagram datagram{std::vector<std::uint8_t>(MostBytes), {}, {}};
  Message message(datagram.bytes.data(), datagram.bytes.size(), datagram.peer);
  const ssize_t size = ::recvmsg(port, &message.header, 0);
  if (size < 0) return std::nullopt;  // as after an answer that nobody was there to take
  datagram.bytes.resize(static_cast<std::size_t>(size));
  in_pktinfo info{};
  if (const cmsghdr* control = CMSG_FIRSTHDR(&message.header)) {
    std::memcpy(&info, CMSG_DATA(control), sizeof info);
  }
  datagram.own = info.ipi_spec_dst;
  return datagram;
}

void Port::Send(const Datagram& datagram) const {
  Datagram copy = datagram;
  Message message(copy.bytes.data(), copy.bytes.size(), copy.peer);
  cmsghdr* control = CMSG_FIRSTHDR(&message.header);
  control->cmsg_level = IPPROTO_IP;
  control->cmsg_type = IP_PKTINFO;
  control->cmsg_len = CMSG_LEN(sizeof(in_pktinfo));
  in_pktinfo info{};
  info.ipi_spec_dst = copy.own;
  std::memcpy(CMSG_DATA(control), &info, sizeof info);
  // An answer that cannot be sent is lost, as on any network.
  [[maybe_unused]] const ssize_t sent = ::sendmsg(port, &message.header, 0);
}

}  // namespace SimTC421
