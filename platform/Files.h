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

/// The path of a file in a folder, with the system's separator between them.
std::string PathIn(const std::string& folder, const std::string& name);

/// Creates the folder and those above it where they are missing.
SystemError CreateFolders(const std::string& path);

/// Gives a file another name, in the place of a file that has it.
SystemError RenameFile(const std::string& from, const std::string& to);

/// Removes a file; one that is not there is no error.
void RemoveFile(const std::string& path);

/// Whether there is anything of that path; whether it is a file, and so neither a folder, a device nor a
/// pipe.
bool IsThere(const std::string& path);
bool IsFile(const std::string& path);

/// The closest of the folders above a path that exists; the current one where none does.
std::string NearestFolder(const std::string& path);

/// Whether both paths lead to the same file, which exists.
bool IsSameFile(const std::string& path, const std::string& other);

}  // namespace platform
