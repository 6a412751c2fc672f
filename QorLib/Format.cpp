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

std::string Format(std::string_view text, std::initializer_list<FormatArgument> arguments) {
  std::string result;
  while (true) {
    const std::size_t open = text.find('{');
    result += text.substr(0, open);
    if (open == std::string_view::npos) return result;
    text.remove_prefix(open);

    std::size_t number = 0;
    const char* end = text.data() + text.size();
    const auto [next, failure] = std::from_chars(text.data() + 1, end, number);
    const bool isPlaceholder = failure == std::errc{} && next != end && *next == '}' && number >= 1 &&
                               number <= arguments.size() && text[1] != '0';
    if (isPlaceholder) result += arguments.begin()[number - 1].Text();
    const std::size_t used = isPlaceholder ? static_cast<std::size_t>(next - text.data()) + 1 : 1;
    if (!isPlaceholder) result += '{';
    text.remove_prefix(used);
  }
}

}  // namespace qor
