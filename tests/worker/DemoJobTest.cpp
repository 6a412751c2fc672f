// SPDX-License-Identifier: MIT
#include "worker/DemoJob.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "model/Presets.h"
#include "tests/support/Curves.h"
#include "tests/support/DeviceTest.h"

using test::Texts;
using Stage = TCBase::DeviceOutcome::Stage;

namespace {

/// Plays on a TC421 on the USB that answers at once, so that a packet takes no time but the poll behind it.
class DemoJob : public test::DeviceTest {
 protected:
  struct Frame {
    std::int64_t milliseconds;  // since the demo began to play
    std::string bytes;
  };

  DemoJob() {
    hid.plugged = TCBase::TC421UsbId;
    hid.answer = [this](const std::string& frame) {
      frames.push_back({clock.Milliseconds() - start, frame});
      return Texts{std::string(64, '\0')};
    };
  }

  TCBase::DeviceOutcome Play(int seconds, std::size_t mode = 0) {
    start = clock.Milliseconds();
    const TCBase::Program::ModeListView modes(program, {0, 1}, mode);
    return TCBase::DemoDevice(TCBase::DeviceOfKind(TCBase::DeviceKind::TC421Usb), modes, {seconds, 0}, job);
  }

  /// Calls `act` once, that long after the beginning.
  void At(std::int64_t milliseconds, std::function<void()> act) {
    acts.emplace(milliseconds, std::move(act));
    clock.onSleep = [this](std::uint32_t) {
      while (!acts.empty() && acts.begin()->first <= clock.Milliseconds() - start) {
        const std::function<void()> next = acts.begin()->second;
        acts.erase(acts.begin());
        next();
      }
    };
  }

  TCBase::JobControl control;
  TCBase::JobContext job{context, control};
  TCBase::Program program = TCBase::NewProgram(qor::InEnglish);
  std::int64_t start = 0;
  std::vector<Frame> frames;
  std::multimap<std::int64_t, std::function<void()>> acts;
};

}  // namespace

TEST_F(DemoJob, PlaysTheDayAndClosesIt) {
  EXPECT_TRUE(Play(10).IsDone());
  EXPECT_EQ(log.Texts(), (Texts{"Demo started", "Playing whole day in 10 seconds", "Demo finished"}));
  EXPECT_EQ(clock.Milliseconds() - start, 10000);
  EXPECT_EQ(frames.front().bytes.substr(2, 12), std::string("\x06\x01\0\x0A\x01Normal\0", 12));
  EXPECT_EQ(frames.back().bytes.substr(2, 2), "\x03\x08");
  EXPECT_EQ(control.demoState, TCBase::JobControl::NoDemo);
  EXPECT_EQ(control.demoSecond, TCBase::JobControl::NoSecond);
}

TEST_F(DemoJob, SendsEvery50MsWhileValuesChangeAndEvery200MsOtherwise) {
  // A saw: the values change all the time in the first half of the day, and never in the second.
  for (TCBase::Channel& channel : program.modes[0].channels) {
    channel =
        test::Curve({{0, 0, 0}, {2, 0, 100}, {4, 0, 0}, {6, 0, 100}, {8, 0, 0}, {10, 0, 100}, {12, 0, 0}});
  }
  Play(10);
  for (std::size_t i = 3; i + 1 < frames.size(); ++i) {
    const std::int64_t gap = frames[i].milliseconds - frames[i - 1].milliseconds;
    EXPECT_EQ(gap, frames[i].milliseconds <= 5000 ? 50 : 200) << frames[i].milliseconds;
  }
  EXPECT_GT(frames.size(), 120u);
}

TEST_F(DemoJob, PausesSeeksAndResumes) {
  using TCBase::JobControl;
  At(1000, [this] { control.Post(JobControl::Pause); });
  At(2000, [this] {
    EXPECT_EQ(control.demoState, JobControl::DemoPaused);
    EXPECT_EQ(control.demoSecond, 8683) << "one pass after the order";
    control.PostSeek(43200);
  });
  At(3000, [this] {
    EXPECT_EQ(control.demoSecond, 43200);
    EXPECT_EQ(control.demoState, JobControl::DemoPaused);
    EXPECT_EQ(control.LastChannels().values, (std::array<std::int32_t, 5>{50, 50, 50, 50, 30}));
    control.Post(JobControl::Resume);
  });
  EXPECT_TRUE(Play(10).IsDone());
  const auto between = [this](std::int64_t from, std::int64_t to) {
    return std::ranges::count_if(
        frames, [&](const Frame& frame) { return frame.milliseconds > from && frame.milliseconds <= to; });
  };
  EXPECT_EQ(between(2100, 2900), 4) << "refreshed while it is paused";
  EXPECT_EQ(clock.Milliseconds() - start, 3000 + 5005) << "the second half, and the pass that resumed it";
}

TEST_F(DemoJob, EndsAtAStopAndBySeekingTheEnd) {
  using TCBase::JobControl;
  control.Post(JobControl::Stop);  // meant for an earlier job
  At(700, [this] { control.PostSeek(86399); });
  EXPECT_TRUE(Play(10).IsDone());
  EXPECT_LE(clock.Milliseconds() - start, 700 + 15);
  frames.clear();
  At(300, [this] { control.Post(JobControl::Stop); });
  EXPECT_EQ(Play(60).stage, Stage::Cancelled);
  EXPECT_EQ(clock.Milliseconds() - start, 305);
  EXPECT_EQ(frames.back().bytes.substr(2, 2), "\x03\x08");
  EXPECT_TRUE(control.TakeStop()) << "passed on to the loop over the devices";
}

TEST_F(DemoJob, NeverCallsADemoDoneThatWasLost) {
  hid.unplugAfter = 20;
  const TCBase::DeviceOutcome outcome = Play(10);
  EXPECT_EQ(outcome.stage, Stage::Incomplete);
  EXPECT_EQ(log.Texts().back(), "Demo finished");
  EXPECT_EQ(clock.Milliseconds() - start, 10000) << "not a moment longer than the day";
  hid.plugged.reset();
  EXPECT_EQ(Play(10).stage, Stage::NotConnected);
  EXPECT_EQ(log.Texts(), Texts{"Connect error"});
}

TEST(DemoSeconds, ComeFromTheSetting) {
  EXPECT_EQ(TCBase::DemoSecondsOf(""), 60);
  EXPECT_EQ(TCBase::DemoSecondsOf("300"), 300);
  EXPECT_EQ(TCBase::DemoSecondsOf("9"), 10);
  EXPECT_EQ(TCBase::DemoSecondsOf("fast"), 10);
  EXPECT_EQ(TCBase::DemoSecondsOf("99999999999"), 86400);
}
