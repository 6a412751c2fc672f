// SPDX-License-Identifier: MIT
#include "ui/Workbench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "formats/ProgramFile.h"
#include "formats/TmfFile.h"
#include "model/ModeSample.h"
#include "model/Palette.h"
#include "model/Power.h"
#include "model/Presets.h"
#include "tests/support/Curves.h"
#include "tests/support/DeviceTest.h"
#include "tests/support/FakeLocks.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/TempFolder.h"
#include "ui/Commands.h"
#include "ui/PanelEdits.h"
#include "ui/Recovery.h"

namespace {

namespace command = UX::command;
using test::Curve;
using test::Texts;

class WorkbenchTest : public test::DeviceTest {
 protected:
  WorkbenchTest() { log.SetTranslation(texts.Translator()); }

  template <typename... Numbers>
  void Run(Numbers... commands) {
    (bench.Run(commands), ...);
  }
  void RunAnswering(UX::Answer answer, int number) {
    dialogs.answer = answer;
    bench.Run(number);
  }
  void RunTyping(const char* text, int number) {
    dialogs.typed = text;
    bench.Run(number);
  }
  void SelectStep(std::size_t channel, int step) {
    bench.editor.SelectChannel(channel);
    for (int i = 0; i <= step; ++i) bench.editor.Key(UX::ChartKey::NextStep, 0);
  }
  void WaitForWorker() {
    while (worker.IsBusy()) std::this_thread::yield();
    bench.Tick();
  }
  std::string LastSeen() const { return dialogs.seen.empty() ? "" : dialogs.seen.back(); }
  std::vector<std::string> ModeNames() {
    std::vector<std::string> names;
    for (const TCBase::Mode& mode : bench.document.Program().modes) names.push_back(mode.name);
    return names;
  }

  test::TempFolder folder;
  TCBase::Localisation texts;
  TCBase::Settings settings{folder.File("settings"), log};
  test::FakeLocks locks;
  TCBase::Worker worker{{clock, log, network, &locks}, TCBase::Worker::UsbWatch::Off};
  test::FakeDialogs dialogs;
  test::FakeView view;
  UX::Workbench bench{{clock, log, settings, texts, worker}, dialogs, view};
};

using Workbench = WorkbenchTest;

}  // namespace

TEST_F(Workbench, AsksBeforeAChangedProgramIsDropped) {
  Run(command::Exit);
  EXPECT_TRUE(view.isClosed) << "nothing to ask";
  view.isClosed = false;
  Run(command::DeleteMode, command::Exit);
  EXPECT_EQ(LastSeen(), "Program modified: Save changes?");
  EXPECT_FALSE(view.isClosed) << "Cancel";
  RunAnswering(UX::Answer::Yes, command::Exit);
  EXPECT_EQ(LastSeen(), "save: ") << "no path yet";
  EXPECT_FALSE(view.isClosed) << "the dialog for the path was cancelled";
  dialogs.path = folder.File("a.xml");
  Run(command::Exit);
  EXPECT_TRUE(view.isClosed);
  EXPECT_EQ(settings.Get("last_open_file"), folder.File("a.xml"));
  EXPECT_EQ(bench.document.Title(qor::InEnglish), "Orvanta 24 - " + folder.File("a.xml"));
  Run(command::AddMode);
  RunTyping("Night", command::AddMode);
  RunAnswering(UX::Answer::No, command::New);
  Run(command::Undo);
  EXPECT_EQ(ModeNames(), (Texts{"Normal", "AlwaysOn"}));
  EXPECT_EQ(bench.document.Title(qor::InEnglish), "Orvanta 24 - New program");
}

TEST_F(Workbench, KeepsTheProgramWhenAFileCannotBeReadOrWritten) {
  const TCBase::Program before = bench.document.Program();
  test::Write(folder.File("bad.xml"), "<modelist");
  test::Write(folder.File("bad.tmf"), "12345");
  for (const auto& [number, file] :
       {std::pair{command::Load, "bad.xml"}, {command::ImportTMF, "bad.tmf"}, {command::Load, "none.xml"}}) {
    dialogs.path = folder.File(file);
    Run(number);
    EXPECT_NE(LastSeen().find("Error loading program " + *dialogs.path + "\n\n"), std::string::npos);
  }
  EXPECT_EQ(bench.document.Program(), before);
  EXPECT_FALSE(bench.document.IsModified());
  Run(command::DeleteMode);
  dialogs.path = folder.File("no/such/a.xml");
  Run(command::Save);
  EXPECT_NE(LastSeen().find("Error saving program " + *dialogs.path), std::string::npos);
  EXPECT_TRUE(bench.document.IsModified());
  EXPECT_TRUE(bench.document.Path().empty());
}

