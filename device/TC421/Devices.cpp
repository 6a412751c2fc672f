// SPDX-License-Identifier: MIT
#include "device/TC421/Devices.h"

namespace TC421 {
namespace {

constexpr std::string_view NotSupported = "The TC421 is not supported yet.";

}  // namespace

bool USBDevice::Refuse() {
  Log().Message(NotSupported);
  return Counted(false);
}

bool UDPDevice::Open() {
  Log().Message(NotSupported);
  return false;
}

}  // namespace TC421
