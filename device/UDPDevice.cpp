// SPDX-License-Identifier: MIT
#include "device/UDPDevice.h"

namespace TCBase {
namespace {

constexpr int Attempts = 3;
constexpr std::int64_t ReplySeconds = 2;
constexpr std::uint32_t PollMilliseconds = 20;
constexpr int MostPassedOver = 1000;  // datagrams of others, at a time

}  // namespace

bool UDPDevice::Open() {
  if (Network().IsOwn(info_.address)) {
    SetOpenFailure(
        {TR("that is this computer's own address")});  // where its packets would come back as replies
    return false;
  }
  if (port_.Open()) return true;
  SetOpenFailure(port_.OpenFault());
  return false;
}

UDPDevice::~UDPDevice() {
  if (isAnswerOwed_ || Surplus().WereSeen()) Surplus().Clear([this] { return UDPDevice::DropAnswer(); });
}

bool UDPDevice::Write(const std::string& image) {
  if (port_.SendTo(platform::IPv4Address(info_.address.address, ControllerPort), image)) return true;
  SetLastFailure(qor::Verbatim(port_.LastErrorText()));
  return false;
}

bool UDPDevice::Read(std::string& reply) {
  const std::int64_t end = Clock().Counter() + ReplySeconds * Clock().Frequency();
  while (!ReceiveReply(reply)) {
    Clock().Sleep(PollMilliseconds);
    if (Clock().Counter() >= end) return false;
  }
  return true;
}

/// Takes one datagram, if one waits; whether it is the reply.
bool UDPDevice::ReceiveReply(std::string& reply) {
  platform::SocketAddress sender;
  return port_.ReceiveFrom(reply, sender) && IsReply(reply, sender);
}

bool UDPDevice::IsReply(const std::string& datagram, const platform::SocketAddress& sender) {
  if (datagram.size() != PacketBytes) {
    Log().Trace("Received invalid packet size");
    return false;
  }
  port_.TraceReceived(sender, datagram);
  return sender.address == info_.address.address;
}

bool UDPDevice::DropAnswer() {
  std::string datagram;
  platform::SocketAddress sender;
  for (int passed = 0; passed < MostPassedOver && port_.ReceiveFrom(datagram, sender); ++passed) {
    const bool isReply = IsReply(datagram, sender);
    Log().Trace("Thrown away: no packet waits for it");
    if (isReply) return true;
  }
  return false;
}

bool UDPDevice::Transact(const PacketBase& packet, int expected) {
  if (!ClearLine()) return Counted(false);
  isAnswerOwed_ = false;
  for (int attempt = 0; attempt < Attempts; ++attempt) {
    if (attempt > 0) Surplus().WasSentAgain();
    if (!WritePacket(packet)) return Counted(false);
    std::string reply;
    if (!Read(reply)) continue;
    isAnswerOwed_ = attempt > 0;
    return Counted(CheckReply(reply, expected));
  }
  SetLastFailure(TR("no answer"));
  return Counted(false);
}

}  // namespace TCBase
