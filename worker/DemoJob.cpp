// SPDX-License-Identifier: MIT
#include "worker/DemoJob.h"

#include <algorithm>

#include "QorLib/ParseInteger.h"
#include "device/CreateDevice.h"
#include "worker/Stopwatch.h"

namespace TCBase {
namespace {

using Stage = DeviceOutcome::Stage;

constexpr double SendWhenChangedSeconds = 0.05;
constexpr double SendAnywaySeconds = 0.2;
constexpr std::uint32_t PollMilliseconds = 5;

/// A mode being played on an open device.
class Playback {
 public:
  Playback(DeviceBase& device, const Mode& mode, const DemoTime& time, const JobContext& job)
      : device_(device),
        mode_(mode),
        job_(job),
        seconds_(static_cast<float>(time.seconds)),
        scale_(static_cast<float>(static_cast<double>(SecondsPerDay) / time.seconds)),
        startSecond_(time.startSecond),
        position_(job.device.clock),
        sinceSend_(job.device.clock) {}

  /// Plays until the end of the day, or a Stop, which is passed on; whether it came to the end.
  bool Play() {
    Send(SampleAt(mode_, startSecond_));
    job_.control.Take();  // a command that was meant for an earlier job
    job_.control.demoState = JobControl::NoDemo;
    job_.control.demoSecond = JobControl::NoSecond;
    position_.Restart();
    position_.Seek(static_cast<float>(startSecond_) / scale_);
    while (true) {
      const auto position = static_cast<float>(position_.Elapsed());
      if (position >= seconds_) return true;
      if (!Obey()) return false;
      Show(position);
      job_.device.clock.Sleep(PollMilliseconds);
    }
  }

 private:
  /// Carries out a pending command; false for Stop.
  bool Obey() {
    const std::unique_ptr<JobControl::Command> command = job_.control.Take();
    if (command == nullptr) return true;
    switch (command->type) {
      case JobControl::Stop:
        job_.control.Post(JobControl::Stop);
        return false;  // for the loop over the devices
      case JobControl::Resume: position_.Resume(); break;
      case JobControl::Pause: position_.Pause(); break;
      case JobControl::Seek: position_.Seek(static_cast<float>(command->value) / scale_); break;
    }
    return true;
  }

  void Show(float position) {
    const int second = std::clamp(static_cast<int>(position * scale_), 0, SecondsPerDay - 1);
    job_.control.demoSecond = second;
    job_.control.demoState = position_.IsPaused() ? JobControl::DemoPaused : JobControl::DemoPlaying;
    const double waited = sinceSend_.Elapsed();
    if (waited < SendWhenChangedSeconds) return;
    const ModeSample sample = SampleAt(mode_, second);
    if (waited >= SendAnywaySeconds || sample.values != lastSent_.values) Send(sample);
  }

  void Send(const ModeSample& sample) {
    job_.control.SetLastChannels(sample);
    int channels[ChannelCount];
    std::copy(sample.values.begin(), sample.values.end(), channels);
    device_.DemoSetChannels(channels);
    lastSent_ = sample;
    sinceSend_.Restart();
  }

  DeviceBase& device_;
  const Mode& mode_;
  const JobContext& job_;
  float seconds_;
  float scale_;  // seconds of the day in a second
  int startSecond_;
  Stopwatch position_;
  Stopwatch sinceSend_;
  ModeSample lastSent_;
};

}  // namespace

int DemoSecondsOf(std::string_view setting) {
  if (setting.empty()) return UsualDemoSeconds;
  return std::clamp(qor::ParseInteger(setting), FewestDemoSeconds, MostDemoSeconds);
}

DeviceOutcome DemoDevice(const DeviceInfo& info, const Program::ModeListView& modes, const DemoTime& time,
                         const JobContext& job) {
  qor::Log& log = job.device.log;
  const std::unique_ptr<DeviceBase> device = CreateDevice(info, job.device);
  if (const auto failed = Connect(*device, info, log)) return *failed;
  log.Message(TR("Demo started"));
  const Mode& mode = modes.Current();
  device->DemoStart(mode.name);
  Playback playback(*device, mode, time, job);
  job.working(TR("Playing"));
  log.Message(TR("Playing whole day in {1} seconds"), {time.seconds});
  const bool isWhole = playback.Play();
  device->DemoFinish();
  job.control.demoState = JobControl::NoDemo;
  job.control.demoSecond = JobControl::NoSecond;
  log.Message(TR("Demo finished"));
  if (device->FailedTransactions() > 0) return {info, Stage::Incomplete, LostPackets(*device)};
  return {info, isWhole ? Stage::Done : Stage::Cancelled, {}};
}

}  // namespace TCBase
