// SPDX-License-Identifier: MIT
#include "worker/UsbPresenceMonitor.h"

#include "device/CreateDevice.h"

namespace TCBase {
namespace {

constexpr double ProbeIntervalSeconds = 5.0;
constexpr double SlowOpenSeconds = 2.0;

}  // namespace

UsbPresenceMonitor::UsbPresenceMonitor(DeviceKind kind, const DeviceContext& context,
                                       std::function<void(bool)> onChange)
    : kind_(kind), context_(context), sinceProbe_(context.clock), onChange_(std::move(onChange)) {}

void UsbPresenceMonitor::Tick() {
  if (sinceProbe_.Elapsed() < ProbeIntervalSeconds) return;
  const bool isPresent = Probe();
  if (isPresent != isConnected_) {
    isConnected_ = isPresent;
    if (onChange_) onChange_(isPresent);
  }
  sinceProbe_.Restart();
}

bool UsbPresenceMonitor::Probe() {
  const std::unique_ptr<DeviceBase> device = CreateDevice(DeviceOfKind(kind_), context_);
  const Stopwatch opening(context_.clock);
  const bool isOpen = device->Open();
  const double seconds = opening.Elapsed();
  if (isOpen && seconds > SlowOpenSeconds) {
    context_.log.Message(TR("Connecting to a device took {1} ms. This usually points to a USB communication "
                            "error. Please try to "
                            "disconnect and reconnect the USB device again."),
                         {static_cast<std::int64_t>(seconds * 1000)});
  }
  return isOpen;
}

}  // namespace TCBase
