// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "QorLib/Translate.h"

namespace UX {

class Workbench;

/// The menus, in the order of the menu bar, and behind them those within them.
enum class Menu : std::uint8_t {
  File,
  Edit,
  Device,
  Channel,
  Mode,
  Language,
  Help,
  DemoSpeed,
  EndpointSteps,
  AlignSteps,
  None  // of commands that a key or a button runs
};
inline constexpr int MenuBarLength = 7;

/// When a command can be given.
enum class When : std::uint8_t { Always, NoDemo, Demo, StepSelected };

/// A command, or a line or a menu within a menu.
struct CommandRow {
  enum class Kind : std::uint8_t { Command, Separator, Submenu };
  const char* text = "";    // in English, the key of its translations
  const char* suffix = "";  // behind the translation
  void (*run)(Workbench& workbench) = nullptr;
  int number = 0;
  Kind kind = Kind::Command;
  Menu menu = Menu::None;  // where it stands
  When when = When::Always;
  Menu submenu = Menu::None;  // what it opens
};

/// All rows, those of a menu in its order.
std::span<const CommandRow> CommandTable();
const CommandRow* FindCommand(int number);

struct MenuTitle {
  Menu menu;
  const char* text;      // in English, the key of its translations
  const char* resource;  // as the menu resource has it, with its mnemonic
};
std::span<const MenuTitle> MenuBar();
/// The text that the menu resource has for a row; only a few have a mnemonic there.
const char* ResourceText(const CommandRow& row);

inline constexpr int EnglishCommand = 32796;
inline constexpr int FirstLanguageCommand = 32797;  // of the table's first language; the others follow

/// A key that runs a command, by the system's code for the key or, without one, by the character.
struct Accelerator {
  std::uint16_t key;
  bool isVirtual, isControl, isAlt;
  std::uint16_t command;
  bool isShift = false;
  bool isInChart = false;  // only while the chart has the focus
};
/// Those of the program's resources.
std::span<const Accelerator> Accelerators();
/// And those that one knows from elsewhere.
std::span<const Accelerator> FurtherKeys();
/// The command's key as menus show it, "Ctrl+Z" in English; empty when it has none.
std::string KeyText(int command, const qor::Translate& translate);

// Commands by their numbers, where the program needs them itself
namespace command {
inline constexpr int Exit = 105;
inline constexpr int About = 104;
inline constexpr int New = 32784;
inline constexpr int Load = 32777;
inline constexpr int Save = 32781;
inline constexpr int SaveAs = 32782;
inline constexpr int Undo = 32785;
inline constexpr int Redo = 32786;
inline constexpr int Upload = 32792;
inline constexpr int PlayDemo = 32794;
inline constexpr int StopDemo = 32795;
inline constexpr int ScanNetwork = 32910;
inline constexpr int SetUpWiFi = 32911;
inline constexpr int AddEmulator = 32929;
inline constexpr int Logging = 32774;
inline constexpr int CopySteps = 32908;
inline constexpr int PasteSteps = 32909;
inline constexpr int RenameChannel = 32896;
inline constexpr int ChangeColour = 32899;
inline constexpr int ToggleJump = 32904;
inline constexpr int DeleteStep = 32930;
inline constexpr int FastDemo = 32914;
inline constexpr int NormalDemo = 32915;
inline constexpr int SlowDemo = 32916;
inline constexpr int CustomDemo = 32917;
// Buttons of the panels
inline constexpr int AddMode = 33000;
inline constexpr int CopyMode = 33001;
inline constexpr int RenameMode = 33002;
inline constexpr int DeleteMode = 33003;
inline constexpr int MoveModeUp = 33004;
inline constexpr int MoveModeDown = 33005;
inline constexpr int PauseDemo = 33006;
inline constexpr int CancelJob = 33007;
}  // namespace command

}  // namespace UX
