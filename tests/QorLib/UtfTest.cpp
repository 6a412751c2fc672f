// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "QorLib/qor_win_str_utils.h"

using namespace qor::win;

TEST(Utf, ConvertsBothWays) {
  const std::string utf8 = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x92\xA1";  // a ä € 💡
  const std::u16string utf16 = u"a\u00E4\u20AC\xD83D\xDCA1";
  EXPECT_EQ(Utf16FromUtf8(utf8), utf16);
  EXPECT_EQ(Utf8FromUtf16(utf16), utf8);
  EXPECT_EQ(Utf8FromWide(WideFromUtf8(utf8)), utf8);
}

TEST(Utf, ReplacesWhatIsBroken) {
  const struct {
    const char* utf8;
    const char16_t* utf16;
    std::size_t firstBroken;
  } cases[] = {
      {"x\x80y", u"x\uFFFDy", 1},                            // a continuation alone
      {"\xC0\xAF", u"\uFFFD\uFFFD", 0},                      // overlong
      {"ab\xE2\x82", u"ab\uFFFD", 2},                        // cut off
      {"\xE2\x82x", u"\uFFFDx", 0},                          // cut off by another character
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD", 0},            // a surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD", 0},  // above U+10FFFF
      {"12345678\xFF", u"12345678\uFFFD", 8},                // behind a block of eight
  };
  for (const auto& broken : cases) {
    EXPECT_EQ(Utf16FromUtf8(broken.utf8), broken.utf16) << broken.utf8;
    EXPECT_EQ(FindBrokenUtf8(broken.utf8), broken.firstBroken) << broken.utf8;
  }
  EXPECT_EQ(Utf8FromUtf16(u"\xD800x"), "\xEF\xBF\xBDx");
  EXPECT_EQ(FindBrokenUtf8("Aquarium \xC3\xBC"), std::string_view::npos);
}
