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

constexpr std::uint32_t WaitMilliseconds = 20;

/// What was found, and whether some of it could not be looked at: permission was missing, or somebody else
/// had the way to it.
struct Discovery {
  Json devices = Json::array();
  bool isUsbDenied = false;
  std::optional<ExitStatus> searchFailed;
};

void FindOnUsb(Discovery& findings, Invocation& invocation) {
  const std::vector<UsbController> plugged = PluggedIn();
  for (const UsbController& controller : plugged) {
    const TCBase::DeviceInfo info = TCBase::DeviceOfKind(controller.kind);
    const auto device = TCBase::CreateDevice(info, ContextOf(invocation));
    if (device->Open()) {
      for (std::size_t i = 0; i < controller.paths.size(); ++i) {
        findings.devices.push_back({{"device", ArgumentOf(info)}, {"name", info.name}, {"transport", "usb"}});
      }
      continue;
    }
    findings.isUsbDenied |= device->OpenFault().denial != TCBase::Denial::None;
    invocation.printer.Complain(qor::About(info.name, device->OpenFault().text));
    if (device->OpenFault().denial == TCBase::Denial::NoPermission) {
      invocation.printer.Complain(AccessAdvice(LookAround(invocation)));
    }
  }
  WarnOfEquals(plugged, invocation);
}

void FindOnNetwork(Discovery& findings, int waitSeconds, Invocation& invocation) {
  TCBase::Worker worker(ContextOf(invocation, waitSeconds), TCBase::Worker::UsbWatch::Off);
  worker.StartNetworkScan(nullptr);
  while (worker.IsBusy()) {
    invocation.printer.Print();
    invocation.environment.clock.Sleep(WaitMilliseconds);
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
  int waitSeconds = 0;
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
  Discovery findings;
  FindOnUsb(findings, invocation);
  if (options.scan) FindOnNetwork(findings, options.waitSeconds, invocation);
  std::ostream& out = invocation.environment.out;
  options.asJson ? Print(findings.devices, out) : PrintLines(findings.devices, out);
  if (findings.searchFailed) return *findings.searchFailed;
  if (!findings.devices.empty()) return Done;
  if (findings.isUsbDenied) return NoAccess;
  if (!options.asJson) {
    invocation.printer.Complain(
        options.scan ? qor::Sentence(TR("no controller was found"))
                     : qor::Sentence(TR("no controller is plugged in (halvex doctor says more)")));
  }
  return NothingFound;
}

ExitStatus RunMonitor(Invocation& invocation) {
  Environment& environment = invocation.environment;
  environment.watchInterrupts();
  if (!invocation.options.quiet) {
    invocation.printer.Complain(
        qor::Sentence(TR("waiting for controllers to be plugged in or out; Ctrl+C ends")));
  }
  const TCBase::Worker worker(ContextOf(invocation), TCBase::Worker::UsbWatch::On);
  while (!environment.isInterrupted() && environment.out) {
    invocation.printer.Print();
    environment.clock.Sleep(WaitMilliseconds);
  }
  return Done;
}

}  // namespace

Runner DefineDevices(CLI::App& parser) {
  const auto options = std::make_shared<DevicesOptions>();
  parser.add_flag("--scan", options->scan, "Search the local network for TC421 controllers, too");
  AddWait(parser, options->waitSeconds);
  parser.add_flag("--json", options->asJson, "Answer as JSON");
  return [options](Invocation& invocation) { return RunDevices(*options, invocation); };
}

Runner DefineMonitor(CLI::App&) {
  return RunMonitor;
}

}  // namespace cli
