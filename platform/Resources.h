// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace platform {

/// The bytes of resources/TC420Strings.xml, which are compiled into the program; there for the whole run.
/// Empty when the program lacks them.
std::string_view StringTableResource();

}  // namespace platform
