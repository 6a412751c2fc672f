// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace platform {

/// A way from this computer into an IPv4 network.
struct NetworkAdapter {
  std::string name;     // as the system's user knows it, in UTF-8
  std::string address;  // the computer's own, in dotted form
};

/// What the program's answers to "why does it not work?" depend on.
struct Computer {
  std::string system;                    // its kind and version, such as "Linux 6.1.0-25-amd64"
  std::vector<NetworkAdapter> adapters;  // that are up, without the loop back to itself
  bool hasUdev = false;                  // whether udev decides on who may open controllers
  std::string udevRule = {};             // the file of the program's rule that counts; empty for none
  bool isAdministrator = false;          // whether the user may open everything anyway
  std::string user = {};                 // the user's name; empty where it is not known
  bool isRemote = false;                 // whether the user is here over the network, at no screen
  std::string deviceGroup = {};          // whose members may open the devices; empty for root or none
  enum class Membership { None, AfterLogin, Yes } inDeviceGroup = Membership::None;  // of the user
};

/// Looks at this computer; nothing is sent. `udevRule` is the name of the program's rule in udev's folders,
/// `devices` are the paths of the controllers' device nodes.
Computer LookAtComputer(const std::string& udevRule, const std::vector<std::string>& devices);

/// Whether it is a folder in which the user may make files.
bool MayWriteInto(const std::string& folder);

}  // namespace platform
