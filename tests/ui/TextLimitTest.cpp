// SPDX-License-Identifier: MIT
#include "ui/TextLimit.h"

#include <gtest/gtest.h>

TEST(TextLimit, TakesBackWhatWasTypedLast) {
  struct Case {
    std::wstring_view text;
    std::size_t caret;
    std::size_t surplus;
  };
  const wchar_t pair[] = {0xD83D, 0xDCA1, L'a', L'b', L'c', 0};
  for (const Case& c :
       {Case{L"abc", 3, 0}, {L"abcd", 4, 1}, {L"aXYbc", 3, 2}, {L"abcd", 0, 0}, {pair, 2, 2}}) {
    EXPECT_EQ(UX::SurplusBefore(c.text, c.caret, 3), c.surplus) << c.caret;
  }
  EXPECT_EQ(UX::CountCharacters(pair), 4U);
  EXPECT_EQ(UX::CountCharacters(L"\u00E4\u017C\u20AC"), 3U);
}
