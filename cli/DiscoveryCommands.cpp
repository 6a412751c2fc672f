// SPDX-License-Identifier: MIT
// devices, monitor
#include <memory>
#include <optional>
#include <ostream>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/DeviceArguments.h"
#include "cli/DeviceJob.h"
#include "cli/JsonOutput.h"
#include "cli/LogPrinter.h"
#include "cli/UdevRule.h"
#include "device/CreateDevice.h"
#include "worker/Worker.h"

namespace cli {
namespace {

constexpr std::uint32_t PollMilliseconds = 20;

/// What was found, and whether some of it could not be looked at: permission was missing, or somebody else
/// had the way to it.
struct Findings {
  Json devices = Json::array();
  bool isUsbDenied = false;
  std::optional<ExitStatus> searchFailed;
};

void FindOnUsb(Findings& findings, Invocation& invocation) {
  for (const auto kind : {TCBase::DeviceKind::TC420, TCBase::DeviceKind::TC421Usb}) {
    const TCBase::DeviceInfo info = TCBase::DeviceOfKind(kind);
    const auto device = TCBase::CreateDevice(info, ContextOf(invocation));
    if (device->Open()) {
      findings.devices.push_back({{"device", ArgumentOf(info)}, {"name", info.name}, {"transport", "usb"}});
    } else if (device->OpenFault().denial != TCBase::Denial::None) {
      findings.isUsbDenied = true;
      const bool needsRule = device->OpenFault().denial == TCBase::Denial::NoPermission;
      invocation.printer.Complain(qor::About(info.name, device->OpenFault().text));
      if (needsRule) invocation.printer.Complain(AccessAdvice());
    }
  }
}

void FindOnNetwork(Findings& findings, Invocation& invocation) {
  TCBase::Worker worker(ContextOf(invocation), TCBase::Worker::UsbWatch::Off);
  worker.StartNetworkScan(nullptr);
  while (worker.IsBusy()) {
    invocation.printer.Print();
    invocation.environment.clock.Sleep(PollMilliseconds);
  }
  invocation.printer.Print();
  for (const TCBase::DeviceInfo& info : worker.NetworkDevices()) {
    const std::string address = platform::AddressText(info.address);
    findings.devices.push_back({{"device", ArgumentOf(info)},
                                {"name", info.name.empty() ? address : info.name},
                                {"transport", "network"},
                                {"address", address}});
  }
  if (const auto failure = worker.ScanFailure()) {
    findings.searchFailed = failure->denial != TCBase::Denial::None ? NoAccess : DeviceFailed;
  }
}

struct DevicesOptions {
  bool scan = false;
  bool asJson = false;
};

void PrintLines(const Json& devices, std::ostream& out) {
  for (const auto& device : devices) {
    const auto text = [&device](const char* key) { return Printable(device[key].get<std::string>()); };
    out << text("device") << "  " << text("name") << "  "
        << (device["transport"] == "usb" ? "USB" : "network") << '\n';
  }
}

ExitStatus RunDevices(const DevicesOptions& options, Invocation& invocation) {
  invocation.printer.KeepStandardOutputFree();
  Findings findings;
  FindOnUsb(findings, invocation);
  if (options.scan) FindOnNetwork(findings, invocation);
  std::ostream& out = invocation.environment.out;
  options.asJson ? Print(findings.devices, out) : PrintLines(findings.devices, out);
  if (findings.searchFailed) return *findings.searchFailed;
  if (!findings.devices.empty()) return Done;
  if (findings.isUsbDenied) return NoAccess;
  if (!options.asJson) invocation.printer.Complain(qor::Sentence{"no controller was found", {}});
  return NothingFound;
}

ExitStatus RunMonitor(Invocation& invocation) {
  Environment& environment = invocation.environment;
  environment.watchInterrupts();
  const TCBase::Worker worker(ContextOf(invocation), TCBase::Worker::UsbWatch::On);
  while (!environment.isInterrupted() && environment.out) {
    invocation.printer.Print();
    environment.clock.Sleep(PollMilliseconds);
  }
  return Done;
}

}  // namespace

Runner DefineDevices(CLI::App& parser) {
  const auto options = std::make_shared<DevicesOptions>();
  parser.add_flag("--scan", options->scan, "Search the local network for TC421 controllers, too");
  parser.add_flag("--json", options->asJson, "Answer as JSON");
  return [options](Invocation& invocation) { return RunDevices(*options, invocation); };
}

Runner DefineMonitor(CLI::App&) {
  return RunMonitor;
}

}  // namespace cli
