// SPDX-License-Identifier: MIT
#include "formats/StepsText.h"

#include <gtest/gtest.h>

#include "tests/support/Curves.h"

namespace {

using TCBase::Step;

/// The text read and written again.
std::string Reread(const std::string& text) {
  std::string lines;
  for (const Step& step : TCBase::ReadStepsText(text).steps)
    lines += (lines.empty() ? "" : "|") + TCBase::StepText(step);
  return lines;
}

}  // namespace

TEST(StepsText, WritesALineForEachStep) {
  EXPECT_EQ(TCBase::WriteStepsText(test::Curve({{7, 5, 79.9f, true}, {0, 0, 100}}).steps),
            "07:05 79 J\r\n00:00 100\r\n");
}

TEST(StepsText, ReadsWhatPeopleType) {
  struct Case {
    const char* text;
    const char* steps;
  };
  for (const Case& one : {
           Case{"08:00 0\r\n10:00 80 J\r\n12:00 0\r\n13:40 50\r\n15:00 0",
                "08:00 0|10:00 80 J|12:00 0|13:40 50|15:00 0"},
           {"9:5 1\n\n  10 : 6   2   j \r\r7\t0\t3", "09:05 1|10:06 2 J|07:00 3"},
           {"\xEF\xBB\xBF"
            "08:00 5",
            "08:00 5"},
           {"10:00 80 x\n10:00 80 JJ", "10:00 80|10:00 80"},
           {"25:00 50\n08:00 150\n08:00 -5\n-1:30 50.9\n8:75 +7",
            "23:59 50|08:00 100|08:00 0|00:00 50|09:15 7"},
           {"99999999999:0 1\n0:-99999999999 1\n1:0 99999999999", "23:59 1|00:00 1|01:00 100"},
           {"a:b c\n12h:30m 40%", "00:00 0|12:30 40"},
           {"", ""},
           {"\r\n \r\n\t", ""},
       }) {
    EXPECT_EQ(Reread(one.text), one.steps) << one.text;
  }
}

TEST(StepsText, NamesLinesThatGiveAnotherStepOrNone) {
  const TCBase::StepsReading reading = TCBase::ReadStepsText(
      "10:00\r\n\r\n08:00 5\r\n10:00 80 J extra\rhello\n# my steps\n9:00 -x\n9:00 +5\n25:00 140\n8:75 50.9 "
      "jump\n");
  EXPECT_EQ(reading.steps.size(), 6u);
  EXPECT_EQ(reading.steps[0].id, 0u);
  std::vector<std::string> remarks;
  for (const qor::Sentence& remark : reading.remarks) remarks.push_back(remark.In(qor::InEnglish));
  EXPECT_EQ(
      remarks,
      (std::vector<std::string>{
          "Skipped lines: 1, 4, 5", "Lines with a missing number (read as 0): 6, 7",
          "line 9: 25:00 is no time of day and became 23:59", "line 9: 140 is no percentage and became 100",
          "line 10: 8:75 is no time of day and became 09:15", "line 10: jump is not J and was passed over"}));
  EXPECT_FALSE(TCBase::RefusalToEdit(std::string(2048, '1')));
  EXPECT_TRUE(TCBase::RefusalToEdit(std::string(2049, '1')));
}
