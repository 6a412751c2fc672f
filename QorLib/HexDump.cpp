// SPDX-License-Identifier: MIT
#include "QorLib/HexDump.h"

namespace qor {
namespace {

constexpr std::size_t Columns = 16;

void AppendHex(std::size_t number, int digits, std::string& text) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
    text += "0123456789ABCDEF"[(number >> shift) & 0xF];
}

bool IsGroupEnd(std::size_t column) {
  return column == 7 || column == 15;
}

void AppendRow(std::size_t offset, std::string_view row, std::string& text) {
  AppendHex(offset, 4, text);
  text += "  ";
  for (std::size_t column = 0; column < Columns; ++column) {
    if (column < row.size()) {
      AppendHex(static_cast<unsigned char>(row[column]), 2, text);
      text += ' ';
    } else {
      text += "   ";
    }
    if (IsGroupEnd(column)) text += ' ';
  }
  text += "  ";
  for (std::size_t column = 0; column < row.size(); ++column) {
    const char byte = row[column];
    text += byte >= 0x20 && byte <= 0x7E ? byte : '.';
    if (IsGroupEnd(column)) text += ' ';
  }
  text += '\n';
}

}  // namespace

std::string HexDump(std::string_view bytes) {
  std::string text;
  for (std::size_t offset = 0; offset < bytes.size(); offset += Columns) {
    AppendRow(offset, bytes.substr(offset, Columns), text);
  }
  return text;
}

}  // namespace qor