TEST_F(Workbench, OpensTheLastFileOrStartsAnew) {
  TCBase::Program program = TCBase::NewProgram(qor::InEnglish);
  program.modes.resize(1);
  TCBase::SaveProgram(program, folder.File("a.xml"));
  settings.Set("last_open_file", folder.File("a.xml"));
  bench.OpenLast();
  EXPECT_EQ(ModeNames(), Texts{"Normal"});
  EXPECT_EQ(log.Texts(), Texts{"Loaded program file " + folder.File("a.xml")});
  settings.Set("last_open_file", folder.File("gone.xml"));
  bench.OpenLast();
  EXPECT_EQ(ModeNames().size(), 2u);
  EXPECT_TRUE(dialogs.seen.empty()) << "silently";
}

TEST_F(Workbench, OffersWhatACrashLeftBehind) {
  {
    UX::Recovery crashed(folder.File("."), bench);
    Run(command::DeleteMode);
    crashed.Keep();
  }
  bench.document.New(qor::InEnglish);
  UX::Recovery recovery(folder.File("."), bench);
  dialogs.answer = UX::Answer::Yes;
  recovery.Offer();
  EXPECT_EQ(ModeNames(), Texts{"AlwaysOn"});
  EXPECT_TRUE(bench.document.IsModified());
  dialogs.path = folder.File("a.xml");
  Run(command::Save);
  recovery.Keep();
  EXPECT_EQ(folder.FileNames().size(), 2u)
      << "settings and program; the copy is gone once there is nothing to save";
  Run(command::DeleteMode);
  bench.editor.SelectChannel(0);
  Run(command::ClearSteps);
  recovery.Keep();
  dialogs.answer = UX::Answer::No;
  UX::Recovery(folder.File("."), bench).Offer();
  EXPECT_EQ(folder.FileNames().size(), 2u) << "declined";
}

TEST_F(Workbench, EditsTheSelectedChannel) {
  Run(command::CopySteps);
  EXPECT_TRUE(log.Texts().empty()) << "no channel is selected";
  bench.editor.SelectChannel(0);
  Run(command::CopySteps);
  bench.editor.SelectChannel(4);
  Run(command::PasteSteps);
  EXPECT_EQ(bench.document.Mode().channels[4], bench.document.Mode().channels[0]);
  Run(command::ClearSteps, command::MoveStepsUp);
  EXPECT_EQ(bench.editor.SelectedChannel(), 3u);
  EXPECT_EQ(bench.document.Mode().channels[3], Curve({{8, 0, 0}, {22, 0, 0}}));
  RunTyping("08:30 20\r\n09:00 30 J\r\n", command::AddStepsByText);
  EXPECT_EQ(log.Texts(),
            (Texts{"Copied steps to clipboard", "Pasted steps from clipboard", "Cleared all steps",
                   "Moved steps up", "Added new step 08:30 20.", "Added new step 09:00 30 J."}));
  Run(command::EditStepsByText);
  EXPECT_EQ(bench.document.Mode().channels[3], Curve({{8, 30, 20}, {9, 0, 30, true}}));
  RunTyping("08:30 20", command::EditStepsByText);
  EXPECT_EQ(bench.document.Mode().channels[3].steps.size(), 2u) << "a channel keeps two steps";
  EXPECT_EQ(LastSeen(), "Unable to delete step. Minimum 2 steps per channel is required.")
      << "in the dialog, which stays";
  for (int undone = 0; undone < 5; ++undone) bench.Run(command::Undo);
  EXPECT_FALSE(bench.document.IsModified()) << "copying and refused edits are none";
}

TEST_F(Workbench, NamesAndColoursChannels) {
  bench.editor.SelectChannel(1);
  dialogs.typed = "Moon";
  dialogs.typedSecond = "at night";
  Run(command::RenameChannel);
  EXPECT_EQ(LastSeen(), "Edit channel name: Channel 2");
  EXPECT_EQ(bench.document.Program().channelInfos[1].name, "Moon");
  std::vector<std::uint32_t> colours;
  for (int i = 0; i < 6; ++i) {
    Run(command::ChangeColour);
    colours.push_back(bench.document.Program().channelInfos[1].colour);
  }
  EXPECT_EQ(colours, (std::vector<std::uint32_t>{0xFFDCEAFF, 0xFFFFCCCB, 0xFF90EE90, 0xFFA2BAF5, 0xFFFFFFFF,
                                                 0xFFFFFCC9}));
}

