// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "QorLib/Sentence.h"

/// How files are read and written, and how that fails: the two functions throw, `Attempt` makes a sentence of
/// it.
namespace TCBase {

/// Does what may throw as the functions below do, or run out of memory; why it failed, or nothing.
qor::Sentence Attempt(const std::function<void()>& work);

/// The bytes of a file, `limit` + 1 of them when there are more. Throws qor::win::xsystem, or of its kinds
/// the one that fits.
std::string ReadFileBytes(const std::string& path, std::size_t limit);

/// Replaces a file safely (see platform::ReplaceWholeFile). Throws as ReadFileBytes does; the old file is
/// whole then.
void ReplaceFileBytes(const std::string& path, std::string_view bytes);

}  // namespace TCBase
