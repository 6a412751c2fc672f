// SPDX-License-Identifier: MIT
#include "ui/CommandTable.h"

#include <algorithm>
#include <string_view>

#include "ui/Commands.h"

namespace UX {
namespace {

using Kind = CommandRow::Kind;

constexpr CommandRow Item(Menu menu, int number, const char* text, When when, void (*run)(Workbench&)) {
  return {text, "", run, number, Kind::Command, menu, when};
}
constexpr CommandRow ForFiles(int number, const char* text, const char* suffix, When when,
                              void (*run)(Workbench&)) {
  return {text, suffix, run, number, Kind::Command, Menu::File, when};
}
constexpr CommandRow Line(Menu menu) {
  return {"", "", nullptr, 0, Kind::Separator, menu};
}
constexpr CommandRow Within(Menu menu, const char* text, Menu submenu) {
  return {text, "", nullptr, 0, Kind::Submenu, menu, When::Always, submenu};
}
template <int Minutes>
void Align(Workbench& workbench) {
  AlignSteps(workbench, Minutes);
}
template <int Seconds>
void Speed(Workbench& workbench) {
  SetDemoSpeed(workbench, Seconds);
}
template <BarMove Move>
void ZoomView(Workbench& workbench) {
  Zoom(workbench, Move);
}

constexpr const char* Pled = " (PLED)";
constexpr const char* LedControl = " (LEDControl)";

constexpr CommandRow Table[] = {
    Item(Menu::File, command::New, "New Program", When::NoDemo, NewProgram),
    Item(Menu::File, command::Load, "Load Program", When::NoDemo, LoadProgram),
    Item(Menu::File, command::Save, "Save Program", When::Always, SaveProgram),
    Item(Menu::File, command::SaveAs, "Save Program As", When::Always, SaveProgramAs),
    Line(Menu::File),
    ForFiles(32776, "Import TMF", Pled, When::Always, ImportTMF),
    ForFiles(32938, "Export TMF", Pled, When::Always, ExportTMF),
    Line(Menu::File),
    ForFiles(32944, "Import LMF", LedControl, When::Always, ImportLMF),
    ForFiles(32945, "Export LMF", LedControl, When::Always, ExportLMF),
    Line(Menu::File),
    Item(Menu::File, 32946, "Export RAW", When::Always, ExportRAW),
    Line(Menu::File),
    Item(Menu::File, 32773, "Program info", When::Always, ProgramInfo),
    Line(Menu::File),
    Item(Menu::File, command::Exit, "Exit", When::Always, Exit),

    Item(Menu::Edit, command::Undo, "Undo", When::NoDemo, Undo),
    Item(Menu::Edit, command::Redo, "Redo", When::NoDemo, Redo),

    Item(Menu::Device, 32790, "Sync time", When::NoDemo, SyncTime),
    Item(Menu::Device, 32791, "Set time", When::NoDemo, SetTime),
    Item(Menu::Device, command::Upload, "Upload program", When::NoDemo, UploadProgram),
    Line(Menu::Device),
    Item(Menu::Device, 32793, "Clear all", When::NoDemo, ClearAll),
    Line(Menu::Device),
    Item(Menu::Device, command::PlayDemo, "Play demo", When::NoDemo, PlayDemo),
    Item(Menu::Device, command::StopDemo, "Stop demo", When::Demo, StopDemo),
    Within(Menu::Device, "Demo speed", Menu::DemoSpeed),
    Line(Menu::Device),
    Item(Menu::Device, command::ScanNetwork, "Scan WiFi devices", When::NoDemo, ScanNetwork),
    Line(Menu::Device),
    Item(Menu::Device, command::SetUpWiFi, "Setup TC421 WiFi", When::NoDemo, SetUpWiFi),
    Line(Menu::Device),
    Item(Menu::Device, command::AddEmulator, "Add emulator", When::Always, AddEmulator),

    Item(Menu::DemoSpeed, command::FastDemo, "Fast (60 secs)", When::NoDemo, Speed<60>),
    Item(Menu::DemoSpeed, command::NormalDemo, "Normal (180 secs)", When::NoDemo, Speed<180>),
    Item(Menu::DemoSpeed, command::SlowDemo, "Slow (300 secs)", When::NoDemo, Speed<300>),
    Line(Menu::DemoSpeed),
    Item(Menu::DemoSpeed, command::CustomDemo, "Custom...", When::NoDemo, AskDemoSpeed),

    Item(Menu::Channel, command::DeleteStep, "Delete step", When::StepSelected, DeleteStep),
    Line(Menu::Channel),
    Item(Menu::Channel, command::ToggleJump, "Toggle step jump type", When::StepSelected, ToggleJump),
    Line(Menu::Channel),
    Item(Menu::Channel, command::CopySteps, "Copy steps", When::NoDemo, CopySteps),
    Item(Menu::Channel, command::PasteSteps, "Paste steps", When::NoDemo, PasteSteps),
    Line(Menu::Channel),
    Item(Menu::Channel, 32897, "Move all steps up", When::NoDemo, MoveStepsUp),
    Item(Menu::Channel, 32898, "Move all steps down", When::NoDemo, MoveStepsDown),
    Item(Menu::Channel, 32907, "Clear all steps", When::NoDemo, ClearSteps),
    Line(Menu::Channel),
    Item(Menu::Channel, 32918, "Manual steps add...", When::NoDemo, AddStepsByText),
    Item(Menu::Channel, 32919, "Manual steps edit...", When::NoDemo, EditStepsByText),
    Line(Menu::Channel),
    Item(Menu::Channel, command::RenameChannel, "Rename channel", When::NoDemo, RenameChannel),
    Item(Menu::Channel, command::ChangeColour, "Change channel color", When::NoDemo, ChangeChannelColour),

    Item(Menu::Mode, 32913, "Optimize mode for TC421", When::NoDemo, OptimiseModeForTC421),
    Line(Menu::Mode),
    Within(Menu::Mode, "Add endpoint steps", Menu::EndpointSteps),
    Line(Menu::Mode),
    Within(Menu::Mode, "Align steps", Menu::AlignSteps),

    Item(Menu::EndpointSteps, 32940, "At the start (00:00)", When::NoDemo, AddStartSteps),
    Item(Menu::EndpointSteps, 32941, "At the end (23:59)", When::NoDemo, AddEndSteps),

    Item(Menu::AlignSteps, 32932, "3 minute intervals", When::NoDemo, Align<3>),
    Item(Menu::AlignSteps, 32933, "5 minute intervals", When::NoDemo, Align<5>),
    Item(Menu::AlignSteps, 32934, "10 minute intervals", When::NoDemo, Align<10>),
    Item(Menu::AlignSteps, 32935, "15 minute intervals", When::NoDemo, Align<15>),
    Item(Menu::AlignSteps, 32936, "30 minute intervals", When::NoDemo, Align<30>),
    Item(Menu::AlignSteps, 32937, "1 hour intervals", When::NoDemo, Align<60>),

    Item(Menu::Language, EnglishCommand, "English", When::Always, ChooseEnglish),

    Item(Menu::Help, command::Logging, "Logging", When::Always, ToggleLogging),
    Line(Menu::Help),
    Item(Menu::Help, 32939, "Known issues ...", When::Always, KnownIssues),
    Line(Menu::Help),
    Item(Menu::Help, 32943, "Export localization XML", When::Always, ExportTranslation),
    Item(Menu::Help, 32942, "Test localization XML", When::Always, TestTranslation),
    Line(Menu::Help),
    Item(Menu::Help, command::About, "About ...", When::Always, About),

    Item(Menu::None, 32921, "", When::Always, ZoomView<BarMove::LineOn>),
    Item(Menu::None, 32922, "", When::Always, ZoomView<BarMove::LineBack>),
    Item(Menu::None, 32923, "", When::Always, ZoomView<BarMove::First>),
    Item(Menu::None, 32924, "", When::Always, ViewEarlier),
    Item(Menu::None, 32925, "", When::Always, ViewLater),
    Item(Menu::None, 32926, "", When::Always, ViewDayStart),
    Item(Menu::None, 32927, "", When::Always, ViewDayEnd),

    Item(Menu::None, command::AddMode, "Add", When::NoDemo, AddMode),
    Item(Menu::None, command::CopyMode, "Copy", When::NoDemo, CopyMode),
    Item(Menu::None, command::RenameMode, "Rename", When::NoDemo, RenameMode),
    Item(Menu::None, command::DeleteMode, "Delete", When::NoDemo, DeleteMode),
    Item(Menu::None, command::MoveModeUp, "Move up", When::NoDemo, MoveModeUp),
    Item(Menu::None, command::MoveModeDown, "Move down", When::NoDemo, MoveModeDown),
    Item(Menu::None, command::PauseDemo, "Pause demo", When::Demo, PauseDemo),
    Item(Menu::None, command::CancelJob, "Cancel", When::NoDemo, CancelJob),
};

constexpr MenuTitle Bar[MenuBarLength] = {
    {Menu::File, "File", "&File"},      {Menu::Edit, "Edit", "Edit"},
    {Menu::Device, "Device", "Device"}, {Menu::Channel, "Channel", "Channel"},
    {Menu::Mode, "Mode", "Mode"},       {Menu::Language, "Language", "Language"},
    {Menu::Help, "Help", "&Help"},
};

// The system's codes of keys
constexpr std::uint16_t Backspace = 0x08, PageUp = 0x21, PageDown = 0x22, End = 0x23, Home = 0x24,
                        Delete = 0x2E, Multiply = 0x6A, Plus = 0x6B, Minus = 0x6D;

constexpr Accelerator Keys[] = {
    {'/', false, false, true, command::About},
    {'?', false, false, true, command::About},
    {'Z', true, true, false, command::Undo},
    {'Y', true, true, false, command::Redo},
    {Plus, true, false, false, 32921},
    {Minus, true, false, false, 32922},
    {Multiply, true, false, false, 32923},
    {PageUp, true, false, false, 32924},
    {PageDown, true, false, false, 32925},
    {Home, true, false, false, 32926},
    {End, true, false, false, 32927},
    {Delete, true, false, false, command::DeleteStep},
    {Backspace, true, false, false, command::DeleteStep},
};

constexpr Accelerator MoreKeys[] = {
    {'N', true, true, false, command::New},
    {'O', true, true, false, command::Load},
    {'S', true, true, false, command::Save},
    {'S', true, true, false, command::SaveAs, true},
    {'C', true, true, false, command::CopySteps, false, true},
    {'V', true, true, false, command::PasteSteps, false, true},
    {'J', true, false, false, command::ToggleJump, false, true},
};

}  // namespace

std::span<const CommandRow> CommandTable() {
  return Table;
}

const CommandRow* FindCommand(int number) {
  const auto* found = std::ranges::find_if(
      Table, [number](const CommandRow& row) { return row.kind == Kind::Command && row.number == number; });
  return found != std::end(Table) ? found : nullptr;
}

std::span<const MenuTitle> MenuBar() {
  return Bar;
}

const char* ResourceText(const CommandRow& row) {
  if (row.number == command::Exit) return "E&xit";
  if (row.number == command::About) return "&About ...";
  return row.text;
}

std::span<const Accelerator> Accelerators() {
  return Keys;
}

std::span<const Accelerator> FurtherKeys() {
  return MoreKeys;
}

std::string KeyText(int command, const qor::Translate& translate) {
  const Accelerator* found = std::ranges::find(Keys, command, &Accelerator::command);
  if (found == std::end(Keys)) {
    found = std::ranges::find(MoreKeys, command, &Accelerator::command);
    if (found == std::end(MoreKeys)) return {};
  }
  std::string text;
  if (found->isControl) text += translate("Ctrl") + "+";
  if (found->isShift) text += translate("Shift") + "+";
  if (found->isAlt) text += "Alt+";
  return text + (found->key == Delete ? translate("Del") : std::string(1, static_cast<char>(found->key)));
}

}  // namespace UX