TEST_F(Workbench, KeepsTheListOfModes) {
  UX::SetUploaded(bench, 1, false);
  RunTyping("Copy of it", command::CopyMode);
  EXPECT_EQ(ModeNames(), (Texts{"Normal", "Copy of it", "AlwaysOn"}));
  EXPECT_EQ(bench.document.UploadedModes(), (std::vector<std::size_t>{0, 1}));
  Run(command::MoveModeDown, command::MoveModeDown);
  EXPECT_EQ(ModeNames(), (Texts{"Normal", "AlwaysOn", "Copy of it"}));
  EXPECT_EQ(bench.document.UploadedModes(), (std::vector<std::size_t>{0, 2})) << "marks go with their modes";
  UX::MoveModeTo(bench, 0);
  EXPECT_EQ(ModeNames(), (Texts{"Copy of it", "Normal", "AlwaysOn"}));
  for (int i = 0; i < 4; ++i) bench.Run(command::DeleteMode);
  EXPECT_EQ(ModeNames(), Texts{"AlwaysOn"});
  EXPECT_EQ(log.Texts().back(), "A program needs at least one mode.");
  Run(command::Undo, command::Undo);
  EXPECT_EQ(ModeNames(), (Texts{"Copy of it", "Normal", "AlwaysOn"}));
  EXPECT_EQ(bench.document.UploadedModes(), (std::vector<std::size_t>{0, 1}));
}

TEST_F(Workbench, KeepsTheSelectionWhereTheStepsAre) {
  bench.editor.SelectChannel(0);
  Run(command::ClearSteps);  // another curve than the second channel's
  SelectStep(1, 2);
  Run(command::MoveStepsUp);
  EXPECT_EQ(bench.editor.SelectedStep(), (UX::StepIndex{0, 2}));
  Run(command::Undo);
  EXPECT_EQ(bench.editor.SelectedStep(), (UX::StepIndex{1, 2}));
  bench.editor.SelectChannel(1);
  Run(command::MoveStepsUp, command::Undo);
  EXPECT_EQ(bench.editor.SelectedChannel(), 1u) << "without a step, too";
}

TEST_F(Workbench, ClosesWhenTheRunningJobHasEnded) {
  std::atomic<bool> mayEnd = false;
  bench.StartJob(UX::Workbench::JobKind::Devices, [&](TCBase::Worker& busy) {
    busy.Enqueue([&mayEnd] {
      while (!mayEnd) std::this_thread::yield();
    });
  });
  Run(command::Exit);
  EXPECT_TRUE(LastSeen().starts_with("A job is still running.")) << LastSeen();
  EXPECT_FALSE(bench.Activity()) << "cancelled: it goes on as before";
  RunAnswering(UX::Answer::No, command::Exit);
  RunAnswering(UX::Answer::Cancel, command::Exit);
  EXPECT_FALSE(bench.Activity()) << "thought better of it";
  RunAnswering(UX::Answer::No, command::Exit);
  bench.Tick();
  EXPECT_TRUE(bench.Activity());
  EXPECT_FALSE(view.isClosed);
  mayEnd = true;
  view.isFree = false;
  WaitForWorker();
  EXPECT_FALSE(view.isClosed) << "a dialog stands before it";
  view.isFree = true;
  bench.Tick();
  EXPECT_TRUE(view.isClosed);
}

TEST_F(Workbench, ScalesAChannelsPowerDownAndUpAgain) {
  const TCBase::Channel before = bench.document.Mode().channels[0];
  UX::PowerEdit power(bench);
  const int full = TCBase::WholePercent(TCBase::PowerOf(before));
  for (const int percent : {50, 3, 0, full}) {
    power.Set(0, percent);
    clock.Advance(5000);
    bench.Tick();
  }
  EXPECT_EQ(bench.document.Mode().channels[0], before);
  for (const int percent : {7, full}) {
    power.Set(0, percent);
    power.Finish();
  }
  EXPECT_EQ(bench.document.Mode().channels[0], before) << "also by two edits";
  Run(command::Undo);
  EXPECT_EQ(TCBase::PowerOf(bench.document.Mode().channels[0]), 7);
  Run(command::Undo);
  EXPECT_EQ(bench.document.Mode().channels[0], before);
  bench.editor.SelectChannel(1);
  Run(command::ClearSteps);
  power.Set(1, 50);
  EXPECT_EQ(TCBase::PowerOf(bench.document.Mode().channels[1]), 0);
}

