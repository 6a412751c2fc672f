// SPDX-License-Identifier: MIT
#include "worker/Worker.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

#include "platform/WindowMessage.h"
#include "worker/NetworkScan.h"
#include "worker/ShortJobs.h"
#include "worker/UploadJob.h"

namespace TCBase {
namespace {

using Stage = DeviceOutcome::Stage;

constexpr std::uint32_t PassPauseMilliseconds = 100;
constexpr float ScanSeconds = 1.0F;

}  // namespace

Worker::Worker(const DeviceContext& context, UsbWatch usbWatch)
    : context_(context),
      usbWatch_(usbWatch),
      tc420Monitor_(DeviceKind::TC420, context,
                    [this](bool isConnected) { ReportPresence(DeviceKind::TC420, isConnected); }),
      tc421Monitor_(DeviceKind::TC421Usb, context,
                    [this](bool isConnected) { ReportPresence(DeviceKind::TC421Usb, isConnected); }),
      thread_([this] { Run(); }) {}

void Worker::Stop() {
  if (running_.exchange(false)) thread_.join();
}

void Worker::Enqueue(std::function<void()> job) {
  ++unfinishedJobs_;
  const std::lock_guard lock(queueMutex_);
  jobs_.push_back(std::move(job));
}

void Worker::DropQueued() {
  std::deque<std::function<void()>> dropped;
  {
    const std::lock_guard lock(queueMutex_);
    jobs_.swap(dropped);
  }
  if (dropped.empty()) return;
  unfinishedJobs_ -= static_cast<int>(dropped.size());
  context_.log.Message(TR("Dropped {1} job(s) that waited"), {dropped.size()});
}

void Worker::StartUpload(std::vector<DeviceInfo> devices, Program::ModeListView modes) {
  StartForEach(std::move(devices),
               [modes = std::move(modes)](const DeviceInfo& device, const JobContext& context) {
                 return UploadDevice(device, modes, context);
               });
}

void Worker::StartClearAll(std::vector<DeviceInfo> devices) {
  StartForEach(std::move(devices), ClearAllDevice);
}

void Worker::StartTimeSync(std::vector<DeviceInfo> devices, const SYSTEMTIME& time) {
  StartForEach(std::move(devices), [time](const DeviceInfo& device, const JobContext& context) {
    return SyncTimeDevice(device, time, context);
  });
}

void Worker::StartDemo(std::vector<DeviceInfo> devices, Program::ModeListView modes, const DemoTime& time) {
  StartForEach(std::move(devices),
               [modes = std::move(modes), time](const DeviceInfo& device, const JobContext& context) {
                 return DemoDevice(device, modes, time, context);
               });
}

void Worker::StartNetworkScan(void* window) {
  Enqueue([this, window] { NetworkScan(window, NetworkScanMessage); });
}

void Worker::SetNotification(void* window, std::uint32_t message) {
  notifyWindow_ = window;
  notifyMessage_ = message;
}

int Worker::WaitingJobs() {
  const std::lock_guard lock(queueMutex_);
  return static_cast<int>(jobs_.size());
}

std::optional<JobOutcomes> Worker::RunningJob() {
  const std::lock_guard lock(outcomesMutex_);
  return runningJob_;
}

std::vector<JobOutcomes> Worker::TakeEndedJobs() {
  const std::lock_guard lock(outcomesMutex_);
  return std::exchange(endedJobs_, {});
}

std::vector<DeviceKind> Worker::UsbDevices() const {
  std::vector<DeviceKind> devices;
  if (tc420Monitor_.IsConnected()) devices.push_back(DeviceKind::TC420);
  if (tc421Monitor_.IsConnected()) devices.push_back(DeviceKind::TC421Usb);
  return devices;
}

std::vector<DeviceInfo> Worker::NetworkDevices() {
  const std::lock_guard lock(networkMutex_);
  return networkDevices_;
}

std::optional<OpenFailure> Worker::ScanFailure() {
  const std::lock_guard lock(networkMutex_);
  return scanFailure_;
}

void Worker::Run() {
  while (running_) {
    RunNextJob();
    if (usbWatch_ == UsbWatch::On) {
      tc420Monitor_.Tick();
      tc421Monitor_.Tick();
    }
    context_.clock.Sleep(PassPauseMilliseconds);
  }
}

void Worker::RunNextJob() {
  std::function<void()> job;
  {
    const std::lock_guard lock(queueMutex_);
    if (jobs_.empty()) return;
    job = std::move(jobs_.front());
    jobs_.pop_front();
  }
  try {
    job();
  } catch (const std::exception& failed) {
    context_.log.Failure(qor::Verbatim(failed.what()));
  }
  --unfinishedJobs_;
}

void Worker::StartForEach(std::vector<DeviceInfo> devices, DeviceJob job) {
  Enqueue(
      [this, devices = std::move(devices), job = std::move(job)] { ForEachSelectedDevice(devices, job); });
}

void Worker::ForEachSelectedDevice(const std::vector<DeviceInfo>& devices, const DeviceJob& job) {
  std::vector<DeviceInfo> selected;
  std::ranges::copy_if(devices, std::back_inserter(selected), &DeviceInfo::selected);
  Begin(selected);
  control_.Take();  // a command that was meant for an earlier job
  for (std::size_t i = 0; i < selected.size(); ++i) {
    const DeviceInfo& device = selected[i];
    context_.log.Message(TR("Configuring device {1}"), {device.name});
    const DeviceOutcome outcome = Visit(i, device, job);
    SetOutcome(i, outcome);
    LogOutcome(outcome, context_.log);
    if (control_.TakeStop()) {
      context_.log.Message(TR("Cancelled!"));
      break;
    }
    context_.log.Message(TR("Finished configuring device {1}"), {device.name});
  }
  End();
}

void Worker::Begin(const std::vector<DeviceInfo>& devices) {
  const std::lock_guard lock(outcomesMutex_);
  runningJob_ = JobOutcomes{++lastJob_, {}};
  for (const DeviceInfo& device : devices) runningJob_->devices.push_back({device});
}

DeviceOutcome Worker::Visit(std::size_t index, const DeviceInfo& device, const DeviceJob& job) {
  SetOutcome(index, {device, Stage::Connecting});
  const auto working = [&](qor::Sentence what) {
    SetOutcome(index, {device, Stage::Working, std::move(what)});
  };
  try {
    return job(device, {context_, control_, working});
  } catch (const std::exception& failed) {
    return {device, Stage::Failed, qor::Verbatim(failed.what())};
  }
}

/// What a stop kept from being visited was not reached.
void Worker::End() {
  JobOutcomes ended = *RunningJob();
  for (DeviceOutcome& outcome : ended.devices) {
    if (outcome.stage != Stage::Waiting) continue;
    outcome.stage = Stage::NotReached;
    LogOutcome(outcome, context_.log);
  }
  const std::lock_guard lock(outcomesMutex_);
  runningJob_.reset();
  endedJobs_.push_back(std::move(ended));
}

void Worker::NetworkScan(void* window, std::uint32_t message) {
  context_.log.Message(TR("Searching for network devices..."));
  std::vector<DeviceInfo> found;
  const std::optional<OpenFailure> failure = ScanNetwork(found, ScanSeconds, context_);
  context_.log.Message(TR("Found {1} device(s)"), {found.size()});
  if (failure)
    context_.log.Failure({TR("The network could not be searched to the end"), {}, {failure->text}});
  for (DeviceInfo& device : found) NameAfterHost(device, context_);
  SortByName(found);
  {
    const std::lock_guard lock(networkMutex_);
    // What could not be searched says nothing of the controllers that were found before.
    if (!failure || !found.empty()) networkDevices_ = std::move(found);
    scanFailure_ = failure;
  }
  platform::PostWindowMessage(window, message, 0, 0);
}

void Worker::SetOutcome(std::size_t index, const DeviceOutcome& outcome) {
  const std::lock_guard lock(outcomesMutex_);
  runningJob_->devices[index] = outcome;
}

void Worker::ReportPresence(DeviceKind kind, bool isConnected) {
  context_.log.Message(isConnected ? TR("{1} Device connected") : TR("{1} Device disconnected"),
                       {DeviceOfKind(kind).name});
  const std::uint32_t message = notifyMessage_;
  if (message != 0) platform::PostWindowMessage(notifyWindow_, message, 0, isConnected ? 1 : 0);
}

}  // namespace TCBase
