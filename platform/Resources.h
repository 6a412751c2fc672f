// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace platform {

/// The bytes of resources/TC420Strings.xml and of resources/HalvexStrings.xml, which are compiled into the
/// program; there for the whole run. Empty when the program lacks them.
std::array<std::string_view, 2> StringTableResources();

}  // namespace platform
