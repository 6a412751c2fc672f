// SPDX-License-Identifier: MIT
#pragma once

#include "device/DeviceBase.h"
#include "device/DeviceInfo.h"
#include "device/UdpPort.h"

namespace TCBase {

/// A controller on the network: each packet goes as one datagram from this computer's port 5000 to the
/// controller's (UDP, RFC 768), and is answered by one.
class UDPDevice : public DeviceBase {
 public:
  UDPDevice(const DeviceContext& context, const DeviceInfo& info)
      : DeviceBase(context), info_(info), port_(context) {}
  /// Waits for answers that may still be on their way: the next job's packets must not get them.
  ~UDPDevice() override;

  bool Open() override;
  bool Write(const std::string& image) override;
  /// Waits 2 seconds for a reply of 64 bytes from the controller's address, from whatever port; all else is
  /// passed over.
  bool Read(std::string& reply) override;
  /// Sends the packet up to three times until it is answered, so that a silent controller costs 6 seconds. A
  /// reply that the check refuses is final.
  bool Transact(const PacketBase& packet, int expected) override;

 protected:
  const DeviceInfo& Info() const { return info_; }

 private:
  bool DropAnswer() override;
  bool ReceiveReply(std::string& reply);
  bool IsReply(const std::string& datagram, const platform::SocketAddress& sender);

  DeviceInfo info_;
  bool isAnswerOwed_ = false;  // the last packet was sent more often than it was answered
  UdpPort port_;
};

}  // namespace TCBase
