// SPDX-License-Identifier: MIT
#pragma once

#include "device/TC421/Packets.h"
#include "device/UDPDevice.h"
#include "device/USBDevice.h"

namespace TC421 {

/// A TC421, over whatever carries its packets. Every packet must be answered by 64 bytes; what they say is
/// checked only where a caller of Transact expects something.
template <typename Transport>
class Device : public Transport {
 public:
  using Transport::Transport;

  /// Whether the reply has at least 64 bytes and, unless `expected` is negative, that verdict.
  bool CheckReply(const std::string& reply, int expected) override;

 protected:
  bool DoClearAll() override;
  bool DoTimeSync(const TCBase::SYSTEMTIME& time) override;
  bool DoUploadStart() override;
  /// Refuses, before anything is sent, a bank of 64 or more, an empty name and fewer than 2 samples.
  bool DoUploadMode(int bank, const std::string& name,
                    const std::vector<TCBase::ModeSample>& samples) override;
  bool DoUploadFinish() override;
  bool DoDemoStart(const std::string& name) override;
  bool DoDemoSetChannels(const int (&channels)[TCBase::ChannelCount]) override;
  bool DoDemoFinish() override;

 private:
  virtual Route PacketRoute() const = 0;
  bool Send(const TCBase::PacketBase& packet);
};

class USBDevice : public Device<TCBase::USBDevice> {
 public:
  explicit USBDevice(const TCBase::DeviceContext& context) : Device(context, TCBase::TC421UsbId) {}

 private:
  Route PacketRoute() const override { return {identity_, true}; }

  std::string identity_;  // none is known on the USB
};

/// Its packets carry the name of the device list's entry, by which discovery found it.
class UDPDevice : public Device<TCBase::UDPDevice> {
 public:
  using Device::Device;

 private:
  Route PacketRoute() const override { return {Info().name, false}; }
};

}  // namespace TC421
