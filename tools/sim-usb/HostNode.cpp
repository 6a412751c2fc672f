// SPDX-License-Identifier: MIT
#include "HostNode.h"

#include <stdexcept>
#include <system_error>
#include <thread>

#include "Files.h"

namespace SimUsb {
namespace {

namespace fs = std::filesystem;

fs::path FindHostNode(const std::string& serial) {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator("/sys/class/hidraw", ignored)) {
    if (ReadUevent(entry.path() / "device/uevent", "HID_UNIQ") != serial) continue;
    fs::path node = "/dev" / entry.path().filename();
    if (fs::exists(node)) return node;
  }
  return {};
}

}  // namespace

fs::path WaitForHostNode(const std::string& serial, std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  for (;;) {
    fs::path node = FindHostNode(serial);
    if (!node.empty()) return node;
    if (std::chrono::steady_clock::now() > end) {
      throw std::runtime_error("The controller was plugged in, but no hidraw node appeared.");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

void SetHostNodeAccess(const fs::path& node, bool everybody) {
  using fs::perms;
  constexpr perms Root = perms::owner_read | perms::owner_write;
  constexpr perms Others = perms::group_read | perms::group_write | perms::others_read | perms::others_write;
  fs::permissions(node, everybody ? Root | Others : Root);
}

}  // namespace SimUsb
