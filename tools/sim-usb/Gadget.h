// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "Files.h"
#include "Options.h"

namespace SimUsb {

// A HID gadget made in configfs: reports of 64 bytes in and out, without report ids. The object takes its
// folders away again. Failures throw std::runtime_error or std::system_error.
class Gadget {
 public:
  // serial: the USB serial number, by which the host side finds this very gadget.
  Gadget(const Model& model, const std::string& udc, const std::string& serial);
  Gadget(const Gadget&) = delete;
  Gadget& operator=(const Gadget&) = delete;
  ~Gadget();

  void PlugIn();
  void Unplug();

  // The device side of the reports, non-blocking; valid while plugged in.
  int Descriptor() const { return reports.Get(); }
  const std::string& Udc() const { return udc; }

 private:
  void Describe(const Model& model, const std::string& serial) const;
  void RemoveFolders() const;

  std::filesystem::path folder;
  std::string udc;
  Handle reports;
};

}  // namespace SimUsb
