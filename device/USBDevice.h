// SPDX-License-Identifier: MIT
#pragma once

#include "device/DeviceBase.h"
#include "device/DeviceInfo.h"

struct hid_device_;

namespace TCBase {

/// The system's paths of the model's controllers that are plugged in. None is opened.
std::vector<std::string> PathsOnUsb(const UsbId& id);

/// A controller as a USB HID device (USB HID class definition 1.11): packets go out as reports of 65 bytes,
/// the first the report id 0; replies come in as reports of 64 bytes.
class USBDevice : public DeviceBase {
 public:
  USBDevice(const DeviceContext& context, UsbId id) : DeviceBase(context), id_(id) {}
  ~USBDevice() override;

  /// Opens the first device of the model that hidapi finds.
  bool Open() override;
  bool Write(const std::string& image) override;
  /// A controller that does not answer costs 800 ms and is no error; the reply is empty then.
  bool Read(std::string& reply) override;
  bool Transact(const PacketBase& packet, int expected) override;

 private:
  bool DropAnswer() override;
  /// Takes one report, if one waits; the number of its bytes, negative when the reading failed.
  int ReadReport(std::string& reply);
  void TraceError(const char* call);

  UsbId id_;
  hid_device_* handle_ = nullptr;  // owned
};

}  // namespace TCBase
