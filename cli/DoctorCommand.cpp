// SPDX-License-Identifier: MIT
// doctor
#include <hidapi.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string_view>
#include <vector>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/DeviceArguments.h"
#include "cli/DeviceJob.h"
#include "cli/JsonOutput.h"
#include "cli/LogPrinter.h"
#include "cli/UdevRule.h"
#include "device/CreateDevice.h"
#include "device/UdpPort.h"
#include "formats/LogFile.h"
#include "formats/Settings.h"
#include "platform/Files.h"

namespace cli {
namespace {

using platform::Computer;
using TCBase::Denial;

/// What was found out about one thing.
struct Finding {
  enum class State { Ok, Note, Problem };

  std::string check;
  State state = State::Ok;
  qor::Sentence text;
  qor::Sentence advice = {};  // what to do; empty where nothing is to be done
  ExitStatus status = Done;   // of a problem
};
using Findings = std::vector<Finding>;
using State = Finding::State;

Finding Versions(const Computer& computer) {
  return {"versions", State::Ok,
          qor::Verbatim(qor::Format("halvex {1}, hidapi {2}, {3}",
                                    {HALVEX_VERSION, hid_version_str(), computer.system}))};
}

// Controllers on the USB

/// A controller is opened and closed again; nothing is sent to it.
Finding OnUsb(TCBase::DeviceKind kind, bool isPluggedIn, const Computer& computer, Invocation& invocation) {
  const TCBase::DeviceInfo info = TCBase::DeviceOfKind(kind);
  const std::string check = ArgumentOf(info);
  const auto lock = invocation.environment.locks.TryTake(TCBase::LockNameOf(info));
  if (lock == nullptr) {
    return {check, State::Problem, TR("in use by another program"),
            TR("wait until that has finished, or end it: it may be a demo in the window"), NoAccess};
  }
  const auto device = TCBase::CreateDevice(info, ContextOf(invocation));
  if (device->Open()) return {check, State::Ok, TR("plugged in, and may be opened")};
  if (!isPluggedIn) return {check, State::Note, TR("not plugged in")};
  const TCBase::OpenFailure& failure = device->OpenFault();
  const bool isDenied = failure.denial == Denial::NoPermission;
  return {check,
          State::Problem,
          {TR("plugged in, but may not be opened"), {}, {failure.text}},
          isDenied ? AccessAdvice(computer) : qor::Sentence(TR("end the other program that has it")),
          NoAccess};
}

/// The rule as a file; who may open a controller that is plugged in is said with that.
Finding Rule(const Computer& computer) {
  Finding rule{"udev-rule", State::Ok, qor::Verbatim(computer.udevRule)};
  if (!computer.udevRule.empty()) return rule;
  if (!computer.deviceGroup.empty()) {
    rule.text = {TR("not installed; controllers are for the group {1}"), {computer.deviceGroup}};
    return rule;
  }
  rule.text = computer.isAdministrator ? qor::Sentence(TR("not installed; you are root, who needs none"))
                                       : qor::Sentence(TR("not installed, controllers are for root only"));
  rule.advice = qor::Verbatim(InstallRuleCommand(computer));
  rule.state = State::Note;
  return rule;
}

Findings UsbFindings(const Computer& computer, Invocation& invocation) {
  Findings findings;
  const std::vector<UsbController> plugged = PluggedIn();
  for (const auto kind : {TCBase::DeviceKind::TC420, TCBase::DeviceKind::TC421Usb}) {
    const auto controller = std::ranges::find(plugged, kind, &UsbController::kind);
    findings.push_back(OnUsb(kind, controller != plugged.end(), computer, invocation));
    if (controller == plugged.end() || controller->paths.size() == 1) continue;
    findings.push_back({findings.back().check, State::Note, RemarkOnEquals(*controller)});
  }
  if (plugged.empty()) {
    findings.back().advice = {
        TR("plug a controller in; where one is, try another cable: some carry power only (\"halvex monitor\" "
           "tells when it comes)"),
        {}};
  }
  if (computer.hasUdev) findings.push_back(Rule(computer));
  return findings;
}

// The network

/// The port is taken and given back; nothing is sent.
Finding Port(Invocation& invocation) {
  TCBase::UdpPort port(ContextOf(invocation));
  if (port.Open()) return {"port-5000", State::Ok, TR("free")};
  const TCBase::OpenFailure& failure = port.OpenFault();
  const bool isInUse = failure.denial == Denial::InUse;
  return {"port-5000", State::Problem, failure.text,
          isInUse
              ? qor::Sentence{TR("end the other program, one at a time can talk to TC421 controllers on the "
                                 "network"),
                              {}}
              : qor::Sentence{TR("TC421 controllers on the network are out of reach until the system lets "
                                 "the port be taken"),
                              {}},
          failure.denial == Denial::None ? DeviceFailed : NoAccess};
}

Finding Network(const Computer& computer) {
  if (computer.adapters.empty()) {
    return {"network", State::Note, TR("this computer is in no network"),
            TR("join the network of the controllers to reach a TC421 there")};
  }
  std::string text;
  for (const platform::NetworkAdapter& adapter : computer.adapters) {
    text += (text.empty() ? "" : ", ") + Printable(adapter.name) + " " + adapter.address;
  }
  return {"network", State::Ok, qor::Verbatim(text)};
}

// Files

Finding SettingsFolder(const std::string& folder) {
  const std::string check = "settings-folder";
  const qor::Sentence advice = {TR("name a folder of yours in the environment variable {1}"),
                                {"HALVEX_HOME"}};
  if (folder.empty()) return {check, State::Problem, TR("there is none"), advice, FileFailed};
  if (platform::MayWriteInto(folder)) return {check, State::Ok, qor::Verbatim(folder)};
  if (!platform::IsThere(folder) && platform::MayWriteInto(platform::NearestFolder(folder)))
    return {check, State::Ok, {TR("{1} (made when it is needed)"), {folder}}};
  return {check, State::Problem, {TR("{1} may not be written to"), {folder}}, advice, FileFailed};
}

Finding SettingsFile(const std::string& folder, Invocation& invocation) {
  const TCBase::Settings settings(folder, invocation.printer.Log());
  if (settings.ReadFault()) {
    return {"settings",
            State::Problem,
            {TR("{1} could not be read"), {settings.Path()}, {qor::Verbatim(settings.ReadFault().text)}},
            TR("see that you may read it, and that no other program holds it"),
            FileFailed};
  }
  if (!settings.IsFileBroken()) return {"settings", State::Ok, qor::Verbatim(settings.Path())};
  return {"settings",
          State::Problem,
          {TR("{1} is broken, and not used"), {settings.Path()}},
          {TR("mend or remove it; the window keeps it as {1} when it writes a new one"),
           {"TC420Config.xml.broken"}},
          FileFailed};
}

Finding LogFile(const std::string& folder) {
  const std::string path = platform::PathIn(folder.empty() ? "." : folder, TCBase::LogFileName);
  std::string start;
  const platform::SystemError failed = platform::ReadWholeFile(path, 0, start);
  if (!failed) return {"log", State::Ok, qor::Verbatim(path)};
  if (failed.kind == platform::ErrorKind::NotFound)
    return {"log", State::Ok, {TR("{1} (of the window, which has written none yet)"), {path}}};
  return {"log",
          State::Note,
          {TR("{1} could not be read"), {path}, {qor::Verbatim(failed.text)}},
          TR("the window writes no log until that is mended")};
}

Findings Examine(Invocation& invocation) {
  const Computer computer = LookAround(invocation);
  const std::string& folder = invocation.environment.settingsFolder;
  Findings findings = {Versions(computer)};
  for (Finding& finding : UsbFindings(computer, invocation)) findings.push_back(std::move(finding));
  findings.push_back(Port(invocation));
  findings.push_back(Network(computer));
  findings.push_back(SettingsFolder(folder));
  findings.push_back(SettingsFile(folder, invocation));
  findings.push_back(LogFile(folder));
  return findings;
}

// The answer

std::string_view Name(State state) {
  switch (state) {
    case State::Ok: return "ok";
    case State::Note: return "note";
    case State::Problem: return "problem";
  }
  return {};
}

void PrintLines(const Findings& findings, const Invocation& invocation) {
  std::ostream& out = invocation.environment.out;
  const auto padded = [](std::string_view text, std::size_t width) {
    std::string cell(text);
    cell.resize(std::max(width, cell.size()), ' ');
    return cell;
  };
  constexpr std::size_t StateWidth = 9, CheckWidth = 17;
  for (const Finding& finding : findings) {
    out << padded(Name(finding.state), StateWidth) << padded(finding.check, CheckWidth)
        << Printable(invocation.Text(finding.text)) << '\n';
    if (finding.advice) {
      out << std::string(StateWidth + CheckWidth, ' ') << "-> " << invocation.Text(finding.advice) << '\n';
    }
  }
}

Json JsonOf(const Findings& findings, const Invocation& invocation) {
  Json answer = {{"version", HALVEX_VERSION}, {"findings", Json::array()}};
  for (const Finding& finding : findings) {
    answer["findings"].push_back({{"check", finding.check},
                                  {"state", Name(finding.state)},
                                  {"text", invocation.Text(finding.text)},
                                  {"advice", invocation.Text(finding.advice)}});
  }
  return answer;
}

ExitStatus RunDoctor(bool asJson, Invocation& invocation) {
  invocation.printer.KeepStandardOutputFree();
  const Findings findings = Examine(invocation);
  if (asJson) {
    Print(JsonOf(findings, invocation), invocation.environment.out);
  } else {
    PrintLines(findings, invocation);
  }
  const auto problem = std::ranges::find(findings, State::Problem, &Finding::state);
  return problem == findings.end() ? Done : problem->status;
}

}  // namespace

Runner DefineDoctor(CLI::App& parser) {
  const auto asJson = std::make_shared<bool>(false);
  parser.add_flag("--json", *asJson, "Answer as JSON");
  return [asJson](Invocation& invocation) { return RunDoctor(*asJson, invocation); };
}

}  // namespace cli
