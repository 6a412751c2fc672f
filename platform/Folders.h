// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// The folder of the settings and log files, in UTF-8 and without a separator at its end, or empty when none
/// can be had: the environment variable HALVEX_HOME where it is set; else the Documents folder on Windows,
/// and $XDG_CONFIG_HOME/halvex or ~/.config/halvex elsewhere. It may not exist yet.
std::string SettingsFolder();

}  // namespace platform
