// SPDX-License-Identifier: MIT
#pragma once

#include "device/USBDevice.h"

namespace TC420 {

/// A TC420 over USB. It accepts whatever the controller answers; answers only show in the trace.
class Device : public TCBase::USBDevice {
 public:
  explicit Device(const TCBase::DeviceContext& context) : USBDevice(context, TCBase::TC420UsbId) {}

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
  bool Send(const TCBase::PacketBase& packet);
};

}  // namespace TC420
