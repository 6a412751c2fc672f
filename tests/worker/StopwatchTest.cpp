// SPDX-License-Identifier: MIT
#include "worker/Stopwatch.h"

#include <gtest/gtest.h>

#include "tests/support/VirtualClock.h"
#include "worker/JobControl.h"

TEST(Stopwatch, PausesResumesAndSeeks) {
  test::VirtualClock clock;
  TCBase::Stopwatch stopwatch(clock);
  clock.Advance(1500);
  EXPECT_EQ(stopwatch.Elapsed(), 1.5);
  stopwatch.Resume();
  EXPECT_EQ(stopwatch.Elapsed(), 1.5) << "resuming a running one does nothing";
  stopwatch.Pause();
  clock.Advance(1000);
  stopwatch.Pause();
  EXPECT_EQ(stopwatch.Elapsed(), 1.5);
  stopwatch.Resume();
  clock.Advance(500);
  EXPECT_EQ(stopwatch.Elapsed(), 2.0);

  stopwatch.Seek(100);
  clock.Advance(1000);
  EXPECT_EQ(stopwatch.Elapsed(), 101.0);
  stopwatch.Pause();
  stopwatch.Seek(-5);
  EXPECT_EQ(stopwatch.Elapsed(), 0.0);
  clock.Advance(1000);
  stopwatch.Resume();
  clock.Advance(250);
  EXPECT_EQ(stopwatch.Elapsed(), 0.25);
  stopwatch.Restart();
  EXPECT_EQ(stopwatch.Elapsed(), 0.0);
  clock.Advance(10);
  EXPECT_EQ(stopwatch.Elapsed(), 0.01);
}

TEST(JobControl, HoldsTheNewestCommandOnly) {
  TCBase::JobControl control;
  EXPECT_EQ(control.Take(), nullptr);
  control.Post(TCBase::JobControl::Stop);
  control.PostSeek(3661);
  const auto command = control.Take();
  ASSERT_NE(command, nullptr);
  EXPECT_EQ(command->type, TCBase::JobControl::Seek);
  EXPECT_EQ(command->value, 3660);
  EXPECT_EQ(control.Take(), nullptr);

  for (const auto& [second, value] : {std::pair(-100, 0), {86400, 86399}, {86399, 86340}}) {
    control.PostSeek(second);
    EXPECT_EQ(control.Take()->value, value);
  }
  control.Post(TCBase::JobControl::Pause);
  EXPECT_FALSE(control.TakeStop());
}
