// SPDX-License-Identifier: MIT
#pragma once

#include <charconv>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

// Options of a tool as a table, from which they are parsed and explained.
namespace ToolOptions {

template <typename Options>
struct Row {
  std::string_view name;
  std::string_view argument;  // empty for a plain switch
  std::string_view help;
  void (*apply)(Options& options, const std::string& argument);
};

// All of these throw std::invalid_argument with a finished sentence when the arguments make no sense.

inline int ParseNumber(const std::string& text, int lowest, int highest) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  if (parsed.ec == std::errc() && parsed.ptr == end && number >= lowest && number <= highest) return number;
  throw std::invalid_argument("\"" + text + "\" is not a number from " + std::to_string(lowest) + " to " +
                              std::to_string(highest) + ".");
}

template <typename Options>
const Row<Options>& FindRow(std::span<const Row<Options>> rows, std::string_view name) {
  for (const Row<Options>& row : rows) {
    if (row.name == name) return row;
  }
  throw std::invalid_argument("There is no option \"" + std::string(name) + "\".");
}

template <typename Options>
Options Parse(std::span<const Row<Options>> rows, int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const Row<Options>& row = FindRow(rows, argv[i]);
    std::string argument;
    if (!row.argument.empty()) {
      if (++i == argc) throw std::invalid_argument(std::string(row.name) + " needs a value.");
      argument = argv[i];
    }
    row.apply(options, argument);
  }
  return options;
}

// A line for each option.
template <typename Options>
std::string Help(std::span<const Row<Options>> rows) {
  constexpr std::size_t Column = 21;
  std::string text;
  for (const Row<Options>& row : rows) {
    std::string left = "  " + std::string(row.name);
    if (!row.argument.empty()) left += " " + std::string(row.argument);
    left.resize(Column, ' ');
    text += left + "  " + std::string(row.help) + "\n";
  }
  return text;
}

}  // namespace ToolOptions
