// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace platform {

/// Calls `lookUp` on a thread of its own and waits for it that long. A look-up that takes longer, as a name
/// server that is out of reach makes it, is left to itself; the name is empty then.
std::string LookUpWithin(std::uint32_t milliseconds, std::function<std::string()> lookUp);

}  // namespace platform
