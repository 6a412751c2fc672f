// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// What a system's error code means, where the program treats it apart.
enum class ErrorKind {
  Other,
  NotFound,
  AccessDenied,
  WriteProtected,
  SharingViolation,
  DiskFull,
  WriteFault,
  ReadFault,
  AddressInUse
};

/// A failed call to the system: its code (errno, or GetLastError on Windows) and the system's text for it.
struct SystemError {
  std::uint32_t code = 0;  // 0: no error
  ErrorKind kind = ErrorKind::Other;
  std::string text;

  explicit operator bool() const { return code != 0; }
};

/// The system's text for a code in UTF-8, without a line end; empty when it has none.
std::string ErrorText(std::uint32_t code);

/// The error of that code.
SystemError ErrorOf(std::uint32_t code);

/// The text for a code of the C runtime (errno).
std::string RuntimeErrorText(int code);

/// What a library's error text says of it: AccessDenied, SharingViolation when somebody else has it, or
/// Other.
ErrorKind KindOfText(const std::string& message);

}  // namespace platform
