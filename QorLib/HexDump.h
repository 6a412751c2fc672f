// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace qor {

/// The bytes as the communication trace shows them, 16 to a row: the offset in four hexadecimal digits, the
/// bytes in two each with a wider gap after the eighth, the bytes as text; each row ends with a line feed.
std::string HexDump(std::string_view bytes);

}  // namespace qor
