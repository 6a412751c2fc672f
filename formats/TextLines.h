// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Texts that people type: lines of fields.
namespace TCBase {

/// The text without the mark that some editors put before UTF-8.
std::string_view WithoutByteOrderMark(std::string_view text);

/// Takes a line off the front of a text that is not empty; lines end at CR, LF or both.
std::string_view TakeLine(std::string_view& text);

/// What stands between the separators.
std::vector<std::string_view> FieldsOf(std::string_view line, std::string_view separators);

/// Words of a text as a message shows them: not too long, and well-formed.
std::string Shown(std::string_view words);

}  // namespace TCBase
