// SPDX-License-Identifier: MIT
#include "QorLib/Format.h"

#include <gtest/gtest.h>

#include "QorLib/Exceptions.h"
#include "QorLib/HexDump.h"

using qor::Format;
using qor::ZeroFilled;

TEST(Format, ReplacesPlaceholdersByTheirArguments) {
  EXPECT_EQ(Format("{2} before {1}, {2} again", {"one", -7}), "-7 before one, -7 again");
  EXPECT_EQ(Format("{10}", {0, 1, 2, 3, 4, 5, 6, 7, 8, "ten"}), "ten");
  EXPECT_EQ(Format("{1}{2}", {"{2}", "b{1}"}), "{2}b{1}") << "what was put in is not looked at again";
}

TEST(Format, LeavesWhatIsNoPlaceholder) {
  for (const char* text : {"{", "{}", "{1", "{x}", "{0}", "{3}", "{01}", "{-1}", "{+1}", "{1 }", "}",
                           "{99999999999999999999}"}) {
    EXPECT_EQ(Format(text, {"a", "b"}), text);
  }
  EXPECT_EQ(Format("{{1}}", {"a"}), "{a}");
}

TEST(Format, FillsWithZeros) {
  EXPECT_EQ(ZeroFilled(7, 2), "07");
  EXPECT_EQ(ZeroFilled(2024, 4), "2024");
  EXPECT_EQ(ZeroFilled(12345, 4), "12345");
  EXPECT_EQ(ZeroFilled(-7, 2), "-07");
}

TEST(HexDump, ShowsSixteenBytesARow) {
  EXPECT_EQ(qor::HexDump("Light at 8:00\x7F\xFF\x1F"
                         "48%"),
            "0000  4C 69 67 68 74 20 61 74  20 38 3A 30 30 7F FF 1F    Light at  8:00... \n"
            "0010  34 38 25                                            48%\n");
  EXPECT_EQ(qor::HexDump(""), "");
}

TEST(SystemException, TellsCodeAndDescription) {
  using namespace qor::win;
  EXPECT_STREQ(xsystem(5, "Access is denied.").what(),
               "\nWin32 API Error.\nError Code: 5 (0x00000005)\nDescription: Access is denied.");
  EXPECT_EQ(xsystem(5, "").Description(), "Cannot obtain error description.");
}
