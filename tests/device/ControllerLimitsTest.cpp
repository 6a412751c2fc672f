// SPDX-License-Identifier: MIT
#include "device/ControllerLimits.h"

#include <gtest/gtest.h>

#include "tests/support/Curves.h"

using Texts = std::vector<std::string>;

namespace {

Texts TextsOf(const std::vector<qor::Sentence>& remarks) {
  Texts texts;
  for (const qor::Sentence& remark : remarks) texts.push_back(remark.In(qor::InEnglish));
  return texts;
}

}  // namespace

TEST(ControllerLimits, NameWhatAControllerWillNotTake) {
  TCBase::Program program;
  TCBase::Mode mode;
  mode.name = "Gr\u00FC\u00FC\u00FC\u00FCn";
  for (TCBase::Channel& channel : mode.channels) channel = test::Curve({{1, 0, 0}, {2, 0, 50}});
  mode.channels[0].steps[0].jump = true;
  mode.channels[2].steps.pop_back();
  mode.channels[3].steps[1] = TCBase::MakeStep(24, 0, 101, false);
  mode.channels[4].steps.clear();
  program.modes = {mode};
  const Texts everywhere = {
      "the name is cut to 8 bytes on a TC420: 'Gr\u00FC\u00FC\u00FC'",
      "the name is cut to 7 bytes on a TC421: 'Gr\u00FC\u00FC\uFFFD'",
      "channel 3 has 1 step; at least 2 are needed",
      "channel 5 has no steps; at least 2 are needed",
      "a TC421 carries no jumps and fades instead (1 here)",
      "channel 4 has steps outside the day, which are never sent",
      "channel 4 has values outside 0 to 100 %",
  };
  EXPECT_EQ(TextsOf(TCBase::RemarksOn(mode)), everywhere);
  const TCBase::Models blue = TCBase::ModelsOf({TCBase::DeviceOfKind(TCBase::DeviceKind::Emulator)});
  const Texts onTC420 = TextsOf(TCBase::RemarksOn(TCBase::Program::ModeListView(program), blue));
  ASSERT_EQ(onTC420.size(), 5u) << "nothing about a TC421";
  EXPECT_EQ(onTC420[1], "Mode 'Gr\u00FC\u00FC\u00FC\u00FCn': channel 3 has 1 step; at least 2 are needed");
}

TEST(ControllerLimits, CountStepsAndModes) {
  TCBase::Mode mode;
  mode.name = "m";
  for (TCBase::Channel& channel : mode.channels) channel = test::Curve({{1, 0, 0}, {2, 0, 50}});
  EXPECT_EQ(TextsOf(TCBase::RemarksOn(mode)), Texts{});
  for (int minute = 0; minute < 19; ++minute) mode.channels[0].Add(TCBase::MakeStep(3, minute, 1, false));
  EXPECT_EQ(TextsOf(TCBase::RemarksOn(mode)),
            Texts{"21 steps are over 20, the limit of the earlier TC420 in the blue case"});
  for (int minute = 19; minute < 47; ++minute) mode.channels[0].Add(TCBase::MakeStep(3, minute, 1, false));
  EXPECT_EQ(TextsOf(TCBase::RemarksOn(mode)), Texts{"49 steps are over the limit of 48"});
  TCBase::Program program;
  program.modes.resize(65, mode);
  EXPECT_EQ(TextsOf(TCBase::RemarksOn(program)),
            Texts{"a controller has 64 places; the modes from 65 on are refused"});
}
