// SPDX-License-Identifier: MIT
#include "device/CreateDevice.h"

#include "device/TC420/Device.h"
#include "device/TC420/Mock.h"
#include "device/TC421/Devices.h"

namespace TCBase {

std::unique_ptr<DeviceBase> CreateDevice(const DeviceInfo& info, const DeviceContext& context) {
  switch (info.kind) {
    case DeviceKind::TC420: return std::make_unique<TC420::Device>(context);
    case DeviceKind::TC421Usb: return std::make_unique<TC421::USBDevice>(context);
    case DeviceKind::TC421Network: return std::make_unique<TC421::UDPDevice>(context, info);
    case DeviceKind::Emulator: break;
  }
  return std::make_unique<TC420::Mock>(context);
}

}  // namespace TCBase
