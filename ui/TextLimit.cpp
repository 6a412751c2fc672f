// SPDX-License-Identifier: MIT
#include "ui/TextLimit.h"

#include <algorithm>

namespace UX {
namespace {

/// The second half of a pair belongs to the character before it.
bool BeginsCharacter(wchar_t unit) {
  return unit < 0xDC00 || unit > 0xDFFF;
}

}  // namespace

std::size_t CountCharacters(std::wstring_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, BeginsCharacter));
}

std::size_t SurplusBefore(std::wstring_view text, std::size_t caret, std::size_t most) {
  const std::size_t count = CountCharacters(text);
  caret = std::min(caret, text.size());
  std::size_t surplus = count > most ? count - most : 0;
  std::size_t start = caret;
  while (surplus > 0 && start > 0) {
    if (BeginsCharacter(text[--start])) --surplus;
  }
  return caret - start;
}

}  // namespace UX
