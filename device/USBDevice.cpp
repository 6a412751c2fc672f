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

Denial DenialOf(platform::ErrorKind kind) {
  switch (kind) {
    case platform::ErrorKind::AccessDenied: return Denial::NoPermission;
    case platform::ErrorKind::SharingViolation: return Denial::InUse;
    default: return Denial::None;
  }
}

}  // namespace

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
      const std::string text = LastErrorText(nullptr);
      SetOpenFailure({qor::Verbatim(text), DenialOf(platform::KindOfText(text))});
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
  Log().Trace("hid_write:");
  Log().TraceDump(image);
  const int written = hid_write(handle_, report.data(), report.size());
  if (written < 0) TraceError("hid_write");
  return written == static_cast<int>(ReportBytes);
}

bool USBDevice::Read(std::string& reply) {
  reply.clear();
  for (int idlePolls = 0; idlePolls < MaxIdlePolls;) {
    std::array<unsigned char, PacketBytes> report;
    const int count = hid_read_timeout(handle_, report.data(), report.size(), 0);
    if (count < 0) {
      TraceError("hid_read");
      return false;
    }
    if (count > 0) {
      const std::string part(report.begin(), report.begin() + count);
      Log().Trace("hid_read:");
      Log().TraceDump(part);
      reply += part;
    } else if (!reply.empty()) {
      return true;
    } else {
      Clock().Sleep(IdlePollMilliseconds);
      ++idlePolls;
    }
  }
  return true;
}

bool USBDevice::Transact(const PacketBase& packet, int expected) {
  std::string reply;
  if (!WritePacket(packet) || !Read(reply)) return Counted(false);
  if (CheckReply(reply, expected)) return true;
  SetLastFailure(reply.empty() ? qor::Sentence{"no answer", {}}
                               : qor::Sentence{"an answer that makes no sense", {}});
  return Counted(false);
}

void USBDevice::TraceError(const char* call) {
  const std::string text = LastErrorText(handle_);
  SetLastFailure(qor::Verbatim(text));
  Log().Trace(call + (" error: " + text));
}

}  // namespace TCBase
