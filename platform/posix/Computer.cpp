// SPDX-License-Identifier: MIT
#include "platform/Computer.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <bit>
#include <cstring>

#include "platform/SocketAddress.h"

namespace platform {
namespace {

std::vector<NetworkAdapter> Adapters() {
  std::vector<NetworkAdapter> adapters;
  ifaddrs* first = nullptr;
  if (getifaddrs(&first) != 0) return adapters;
  for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
    const bool isUp = (entry->ifa_flags & IFF_UP) != 0 && (entry->ifa_flags & IFF_LOOPBACK) == 0;
    if (!isUp || entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != AF_INET) continue;
    sockaddr_in own{};
    std::memcpy(&own, entry->ifa_addr, sizeof own);
    adapters.push_back({entry->ifa_name, AddressText(std::bit_cast<SocketAddress>(own))});
  }
  freeifaddrs(first);
  return adapters;
}

/// A rule in an earlier one of these folders takes the place of the same name in a later one (udev(7)).
std::string PathOfRule(const std::string& name) {
  for (const char* folder : {"/etc/udev/rules.d/", "/run/udev/rules.d/", "/usr/local/lib/udev/rules.d/",
                             "/usr/lib/udev/rules.d/", "/lib/udev/rules.d/"}) {
    std::string path = folder + name;
    if (access(path.c_str(), F_OK) == 0) return path;
  }
  return {};
}

std::string SystemName() {
  utsname name{};
  if (uname(&name) != 0) return "an unknown system";
  return std::string(name.sysname) + " " + name.release + " " + name.machine;
}

}  // namespace

Computer LookAtComputer(const std::string& udevRule) {
  return {SystemName(), Adapters(), true, PathOfRule(udevRule), geteuid() == 0};
}

bool MayWriteInto(const std::string& folder) {
  struct stat status {};
  const bool isFolder = stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
  return isFolder && access(folder.c_str(), W_OK | X_OK) == 0;
}

}  // namespace platform
