// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "chart/ViewSpan.h"
#include "formats/Localisation.h"
#include "formats/Settings.h"
#include "ui/ChartEditor.h"
#include "ui/DeviceList.h"
#include "ui/Dialogs.h"
#include "ui/Document.h"
#include "ui/MenuState.h"
#include "ui/View.h"
#include "worker/JobStop.h"
#include "worker/Worker.h"

namespace UX {

/// What the window's work is done with; all outlive the workbench.
struct Services {
  platform::Clock& clock;
  qor::Log& log;
  TCBase::Settings& settings;
  TCBase::Localisation& texts;
  TCBase::Worker& worker;
};

/// Everything that the window shows and its commands change. On one thread.
class Workbench {
 public:
  Workbench(const Services& services, Dialogs& dialogs, View& view);

  Services services;
  Dialogs& dialogs;
  View& view;
  Document document;
  ViewSpan span;
  DeviceList devices;
  ChartEditor editor;
  TCBase::StepClipboard clipboard;
  void* window = nullptr;  // where the worker posts to

  /// The text in the user's language.
  std::string Text(const qor::Sentence& sentence) const;
  /// Writes it into the log.
  void Say(const qor::Sentence& sentence) const { services.log.Message(sentence); }

  /// Says in log and box that something failed, and why.
  void TellFailure(const qor::Sentence& failure);

  /// Runs a command by its number, as a menu, a key or a button asks for it. One that its rule forbids now
  /// does nothing. Whether there is such a command.
  bool Run(int command);
  MenuConditions Conditions();

  /// Changes the program, as an entry of its own or of a run; its status goes into the log.
  void Edit(const ContentEdit& edit, const EditRun& run = {});
  /// The same for what only changes the mode that is shown.
  void EditMode(const std::function<TCBase::EditResult(TCBase::Mode&)>& edit);
  void ShowMode(std::size_t mode);

  // The program's file
  /// Whether to go on with what would drop the program: it is saved, or the user does not want it.
  bool MayDropProgram();
  /// Asks what to do with the changes, then loads the file. A box says why when that fails.
  void Open(const std::string& path);
  /// The same when it has been asked.
  void Load(const std::string& path);
  /// The file that was open last, at the mode that was shown, or else the built-in program. Nothing is said
  /// about a file that is gone.
  void OpenLast();
  /// To be called when the program ends: OpenLast shows this mode again.
  void KeepShownMode() const;
  /// A program that a crash left behind.
  void Recover(TCBase::Program program, const std::string& path);
  /// To the path, with a word in the log; false when it could not be written.
  bool SaveTo(const std::string& path);

  /// To be called when the worker has seen devices come or go, or has searched the network.
  void DevicesChanged();

  /// What the picked controllers will not take of a mode, or will show otherwise; where none is picked,
  /// whether it has more steps than some take.
  std::vector<qor::Sentence> RemarksOn(const TCBase::Mode& mode) const;

  // Jobs
  enum class JobKind { Devices, Demo, Scan };
  /// Has `start` hand a job to the worker; the log tells when others come first.
  void StartJob(JobKind kind, const std::function<void(TCBase::Worker&)>& start);
  /// Whether controllers are being worked on, other than by a demo.
  bool IsWorking() const { return isWorking_ || endingWith_.has_value(); }
  /// What is happening then, for one line; nothing when there is nothing to say.
  qor::Sentence Activity() const;
  /// Asks the running job to end in order; others go on behind it.
  void StopJob() { stop_.Ask(); }
  /// The same, and drops what waits behind it.
  void CancelJobs();

  /// Asks what to do with changes and with a job that runs, and closes the window: at once, or as soon as the
  /// job has ended.
  void End();

  /// A double click on the chart: on the name of a channel it renames that; elsewhere it is two presses.
  void DoubleClick(Point point);

  // A demo
  bool IsDemoRunning() const { return isDemoRunning_; }
  /// The second of the day that a demo showed when LookAtDemo was called last; nothing when none does.
  std::optional<int> DemoSecond() const { return demoSecond_; }
  /// To be called before each picture, so that all of it shows one moment.
  void LookAtDemo();
  void StartDemo(const std::vector<TCBase::DeviceInfo>& picked);
  int DemoSeconds() const;
  void SetDemoSeconds(int seconds);

  /// Of the clock, for the editor's runs of keys.
  std::int64_t Milliseconds() const;
  /// To be called ten times a second: sees jobs end and runs of keys pause. Whether the panels show something
  /// else now.
  bool Tick();

 private:
  void SetDemoRunning(bool isRunning);
  void TakeOutcomes();
  bool MayWaitForJobs();
  void GoOnEnding();

  bool isDemoRunning_ = false;
  TCBase::JobStop stop_{services.worker};
  std::optional<int> demoSecond_;
  bool wasBusy_ = false;
  bool isWorking_ = false;
  std::optional<TCBase::JobOutcomes> runningJob_;
  std::optional<TCBase::Program> endingWith_;  // the window closes when no job runs; what was asked about
};

}  // namespace UX
