// SPDX-License-Identifier: MIT
#include "worker/Worker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <iterator>
#include <stdexcept>
#include <thread>

#include "model/Presets.h"
#include "platform/WindowMessage.h"
#include "tests/support/DeviceTest.h"

using test::Texts;

namespace {

class WorkerTest : public test::DeviceTest {
 protected:
  static void WaitFor(TCBase::Worker& worker) {
    while (worker.IsBusy()) std::this_thread::yield();
  }

  static Texts TextsOf(const TCBase::JobOutcomes& job) {
    Texts texts = {std::to_string(job.number)};
    for (const TCBase::DeviceOutcome& outcome : job.devices) {
      texts.push_back(outcome.device.name + ": " + TCBase::SentenceOf(outcome).In(qor::InEnglish));
    }
    return texts;
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
};

class Worker : public WorkerTest {
 protected:
  void Wait() { WaitFor(worker); }
  /// The ended jobs, each as its number and its devices.
  Texts Ended() {
    Texts texts;
    for (const TCBase::JobOutcomes& job : worker.TakeEndedJobs())
      std::ranges::copy(TextsOf(job), std::back_inserter(texts));
    return texts;
  }

  TCBase::Worker worker{context, TCBase::Worker::UsbWatch::Off};
};

using UsbWatch = WorkerTest;

}  // namespace

TEST_F(Worker, RunsJobsInOrderAPassApart) {
  std::int64_t firstEnd = 0, secondStart = 0;
  // Enqueued by a job, so that no pass of the thread comes between the two.
  worker.Enqueue([&] {
    worker.Enqueue([&] {
      clock.Advance(1234);
      firstEnd = clock.Milliseconds();
    });
    worker.Enqueue([&] { secondStart = clock.Milliseconds(); });
  });
  Wait();
  EXPECT_EQ(secondStart - firstEnd, 100);
}

TEST_F(Worker, VisitsTheSelectedDevicesOnly) {
  std::vector<TCBase::DeviceInfo> devices = Emulators(3);
  devices[1].selected = false;
  worker.StartUpload(devices, TCBase::Program::ModeListView(OneMode()));
  Wait();
  EXPECT_EQ(Ended(), (Texts{"1", "E1: Done", "E3: Done"}));
}

TEST_F(Worker, StopsBeforeTheNextDevice) {
  log.OnLine([this] { worker.Control().Post(TCBase::JobControl::Stop); });
  worker.StartUpload(Emulators(3), TCBase::Program::ModeListView(OneMode()));
  Wait();
  EXPECT_EQ(log.Texts(), (Texts{"Configuring device E1", "Uploading started", "Uploading mode: Normal",
                                "Uploading finished", "Cancelled!", "E2: Not reached", "E3: Not reached"}));
  EXPECT_EQ(Ended(), (Texts{"1", "E1: Done", "E2: Not reached", "E3: Not reached"}))
      << "the one mode of the first was sent";
}

TEST_F(Worker, KeepsTheOutcomesOfEachJobAndTellsHowFarItIs) {
  std::vector<Texts> seen;
  bool isDropped = false;
  const std::vector<std::string> telling = {"Configuring device E1", "Uploading mode: AlwaysOn",
                                            "Configuring device E2"};
  log.OnLine([&] {
    for (const std::string& line : log.Texts()) {
      if (std::ranges::count(telling, line) > 0) seen.push_back(TextsOf(worker.RunningJob().value()));
      if (line == "Configuring device E2" && worker.WaitingJobs() == 2) worker.DropQueued();
      isDropped |= line == "Dropped 2 job(s) that waited";
    }
  });
  std::vector<TCBase::DeviceInfo> devices = Emulators(2);
  devices[0].kind = TCBase::DeviceKind::TC421Usb;
  worker.Enqueue([&] {
    worker.StartUpload(devices, TCBase::Program::ModeListView(OneMode()));
    worker.StartTimeSync(Emulators(1), {});
  });
  Wait();
  EXPECT_EQ(Ended(), (Texts{"1", "E1: Not connected: no TC421 is plugged in", "E2: Done", "2", "E1: Done"}));
  seen.clear();
  worker.Enqueue([&] {
    worker.StartUpload(Emulators(2), TCBase::Program::ModeListView(TCBase::NewProgram(qor::InEnglish)));
    worker.StartTimeSync(Emulators(1), {});
    worker.StartClearAll(Emulators(1));
  });
  Wait();
  EXPECT_EQ(seen, (std::vector<Texts>{{"3", "E1: Waiting", "E2: Waiting"},
                                      {"3", "E1: Mode 2 of 2", "E2: Waiting"},
                                      {"3", "E1: Done", "E2: Waiting"},
                                      {"3", "E1: Done", "E2: Mode 2 of 2"}}));
  EXPECT_TRUE(isDropped);
  EXPECT_EQ(Ended(), (Texts{"3", "E1: Done", "E2: Done"}));
  EXPECT_FALSE(worker.RunningJob());
}

TEST_F(Worker, SurvivesAJobThatThrows) {
  bool hasRun = false;
  worker.Enqueue([] { throw std::runtime_error("out of {1}"); });
  worker.Enqueue([&] { hasRun = true; });
  Wait();
  EXPECT_TRUE(hasRun);
  EXPECT_EQ(log.Texts(), Texts{"out of {1}"});
}

TEST_F(Worker, ClearsDevicesInTurnWithTimeToErase) {
  std::vector<std::int64_t> ends;
  log.OnLine([&] { ends.push_back(clock.Milliseconds()); });
  worker.StartClearAll(Emulators(2));
  Wait();
  EXPECT_EQ(log.Texts(),
            (Texts{"Configuring device E1", "Clearing all modes", "Finished configuring device E1",
                   "Configuring device E2", "Clearing all modes", "Finished configuring device E2"}));
  EXPECT_EQ(ends[5] - ends[0], 6000);
}

TEST_F(Worker, SetsClocksToTheTimeOfTheOrder) {
  log.SetTracing(true);
  worker.Enqueue([this] { clock.Advance(20000); });
  worker.StartTimeSync(Emulators(1), {2026, 2, 6, 28, 10, 0, 0, 0});
  Wait();
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
  worker.StartNetworkScan(nullptr);
  Wait();
  platform::SetWindowMessageHandler(nullptr);
  EXPECT_EQ(posted, std::vector<std::uint32_t>{0x401});
  ASSERT_EQ(worker.NetworkDevices().size(), 1u);
  EXPECT_EQ(worker.NetworkDevices()[0].name, "reef");
  EXPECT_EQ(platform::AddressAndPortText(worker.NetworkDevices()[0].address), "10.0.0.7:5000");
  EXPECT_FALSE(worker.ScanFailure());
  EXPECT_EQ(log.Texts(), (Texts{"Searching for network devices...", "Found 1 device(s)",
                                "Trying to find hostname for 10.0.0.7...", "Found hostname reef"}));
}

TEST_F(UsbWatch, ReportsPluggingInAndOutOnceEach) {
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

TEST_F(UsbWatch, ProbesEveryFiveSecondsAndWarnsOfASlowOpening) {
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
