// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace bench {

/// How many times this program has taken memory so far.
std::size_t Allocations();

}  // namespace bench
