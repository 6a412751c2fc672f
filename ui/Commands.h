// SPDX-License-Identifier: MIT
#pragma once

#include "chart/ViewSpan.h"

/// What the commands of the table do.
namespace UX {

class Workbench;

void NewProgram(Workbench& workbench);
void LoadProgram(Workbench& workbench);
/// A file by its path, as a user drops it on the window: a program, or a file that becomes a mode.
void OpenFile(Workbench& workbench, const std::string& path);
void SaveProgram(Workbench& workbench);
void SaveProgramAs(Workbench& workbench);
void ImportTMF(Workbench& workbench);
void ExportTMF(Workbench& workbench);
void ImportLMF(Workbench& workbench);
void ExportLMF(Workbench& workbench);
void ExportRAW(Workbench& workbench);
void ProgramInfo(Workbench& workbench);
void Exit(Workbench& workbench);

void Undo(Workbench& workbench);
void Redo(Workbench& workbench);

// Those of devices say so when none is picked.
void SyncTime(Workbench& workbench);
void SetTime(Workbench& workbench);
void UploadProgram(Workbench& workbench);
void ClearAll(Workbench& workbench);
void PlayDemo(Workbench& workbench);
void StopDemo(Workbench& workbench);
void PauseDemo(Workbench& workbench);
void SetDemoSpeed(Workbench& workbench, int seconds);
void AskDemoSpeed(Workbench& workbench);
void ScanNetwork(Workbench& workbench);
/// Stops the running job in order, and drops those that wait behind it.
void CancelJob(Workbench& workbench);
void SetUpWiFi(Workbench& workbench);
void AddEmulator(Workbench& workbench);

// Those of a channel work on the selected one, and do nothing when none is.
void DeleteStep(Workbench& workbench);
void ToggleJump(Workbench& workbench);
void CopySteps(Workbench& workbench);
void PasteSteps(Workbench& workbench);
void MoveStepsUp(Workbench& workbench);
void MoveStepsDown(Workbench& workbench);
void ClearSteps(Workbench& workbench);
void AddStepsByText(Workbench& workbench);
void EditStepsByText(Workbench& workbench);
void RenameChannel(Workbench& workbench);
void ChangeChannelColour(Workbench& workbench);

void OptimiseModeForTC421(Workbench& workbench);
void AddStartSteps(Workbench& workbench);
void AddEndSteps(Workbench& workbench);
void AlignSteps(Workbench& workbench, int minutes);

void AddMode(Workbench& workbench);
void CopyMode(Workbench& workbench);
void RenameMode(Workbench& workbench);
void DeleteMode(Workbench& workbench);
void MoveModeUp(Workbench& workbench);
void MoveModeDown(Workbench& workbench);
/// Moves the current mode to a position of the list.
void MoveModeTo(Workbench& workbench, std::size_t to);

void ChooseEnglish(Workbench& workbench);
/// A language by its id.
void ChooseLanguage(Workbench& workbench, std::string_view id);
void ToggleLogging(Workbench& workbench);
void KnownIssues(Workbench& workbench);
void ExportTranslation(Workbench& workbench);
void TestTranslation(Workbench& workbench);
void About(Workbench& workbench);

void Zoom(Workbench& workbench, BarMove move);
void ViewEarlier(Workbench& workbench);
void ViewLater(Workbench& workbench);
void ViewDayStart(Workbench& workbench);
void ViewDayEnd(Workbench& workbench);

}  // namespace UX
