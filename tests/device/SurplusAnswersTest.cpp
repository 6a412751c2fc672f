// SPDX-License-Identifier: MIT
#include "device/SurplusAnswers.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/VirtualClock.h"

namespace {

class SurplusAnswers : public testing::Test {
 protected:
  /// How long it took until the next packet could go; -1 when it may not.
  std::int64_t Clear() {
    const std::int64_t start = clock.Milliseconds();
    const bool isClear = answers.Clear([this] {
      if (coming.empty() || *coming.begin() > clock.Milliseconds()) return false;
      coming.erase(coming.begin());
      return true;
    });
    return isClear ? clock.Milliseconds() - start : -1;
  }

  test::VirtualClock clock;
  TCBase::SurplusAnswers answers{clock};
  std::multiset<std::int64_t> coming;  // when answers come that nobody waits for
};

}  // namespace

TEST_F(SurplusAnswers, TakeNoTimeWhileThereAreNone) {
  EXPECT_EQ(Clear(), 0);
  clock.Advance(500);
  EXPECT_EQ(Clear(), 0);
  EXPECT_FALSE(answers.WereSeen());
}

TEST_F(SurplusAnswers, AreWaitedForOnceAfterAPacketThatWasSentAgain) {
  Clear();
  answers.WasSentAgain();
  EXPECT_EQ(Clear(), 2100);
  EXPECT_EQ(Clear(), 0);
}

TEST_F(SurplusAnswers, AreWaitedForAsLongAsTheLatestTook) {
  Clear();
  coming = {clock.Milliseconds() + 300, clock.Milliseconds() + 500};
  clock.Advance(300);
  EXPECT_EQ(Clear(), 740) << "until 540 ms after the last";
  EXPECT_TRUE(answers.WereSeen());
  EXPECT_EQ(Clear(), 540);
  clock.Advance(9000);
  answers.WasSurplus();
  EXPECT_EQ(Clear(), 2100) << "none is later than that";
}

TEST_F(SurplusAnswers, WithoutEndFailThePacket) {
  Clear();
  for (int i = 0; i < 100; ++i) coming.insert(clock.Milliseconds() + i * 150);
  clock.Advance(1000);
  EXPECT_EQ(Clear(), -1);
  EXPECT_EQ(coming.size(), 26u) << "after ten seconds";
}
