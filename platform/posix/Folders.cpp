// SPDX-License-Identifier: MIT
#include "platform/Folders.h"

#include "platform/Console.h"

namespace platform {

std::string SettingsFolder() {
  if (std::string own = Variable("HALVEX_HOME"); !own.empty()) return own;
  // The XDG base directory rules say to pass over a path that is not absolute.
  if (const std::string config = Variable("XDG_CONFIG_HOME"); config.starts_with('/'))
    return config + "/halvex";
  if (const std::string home = Variable("HOME"); !home.empty()) return home + "/.config/halvex";
  return {};
}

}  // namespace platform
