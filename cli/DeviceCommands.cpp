// SPDX-License-Identifier: MIT
// upload, devices, monitor
#include <algorithm>
#include <memory>
#include <ostream>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/JsonOutput.h"
#include "cli/LogPrinter.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "device/CreateDevice.h"
#include "platform/SystemError.h"
#include "worker/Worker.h"

namespace cli {
namespace {

using Stage = TCBase::DeviceOutcome::Stage;

constexpr std::uint32_t PollMilliseconds = 20;
constexpr const char* AccessAdvice =
    "; on Linux, install the udev rule 70-halvex.rules and plug the controller in again";

struct DeviceName {
  std::string_view name;
  TCBase::DeviceKind kind;
};
constexpr DeviceName DeviceNames[] = {{"emulator", TCBase::DeviceKind::Emulator},
                                      {"tc420", TCBase::DeviceKind::TC420}};
constexpr DeviceName UsbModels[] = {{"tc420", TCBase::DeviceKind::TC420},
                                    {"tc421", TCBase::DeviceKind::TC421Usb}};

TCBase::DeviceInfo DeviceOf(const std::string& argument) {
  for (const DeviceName& known : DeviceNames) {
    if (known.name != argument) continue;
    TCBase::DeviceInfo info = TCBase::DeviceOfKind(known.kind);
    info.selected = true;
    return info;
  }
  if (argument.starts_with("tc421")) {
    throw CommandError(WrongUsage, "the TC421 is not supported yet; devices are emulator and tc420");
  }
  throw CommandError(WrongUsage,
                     qor::Format("there is no device '{1}'; devices are emulator and tc420", {argument}));
}

std::vector<TCBase::DeviceInfo> DevicesOf(const std::vector<std::string>& arguments) {
  std::vector<TCBase::DeviceInfo> devices;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    if (std::find(arguments.begin(), argument, *argument) != argument) {
      throw CommandError(WrongUsage, qor::Format("the device {1} is named twice", {*argument}));
    }
    devices.push_back(DeviceOf(*argument));
  }
  return devices;
}

// upload

std::string_view StageText(Stage stage) {
  switch (stage) {
    case Stage::Done: return "done";
    case Stage::NotReached: return "not reached";
    case Stage::NotConnected: return "could not be opened";
    case Stage::Refused: return "modes not taken";
    case Stage::Incomplete: return "incomplete";
    case Stage::Cancelled: return "stopped before all modes were sent";
  }
  return "";
}

/// Names each device on which the job was not done; the exit status for all of them together.
ExitStatus Report(const std::vector<TCBase::DeviceOutcome>& outcomes, bool isInterrupted,
                  LogPrinter& printer) {
  bool hasFailed = false;
  bool lacksAccess = false;
  for (const TCBase::DeviceOutcome& outcome : outcomes) {
    if (outcome.IsDone()) continue;
    const bool isDenied = outcome.stage == Stage::NotConnected && platform::SaysNoAccess(outcome.detail);
    const bool isStop = outcome.stage == Stage::Cancelled || outcome.stage == Stage::NotReached;
    hasFailed |= !isStop || !isInterrupted;
    lacksAccess |= isDenied;
    printer.Complain(qor::Format("{1}: {2}{3}{4}{5}", {outcome.device.name, StageText(outcome.stage),
                                                       outcome.detail.empty() ? "" : ": ", outcome.detail,
                                                       isDenied ? AccessAdvice : ""}));
  }
  if (hasFailed) return lacksAccess ? NoAccess : DeviceFailed;
  return isInterrupted ? Interrupted : Done;
}

/// Waits for the worker's job; Ctrl+C stops it. Returns whether it was interrupted.
bool WaitForJob(TCBase::Worker& worker, Environment& environment, LogPrinter& printer) {
  bool isStopping = false;
  while (worker.IsBusy()) {
    if (environment.isInterrupted()) {
      if (!isStopping) printer.Complain("stopping after the mode that is being sent");
      isStopping = true;
      // Again and again: a job that is just beginning drops what was posted before it.
      worker.Control().Post(TCBase::JobControl::Stop);
    }
    environment.clock.Sleep(PollMilliseconds);
  }
  return isStopping;
}

struct UploadOptions {
  std::string path;
  std::vector<std::string> devices;
  std::vector<int> modes;
};

ExitStatus RunUpload(const UploadOptions& options, Invocation& invocation) {
  const std::vector<TCBase::DeviceInfo> devices = DevicesOf(options.devices);
  const TCBase::Program program = Load(options.path, invocation);
  const TCBase::Program::ModeListView modes(program, ModeIndicesOf(program, options.modes, options.path));

  LogPrinter& printer = invocation.printer;
  WarnOfLongModes(modes, printer);
  invocation.environment.watchInterrupts();
  TCBase::Worker worker({invocation.environment.clock, printer.Log()}, TCBase::Worker::UsbWatch::Off);
  worker.StartUpload(devices, modes);
  const bool isInterrupted = WaitForJob(worker, invocation.environment, printer);
  return Report(worker.Outcomes(), isInterrupted, printer);
}

// devices

ExitStatus RunDevices(bool asJson, Invocation& invocation) {
  LogPrinter& printer = invocation.printer;
  Json found = Json::array();
  bool lacksAccess = false;
  for (const DeviceName& model : UsbModels) {
    const TCBase::DeviceInfo info = TCBase::DeviceOfKind(model.kind);
    const auto device = TCBase::CreateDevice(info, {invocation.environment.clock, printer.Log()});
    if (device->Open()) {
      found.push_back({{"device", model.name}, {"name", info.name}, {"transport", "usb"}});
    } else if (platform::SaysNoAccess(device->OpenFailure())) {
      lacksAccess = true;
      printer.Complain(qor::Format("{1}: {2}{3}", {info.name, device->OpenFailure(), AccessAdvice}));
    }
  }
  if (asJson) {
    Print(found, invocation.environment.out);
  } else {
    for (const auto& entry : found) {
      invocation.environment.out << entry["device"].get<std::string>() << "  "
                                 << entry["name"].get<std::string>() << "  USB\n";
    }
  }
  if (!found.empty()) return Done;
  if (lacksAccess) return NoAccess;
  if (!asJson) printer.Complain("no controller could be opened");
  return NothingFound;
}

// monitor

ExitStatus RunMonitor(Invocation& invocation) {
  LogPrinter& printer = invocation.printer;
  invocation.environment.watchInterrupts();
  TCBase::Worker worker({invocation.environment.clock, printer.Log()}, TCBase::Worker::UsbWatch::On);
  Environment& environment = invocation.environment;
  while (!environment.isInterrupted() && environment.out) environment.clock.Sleep(PollMilliseconds);
  return Done;
}

}  // namespace

Runner DefineUpload(CLI::App& parser) {
  const auto options = std::make_shared<UploadOptions>();
  AddFile(parser, options->path);
  parser.add_option("--device", options->devices, "Where to: emulator or tc420; may be given several times")
      ->required()
      ->type_name("D")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  AddModes(parser, options->modes);
  return [options](Invocation& invocation) { return RunUpload(*options, invocation); };
}

Runner DefineDevices(CLI::App& parser) {
  const auto asJson = std::make_shared<bool>(false);
  parser.add_flag("--json", *asJson, "Answer as JSON");
  return [asJson](Invocation& invocation) { return RunDevices(*asJson, invocation); };
}

Runner DefineMonitor(CLI::App&) {
  return RunMonitor;
}

}  // namespace cli
