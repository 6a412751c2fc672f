// SPDX-License-Identifier: MIT
#include "formats/FileBytes.h"

#include <new>

#include "QorLib/Exceptions.h"
#include "platform/Files.h"

namespace TCBase {
namespace {

void ThrowIfFailed(const platform::SystemError& error) {
  if (!error) return;
  using namespace qor::win;
  switch (error.kind) {
    case platform::ErrorKind::AccessDenied: throw xaccess_denied(error.code, error.text);
    case platform::ErrorKind::WriteProtected: throw xwrite_protected(error.code, error.text);
    case platform::ErrorKind::SharingViolation: throw xsharing_violation(error.code, error.text);
    case platform::ErrorKind::DiskFull: throw xdisk_full(error.code, error.text);
    case platform::ErrorKind::WriteFault: throw xwrite_fault(error.code, error.text);
    case platform::ErrorKind::ReadFault: throw xread_fault(error.code, error.text);
    case platform::ErrorKind::NotFound:
    case platform::ErrorKind::AddressInUse:
    case platform::ErrorKind::Other: throw xsystem(error.code, error.text);
  }
}

}  // namespace

qor::Sentence Attempt(const std::function<void()>& work) {
  try {
    work();
    return {};
  } catch (const qor::win::xsystem& failed) {
    return failed.Reason();
  } catch (const qor::xout_of_memory&) {
  } catch (const std::bad_alloc&) {
  }
  return TR("Out of memory.");
}

std::string ReadFileBytes(const std::string& path, std::size_t limit) {
  std::string bytes;
  ThrowIfFailed(platform::ReadWholeFile(path, limit, bytes));
  return bytes;
}

void ReplaceFileBytes(const std::string& path, std::string_view bytes) {
  ThrowIfFailed(platform::ReplaceWholeFile(path, bytes));
}

}  // namespace TCBase
