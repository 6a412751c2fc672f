// SPDX-License-Identifier: MIT
// demo
#include <algorithm>
#include <memory>

#include "cli/Commands.h"
#include "cli/DeviceArguments.h"
#include "cli/DeviceJob.h"
#include "cli/LogPrinter.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "formats/Settings.h"
#include "model/TimeText.h"
#include "worker/DemoJob.h"
#include "worker/Stopwatch.h"

namespace cli {
namespace {

using platform::Key;
using TCBase::JobControl;

struct DemoOptions {
  std::string path;
  DeviceOptions devices;
  int mode = 1;
  int seconds = 0;    // 0: as the settings say
  std::string start;  // a time of day; empty for midnight
};

constexpr int QuarterHour = 15 * 60;
constexpr double ShowEverySeconds = 0.1;
constexpr double OrderSeconds = 0.3;  // after which an order that was taken shows in what is played

/// The user's hand on a demo: shows where it is, and obeys the keys.
class Steering {
 public:
  explicit Steering(Invocation& invocation)
      : invocation_(invocation),
        keyboard_(invocation.environment.terminal.openKeyboard()),
        sinceShown_(invocation.environment.clock),
        sinceOrder_(invocation.environment.clock) {
    if (keyboard_ != nullptr && invocation.environment.terminal.isError) {
      invocation.printer.Complain(
          qor::Sentence(TR("space pauses, the arrow keys move by a quarter of an hour, q stops")));
    }
  }

  /// Does what there is to do; true when the demo is to stop.
  bool operator()(JobControl& control) {
    const Moment moment = MomentOf(control);
    if (invocation_.environment.terminal.isError) Show(control, moment);
    return keyboard_ != nullptr && ObeyKeys(control, moment);
  }

 private:
  /// Where the demo is, or will be when it has obeyed.
  struct Moment {
    int second = JobControl::NoSecond;
    bool isPaused = false;
  };

  static Moment MomentOf(const JobControl& control) {
    return {control.demoSecond, control.demoState == JobControl::DemoPaused};
  }

  void Show(JobControl& control, const Moment& moment) {
    if (moment.second < 0) {
      invocation_.printer.ShowProgress("");
      return;
    }
    if (sinceShown_.Elapsed() < ShowEverySeconds) return;
    sinceShown_.Restart();
    std::string line = TCBase::TimeOfDayText(moment.second);
    for (const int percent : control.LastChannels().values) {
      const std::string number = std::to_string(percent);
      line.append(5 - std::min<std::size_t>(number.size(), 4), ' ');
      line += number;
    }
    line += moment.isPaused ? " %  paused" : " %  playing";
    invocation_.printer.ShowProgress(line);
  }

  /// One order at a time: a second one would take the place of one that was not taken yet.
  bool ObeyKeys(JobControl& control, const Moment& moment) {
    if (moment.second < 0) return keyboard_->Next() == Key::Quit;
    while (!control.IsPending()) {
      switch (keyboard_->Next()) {
        case Key::None: return false;
        case Key::Quit: return true;
        case Key::Space: Pause(control, moment); break;
        case Key::Left: Seek(control, moment, -QuarterHour); break;
        case Key::Right: Seek(control, moment, QuarterHour); break;
        case Key::Other: break;
      }
    }
    return false;
  }

  void Pause(JobControl& control, const Moment& moment) {
    Order(moment);
    ordered_.isPaused = !ordered_.isPaused;
    control.Post(ordered_.isPaused ? JobControl::Pause : JobControl::Resume);
  }

  void Seek(JobControl& control, const Moment& moment, int by) {
    Order(moment);
    ordered_.second = std::clamp(ordered_.second + by, 0, TCBase::SecondsPerDay - 1);
    control.PostSeek(ordered_.second);
  }

  /// Begins an order: from what was ordered just before, if that cannot show yet.
  void Order(const Moment& moment) {
    if (ordered_.second < 0 || sinceOrder_.Elapsed() > OrderSeconds) ordered_ = moment;
    sinceOrder_.Restart();
  }

  Invocation& invocation_;
  std::unique_ptr<platform::Keyboard> keyboard_;  // null where there are no keys to be had
  TCBase::Stopwatch sinceShown_;
  TCBase::Stopwatch sinceOrder_;
  Moment ordered_;
};

int SecondsOf(const DemoOptions& options, Invocation& invocation) {
  if (options.seconds > 0) return options.seconds;
  TCBase::Settings settings(invocation.environment.settingsFolder, invocation.printer.Log());
  return TCBase::DemoSecondsOf(settings.Get(TCBase::SettingDemoSpeed));
}

ExitStatus RunDemo(const DemoOptions& options, Invocation& invocation) {
  const std::vector<TCBase::DeviceInfo> devices = DevicesOf(options.devices, invocation);
  TCBase::DemoTime time;
  if (!options.start.empty()) time.startSecond = SecondOf(options.start);
  const TCBase::Program program = Load(options.path, invocation);
  const std::size_t mode = ModeIndexOf(program, options.mode, options.path);
  const TCBase::Program::ModeListView modes(program, {mode});
  time.seconds = SecondsOf(options, invocation);
  invocation.environment.watchInterrupts();  // before the terminal is in another mode
  Steering steering(invocation);
  return RunJob({[&](TCBase::Worker& worker) { worker.StartDemo(devices, modes, time); },
                 options.devices.waitSeconds, TR("stopping the demo"), std::ref(steering)},
                invocation);
}

}  // namespace

Runner DefineDemo(CLI::App& parser) {
  const auto options = std::make_shared<DemoOptions>();
  AddFile(parser, options->path);
  AddDevices(parser, options->devices);
  AddMode(parser, options->mode);
  parser
      .add_option("--seconds", options->seconds,
                  "How long the day takes, from 10 to 86400; else as set, or 60")
      ->type_name("S")
      ->check(CheckNumber(TCBase::FewestDemoSeconds, TCBase::MostDemoSeconds));
  parser.add_option("--start", options->start, "Begin at this time of day")->type_name("HH:MM");
  return [options](Invocation& invocation) { return RunDemo(*options, invocation); };
}

}  // namespace cli
