// SPDX-License-Identifier: MIT
#include "formats/TextLines.h"

#include <algorithm>

#include "QorLib/qor_win_str_utils.h"

namespace TCBase {
namespace {

/// Takes the text up to one of the separators off the front, and the separator.
std::string_view TakeUntil(std::string_view separators, std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of(separators), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

}  // namespace

std::string_view WithoutByteOrderMark(std::string_view text) {
  constexpr std::string_view Mark = "\xEF\xBB\xBF";
  return text.starts_with(Mark) ? text.substr(Mark.size()) : text;
}

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find_first_of("\r\n");
  const bool isPair = end != std::string_view::npos && text.substr(end).starts_with("\r\n");
  const std::string_view line = TakeUntil("\r\n", text);
  if (isPair) text.remove_prefix(1);
  return line;
}

std::vector<std::string_view> FieldsOf(std::string_view line, std::string_view separators) {
  std::vector<std::string_view> fields;
  while (!line.empty()) {
    if (const std::string_view field = TakeUntil(separators, line); !field.empty()) fields.push_back(field);
  }
  return fields;
}

std::string Shown(std::string_view words) {
  constexpr std::size_t Longest = 20;
  return qor::win::WellFormedUtf8(words.substr(0, Longest)) + (words.size() > Longest ? "…" : "");
}

}  // namespace TCBase
