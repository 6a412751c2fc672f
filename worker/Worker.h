// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "device/DeviceInfo.h"
#include "model/Program.h"
#include "worker/DemoJob.h"
#include "worker/DeviceOutcome.h"
#include "worker/JobContext.h"
#include "worker/UsbPresenceMonitor.h"

namespace TCBase {

/// The one background thread that talks to devices. It runs jobs one after another in the order in which they
/// were handed in, and between them watches for controllers on the USB. All public operations may be called
/// from any thread and never wait for a running job.
class Worker {
 public:
  enum class UsbWatch { Off, On };

  /// Starts the thread. What the context names outlives the worker.
  Worker(const DeviceContext& context, UsbWatch usbWatch);
  ~Worker() { Stop(); }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// Ends the thread: waits for the running job; the jobs still queued are dropped.
  void Stop();

  void Enqueue(std::function<void()> job);
  /// Drops the jobs that wait, and says so in the log; the running one goes on.
  void DropQueued();

  /// Uploads the modes to the selected devices in turn.
  void StartUpload(std::vector<DeviceInfo> devices, Program::ModeListView modes);
  /// Removes all modes from the selected devices.
  void StartClearAll(std::vector<DeviceInfo> devices);
  /// Sets the selected devices' clocks to that time.
  void StartTimeSync(std::vector<DeviceInfo> devices, const SYSTEMTIME& time);
  /// Plays the view's current mode on the selected devices in turn.
  void StartDemo(std::vector<DeviceInfo> devices, Program::ModeListView modes, const DemoTime& time);
  /// Searches the network for controllers, then posts NetworkScanMessage to the window.
  void StartNetworkScan(void* window);
  static constexpr std::uint32_t NetworkScanMessage = 0x401;

  /// Where to post that a controller was plugged in (lParam 1) or out (0); before, nothing is posted.
  void SetNotification(void* window, std::uint32_t message);

  JobControl& Control() { return control_; }
  /// Whether a job is queued or running.
  bool IsBusy() const { return unfinishedJobs_ > 0; }
  /// How many jobs wait for the running one to end.
  int WaitingJobs();
  /// The job that visits devices now, and how far it is with each; nothing while none does.
  std::optional<JobOutcomes> RunningJob();
  /// How the jobs ended that visited devices, oldest first, each given once. A job stands here before
  /// `IsBusy` says that it is over.
  std::vector<JobOutcomes> TakeEndedJobs();
  /// Which controllers the watch has seen on the USB.
  std::vector<DeviceKind> UsbDevices() const;
  /// What the last search of the network found, and what kept it from going through, if anything did.
  std::vector<DeviceInfo> NetworkDevices();
  std::optional<OpenFailure> ScanFailure();

 private:
  using DeviceJob = std::function<DeviceOutcome(const DeviceInfo&, const JobContext&)>;

  void Run();
  void RunNextJob();
  void StartForEach(std::vector<DeviceInfo> devices, DeviceJob job);
  void ForEachSelectedDevice(const std::vector<DeviceInfo>& devices, const DeviceJob& job);
  void Begin(const std::vector<DeviceInfo>& devices);
  DeviceOutcome Visit(std::size_t index, const DeviceInfo& device, const DeviceJob& job);
  void End();
  void NetworkScan(void* window, std::uint32_t message);
  void SetOutcome(std::size_t index, const DeviceOutcome& outcome);
  void ReportPresence(DeviceKind kind, bool isConnected);

  DeviceContext context_;
  UsbWatch usbWatch_;
  std::atomic<bool> running_ = true;
  std::mutex queueMutex_;
  std::deque<std::function<void()>> jobs_;
  std::atomic<int> unfinishedJobs_ = 0;
  UsbPresenceMonitor tc420Monitor_;
  UsbPresenceMonitor tc421Monitor_;
  std::atomic<void*> notifyWindow_ = nullptr;
  std::atomic<std::uint32_t> notifyMessage_ = 0;  // 0: none yet
  JobControl control_;
  std::mutex outcomesMutex_;
  int lastJob_ = 0;  // its number
  std::optional<JobOutcomes> runningJob_;
  std::vector<JobOutcomes> endedJobs_;
  std::mutex networkMutex_;
  std::vector<DeviceInfo> networkDevices_;
  std::optional<OpenFailure> scanFailure_;
  std::thread thread_;  // last: it uses all the others
};

}  // namespace TCBase
