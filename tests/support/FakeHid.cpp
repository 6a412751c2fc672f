// SPDX-License-Identifier: MIT
#include "tests/support/FakeHid.h"

#include <hidapi.h>

#include <algorithm>
#include <utility>

struct hid_device_ {};

namespace {

test::FakeHid* bus = nullptr;
hid_device_ theDevice;

}  // namespace

namespace test {

FakeHid::FakeHid() {
  bus = this;
}
FakeHid::~FakeHid() {
  bus = nullptr;
}

int FakeHid::Count(std::uint16_t vendor, std::uint16_t product) {
  const std::lock_guard lock(mutex_);
  const bool isThere = plugged && plugged->vendor == vendor && plugged->product == product;
  return isThere && !isPulled_ ? 1 + equals : 0;
}

bool FakeHid::Open(std::uint16_t vendor, std::uint16_t product) {
  if (clock != nullptr) clock->Advance(openMilliseconds);
  if (isDenied || Count(vendor, product) == 0) return false;
  const std::lock_guard lock(mutex_);
  ++openHandles_;
  return true;
}

void FakeHid::Close() {
  const std::lock_guard lock(mutex_);
  --openHandles_;
}

int FakeHid::Write(const std::string& report) {
  const std::lock_guard lock(mutex_);
  if (static_cast<int>(reports_.size()) == unplugAfter) isPulled_ = true;
  if (isPulled_) return -1;
  reports_.push_back(report);
  if (answer) {
    for (std::string& part : answer(report.substr(1))) pending_.emplace(Now(), std::move(part));
  }
  return writeResult.value_or(static_cast<int>(report.size()));
}

void FakeHid::Deliver(std::string report, std::int64_t afterMilliseconds) {
  pending_.emplace(Now() + afterMilliseconds, std::move(report));
}

int FakeHid::Read(unsigned char* buffer, std::size_t capacity) {
  const std::lock_guard lock(mutex_);
  if (isPulled_) return -1;
  if (const int result = readResult ? readResult() : 0; result != 0) return result;
  if (pending_.empty() || pending_.begin()->first > Now()) return 0;
  const std::string report = pending_.begin()->second.substr(0, capacity);
  pending_.erase(pending_.begin());
  std::copy(report.begin(), report.end(), buffer);
  return static_cast<int>(report.size());
}

std::vector<std::string> FakeHid::Reports() {
  const std::lock_guard lock(mutex_);
  return reports_;
}

std::vector<std::string> FakeHid::Frames() {
  std::vector<std::string> frames = Reports();
  for (std::string& frame : frames) frame.erase(0, 1);
  return frames;
}

int FakeHid::OpenHandles() {
  const std::lock_guard lock(mutex_);
  return openHandles_;
}

}  // namespace test

hid_device_info* hid_enumerate(unsigned short vendor, unsigned short product) {
  hid_device_info* first = nullptr;
  for (int i = bus != nullptr ? bus->Count(vendor, product) : 0; i > 0; --i) {
    auto* device = new hid_device_info{};
    device->next = first;
    first = device;
  }
  return first;
}

void hid_free_enumeration(hid_device_info* devices) {
  while (devices != nullptr) delete std::exchange(devices, devices->next);
}

hid_device* hid_open(unsigned short vendor, unsigned short product, const wchar_t*) {
  return bus != nullptr && bus->Open(vendor, product) ? &theDevice : nullptr;
}

void hid_close(hid_device*) {
  bus->Close();
}

int hid_set_nonblocking(hid_device*, int) {
  return 0;
}

int hid_write(hid_device*, const unsigned char* data, size_t length) {
  return bus->Write(std::string(data, data + length));
}

int hid_read_timeout(hid_device*, unsigned char* data, size_t length, int) {
  return bus->Read(data, length);
}

const char* hid_version_str() {
  return "0.0";
}

const wchar_t* hid_error(hid_device* device) {
  if (bus != nullptr && bus->isErrorless) return nullptr;
  if (device != nullptr) return L"Ger\u00e4t weg";
  const bool isDenied = bus != nullptr && bus->isDenied;
#ifdef _WIN32
  return isDenied ? L"open_device: (0x00000005) Access is denied." : L"no such device";
#else
  return isDenied ? L"Failed to open a device with path '/dev/hidraw0': Permission denied"
                  : L"no such device";
#endif
}

int hid_exit() {
  return 0;
}
