// SPDX-License-Identifier: MIT
#include "platform/SystemError.h"

#include <cerrno>
#include <system_error>

namespace platform {
namespace {

ErrorKind KindOf(std::uint32_t code) {
  switch (code) {
    case ENOENT:
    case ENOTDIR: return ErrorKind::NotFound;
    case EACCES:
    case EPERM: return ErrorKind::AccessDenied;
    case EROFS: return ErrorKind::WriteProtected;
    case EBUSY:
    case ETXTBSY: return ErrorKind::SharingViolation;
    case ENOSPC:
    case EFBIG:
    case EDQUOT: return ErrorKind::DiskFull;
    case EIO: return ErrorKind::WriteFault;
    case EADDRINUSE: return ErrorKind::AddressInUse;
    default: return ErrorKind::Other;
  }
}

}  // namespace

std::string ErrorText(std::uint32_t code) {
  return RuntimeErrorText(static_cast<int>(code));
}

SystemError ErrorOf(std::uint32_t code) {
  return {code, KindOf(code), ErrorText(code)};
}

std::string RuntimeErrorText(int code) {
  return std::generic_category().message(code);
}

ErrorKind KindOfText(const std::string& message) {
  const auto says = [&message](std::uint32_t code) {
    return message.find(ErrorText(code)) != std::string::npos;
  };
  if (says(EBUSY)) return ErrorKind::SharingViolation;
  return says(EACCES) || says(EPERM) ? ErrorKind::AccessDenied : ErrorKind::Other;
}

}  // namespace platform
