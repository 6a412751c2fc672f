// SPDX-License-Identifier: MIT
#include "worker/UploadJob.h"

#include "device/CreateDevice.h"
#include "model/StepLimit.h"

namespace TCBase {
namespace {

using Stage = DeviceOutcome::Stage;

constexpr std::uint32_t ModePauseMilliseconds = 500;  // in which the controller stores a mode

struct ModesResult {
  std::string refused;  // names of the modes that the device did not take, with commas
  bool isCancelled = false;
};

ModesResult UploadModes(DeviceBase& device, const DeviceInfo& info, const Program::ModeListView& modes,
                        const JobContext& job) {
  qor::Log& log = job.device.log;
  ModesResult result;
  for (std::size_t index = 0; index < modes.Size(); ++index) {
    const Mode& mode = modes[index];
    const qor::Sentence working = {TR("Mode {1} of {2}"), {index + 1, modes.Size()}};
    job.working(working);
    device.OnProgress([&job, working](std::size_t step, std::size_t steps) {
      job.working({working.english, working.arguments, {{TR("step {1} of {2}"), {step, steps}}}});
    });
    const std::vector<ModeSample> samples = SamplesFor(info.kind, mode, log);
    log.Message(TR("Uploading mode: {1}"), {mode.name});
    if (!device.UploadMode(static_cast<int>(index), mode.name, samples)) {
      log.Message(TR("Upload error"));
      result.refused += (result.refused.empty() ? "'" : ", '") + mode.name + "'";
    }
    job.device.clock.Sleep(ModePauseMilliseconds);
    if (job.control.TakeStop()) {
      job.control.Post(JobControl::Stop);  // for the loop over the devices
      result.isCancelled = index + 1 < modes.Size();
      break;
    }
  }
  return result;
}

DeviceOutcome OutcomeOf(const DeviceBase& device, const DeviceInfo& info, const ModesResult& modes) {
  const int lost = device.FailedTransactions();
  if (!modes.refused.empty()) {
    qor::Sentence refused = {TR("modes not taken: {1}"), {modes.refused}};
    if (lost > 0) refused.reasons.push_back(LostPackets(device));
    return {info, Stage::Failed, refused};
  }
  if (lost > 0) return {info, Stage::Incomplete, LostPackets(device)};
  return {info, modes.isCancelled ? Stage::Cancelled : Stage::Done, {}};
}

}  // namespace

std::vector<ModeSample> SamplesFor(DeviceKind kind, const Mode& mode, qor::Log& log) {
  if (!IsTC421(kind)) return SampleTable(mode);
  Mode optimised = mode;
  OptimiseMode(optimised, log);
  return SampleTable(optimised);
}

DeviceOutcome UploadDevice(const DeviceInfo& info, const Program::ModeListView& modes,
                           const JobContext& job) {
  const std::unique_ptr<DeviceBase> device = CreateDevice(info, job.device);
  return Upload(*device, info, modes, job);
}

DeviceOutcome Upload(DeviceBase& device, const DeviceInfo& info, const Program::ModeListView& modes,
                     const JobContext& job) {
  qor::Log& log = job.device.log;
  if (const auto failed = Connect(device, info, log)) return *failed;
  log.Message(TR("Uploading started"));
  job.control.Take();  // a command that was meant for an earlier job
  job.control.demoState = JobControl::NoDemo;
  job.control.demoSecond = JobControl::NoSecond;
  device.UploadStart();
  const ModesResult modesResult = UploadModes(device, info, modes, job);
  device.UploadFinish();
  log.Message(TR("Uploading finished"));
  return OutcomeOf(device, info, modesResult);
}

}  // namespace TCBase
