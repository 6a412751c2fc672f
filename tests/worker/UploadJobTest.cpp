// SPDX-License-Identifier: MIT
#include "worker/UploadJob.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "device/TC420/Mock.h"
#include "model/Presets.h"
#include "tests/support/DeviceTest.h"

using test::Texts;
using Stage = TCBase::DeviceOutcome::Stage;

namespace {

class UploadJob : public test::DeviceTest {
 protected:
  UploadJob() { modes(2); }

  /// Makes the program to upload one of `count` modes named A, B, …
  void modes(std::size_t count) {
    program = TCBase::NewProgram(qor::InEnglish);
    program.modes.resize(count, program.modes[1]);
    for (std::size_t i = 0; i < count; ++i)
      program.modes[i].name = std::string(1, static_cast<char>('A' + i));
  }

  TCBase::DeviceOutcome Upload(TCBase::DeviceKind kind) {
    return TCBase::UploadDevice(TCBase::DeviceOfKind(kind), TCBase::Program::ModeListView(program), job);
  }
  TCBase::DeviceOutcome UploadTo(TC420::Mock& device) {
    return TCBase::Upload(device, TCBase::DeviceOfKind(TCBase::DeviceKind::Emulator),
                          TCBase::Program::ModeListView(program), job);
  }

  TCBase::JobControl control;
  TCBase::JobContext job{context, control};
  TCBase::Program program;
};

}  // namespace

TEST_F(UploadJob, WritesItsLinesAndWaitsAfterEachMode) {
  const std::int64_t start = clock.Milliseconds();
  EXPECT_TRUE(Upload(TCBase::DeviceKind::Emulator).IsDone());
  EXPECT_EQ(log.Texts(),
            (Texts{"Uploading started", "Uploading mode: A", "Uploading mode: B", "Uploading finished"}));
  EXPECT_EQ(clock.Milliseconds() - start, 1000) << "no time beyond the pauses";
}

TEST_F(UploadJob, KeepsGoingAfterAModeIsRefused) {
  modes(3);
  program.modes[1].name.clear();
  TC420::Mock device(job.device);
  const TCBase::DeviceOutcome outcome = UploadTo(device);
  EXPECT_EQ(outcome.stage, Stage::Failed);
  EXPECT_EQ(outcome.detail.In(qor::InEnglish), "modes not taken: ''");
  EXPECT_EQ(log.Texts(), (Texts{"Uploading started", "Uploading mode: A", "Uploading mode: ", "Upload error",
                                "Uploading mode: C", "Uploading finished"}));
  EXPECT_EQ(device.Written()[14][5], 2) << "the third mode keeps its bank";
}

TEST_F(UploadJob, NeverCallsAnUnpluggedUploadDone) {
  for (int frames = 0; frames < 19; ++frames) {
    test::FakeHid bus;
    bus.plugged = TCBase::TC420UsbId;
    bus.unplugAfter = frames;
    bus.answer = [](const std::string&) { return Texts{"ok"}; };
    const TCBase::DeviceOutcome outcome = Upload(TCBase::DeviceKind::TC420);
    EXPECT_EQ(outcome.stage, frames < 18 ? Stage::Failed : Stage::Incomplete) << frames;
    const Texts texts = log.Texts();
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "Upload error"), frames < 14   ? 2
                                                                      : frames < 18 ? 1
                                                                                    : 0)
        << frames;
  }
}

TEST_F(UploadJob, StopsAfterTheModeInHand) {
  modes(5);
  Texts texts;
  log.OnLine([&] {
    texts.push_back(log.Texts().at(0));
    if (texts.back() == "Uploading mode: A") control.Post(TCBase::JobControl::Stop);
  });
  TC420::Mock device(job.device);
  EXPECT_EQ(UploadTo(device).stage, Stage::Cancelled);
  EXPECT_EQ(texts, (Texts{"Uploading started", "Uploading mode: A", "Uploading finished"}));
  EXPECT_EQ(device.Written().back()[2], 0x02);
  EXPECT_TRUE(control.TakeStop()) << "passed on to the loop over the devices";
}

TEST_F(UploadJob, BringsLongModesUnderTheLimitOfATC421) {
  modes(1);
  for (int i = 0; i < 100; ++i) {
    program.modes[0].channels[0].steps.push_back(
        TCBase::MakeStep(i / 60, i % 60, static_cast<float>(i % 7), false));
  }
  program.modes[0].channels[0].Sort();
  const TCBase::Mode before = program.modes[0];
  hid.plugged = TCBase::TC421UsbId;
  hid.answer = [](const std::string&) { return Texts{std::string(64, '\0')}; };
  EXPECT_TRUE(Upload(TCBase::DeviceKind::TC421Usb).IsDone());
  EXPECT_EQ(hid.Frames().size(), 1u + 48 + 1);
  EXPECT_EQ(hid.Frames()[0][15], 48) << "the number of samples";
  EXPECT_TRUE(program.modes[0] == before) << "only the copy for the controller";
}

TEST_F(UploadJob, DropsACommandThatIsOlder) {
  control.Post(TCBase::JobControl::Stop);
  control.demoSecond = 5;
  EXPECT_TRUE(Upload(TCBase::DeviceKind::Emulator).IsDone());
  EXPECT_EQ(control.demoSecond, -1);
}
