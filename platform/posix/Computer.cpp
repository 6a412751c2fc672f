// SPDX-License-Identifier: MIT
#include "platform/Computer.h"

#include <grp.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <optional>

#include "platform/Console.h"
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

/// The group whose members may read and write the device; none for root's own.
std::optional<gid_t> GroupOf(const std::string& device) {
  struct stat status {};
  if (stat(device.c_str(), &status) != 0 || status.st_gid == 0) return std::nullopt;
  constexpr mode_t ReadAndWrite = S_IRGRP | S_IWGRP;
  if ((status.st_mode & ReadAndWrite) != ReadAndWrite) return std::nullopt;
  return status.st_gid;
}

/// What the session has, or else what the next one will: who joins a group has it from the next login on.
Computer::Membership MembershipIn(gid_t group, const std::string& user) {
  std::vector<gid_t> groups(static_cast<std::size_t>(std::max(getgroups(0, nullptr), 0)));
  groups.resize(
      static_cast<std::size_t>(std::max(getgroups(static_cast<int>(groups.size()), groups.data()), 0)));
  if (getegid() == group || std::ranges::find(groups, group) != groups.end())
    return Computer::Membership::Yes;
  int count = 0;
  getgrouplist(user.c_str(), 0, nullptr, &count);  // says how many there are
  groups.resize(static_cast<std::size_t>(std::max(count, 0)));
  // The group that is handed in stands among those that come out: hand in root's.
  getgrouplist(user.c_str(), 0, groups.data(), &count);
  return std::ranges::find(groups, group) != groups.end() ? Computer::Membership::AfterLogin
                                                          : Computer::Membership::None;
}

std::string SystemName() {
  utsname name{};
  if (uname(&name) != 0) return "an unknown system";
  return std::string(name.sysname) + " " + name.release + " " + name.machine;
}

}  // namespace

Computer LookAtComputer(const std::string& udevRule, const std::vector<std::string>& devices) {
  Computer computer{SystemName(), Adapters(), true, PathOfRule(udevRule), geteuid() == 0};
  const passwd* user = getpwuid(geteuid());
  if (user != nullptr) computer.user = user->pw_name;
  computer.isRemote = !Variable("SSH_CONNECTION").empty() && Variable("XDG_SEAT").empty();
  for (const std::string& device : devices) {
    if (const std::optional<gid_t> group = GroupOf(device)) {
      const struct group* entry = getgrgid(*group);
      computer.deviceGroup = entry != nullptr ? entry->gr_name : std::to_string(*group);
      computer.inDeviceGroup = MembershipIn(*group, computer.user);
    }
  }
  return computer;
}

bool MayWriteInto(const std::string& folder) {
  struct stat status {};
  const bool isFolder = stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
  return isFolder && access(folder.c_str(), W_OK | X_OK) == 0;
}

}  // namespace platform
