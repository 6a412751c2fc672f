// SPDX-License-Identifier: MIT
#include "platform/DeviceLock.h"

#include <windows.h>

#include "QorLib/qor_win_str_utils.h"

namespace platform {
namespace {

/// A mutex that is never waited for: that it is there is the hold.
class MutexLock : public DeviceLock {
 public:
  explicit MutexLock(HANDLE mutex) : mutex_(mutex) {}
  ~MutexLock() override {
    if (mutex_ != nullptr) CloseHandle(mutex_);
  }
  MutexLock(const MutexLock&) = delete;
  MutexLock& operator=(const MutexLock&) = delete;

 private:
  HANDLE mutex_;
};

class MutexLocks : public DeviceLocks {
 public:
  std::unique_ptr<DeviceLock> TryTake(const std::string& name) override {
    // Global: also for users in sessions of their own.
    const HANDLE mutex =
        CreateMutexW(nullptr, FALSE, qor::win::WideFromUtf8("Global\\halvex-" + name).c_str());
    const DWORD error = GetLastError();
    auto lock = std::make_unique<MutexLock>(mutex);
    const bool isTaken =
        mutex != nullptr ? error == ERROR_ALREADY_EXISTS : error == ERROR_ACCESS_DENIED;  // another user's
    if (isTaken) return nullptr;
    return lock;
  }
};

}  // namespace

DeviceLocks& SystemDeviceLocks() {
  static MutexLocks locks;
  return locks;
}

}  // namespace platform
