// SPDX-License-Identifier: MIT
#include "formats/TableText.h"

#include <gtest/gtest.h>

#include "tests/support/Curves.h"

using test::Curve;

namespace {

using Texts = std::vector<std::string>;

Texts FaultsOf(std::string_view text) {
  Texts faults;
  for (const qor::Sentence& fault : TCBase::ReadTableText(text).faults)
    faults.push_back(fault.In(qor::InEnglish));
  return faults;
}

}  // namespace

TEST(TableText, HoldsAWholeDay) {
  TCBase::Mode mode;
  for (TCBase::Channel& channel : mode.channels) channel = Curve({{0, 0, 0}, {20, 30, 5}});
  mode.channels[1] = Curve({{0, 0, 100, true}, {8, 5, 7}});
  const std::string text = TCBase::WriteTableText(mode);
  EXPECT_EQ(text,
            "#time     1      2      3      4      5\n"
            "00:00     0    100J     0      0      0\n"
            "08:05     -      7      -      -      -\n"
            "20:30     5      -      5      5      5\n");
  const TCBase::TableReading reading = TCBase::ReadTableText(text);
  EXPECT_TRUE(reading.faults.empty());
  for (std::size_t i = 0; i < TCBase::ChannelCount; ++i)
    EXPECT_EQ(TCBase::Channel{reading.steps[i]}, mode.channels[i]);
}

TEST(TableText, NamesItsFaults) {
  EXPECT_EQ(FaultsOf("\xEF\xBB\xBF# a day\r\n\r\n 8:00\t1 2 - - - # early\r\n"), Texts{});
  EXPECT_EQ(
      FaultsOf(
          "24:00 0 0 0 0 0\n8:60 0 0 0 0 0\n08:00 1 2 3 4\n09:00 101 - -5 80K 7.5\n08:0x 1\n9:00 0 0 0 0 0"),
      (Texts{"line 1: '24:00' is no time of day; give it as HH:MM",
             "line 2: '8:60' is no time of day; give it as HH:MM",
             "line 3: there are 4 values behind the time; one for each of the 5 channels is needed",
             "line 4, channel 1: '101' is no brightness; give 0 to 100, with J behind it for a jump, or - "
             "for no step",
             "line 4, channel 3: '-5' is no brightness; give 0 to 100, with J behind it for a jump, or - "
             "for no step",
             "line 4, channel 4: '80K' is no brightness; give 0 to 100, with J behind it for a jump, or - "
             "for no step",
             "line 4, channel 5: '7.5' is no brightness; give 0 to 100, with J behind it for a jump, or - "
             "for no step",
             "line 5: '08:0x' is no time of day; give it as HH:MM",
             "line 6: 09:00 stands in line 4 already"}));
}
