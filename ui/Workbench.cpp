// SPDX-License-Identifier: MIT
#include "ui/Workbench.h"

#include <algorithm>
#include <utility>

#include "QorLib/Format.h"
#include "QorLib/ParseInteger.h"
#include "device/ControllerLimits.h"
#include "model/ModeSample.h"
#include "model/StepLimit.h"
#include "ui/Commands.h"

namespace UX {
namespace {

constexpr std::string_view SettingLastMode = "last_mode";  // counted from 1

}  // namespace

Workbench::Workbench(const Services& given, Dialogs& asking, View& showing)
    : services(given),
      dialogs(asking),
      view(showing),
      document(given.texts.Translator(), showing),
      editor({document, given.log, given.worker.Control(), showing}) {}

std::string Workbench::Text(const qor::Sentence& sentence) const {
  return sentence.In(services.texts.Translator());
}

void Workbench::TellFailure(const qor::Sentence& failure) {
  Say(failure);
  std::string text = Text({failure.english, failure.arguments});
  for (const qor::Sentence& reason : failure.reasons) text += "\n\n" + Text(reason);
  dialogs.Tell(document.Title(services.texts.Translator()), text);
}

bool Workbench::Run(int number) {
  const auto languages = services.texts.Languages();
  if (number >= FirstLanguageCommand && number < FirstLanguageCommand + static_cast<int>(languages.size())) {
    ChooseLanguage(*this, languages[static_cast<std::size_t>(number - FirstLanguageCommand)].id);
    return true;
  }
  const CommandRow* row = FindCommand(number);
  if (row == nullptr) return false;
  // A run of keys may go on with a deletion, and with nothing else.
  if (number != command::DeleteStep) editor.EndRun();
  if (IsEnabled(*row, Conditions())) row->run(*this);
  return true;
}

MenuConditions Workbench::Conditions() {
  MenuConditions conditions{IsDemoRunning(), editor.SelectedStep().has_value(), services.log.IsTracing(),
                            DemoSeconds(), command::English};
  const auto languages = services.texts.Languages();
  const auto current =
      std::ranges::find(languages, services.texts.CurrentLanguage(), &TCBase::StringTable::Language::id);
  if (current != languages.end()) {
    conditions.languageCommand = FirstLanguageCommand + static_cast<int>(current - languages.begin());
  }
  return conditions;
}

void Workbench::Edit(const ContentEdit& edit, const EditRun& run) {
  if (!document.IsInRun(run.name)) editor.EndRun();
  const TCBase::EditResult result = document.Change(run, edit);
  if (result.status) Say(result.status);
}

void Workbench::EditMode(const std::function<TCBase::EditResult(TCBase::Mode&)>& edit) {
  Edit([&edit](Content& content) { return edit(content.Mode()); });
}

void Workbench::ShowMode(std::size_t mode) {
  if (mode == document.CurrentMode()) return;
  if (IsDemoRunning()) return view.Refresh();  // the demo's mode stays in sight
  editor.Reset();
  document.ShowMode(mode);
}

bool Workbench::MayDropProgram() {
  editor.EndRun();
  if (!document.IsModified()) return true;
  const Answer answer =
      dialogs.Ask({Text(TR("Program modified")), Text(TR("Save changes?")), true, Answer::Yes});
  if (answer != Answer::Yes) return answer == Answer::No;
  SaveProgram(*this);
  return !document.IsModified();
}

void Workbench::Open(const std::string& path) {
  if (MayDropProgram()) Load(path);
}

void Workbench::Load(const std::string& path) {
  if (const qor::Sentence failure = document.Load(path)) return TellFailure(failure);
  editor.Reset();
  services.settings.Set(TCBase::SettingLastOpenFile, path);
  Say({TR("Loaded program file {1}"), {path}});
}

void Workbench::OpenLast() {
  const std::string path = services.settings.Get(TCBase::SettingLastOpenFile);
  if (path.empty() || document.Load(path)) {
    document.New(services.texts.Translator());
  } else {
    Say({TR("Loaded program file {1}"), {path}});
    document.ShowMode(
        static_cast<std::size_t>(std::max(0, qor::ParseInteger(services.settings.Get(SettingLastMode)) - 1)));
  }
}

void Workbench::KeepShownMode() const {
  if (document.Path().empty()) return;  // another file is opened at the next start
  services.settings.Set(SettingLastMode, std::to_string(document.CurrentMode() + 1));
}

void Workbench::Recover(TCBase::Program program, const std::string& path) {
  editor.Reset();
  document.Recover(std::move(program), path);
}

bool Workbench::SaveTo(const std::string& path) {
  if (const qor::Sentence failure = document.Save(path)) {
    TellFailure(failure);
    return false;
  }
  services.settings.Set(TCBase::SettingLastOpenFile, path);
  Say({TR("Saved program {1}"), {path}});
  return true;
}

void Workbench::DevicesChanged() {
  devices.Update(services.worker.UsbDevices(), services.worker.NetworkDevices());
  view.Refresh();
}

int Workbench::DemoSeconds() const {
  return TCBase::DemoSecondsOf(services.settings.Get(TCBase::SettingDemoSpeed));
}

void Workbench::SetDemoSeconds(int seconds) {
  services.settings.Set(TCBase::SettingDemoSpeed, std::to_string(seconds));
  Say({TR("Demo playback speed set to {1} seconds"), {seconds}});
  view.Refresh();
}

void Workbench::StartDemo(const std::vector<TCBase::DeviceInfo>& picked) {
  editor.EndRun();
  StartJob(JobKind::Demo, [&](TCBase::Worker& worker) {
    worker.StartDemo(picked, TCBase::Program::ModeListView(document.Program(), {document.CurrentMode()}),
                     {DemoSeconds(), 0});
  });
  SetDemoRunning(true);
}

void Workbench::DoubleClick(Point point) {
  if (!editor.IsName(point)) return editor.ButtonDown(point);
  Run(command::RenameChannel);
}

void Workbench::LookAtDemo() {
  const std::int32_t second = services.worker.Control().demoSecond;
  demoSecond_ = IsDemoRunning() && second >= 0 ? std::optional(second) : std::nullopt;
}

void Workbench::SetDemoRunning(bool isRunning) {
  isDemoRunning_ = isRunning;
  LookAtDemo();
  stop_.Forget();
  editor.SetDemoRunning(isRunning);
  view.Refresh();
}

std::int64_t Workbench::Milliseconds() const {
  return services.clock.Counter() / (services.clock.Frequency() / 1000);
}

std::vector<qor::Sentence> Workbench::RemarksOn(const TCBase::Mode& mode) const {
  const std::vector<TCBase::DeviceInfo> picked = devices.Picked();
  if (!picked.empty()) return TCBase::RemarksOn(mode, TCBase::ModelsOf(picked));
  const int steps = TCBase::StepCount(mode);
  for (const int limit : {TCBase::MaxModeSteps, TCBase::MaxModeStepsEarlier}) {
    if (steps > limit) return {{TR("More than {1} steps"), {limit}}};
  }
  return {};
}

// Jobs

void Workbench::StartJob(JobKind kind, const std::function<void(TCBase::Worker&)>& start) {
  if (services.worker.IsBusy()) {
    Say(TR("This job begins when the one before it has ended."));
  } else {
    devices.ForgetOutcomes();
    stop_.Forget();
  }
  start(services.worker);
  wasBusy_ = true;
  isWorking_ = isWorking_ || kind == JobKind::Devices;
  view.Refresh();
}

qor::Sentence Workbench::Activity() const {
  using Stage = TCBase::DeviceOutcome::Stage;
  if (endingWith_) return TR("The window closes when the job has ended.");
  if (!runningJob_) return {};
  for (const TCBase::DeviceOutcome& device : runningJob_->devices) {
    if (device.stage != Stage::Connecting && device.stage != Stage::Working) continue;
    qor::Sentence doing = TCBase::SentenceOf(device);
    doing.reasons.clear();  // there is little room
    return qor::About(device.device.name, std::move(doing));
  }
  return {};
}

void Workbench::CancelJobs() {
  services.worker.DropQueued();
  StopJob();
}

void Workbench::TakeOutcomes() {
  for (const TCBase::JobOutcomes& ended : services.worker.TakeEndedJobs()) devices.ShowEnded(ended.devices);
  runningJob_ = services.worker.RunningJob();
  if (runningJob_) devices.ShowRunning(runningJob_->devices);
}

bool Workbench::Tick() {
  document.EndPausedRun(Milliseconds());
  const bool isBusy = services.worker.IsBusy();
  const bool hasEnded = wasBusy_ && !isBusy;
  wasBusy_ = isBusy;
  if (hasEnded || isBusy) TakeOutcomes();
  if (!isBusy) isWorking_ = false;
  stop_.Tick();
  if (isDemoRunning_ && !isBusy) SetDemoRunning(false);
  if (endingWith_ && !isBusy && view.IsFree()) GoOnEnding();
  return hasEnded || isBusy;
}

// The end

void Workbench::End() {
  endingWith_.reset();  // who closes it again may think better of it
  if (!MayDropProgram()) return;
  if (!services.worker.IsBusy()) return view.Close();
  if (!MayWaitForJobs()) return;
  endingWith_ = document.Program();
  Say(Activity());
  view.Refresh();
}

/// A demo is stopped without a question: nothing is lost by it.
bool Workbench::MayWaitForJobs() {
  if (!IsWorking()) {
    CancelJobs();
    return true;
  }
  const Answer answer = dialogs.Ask(
      {Text(TR("A job is still running.")),
       Text(TR("Stop it now? With No the window closes as soon as the job has ended.")), true, Answer::No});
  if (answer == Answer::Yes) CancelJobs();
  return answer != Answer::Cancel;
}

void Workbench::GoOnEnding() {
  const bool isDecided = *endingWith_ == document.Program();
  endingWith_.reset();
  if (isDecided) return view.Close();
  End();
}

}  // namespace UX
