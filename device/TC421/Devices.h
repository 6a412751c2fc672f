// SPDX-License-Identifier: MIT
#pragma once

#include "device/USBDevice.h"

namespace TC421 {

/// A TC421 over USB. It is found when plugged in; every operation is still refused, with a line in the log.
class USBDevice : public TCBase::USBDevice {
 public:
  explicit USBDevice(const TCBase::DeviceContext& context) : TCBase::USBDevice(context, TCBase::TC421UsbId) {}

 protected:
  bool DoClearAll() override { return Refuse(); }
  bool DoTimeSync(const TCBase::SYSTEMTIME&) override { return Refuse(); }
  bool DoUploadStart() override { return Refuse(); }
  bool DoUploadMode(int, const std::string&, const std::vector<TCBase::ModeSample>&) override {
    return Counted(false);
  }
  bool DoUploadFinish() override { return Counted(false); }
  bool DoDemoStart(const std::string&) override { return Refuse(); }
  bool DoDemoSetChannels(const int (&)[TCBase::ChannelCount]) override { return Counted(false); }
  bool DoDemoFinish() override { return Counted(false); }

 private:
  bool Refuse();
};

/// A TC421 over the network, which cannot be opened yet; it says so in the log.
class UDPDevice : public USBDevice {
 public:
  using USBDevice::USBDevice;
  bool Open() override;
};

}  // namespace TC421
