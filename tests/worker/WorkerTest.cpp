// SPDX-License-Identifier: MIT
#include "worker/Worker.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>

#include "model/Presets.h"
#include "platform/WindowMessage.h"
#include "tests/support/FakeHid.h"
#include "tests/support/FakeNetwork.h"
#include "tests/support/TestLog.h"
#include "tests/support/VirtualClock.h"

using Texts = std::vector<std::string>;
using Stage = TCBase::DeviceOutcome::Stage;

namespace {

class WorkerTest : public testing::Test {
 protected:
  static void WaitFor(TCBase::Worker& worker) {
    while (worker.IsBusy()) std::this_thread::yield();
  }

  std::vector<TCBase::DeviceInfo> Emulators(int count) {
    std::vector<TCBase::DeviceInfo> devices;
    for (int i = 0; i < count; ++i) {
      devices.push_back(TCBase::DeviceOfKind(TCBase::DeviceKind::Emulator));
      devices.back().name = "E" + std::to_string(i + 1);
      devices.back().selected = true;
    }
    return devices;
  }

  TCBase::Program OneMode() {
    TCBase::Program program = TCBase::NewProgram(qor::InEnglish);
    program.modes.resize(1);
    return program;
  }

  test::FakeHid hid;
  test::VirtualClock clock;
  test::TestLog log;
  test::FakeNetwork network{clock};
  TCBase::DeviceContext context{clock, log, network};
};

using Worker = WorkerTest;
using UsbPresenceMonitor = WorkerTest;

}  // namespace

TEST_F(Worker, RunsJobsInOrderAPassApart) {
  TCBase::Worker worker(context, TCBase::Worker::UsbWatch::Off);
  std::int64_t firstEnd = 0, secondStart = 0;
  // Enqueued by a job, so that no pass of the thread comes between the two.
  worker.Enqueue([&] {
    worker.Enqueue([&] {
      clock.Advance(1234);
      firstEnd = clock.Milliseconds();
    });
    worker.Enqueue([&] { secondStart = clock.Milliseconds(); });
  });
  WaitFor(worker);
  EXPECT_EQ(secondStart - firstEnd, 100);
}

TEST_F(Worker, VisitsTheSelectedDevicesOnly) {
  TCBase::Worker worker(context, TCBase::Worker::UsbWatch::Off);
  std::vector<TCBase::DeviceInfo> devices = Emulators(3);
  devices[1].selected = false;
  worker.StartUpload(devices, TCBase::Program::ModeListView(OneMode()));
  WaitFor(worker);
  EXPECT_EQ(log.Texts(), (Texts{"Configuring device E1", "Uploading started", "Uploading mode: Normal",
                                "Uploading finished", "Finished configuring device E1",
                                "Configuring device E3", "Uploading started", "Uploading mode: Normal",
                                "Uploading finished", "Finished configuring device E3"}));
  const std::vector<TCBase::DeviceOutcome> outcomes = worker.Outcomes();
  ASSERT_EQ(outcomes.size(), 2u);
  EXPECT_TRUE(outcomes[0].IsDone() && outcomes[1].IsDone());
}

TEST_F(Worker, GoesOnAfterADeviceThatFails) {
  TCBase::Worker worker(context, TCBase::Worker::UsbWatch::Off);
  std::vector<TCBase::DeviceInfo> devices = Emulators(2);
  devices[0].kind = TCBase::DeviceKind::TC420;
  worker.StartUpload(devices, TCBase::Program::ModeListView(OneMode()));
  WaitFor(worker);
  EXPECT_EQ(worker.Outcomes()[0].stage, Stage::NotConnected);
  EXPECT_TRUE(worker.Outcomes()[1].IsDone());
}

TEST_F(Worker, StopsBeforeTheNextDevice) {
  TCBase::Worker worker(context, TCBase::Worker::UsbWatch::Off);
  log.OnLine([&worker] { worker.Control().Post(TCBase::JobControl::Stop); });
  worker.StartUpload(Emulators(3), TCBase::Program::ModeListView(OneMode()));
  WaitFor(worker);
  EXPECT_EQ(log.Texts(), (Texts{"Configuring device E1", "Uploading started", "Uploading mode: Normal",
                                "Uploading finished", "Cancelled!"}));
  EXPECT_EQ(worker.Outcomes()[0].stage, Stage::Done) << "its one mode was sent";
  EXPECT_EQ(worker.Outcomes()[1].stage, Stage::NotReached);
  EXPECT_EQ(worker.Outcomes()[2].stage, Stage::NotReached);
}

TEST_F(Worker, DropsAStopThatWasMeantForNothing) {
  TCBase::Worker worker(context, TCBase::Worker::UsbWatch::Off);
  worker.Control().Post(TCBase::JobControl::Stop);
  worker.StartUpload(Emulators(1), TCBase::Program::ModeListView(OneMode()));
  WaitFor(worker);
  EXPECT_EQ(log.Texts().back(), "Finished configuring device E1");
}

TEST_F(Worker, SurvivesAJobThatThrows) {
  TCBase::Worker worker(context, TCBase::Worker::UsbWatch::Off);
  bool hasRun = false;
  worker.Enqueue([] { throw std::runtime_error("out of {1}"); });
  worker.Enqueue([&] { hasRun = true; });
  WaitFor(worker);
  EXPECT_TRUE(hasRun);
  EXPECT_EQ(log.Texts(), Texts{"out of {1}"});
}

