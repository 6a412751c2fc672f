// SPDX-License-Identifier: MIT
// upload, sync-time, set-time, clear
#include <algorithm>
#include <chrono>
#include <memory>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/DeviceArguments.h"
#include "cli/DeviceJob.h"
#include "cli/LogPrinter.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "cli/Question.h"
#include "device/ControllerLimits.h"

namespace cli {
namespace {

using Devices = std::vector<TCBase::DeviceInfo>;

// sync-time, set-time

ExitStatus SetTime(const Devices& devices, const platform::SYSTEMTIME& time, int waitSeconds,
                   Invocation& invocation) {
  const ExitStatus status =
      RunJob({[&](TCBase::Worker& worker) { worker.StartTimeSync(devices, time); }, waitSeconds}, invocation);
  if (status == Done)
    invocation.printer.Log().Message(TR("The clock was set to {1}"), {DateAndTimeText(time)});
  return status;
}

/// The number at that place of the text, which is all digits.
int NumberAt(const std::string& text, std::size_t start, std::size_t length) {
  return std::stoi(text.substr(start, length));
}

/// Whether the text has that form, in which 0 stands for any digit.
bool HasForm(std::string_view text, std::string_view form) {
  return std::ranges::equal(text, form,
                            [](char c, char f) { return f == '0' ? c >= '0' && c <= '9' : c == f; });
}

platform::SYSTEMTIME DateAndTimeOf(const std::string& text) {
  using namespace std::chrono;
  constexpr int FirstYear = 1601;  // as SYSTEMTIME has it
  const auto field = [](auto number) { return static_cast<std::uint16_t>(number); };
  if (HasForm(text, "0000-00-00 00:00:00")) {
    const year_month_day date{year(NumberAt(text, 0, 4)), month(static_cast<unsigned>(NumberAt(text, 5, 2))),
                              day(static_cast<unsigned>(NumberAt(text, 8, 2)))};
    const int hour = NumberAt(text, 11, 2), minute = NumberAt(text, 14, 2), second = NumberAt(text, 17, 2);
    if (date.ok() && int{date.year()} >= FirstYear && hour < 24 && minute < 60 && second < 60) {
      return {field(int{date.year()}),
              field(unsigned{date.month()}),
              field(weekday(sys_days(date)).c_encoding()),
              field(unsigned{date.day()}),
              field(hour),
              field(minute),
              field(second),
              0};
    }
  }
  throw CommandError(WrongUsage,
                     {TR("'{1}' is no date and time; give them as \"YYYY-MM-DD HH:MM:SS\""), {text}});
}

// clear

struct ClearOptions {
  DeviceOptions devices;
  bool isSure = false;
};

ExitStatus ClearAll(const Devices& devices, int waitSeconds, Invocation& invocation) {
  return RunJob({[&](TCBase::Worker& worker) { worker.StartClearAll(devices); }, waitSeconds}, invocation);
}

ExitStatus RunClear(const ClearOptions& options, Invocation& invocation) {
  const Devices devices = DevicesOf(options.devices, invocation);
  if (!options.isSure) {
    if (!invocation.environment.terminal.isInput) {
      throw CommandError(WrongUsage, TR("clearing removes all modes, which cannot be read back; add --yes"));
    }
    std::string names;
    for (const TCBase::DeviceInfo& device : devices) {
      names += (names.empty() ? "" : ", ") + Printable(ArgumentOf(device));
    }
    if (!IsConfirmed({TR("Remove all modes from {1}? They cannot be read back."), {names}}, invocation)) {
      throw CommandError(Interrupted, TR("nothing was cleared"));
    }
  }
  return ClearAll(devices, options.devices.waitSeconds, invocation);
}

// upload

struct UploadOptions {
  std::string path;
  DeviceOptions devices;
  std::vector<int> modes;
  bool isCleared = false, isSynced = false;
};

ExitStatus Upload(const UploadOptions& options, const Devices& devices,
                  const TCBase::Program::ModeListView& modes, Invocation& invocation) {
  return RunJob({[&](TCBase::Worker& worker) { worker.StartUpload(devices, modes); },
                 options.devices.waitSeconds, TR("stopping after the mode that is being sent")},
                invocation);
}

ExitStatus RunUpload(const UploadOptions& options, Invocation& invocation) {
  const Devices devices = DevicesOf(options.devices, invocation);
  const TCBase::Program program = Load(options.path, invocation);
  const TCBase::Program::ModeListView modes(program, ModeIndicesOf(program, options.modes, options.path));
  if (!invocation.options.quiet) {
    invocation.printer.WarnOfEach(TCBase::RemarksOn(modes, TCBase::ModelsOf(devices)));
  }
  if (!options.modes.empty()) {
    invocation.printer.Log().Message(TR("The chosen modes take the controller's places from the first on"));
  }
  const int wait = options.devices.waitSeconds;
  ExitStatus status = Done;
  if (options.isCleared) status = ClearAll(devices, wait, invocation);
  if (status != Interrupted) status = std::max(status, Upload(options, devices, modes, invocation));
  // The time is that of now: an upload takes a while.
  if (options.isSynced && status != Interrupted) {
    status = std::max(status, SetTime(devices, invocation.environment.clock.LocalTime(), wait, invocation));
  }
  return status;
}

}  // namespace

Runner DefineUpload(CLI::App& parser) {
  const auto options = std::make_shared<UploadOptions>();
  AddFile(parser, options->path);
  AddDevices(parser, options->devices);
  AddModes(parser, options->modes);
  parser.get_option("--mode")->description(
      "Only this mode; may be given several times. The chosen modes take the controller's places from the "
      "first on");
  parser.add_flag("--clear", options->isCleared, "Remove all modes that are in the controller first");
  parser.add_flag("--sync-time", options->isSynced, "Set the clock afterwards");
  return [options](Invocation& invocation) { return RunUpload(*options, invocation); };
}

Runner DefineSyncTime(CLI::App& parser) {
  const auto devices = std::make_shared<DeviceOptions>();
  AddDevices(parser, *devices);
  return [devices](Invocation& invocation) {
    return SetTime(DevicesOf(*devices, invocation), invocation.environment.clock.LocalTime(),
                   devices->waitSeconds, invocation);
  };
}

Runner DefineSetTime(CLI::App& parser) {
  const auto devices = std::make_shared<DeviceOptions>();
  const auto time = std::make_shared<std::string>();
  parser.add_option("TIME", *time, "Date and time, as \"YYYY-MM-DD HH:MM:SS\"")
      ->required()
      ->type_name("TIME");
  AddDevices(parser, *devices);
  return [devices, time](Invocation& invocation) {
    const platform::SYSTEMTIME asked = DateAndTimeOf(*time);
    return SetTime(DevicesOf(*devices, invocation), asked, devices->waitSeconds, invocation);
  };
}

Runner DefineClear(CLI::App& parser) {
  const auto options = std::make_shared<ClearOptions>();
  AddDevices(parser, options->devices);
  parser.add_flag("-y,--yes", options->isSure, "Do not ask; needed where nobody can be asked");
  return [options](Invocation& invocation) { return RunClear(*options, invocation); };
}

}  // namespace cli
