// SPDX-License-Identifier: MIT
#include "platform/SystemError.h"

#include <windows.h>
// after windows.h
#include <winsock2.h>

#include <system_error>

#include "QorLib/qor_win_str_utils.h"

namespace platform {
namespace {

ErrorKind KindOf(std::uint32_t code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND: return ErrorKind::NotFound;
    case ERROR_ACCESS_DENIED:
    case WSAEACCES: return ErrorKind::AccessDenied;
    case ERROR_WRITE_PROTECT: return ErrorKind::WriteProtected;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION: return ErrorKind::SharingViolation;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL: return ErrorKind::DiskFull;
    case ERROR_WRITE_FAULT: return ErrorKind::WriteFault;
    case ERROR_READ_FAULT: return ErrorKind::ReadFault;
    case WSAEADDRINUSE: return ErrorKind::AddressInUse;
    default: return ErrorKind::Other;
  }
}

}  // namespace

std::string ErrorText(std::uint32_t code) {
  wchar_t text[512];
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
      code, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  std::string utf8 = qor::win::Utf8FromWide({text, length});
  while (!utf8.empty() && (utf8.back() == ' ' || utf8.back() == '\r' || utf8.back() == '\n')) utf8.pop_back();
  return utf8;
}

SystemError ErrorOf(std::uint32_t code) {
  return {code, KindOf(code), ErrorText(code)};
}

std::string RuntimeErrorText(int code) {
  return std::generic_category().message(code);
}

// hidapi's texts hold the code: ERROR_ACCESS_DENIED or ERROR_SHARING_VIOLATION.
ErrorKind KindOfText(const std::string& message) {
  if (message.find("0x00000020") != std::string::npos) return ErrorKind::SharingViolation;
  return message.find("0x00000005") != std::string::npos ? ErrorKind::AccessDenied : ErrorKind::Other;
}

}  // namespace platform
