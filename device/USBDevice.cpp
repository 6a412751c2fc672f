// SPDX-License-Identifier: MIT
#include "device/USBDevice.h"

#include <hidapi.h>

#include <array>
#include <mutex>

#include "QorLib/qor_win_str_utils.h"

namespace TCBase {
namespace {

constexpr unsigned char ReportId = 0;
constexpr std::size_t ReportBytes = 1 + PacketBytes;
constexpr std::uint32_t IdlePollMilliseconds = 20;
constexpr int MaxIdlePolls = 40;

/// hidapi's text for the last error of a device; without one, of the last opening.
std::string LastErrorText(hid_device* handle) {
  const wchar_t* text = hid_error(handle);
  return text != nullptr ? qor::win::Utf8FromWide(text) : "Success";
}

/// In plain words what can be told apart, with the system's behind them.
OpenFailure FailureOf(const std::string& text, const UsbId& id) {
  const qor::Sentence system = qor::Verbatim(text);
  switch (platform::KindOfText(text)) {
    case platform::ErrorKind::AccessDenied:
      return {{TR("no permission to open it"), {}, {system}}, Denial::NoPermission};
    case platform::ErrorKind::SharingViolation:
      return {{TR("in use by another program"), {}, {system}}, Denial::InUse};
    default:
      return PathsOnUsb(id).empty() ? OpenFailure{{TR("no {1} is plugged in"), {id.model}}}
                                    : OpenFailure{system};
  }
}

}  // namespace

std::vector<std::string> PathsOnUsb(const UsbId& id) {
  hid_device_info* first = hid_enumerate(id.vendor, id.product);
  std::vector<std::string> paths;
  for (const hid_device_info* device = first; device != nullptr; device = device->next) {
    paths.emplace_back(device->path != nullptr ? device->path : "");
  }
  hid_free_enumeration(first);
  return paths;
}

USBDevice::~USBDevice() {
  if (handle_ != nullptr) hid_close(handle_);
}

bool USBDevice::Open() {
  {
    // The library keeps one text of the last failed opening for all threads.
    static std::mutex opening;
    const std::lock_guard lock(opening);
    handle_ = hid_open(id_.vendor, id_.product, nullptr);
    if (handle_ == nullptr) {
      SetOpenFailure(FailureOf(LastErrorText(nullptr), id_));
      return false;
    }
  }
  hid_set_nonblocking(handle_, 1);
  return true;
}

bool USBDevice::Write(const std::string& image) {
  if (image.size() != PacketBytes) return false;
  std::array<unsigned char, ReportBytes> report{ReportId};
  std::copy(image.begin(), image.end(), report.begin() + 1);
  Log().Trace("hid_write:", image);
  const int written = hid_write(handle_, report.data(), report.size());
  if (written < 0) TraceError("hid_write");
  return written == static_cast<int>(ReportBytes);
}

bool USBDevice::Read(std::string& reply) {
  reply.clear();
  for (int idlePolls = 0; idlePolls < MaxIdlePolls;) {
    const int count = ReadReport(reply);
    if (count < 0) return false;
    if (count > 0) continue;
    if (!reply.empty()) return true;
    Clock().Sleep(IdlePollMilliseconds);
    ++idlePolls;
  }
  return true;
}

int USBDevice::ReadReport(std::string& reply) {
  std::array<unsigned char, PacketBytes> report;
  const int count = hid_read_timeout(handle_, report.data(), report.size(), 0);
  if (count < 0) TraceError("hid_read");
  if (count <= 0) return count;
  const std::string part(report.begin(), report.begin() + count);
  Log().Trace("hid_read:", part);
  reply += part;
  return count;
}

bool USBDevice::DropAnswer() {
  std::string report;
  if (ReadReport(report) <= 0) return false;
  Log().Trace("Thrown away: no packet waits for it");
  return true;
}

bool USBDevice::Transact(const PacketBase& packet, int expected) {
  std::string reply;
  if (!ClearLine() || !WritePacket(packet) || !Read(reply)) return Counted(false);
  if (reply.size() > PacketBytes) Surplus().WasSurplus();
  if (CheckReply(reply, expected)) return true;
  SetLastFailure(reply.empty() ? qor::Sentence(TR("no answer"))
                               : qor::Sentence(TR("an answer that makes no sense")));
  return Counted(false);
}

void USBDevice::TraceError(const char* call) {
  const std::string text = LastErrorText(handle_);
  SetLastFailure(qor::Verbatim(text));
  Log().Trace(call + (" error: " + text));
}

}  // namespace TCBase
