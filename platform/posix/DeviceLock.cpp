// SPDX-License-Identifier: MIT
#include "platform/DeviceLock.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace platform {
namespace {

/// A local socket that is bound to a name without a file (unix(7), "abstract"): one at a time can be, whoever
/// its user is, and nothing is left of it when the program ends.
class SocketLock : public DeviceLock {
 public:
  explicit SocketLock(int way) : way_(way) {}
  ~SocketLock() override {
    if (way_ >= 0) close(way_);
  }
  SocketLock(const SocketLock&) = delete;
  SocketLock& operator=(const SocketLock&) = delete;

 private:
  int way_;
};

class SocketLocks : public DeviceLocks {
 public:
  std::unique_ptr<DeviceLock> TryTake(const std::string& name) override {
    const int way = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    auto lock = std::make_unique<SocketLock>(way);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string text = std::string(1, '\0') + "halvex-" + name;
    const std::size_t length = std::min(text.size(), sizeof address.sun_path);
    text.copy(address.sun_path, length);
    const auto bytes = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + length);
    if (way >= 0 && bind(way, reinterpret_cast<const sockaddr*>(&address), bytes) != 0 && errno == EADDRINUSE)
      return nullptr;
    return lock;
  }
};

}  // namespace

DeviceLocks& SystemDeviceLocks() {
  static SocketLocks locks;
  return locks;
}

}  // namespace platform
