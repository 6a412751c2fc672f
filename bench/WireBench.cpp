// SPDX-License-Identifier: MIT
// Measures against a simulated controller on the network: wire_bench ADDRESS [DEMO-SECONDS]; bench/wire runs
// it.
#include <sys/resource.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "model/Presets.h"
#include "worker/DemoJob.h"
#include "worker/UploadJob.h"

namespace {

using namespace TCBase;

/// The computer's clock, which adds up what was asked of its sleeps.
class CountingClock : public platform::Clock {
 public:
  std::int64_t Counter() override { return clock_.Counter(); }
  std::int64_t Frequency() override { return clock_.Frequency(); }
  void Sleep(std::uint32_t milliseconds) override {
    asked += milliseconds;
    clock_.Sleep(milliseconds);
  }
  platform::SYSTEMTIME LocalTime() override { return clock_.LocalTime(); }
  double Seconds() { return static_cast<double>(Counter()) / static_cast<double>(Frequency()); }

  std::uint64_t asked = 0;

 private:
  platform::Clock& clock_ = platform::SystemClock();
};

/// The processor time of this thread.
double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_THREAD, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Notes when each datagram is sent, and when the last look for an answer was.
class WatchedSocket : public platform::UdpSocket {
 public:
  WatchedSocket(std::unique_ptr<platform::UdpSocket> socket, CountingClock& clock, std::vector<double>& gaps)
      : socket_(std::move(socket)), clock_(clock), gaps_(gaps) {}
  bool Open() override { return socket_->Open(); }
  bool AllowBroadcast() override { return socket_->AllowBroadcast(); }
  bool MakeNonBlocking() override { return socket_->MakeNonBlocking(); }
  bool Bind(std::uint16_t port) override { return socket_->Bind(port); }
  bool SendTo(const platform::SocketAddress& to, std::string_view datagram) override {
    if (answered_ > 0) gaps_.push_back(clock_.Seconds() - answered_);
    return socket_->SendTo(to, datagram);
  }
  bool ReceiveFrom(std::string& datagram, platform::SocketAddress& sender) override {
    const bool isReceived = socket_->ReceiveFrom(datagram, sender);
    if (isReceived) answered_ = clock_.Seconds();
    return isReceived;
  }
  platform::SystemError LastError() const override { return socket_->LastError(); }

 private:
  std::unique_ptr<platform::UdpSocket> socket_;
  CountingClock& clock_;
  std::vector<double>& gaps_;
  double answered_ = 0;
};

class WatchedNetwork : public platform::Network {
 public:
  explicit WatchedNetwork(CountingClock& clock) : clock_(clock) {}
  std::unique_ptr<platform::UdpSocket> NewUdpSocket() override {
    return std::make_unique<WatchedSocket>(platform::SystemNetwork().NewUdpSocket(), clock_, gaps);
  }
  bool IsOwn(const platform::SocketAddress&) override { return false; }
  std::string HostNameOf(const platform::SocketAddress&, std::uint32_t) override { return {}; }

  std::vector<double> gaps;  // seconds from an answer to the next datagram

