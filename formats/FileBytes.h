// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace TCBase {

/// The bytes of a file, `limit` + 1 of them when there are more. Throws qor::win::xsystem, or of its kinds
/// the one that fits.
std::string ReadFileBytes(const std::string& path, std::size_t limit);

/// Replaces a file safely (see platform::ReplaceWholeFile). Throws as ReadFileBytes does; the old file is
/// whole then.
void ReplaceFileBytes(const std::string& path, std::string_view bytes);

}  // namespace TCBase
