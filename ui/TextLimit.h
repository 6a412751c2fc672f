// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

/// Limits of typed texts, which people count in characters.
namespace UX {

/// Of UTF-16 text; a pair of surrogates is one character.
std::size_t CountCharacters(std::wstring_view text);

/// How many units before `caret` must go, so that the text keeps to `most` characters: what was typed or
/// pasted last stands there. Less than enough when there is less before the caret.
std::size_t SurplusBefore(std::wstring_view text, std::size_t caret, std::size_t most);

}  // namespace UX
