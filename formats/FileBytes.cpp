// SPDX-License-Identifier: MIT
#include "formats/FileBytes.h"

#include "QorLib/Exceptions.h"
#include "platform/Files.h"

namespace TCBase {
namespace {

qor::win::FailureKind KindOf(platform::ErrorKind kind) {
  switch (kind) {
    case platform::ErrorKind::AccessDenied: return qor::win::FailureKind::AccessDenied;
    case platform::ErrorKind::WriteProtected: return qor::win::FailureKind::WriteProtected;
    case platform::ErrorKind::SharingViolation: return qor::win::FailureKind::SharingViolation;
    case platform::ErrorKind::DiskFull: return qor::win::FailureKind::DiskFull;
    case platform::ErrorKind::WriteFault: return qor::win::FailureKind::WriteFault;
    case platform::ErrorKind::ReadFault: return qor::win::FailureKind::ReadFault;
    case platform::ErrorKind::Other: break;
  }
  return qor::win::FailureKind::Other;
}

void ThrowIfFailed(const platform::SystemError& error) {
  if (error) qor::win::ThrowSystemFailure(KindOf(error.kind), error.code, error.text);
}

}  // namespace

std::string ReadFileBytes(const std::string& path, std::size_t limit) {
  std::string bytes;
  ThrowIfFailed(platform::ReadWholeFile(path, limit, bytes));
  return bytes;
}

void ReplaceFileBytes(const std::string& path, std::string_view bytes) {
  ThrowIfFailed(platform::ReplaceWholeFile(path, bytes));
}

}  // namespace TCBase
