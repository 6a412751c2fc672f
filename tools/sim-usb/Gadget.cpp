// SPDX-License-Identifier: MIT
#include "Gadget.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace SimUsb {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view ReportLength = "64";

// Vendor-defined usage; one input and one output report of 64 bytes (items of the USB HID class definition).
constexpr unsigned char ReportDescriptor[] = {
    0x06, 0x00, 0xFF,  // usage page: vendor-defined
    0x09, 0x01,        // usage 1
    0xA1, 0x01,        // collection: application
    0x15, 0x00,        //   logical minimum 0
    0x26, 0xFF, 0x00,  //   logical maximum 255
    0x75, 0x08,        //   report size 8 bits
    0x95, 0x40,        //   report count 64
    0x09, 0x02,        //   usage 2
    0x81, 0x02,        //   input: data, variable, absolute
    0x09, 0x03,        //   usage 3
    0x91, 0x02,        //   output: data, variable, absolute
    0xC0,              // end of collection
};

std::string Hex(unsigned number) {
  char text[8];
  std::snprintf(text, sizeof text, "0x%04x", number);
  return text;
}

std::string FirstFreeUdc() {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator("/sys/class/udc", ignored)) {
    if (ReadAttribute(entry.path() / "function").empty()) return entry.path().filename().string();
  }
  throw std::runtime_error("No free USB device controller in /sys/class/udc; is dummy_hcd loaded?");
}

// Made in this order, removed in the opposite one; the link stands for itself.
std::vector<fs::path> Folders(const fs::path& root) {
  return {root, root / "strings/0x409", root / "functions/hid.0", root / "configs/c.1"};
}

fs::path FunctionLink(const fs::path& root) {
  return root / "configs/c.1/hid.0";
}

}  // namespace

Gadget::Gadget(const Model& model, const std::string& wantedUdc, const std::string& serial)
    : folder("/sys/kernel/config/usb_gadget/" + serial), udc(wantedUdc.empty() ? FirstFreeUdc() : wantedUdc) {
  if (!fs::exists(folder.parent_path())) {
    throw std::runtime_error("No " + folder.parent_path().string() +
                             "; load libcomposite and mount configfs on /sys/kernel/config.");
  }
  try {
    for (const fs::path& path : Folders(folder)) fs::create_directory(path);
    Describe(model, serial);
    fs::create_directory_symlink(folder / "functions/hid.0", FunctionLink(folder));
  } catch (...) {
    RemoveFolders();
    throw;
  }
}

Gadget::~Gadget() {
  try {
    Unplug();
  } catch (const std::system_error&) {
    // The bus has gone; only the folders are left.
  }
  RemoveFolders();
}

void Gadget::Describe(const Model& model, const std::string& serial) const {
  WriteAttribute(folder / "idVendor", Hex(model.vendorId));
  WriteAttribute(folder / "idProduct", Hex(model.productId));
  WriteAttribute(folder / "strings/0x409/product", model.product);
  WriteAttribute(folder / "strings/0x409/serialnumber", serial);
  const fs::path function = folder / "functions/hid.0";
  WriteAttribute(function / "protocol", "0");
  WriteAttribute(function / "subclass", "0");
  WriteAttribute(function / "report_length", ReportLength);
  WriteAttribute(function / "report_desc",
                 {reinterpret_cast<const char*>(ReportDescriptor), sizeof ReportDescriptor});
}

void Gadget::PlugIn() {
  WriteAttribute(folder / "UDC", udc);
  const std::string number = ReadAttribute(folder / "functions/hid.0/dev");
  const std::string name = ReadUevent("/sys/dev/char/" + number + "/uevent", "DEVNAME");
  reports = OpenFile("/dev/" + name, O_RDWR | O_NONBLOCK);
}

void Gadget::Unplug() {
  reports = Handle();
  if (!ReadAttribute(folder / "UDC").empty()) WriteAttribute(folder / "UDC", "\n");
}

void Gadget::RemoveFolders() const {
  std::error_code ignored;
  fs::remove(FunctionLink(folder), ignored);
  std::vector<fs::path> folders = Folders(folder);
  std::reverse(folders.begin(), folders.end());
  for (const fs::path& path : folders) ::rmdir(path.c_str());
}

}  // namespace SimUsb