 private:
  CountingClock& clock_;
};

constexpr double SendSeconds = 0.05;

/// How much later than due the values went out, at the 99th percentile, in milliseconds. Values that do not
/// change are due at another time, so only what comes within the time for changing ones is looked at.
double Lateness(std::vector<double> gaps) {
  constexpr double WhenUnchanged = 0.2;
  std::erase_if(gaps, [](double gap) { return gap < SendSeconds || gap >= WhenUnchanged; });
  if (gaps.empty()) return 0;
  const auto at = gaps.begin() + static_cast<std::ptrdiff_t>(gaps.size() * 99 / 100);
  std::nth_element(gaps.begin(), at, gaps.end());
  return (*at - SendSeconds) * 1000;
}

/// Fades all day, so that values change all the time.
Program FadingProgram() {
  Program program = NewProgram(qor::InEnglish);
  for (Channel& channel : program.modes[0].channels) {
    channel.steps.clear();
    for (int hour = 0; hour < 24; ++hour) {
      channel.steps.push_back(MakeStep(hour, 0, hour % 2 == 0 ? 0.0F : 100.0F, false));
    }
  }
  return program;
}

struct Cost {
  double lateMilliseconds = 0;
  double processorSeconds = 0;
  std::size_t sends = 0;
};

Cost PlayDemo(const DeviceInfo& device, int seconds) {
  CountingClock clock;
  WatchedNetwork network(clock);
  qor::Log log([] { return qor::TimeOfDay{}; });
  JobControl control;
  const Program::ModeListView modes(FadingProgram());
  const double before = ProcessorSeconds();
  const DeviceOutcome outcome = DemoDevice(device, modes, {seconds, 0}, {{clock, log, network}, control});
  const double used = ProcessorSeconds() - before;
  if (!outcome.IsDone()) {
    std::fprintf(stderr, "the demo failed: %s\n", outcome.detail.In(qor::InEnglish).c_str());
    std::exit(1);
  }
  return {Lateness(network.gaps), used, network.gaps.size()};
}

/// Sleeps of 5 ms for as long; how late it notices that 50 ms have gone.
Cost LoopBarely(int seconds) {
  platform::Clock& clock = platform::SystemClock();
  const auto now = [&clock] {
    return static_cast<double>(clock.Counter()) / static_cast<double>(clock.Frequency());
  };
  const double before = ProcessorSeconds();
  const double end = now() + seconds;
  std::vector<double> gaps;
  for (double mark = now(), time = mark; time < end; time = now()) {
    if (time - mark >= SendSeconds) {
      gaps.push_back(time - mark);
      mark = now();
    }
    clock.Sleep(5);
  }
  return {Lateness(gaps), ProcessorSeconds() - before, gaps.size()};
}

/// The processor time of so many datagrams and the looks for their answers, without anything around them.
double SendBarely(const DeviceInfo& device, std::size_t count) {
  const auto socket = platform::SystemNetwork().NewUdpSocket();
  if (!socket->Open() || !socket->MakeNonBlocking() || !socket->Bind(5000)) std::exit(1);
  const std::string frame(64, '\0');  // that nobody answers
  const double before = ProcessorSeconds();
  std::string datagram;
  platform::SocketAddress sender;
  for (std::size_t i = 0; i < count; ++i) {
    socket->SendTo(platform::IPv4Address(device.address.address, 5000), frame);
    for (int look = 0; look < 2; ++look) socket->ReceiveFrom(datagram, sender);
    platform::SystemClock().Sleep(20);
  }
  return ProcessorSeconds() - before;
}

bool Row(const char* what, double halvex, double other, double required) {
  const double ratio = halvex / other;
  std::printf("| %s | %.2f | %.2f | %.3f | ≤ %g |%s\n", what, halvex, other, ratio, required,
              ratio <= required ? "" : " MISSED");
  std::fflush(stdout);
  return ratio <= required;
}

bool MeasureUpload(const DeviceInfo& device) {
  CountingClock clock;
  qor::Log log([] { return qor::TimeOfDay{}; });
  JobControl control;
  const Program::ModeListView modes(NewProgram(qor::InEnglish));
  const double start = clock.Seconds();
  const DeviceOutcome outcome =
      UploadDevice(device, modes, {{clock, log, platform::SystemNetwork()}, control});
  const double took = clock.Seconds() - start;
  if (!outcome.IsDone()) {
    std::fprintf(stderr, "the upload failed: %s\n", outcome.detail.In(qor::InEnglish).c_str());
    std::exit(1);
  }
  return Row("upload of two modes, ms, against its waits", took * 1000, static_cast<double>(clock.asked),
             1.02);
}

bool MeasureDemo(const DeviceInfo& device, int seconds) {
  std::atomic<bool> isOver = false;
  std::thread busy([&isOver] {  // keeps a core from resting
    while (!isOver) continue;
  });
  const Cost demo = PlayDemo(device, seconds);
  const Cost bare = LoopBarely(seconds);
  const double sends = SendBarely(device, demo.sends);
  isOver = true;
  busy.join();
  bool isGood = Row("lateness of a demo's values at the 99th percentile, ms, against bare sleeps of 5 ms",
                    demo.lateMilliseconds, bare.lateMilliseconds, 2);
  isGood &= Row("processor time of a demo, ms, against the bare sleeps and the bare datagrams",
                demo.processorSeconds * 1000, (bare.processorSeconds + sends) * 1000, 2);
  std::printf("\n%zu times values in %d s\n", demo.sends, seconds);
  return isGood;
}

}  // namespace

int main(int argc, char** argv) {
  const auto address = platform::ParseIPv4(argc > 1 ? argv[1] : "");
  if (!address) {
    std::fputs("usage: wire_bench ADDRESS [DEMO-SECONDS]\n", stderr);
    return 2;
  }
  const DeviceInfo device = NetworkDevice(argv[1], *address);
  std::puts("| what | time | against | ratio | required |\n|---|---|---|---|---|");
  const bool isUploadGood = MeasureUpload(device);
  const bool isDemoGood = MeasureDemo(device, argc > 2 ? std::atoi(argv[2]) : 60);
  return isUploadGood && isDemoGood ? 0 : 1;
}
