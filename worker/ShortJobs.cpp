// SPDX-License-Identifier: MIT
#include "worker/ShortJobs.h"

#include "device/CreateDevice.h"

namespace TCBase {
namespace {

using Stage = DeviceOutcome::Stage;

constexpr std::uint32_t EraseMilliseconds = 3000;

}  // namespace

DeviceOutcome SyncTimeDevice(const DeviceInfo& info, const SYSTEMTIME& time, const JobContext& job) {
  const std::unique_ptr<DeviceBase> device = CreateDevice(info, job.device);
  if (const auto failed = Connect(*device, info, job.device.log)) return *failed;
  const qor::Sentence doing = TR("Syncing time");
  job.working(doing);
  job.device.log.Message(doing);
  if (device->TimeSync(time)) return {info, Stage::Done, {}};
  return {info, Stage::Failed, WithReason(TR("the time did not get through"), *device)};
}

DeviceOutcome ClearAllDevice(const DeviceInfo& info, const JobContext& job) {
  const std::unique_ptr<DeviceBase> device = CreateDevice(info, job.device);
  if (const auto failed = Connect(*device, info, job.device.log)) return *failed;
  const qor::Sentence doing = TR("Clearing all modes");
  job.working(doing);
  job.device.log.Message(doing);
  const bool isTaken = device->ClearAll();
  job.device.clock.Sleep(EraseMilliseconds);
  if (isTaken) return {info, Stage::Done, {}};
  return {info, Stage::Failed, WithReason(TR("the order to clear did not get through"), *device)};
}

}  // namespace TCBase