TEST_F(Workbench, TakesARunOfTypingForOneEdit) {
  worker.Stop();  // its thread moves the clock as well
  for (const char* text : {"d", "da", "dark"}) {
    UX::TypeDescription(bench, text);
    clock.Advance(500);
    bench.Tick();
  }
  Run(command::ZoomIn);
  const std::string before = TCBase::NewProgram(texts.Translator()).modes[0].description;
  Run(command::Undo);
  EXPECT_EQ(bench.document.Mode().description, before);
  Run(command::Redo);
  EXPECT_EQ(bench.document.Mode().description, "dark");
}

TEST_F(Workbench, NeedsADeviceForItsJobs) {
  for (const int number :
       {command::SyncTime, command::SetTime, command::Upload, command::ClearAll, command::PlayDemo}) {
    Run(number);
    EXPECT_EQ(LastSeen(), "Devices: Please select a device in the list first.");
  }
  EXPECT_EQ(dialogs.seen.size(), 5u);
  EXPECT_FALSE(worker.IsBusy());
}

TEST_F(Workbench, UploadsTheCheckedModesAndKeepsTheResult) {
  Run(command::AddEmulator, command::AddEmulator);
  ASSERT_EQ(bench.devices.Devices().size(), 1u);
  UX::SetUploaded(bench, 0, false);
  Run(command::Upload);
  WaitForWorker();
  const Texts said = log.Texts();
  ASSERT_EQ(said.size(), 5u) << "one mode";
  EXPECT_EQ(said[2], "Uploading mode: AlwaysOn");
  const auto* outcome = bench.devices.LastOutcome(bench.devices.Devices()[0]);
  ASSERT_TRUE(outcome);
  EXPECT_TRUE(outcome->IsDone());
  UX::SetUploaded(bench, 1, false);
  Run(command::Upload);
  EXPECT_EQ(LastSeen(), "Modes: Please check a mode in the list first.");
}

TEST_F(Workbench, ShowsAnImportedModeUnlessADemoPlays) {
  test::Write(folder.File("day.tmf"), TCBase::ExportTMF(bench.document.Mode()));
  UX::OpenFile(bench, folder.File("day.tmf"));
  EXPECT_EQ(bench.document.CurrentMode(), 2u);
  Run(command::Undo);
  EXPECT_EQ(ModeNames(), (Texts{"Normal", "AlwaysOn"}));
  EXPECT_EQ(bench.document.CurrentMode(), 0u);
  Run(command::AddEmulator, command::PlayDemo);
  UX::OpenFile(bench, folder.File("day.tmf"));
  EXPECT_EQ(ModeNames(), (Texts{"Normal", "AlwaysOn", "day"}));
  EXPECT_EQ(bench.document.CurrentMode(), 0u);
  UX::OpenFile(bench, folder.File("a.xml"));
  EXPECT_EQ(ModeNames().size(), 3u);
  const Texts said = log.Texts();
  EXPECT_EQ(std::ranges::count(said, "A program cannot be opened while a demo plays."), 1);
  Run(command::StopDemo);
  while (bench.IsDemoRunning()) bench.Tick();
}

TEST_F(Workbench, AsksAboutModesThatAreTooLongForATC420) {
  Run(command::AddEmulator);
  bench.EditMode([](TCBase::Mode& mode) {
    for (int minute = 0; minute < 49; ++minute)
      mode.channels[0].Add(TCBase::MakeStep(1, minute, static_cast<float>(minute)));
    return TCBase::EditResult{true, {}};
  });
  const int steps = TCBase::StepCount(bench.document.Mode());
  Run(command::Upload);
  EXPECT_EQ(LastSeen(),
            "Higher step count for Orvanta 24 devices: A mode has more than 48 steps. Optimize the program?");
  EXPECT_FALSE(worker.IsBusy()) << "Cancel";
  RunAnswering(UX::Answer::Yes, command::Upload);
  EXPECT_EQ(LastSeen(),
            "Program optimized: Please check log for optimized channels and run the upload again");
  EXPECT_FALSE(worker.IsBusy());
  EXPECT_EQ(TCBase::StepCount(bench.document.Mode()), 48);
  Run(command::Undo);
  EXPECT_EQ(TCBase::StepCount(bench.document.Mode()), steps);
  RunAnswering(UX::Answer::No, command::Upload);
  EXPECT_TRUE(worker.IsBusy());
  WaitForWorker();
}

TEST_F(Workbench, ClearsDevicesOnlyWhenToldSo) {
  Run(command::AddEmulator, command::ClearAll);
  EXPECT_EQ(LastSeen(), "Clear all: Remove all modes from TC420_Emulator? They cannot be read back.");
  EXPECT_FALSE(worker.IsBusy());
  RunAnswering(UX::Answer::Yes, command::ClearAll);
  WaitForWorker();
  EXPECT_EQ(log.Texts().at(1), "Clearing all modes");
}

