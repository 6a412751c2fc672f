// SPDX-License-Identifier: MIT
#include "QorLib/Format.h"

#include <charconv>

namespace qor {

std::string ZeroFilled(long long number, std::size_t width) {
  std::string digits = std::to_string(number);
  const std::size_t signLength = number < 0 ? 1 : 0;
  const std::size_t length = digits.size() - signLength;
  if (length < width) digits.insert(signLength, width - length, '0');
  return digits;
}

std::optional<Placeholder> FindPlaceholder(std::string_view text, std::size_t from) {
  const char* const textEnd = text.data() + text.size();
  for (std::size_t open = text.find('{', from); open != std::string_view::npos;
       open = text.find('{', open + 1)) {
    const char* digits = text.data() + open + 1;
    std::size_t number = 0;
    const auto [next, failure] = std::from_chars(digits, textEnd, number);
    const bool isNumber = failure == std::errc{} && *digits != '0';
    if (isNumber && next != textEnd && *next == '}') {
      return Placeholder{number, open, static_cast<std::size_t>(next - digits) + 2};
    }
  }
  return std::nullopt;
}

std::string Format(std::string_view text, std::span<const FormatArgument> arguments) {
  std::string result;
  std::size_t from = 0;
  while (const auto placeholder = FindPlaceholder(text, from)) {
    const std::size_t end = placeholder->start + placeholder->length;
    result += text.substr(from, placeholder->start - from);
    result += placeholder->number <= arguments.size()
                  ? std::string_view(arguments[placeholder->number - 1].Text())
                  : text.substr(placeholder->start, placeholder->length);
    from = end;
  }
  return result += text.substr(from);
}

}  // namespace qor
