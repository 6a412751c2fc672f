// SPDX-License-Identifier: MIT
// demo
#include <charconv>
#include <memory>
#include <optional>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/DeviceArguments.h"
#include "cli/DeviceJob.h"
#include "cli/LogPrinter.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "formats/Settings.h"
#include "worker/DemoJob.h"

namespace cli {
namespace {

using platform::Key;
using TCBase::JobControl;

struct DemoOptions {
  std::string path;
  std::vector<std::string> devices;
  int mode = 1;
  int seconds = 0;    // 0: as the settings say
  std::string start;  // a time of day; empty for midnight
};

constexpr int QuarterHour = 15 * 60;

/// The user's hand on a demo: shows where it is, obeys the keys, and begins each device's day where it
/// should.
class Steering {
 public:
  Steering(Invocation& invocation, std::optional<int> startSecond)
      : invocation_(invocation),
        startSecond_(startSecond),
        keyboard_(invocation.environment.terminal.openKeyboard()) {}

  /// Does what there is to do; true when the demo is to stop.
  bool operator()(JobControl& control) {
    const int state = control.demoState;
    const int second = control.demoSecond;
    if (state == JobControl::NoDemo || second < 0) {
      isStarted_ = false;
      invocation_.printer.ShowProgress("");
      return ObeyKeys(control, state, second);
    }
    if (!isStarted_ && startSecond_) control.PostSeek(*startSecond_);
    isStarted_ = true;
    if (invocation_.environment.terminal.isError) Show(control, state, second);
    return ObeyKeys(control, state, second);
  }

 private:
  void Show(JobControl& control, int state, int second) {
    std::string line = TimeText(second / 3600, second / 60 % 60);
    line += ':';
    line += qor::ZeroFilled(second % 60, 2);
    for (const int percent : control.LastChannels().values) {
      const std::string number = std::to_string(percent);
      line += std::string(number.size() < 5 ? 5 - number.size() : 1, ' ') + number;
    }
    line += " %  ";
    line += state == JobControl::DemoPaused ? "paused" : "playing";
    if (keyboard_) line += "   space: pause, arrows: quarter of an hour, q: stop";
    invocation_.printer.ShowProgress(line);
  }

  bool ObeyKeys(JobControl& control, int state, int second) {
    if (keyboard_ == nullptr) return false;
    for (Key key = keyboard_->Next(); key != Key::None; key = keyboard_->Next()) {
      if (key == Key::Quit) return true;
      if (state == JobControl::NoDemo) continue;
      const auto opposite = state == JobControl::DemoPaused ? JobControl::Resume : JobControl::Pause;
      if (key == Key::Space) control.Post(opposite);
      if (key == Key::Left) Seek(control, second, -QuarterHour);
      if (key == Key::Right) Seek(control, second, QuarterHour);
    }
    return false;
  }

  /// Moves the demo; from where it was sent last, if it has not got there yet.
  void Seek(JobControl& control, int second, int by) {
    const int from = aim_ && second == secondWhenSent_ ? *aim_ : second;
    aim_ = from + by;
    secondWhenSent_ = second;
    control.PostSeek(*aim_);
  }

  Invocation& invocation_;
  std::optional<int> startSecond_;
  std::unique_ptr<platform::Keyboard> keyboard_;  // null where there are no keys to be had
  bool isStarted_ = false;
  std::optional<int> aim_;
  int secondWhenSent_ = 0;
};

int SecondsOf(const DemoOptions& options, Invocation& invocation) {
  if (options.seconds > 0) return options.seconds;
  TCBase::Settings settings(invocation.environment.settingsFolder, invocation.printer.Log());
  return TCBase::DemoSecondsOf(settings.Get(TCBase::SettingDemoSpeed));
}

ExitStatus RunDemo(const DemoOptions& options, Invocation& invocation) {
  const std::vector<TCBase::DeviceInfo> devices = DevicesOf(options.devices);
  std::optional<int> startSecond;
  if (!options.start.empty()) startSecond = SecondOf(options.start);
  const TCBase::Program program = Load(options.path, invocation);
  const std::size_t mode = ModeIndexOf(program, options.mode, options.path);
  const TCBase::Program::ModeListView modes(program, {mode});
  const int seconds = SecondsOf(options, invocation);
  Steering steering(invocation, startSecond);
  return RunJob({[&](TCBase::Worker& worker) { worker.StartDemo(devices, modes, seconds); },
                 "stopping the demo", std::ref(steering)},
                invocation);
}

std::string CheckSeconds(const std::string& text) {
  int seconds = 0;
  const char* end = text.data() + text.size();
  const auto [next, failed] = std::from_chars(text.data(), end, seconds);
  const bool isGood = failed == std::errc{} && next == end && seconds >= TCBase::FewestDemoSeconds &&
                      seconds <= TCBase::MostDemoSeconds;
  return isGood ? ""
                : qor::Format("'{1}' is no number of seconds from {2} to {3}",
                              {text, TCBase::FewestDemoSeconds, TCBase::MostDemoSeconds});
}

}  // namespace

Runner DefineDemo(CLI::App& parser) {
  const auto options = std::make_shared<DemoOptions>();
  AddFile(parser, options->path);
  AddDevices(parser, options->devices);
  AddMode(parser, options->mode)
      ->required(false)
      ->description("The mode, the first one unless told otherwise");
  parser
      .add_option("--seconds", options->seconds,
                  "How long the day takes, from 10 to 86400; else as set, or 60")
      ->type_name("S")
      ->check(CheckSeconds);
  parser.add_option("--start", options->start, "Begin at this time of day")->type_name("HH:MM");
  return [options](Invocation& invocation) { return RunDemo(*options, invocation); };
}

}  // namespace cli
