// SPDX-License-Identifier: MIT
// The commands of the menu "Device"
#include <algorithm>
#include <charconv>

#include "device/ControllerLimits.h"
#include "model/ModeSample.h"
#include "model/StepLimit.h"
#include "ui/Commands.h"
#include "ui/Workbench.h"

namespace UX {
namespace {

using JobKind = Workbench::JobKind;

/// The picked devices; says so when there are none.
std::vector<TCBase::DeviceInfo> PickedDevices(Workbench& workbench) {
  std::vector<TCBase::DeviceInfo> picked = workbench.devices.Picked();
  if (picked.empty()) {
    workbench.dialogs.Tell(workbench.Text(TR("Devices")),
                           workbench.Text(TR("Please select a device in the list first.")));
  }
  return picked;
}

void StartTimeSync(Workbench& workbench, const std::vector<TCBase::DeviceInfo>& picked,
                   const TCBase::SYSTEMTIME& time) {
  workbench.StartJob(JobKind::Devices, [&](TCBase::Worker& worker) { worker.StartTimeSync(picked, time); });
}

bool IsTooLong(const TCBase::Mode& mode) {
  return TCBase::StepCount(mode) > TCBase::MaxModeSteps;
}

/// Thins the whole program, as one edit.
void OptimiseProgram(Workbench& workbench) {
  bool isOptimised = false;
  workbench.Edit([&](Content& content) {
    isOptimised = TCBase::OptimiseProgram(content.program, workbench.services.log);
    return TCBase::EditResult{true, {}};
  });
  if (!isOptimised) return;
  workbench.dialogs.Tell(
      workbench.Text(TR("Program optimized")),
      workbench.Text(TR("Please check log for optimized channels and run the upload again")));
}

/// Whether to upload the program as it stands, in view of what the devices take.
bool MayUpload(Workbench& workbench, const std::vector<TCBase::DeviceInfo>& picked,
               const std::vector<std::size_t>& modes) {
  const TCBase::Program& program = workbench.document.Program();
  const bool isLong =
      std::ranges::any_of(modes, [&](std::size_t mode) { return IsTooLong(program.modes[mode]); });
  if (!TCBase::HasTC420(picked) || !isLong) return true;
  const Answer answer = workbench.dialogs.Ask(
      {workbench.Text({TR("Higher step count for {1} devices"), {TCBase::TC420DisplayName}}),
       workbench.Text({TR("A mode has more than {1} steps. Optimize the program?"), {TCBase::MaxModeSteps}}),
       true, Answer::Yes});
  if (answer == Answer::Yes) OptimiseProgram(workbench);
  return answer == Answer::No;
}

}  // namespace

void SyncTime(Workbench& workbench) {
  const auto picked = PickedDevices(workbench);
  if (picked.empty()) return;
  StartTimeSync(workbench, picked, workbench.services.clock.LocalTime());
}

void SetTime(Workbench& workbench) {
  const auto picked = PickedDevices(workbench);
  if (picked.empty()) return;
  TCBase::SYSTEMTIME time = workbench.services.clock.LocalTime();
  if (!workbench.dialogs.EditDateTime(time)) return;
  StartTimeSync(workbench, picked, time);
}

void UploadProgram(Workbench& workbench) {
  const auto picked = PickedDevices(workbench);
  if (picked.empty()) return;
  const std::vector<std::size_t> modes = workbench.document.UploadedModes();
  if (modes.empty()) {
    workbench.dialogs.Tell(workbench.Text(TR("Modes")),
                           workbench.Text(TR("Please check a mode in the list first.")));
    return;
  }
  if (!MayUpload(workbench, picked, modes)) return;
  const TCBase::Program::ModeListView view(workbench.document.Program(), modes);
  for (const qor::Sentence& remark : TCBase::RemarksOn(view, TCBase::ModelsOf(picked))) workbench.Say(remark);
  workbench.StartJob(JobKind::Devices, [&](TCBase::Worker& worker) { worker.StartUpload(picked, view); });
}

void ClearAll(Workbench& workbench) {
  const auto picked = PickedDevices(workbench);
  if (picked.empty()) return;
  const Question question = {workbench.Text(TR("Clear all")),
                             workbench.Text({TR("Remove all modes from {1}? They cannot be read back."),
                                             {workbench.devices.PickedNames()}}),
                             false, Answer::No};
  if (workbench.dialogs.Ask(question) != Answer::Yes) return;
  workbench.StartJob(JobKind::Devices, [&](TCBase::Worker& worker) { worker.StartClearAll(picked); });
}

void PlayDemo(Workbench& workbench) {
  if (workbench.services.worker.IsBusy()) return workbench.Say(TR("A job is still running."));
  const auto picked = PickedDevices(workbench);
  if (!picked.empty()) workbench.StartDemo(picked);
}

void StopDemo(Workbench& workbench) {
  workbench.StopJob();
  workbench.view.Refresh();
}

void PauseDemo(Workbench& workbench) {
  workbench.editor.Key(ChartKey::PauseDemo, 0);
  workbench.view.Refresh();
}

void SetDemoSpeed(Workbench& workbench, int seconds) {
  workbench.SetDemoSeconds(seconds);
}

void AskDemoSpeed(Workbench& workbench) {
  ValueRequest request;
  request.title = workbench.Text(TR("Enter playback speed"));
  request.label = workbench.Text(TR("Seconds to play whole demo (min 10, max 86400)"));
  request.value = std::to_string(workbench.DemoSeconds());
  request.isNumber = true;
  if (!workbench.dialogs.EditValue(request)) return;
  int seconds = 0;
  const char* const end = request.value.data() + request.value.size();
  const auto [rest, fault] = std::from_chars(request.value.data(), end, seconds);
  const bool isNumber = fault == std::errc() && rest == end;
  if (isNumber && seconds >= TCBase::FewestDemoSeconds && seconds <= TCBase::MostDemoSeconds) {
    return workbench.SetDemoSeconds(seconds);
  }
  workbench.dialogs.Tell(workbench.Text(TR("Invalid value")),
                         workbench.Text(TR("Please enter value between 10 - 86400")));
}

void ScanNetwork(Workbench& workbench) {
  workbench.StartJob(JobKind::Scan,
                     [&](TCBase::Worker& worker) { worker.StartNetworkScan(workbench.window); });
}

void CancelJob(Workbench& workbench) {
  workbench.CancelJobs();
}

void SetUpWiFi(Workbench& workbench) {
  if (workbench.services.worker.IsBusy()) {  // it may be talking to the very controller
    workbench.dialogs.Tell(workbench.Text(TR("Setup TC421 WiFi")),
                           workbench.Text(TR("A job is still running. Set up the WiFi when it has ended.")));
    return;
  }
  workbench.dialogs.RunWiFiWizard();
}

void AddEmulator(Workbench& workbench) {
  workbench.devices.AddEmulator();
  workbench.view.Refresh();
}

}  // namespace UX
