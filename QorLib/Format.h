// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace qor {

/// One argument of Format: a text as it is, or an integer in decimal.
class FormatArgument {
 public:
  FormatArgument(std::string_view text) : text_(text) {}
  FormatArgument(const char* text) : text_(text) {}
  FormatArgument(std::string text) : text_(std::move(text)) {}
  template <std::integral Integer>
  FormatArgument(Integer number) : text_(std::to_string(number)) {}

  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

/// Whether a byte of UTF-8 is a control character of ASCII, which a terminal would obey.
constexpr bool IsControl(char c) {
  constexpr unsigned char Delete = 0x7F;
  return static_cast<unsigned char>(c) < ' ' || c == Delete;
}

/// `number` in decimal with at least `width` digits, filled with zeros behind the sign: (7, 2) is "07".
std::string ZeroFilled(long long number, std::size_t width);

/// Replaces the placeholders "{1}", "{2}", … of `text` by the arguments of those numbers. One pass: what an
/// argument brings in is never looked at again. A placeholder without an argument stays as it stands.
std::string Format(std::string_view text, std::span<const FormatArgument> arguments);
inline std::string Format(std::string_view text, std::initializer_list<FormatArgument> arguments) {
  return Format(text, std::span(arguments.begin(), arguments.size()));
}

/// A placeholder within a text: its number, from 1, and where it stands.
struct Placeholder {
  std::size_t number, start, length;
};

/// The first placeholder that begins at `from` or later.
std::optional<Placeholder> FindPlaceholder(std::string_view text, std::size_t from);

}  // namespace qor
