// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/SystemError.h"

/// Files by paths in UTF-8.
namespace platform {

/// Reads a file whole, but at most `limit` + 1 bytes of it: more than `limit` tells that it is too large.
/// Memory is taken once, for the file's size.
SystemError ReadWholeFile(const std::string& path, std::size_t limit, std::string& bytes);

/// Puts `bytes` in the place of the file's content so that after a crash or a full disk there is the old file
/// or the new one, never a part: they are written to a temporary file beside the target, flushed to the disk,
/// and renamed over it. Outside Windows a link is followed and the file's permissions stay. A target that is
/// no regular file (a terminal, a pipe) is written to as it is. On failure the target is untouched.
SystemError ReplaceWholeFile(const std::string& path, std::string_view bytes);

}  // namespace platform
