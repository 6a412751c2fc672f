// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace qor {

/// A text of the program for people, in English: the key of its translations. Made of a literal by TR, or of
/// what stands in a table of such texts; it views what it is made of.
class English {
 public:
  constexpr explicit English(std::string_view text) : text_(text) {}

  constexpr operator std::string_view() const { return text_; }
  constexpr bool operator==(const English&) const = default;

 private:
  std::string_view text_;
};

/// Marks a literal as a text for people. `scripts/check-texts` finds it by this, and wants translations of
/// it.
#define TR(literal) ::qor::English("" literal)

/// Gives the user's language for an English text; the English text itself where there is no translation.
using Translate = std::function<std::string(English)>;

/// The translation into English: the text as it is.
inline std::string InEnglish(English english) {
  return std::string(english);
}

}  // namespace qor