TEST_F(Workbench, ForbidsEditsWhileADemoPlays) {
  Run(command::AddEmulator);
  SelectStep(0, 1);
  EXPECT_TRUE(UX::IsEnabled(*UX::FindCommand(command::DeleteStep), bench.Conditions()));
  EXPECT_FALSE(UX::IsEnabled(*UX::FindCommand(command::StopDemo), bench.Conditions()));
  const TCBase::Program before = bench.document.Program();
  Run(command::PlayDemo);
  ASSERT_TRUE(bench.IsDemoRunning());
  for (const int number :
       {command::New, command::Load, command::Undo, command::SyncTime, command::Upload, command::ClearAll,
        command::FastDemo, command::ScanNetwork, command::SetUpWiFi, command::DeleteStep, command::ClearSteps,
        command::OptimiseMode, command::DeleteMode}) {
    EXPECT_FALSE(UX::IsEnabled(*UX::FindCommand(number), bench.Conditions())) << number;
    Run(number);
  }
  for (const int number : {command::Save, command::SaveAs, command::ImportTMF, command::ExportRAW,
                           command::StopDemo, command::Logging}) {
    EXPECT_TRUE(UX::IsEnabled(*UX::FindCommand(number), bench.Conditions())) << number;
  }
  EXPECT_FALSE(UX::IsEnabled(UX::Menu::Channel, bench.Conditions()));
  EXPECT_FALSE(UX::IsEnabled(UX::Menu::Mode, bench.Conditions()));
  EXPECT_EQ(bench.document.Program(), before);
  Run(command::StopDemo);  // the job may not have begun
  while (worker.IsBusy()) bench.Tick();
  bench.Tick();
  EXPECT_FALSE(bench.IsDemoRunning());
  EXPECT_EQ(log.Texts().back(), "Cancelled!");
}

TEST_F(Workbench, TakesDemoSpeedsFromTenSecondsToADay) {
  for (const auto& [typed, seconds] :
       {std::pair{"9", 60}, {"10", 10}, {"86401", 10}, {"", 10}, {"86400", 86400}}) {
    dialogs.typed = typed;
    Run(command::CustomDemo);
    EXPECT_EQ(bench.DemoSeconds(), seconds) << typed;
  }
  EXPECT_TRUE(UX::IsChecked(command::CustomDemo, bench.Conditions()));
  Run(command::SlowDemo);
  EXPECT_EQ(settings.Get("demo_speed"), "300");
  EXPECT_TRUE(UX::IsChecked(command::SlowDemo, bench.Conditions()));
  EXPECT_FALSE(UX::IsChecked(command::CustomDemo, bench.Conditions()));
}

TEST_F(Workbench, SwitchesLanguageAndLogging) {
  Run(UX::FirstLanguageCommand);
  EXPECT_EQ(settings.Get("locale"), "de");
  EXPECT_EQ(view.retranslations, 1);
  EXPECT_TRUE(UX::IsChecked(UX::FirstLanguageCommand, bench.Conditions()));
  Run(command::English);
  EXPECT_EQ(settings.Get("locale"), "en");
  Run(command::Logging);
  EXPECT_EQ(settings.Get("logging"), "on");
  EXPECT_EQ(log.Texts().back(), "Device communication logging ON.");
  EXPECT_FALSE(bench.Run(4711));
}

TEST_F(Workbench, MovesTheViewByKeys) {
  for (const int key : {command::ZoomIn, command::ZoomIn, command::ViewLater, command::ViewLater}) Run(key);
  EXPECT_EQ(bench.span.Start(), 1800);
  EXPECT_EQ(bench.span.Seconds(), 22 * 3600);
  Run(command::ZoomOut, command::ViewDayEnd);
  EXPECT_EQ(bench.span.End(), TCBase::SecondsPerDay);
  Run(command::ZoomOut);
  EXPECT_EQ(bench.span.Start(), 0);
  for (int i = 0; i < 30; ++i) bench.Run(command::ZoomIn);
  EXPECT_EQ(bench.span.Seconds(), 7200);
  Run(command::WholeDay);
  EXPECT_EQ(bench.span.Seconds(), TCBase::SecondsPerDay);
}

TEST(CommandTable, HasNoNumberTwiceAndAKeyForCommandsOnly) {
  std::map<int, int> numbers;
  for (const UX::CommandRow& row : UX::CommandTable()) {
    if (row.kind != UX::CommandRow::Kind::Command) continue;
    EXPECT_EQ(++numbers[row.number], 1) << row.number;
  }
  for (const UX::CommandKey& key : UX::CommandKeys())
    EXPECT_TRUE(numbers.contains(key.command)) << key.command;
}