TEST_F(Worker, ClearsDevicesInTurnWithTimeToErase) {
  TCBase::Worker worker(context, TCBase::Worker::UsbWatch::Off);
  std::vector<std::int64_t> ends;
  log.OnLine([&] { ends.push_back(clock.Milliseconds()); });
  worker.StartClearAll(Emulators(2));
  WaitFor(worker);
  EXPECT_EQ(log.Texts(),
            (Texts{"Configuring device E1", "Clearing all modes", "Finished configuring device E1",
                   "Configuring device E2", "Clearing all modes", "Finished configuring device E2"}));
  EXPECT_EQ(ends[5] - ends[0], 6000);
}

TEST_F(Worker, SetsClocksToTheTimeOfTheOrder) {
  TCBase::Worker worker(context, TCBase::Worker::UsbWatch::Off);
  log.SetTracing(true);
  worker.Enqueue([this] { clock.Advance(20000); });
  worker.StartTimeSync(Emulators(1), {2026, 2, 6, 28, 10, 0, 0, 0});
  WaitFor(worker);
  EXPECT_EQ(
      log.Texts()[3],
      "9:05:07:042 WritePacket: Packet_TimeSync(Year=2026, Month=02, Day=28, Hour=10, Minute=00, Second=00)");
}

TEST_F(Worker, TellsOfTheEndOfASearchAndOfWhatItFound) {
  network.hostNames["10.0.0.7"] = "reef";
  network.onSend = [this](const test::FakeNetwork::Datagram& sent) {
    network.Deliver("10.0.0.7", sent.bytes.substr(0, 4) + "10.0.0.7" + std::string(52, '\0'));
  };
  std::vector<std::uint32_t> posted;
  platform::SetWindowMessageHandler(
      [&](const platform::WindowMessage& message) { posted.push_back(message.message); });
  TCBase::Worker worker(context, TCBase::Worker::UsbWatch::Off);
  worker.StartNetworkScan(nullptr);
  WaitFor(worker);
  platform::SetWindowMessageHandler(nullptr);
  EXPECT_EQ(posted, std::vector<std::uint32_t>{0x401});
  ASSERT_EQ(worker.NetworkDevices().size(), 1u);
  EXPECT_EQ(worker.NetworkDevices()[0].name, "reef");
  EXPECT_EQ(platform::AddressAndPortText(worker.NetworkDevices()[0].address), "10.0.0.7:5000");
  EXPECT_FALSE(worker.ScanFailure());
  EXPECT_EQ(log.Texts(), (Texts{"Searching for network devices...", "Found 1 device(s)",
                                "Trying to find hostname for 10.0.0.7...", "Found hostname reef"}));
}

TEST_F(Worker, ReportsPluggingInAndOutOnceEach) {
  std::atomic<int> connected = 0, disconnected = 0;
  platform::SetWindowMessageHandler([&](const platform::WindowMessage& posted) {
    if (posted.message == 0x777) ++(posted.lParam == 1 ? connected : disconnected);
  });
  {
    hid.plugged = TCBase::TC421UsbId;
    TCBase::Worker worker(context, TCBase::Worker::UsbWatch::On);
    worker.SetNotification(nullptr, 0x777);
    const auto waitUntil = [this](std::int64_t time) {
      while (clock.Milliseconds() < time) std::this_thread::yield();
    };
    waitUntil(12000);
    worker.Enqueue([this] { hid.plugged.reset(); });
    WaitFor(worker);
    waitUntil(clock.Milliseconds() + 12000);
  }
  platform::SetWindowMessageHandler(nullptr);
  EXPECT_EQ(log.Texts(),
            (Texts{"Orvanta 24 Wi-Fi Device connected", "Orvanta 24 Wi-Fi Device disconnected"}));
  EXPECT_EQ(connected, 1);
  EXPECT_EQ(disconnected, 1);
  EXPECT_EQ(hid.OpenHandles(), 0);
}

TEST_F(UsbPresenceMonitor, ProbesEveryFiveSecondsAndWarnsOfASlowOpening) {
  hid.plugged = TCBase::TC420UsbId;
  hid.clock = &clock;
  hid.openMilliseconds = 2500;
  std::vector<bool> changes;
  TCBase::UsbPresenceMonitor monitor(TCBase::DeviceKind::TC420, context,
                                     [&](bool isConnected) { changes.push_back(isConnected); });
  clock.Advance(4999);
  monitor.Tick();
  EXPECT_TRUE(changes.empty());
  clock.Advance(1);
  monitor.Tick();
  EXPECT_EQ(changes, std::vector<bool>{true});
  EXPECT_EQ(log.Texts(),
            Texts{"Connecting to a device took 2500 ms. This usually points to a USB communication "
                  "error. Please try to disconnect and reconnect the USB device again."});
  hid.openMilliseconds = 2000;
  clock.Advance(5000);
  monitor.Tick();
  EXPECT_EQ(log.Texts(), Texts{});
  EXPECT_EQ(changes.size(), 1u);
}
