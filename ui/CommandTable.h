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
/// When a command can be given.
enum class When : std::uint8_t { Always, NoDemo, Demo, StepSelected };

/// A command, or a line or a menu within a menu.
struct CommandRow {
  enum class Kind : std::uint8_t { Command, Separator, Submenu };
  qor::English text;        // with its mnemonic
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
  qor::English text;  // with its mnemonic
};
std::span<const MenuTitle> MenuBar();
/// A menu's text in the user's language; the mnemonics, which only the resources show, are left out.
std::string MenuText(qor::English text, const qor::Translate& translate);

/// A key that runs a command, by the system's code for the key or, with Alt, by the character.
struct CommandKey {
  std::uint16_t key;
  int command;
  bool isControl = false, isShift = false, isAlt = false;
  bool isInChart = false;  // only while the chart has the focus
};
/// All of them; those for everywhere stand in the program's resources, too.
std::span<const CommandKey> CommandKeys();
/// The command's key as menus show it, "Ctrl+Z" in English; empty when it has none.
std::string KeyText(int command, const qor::Translate& translate);

/// The numbers of the commands by their names.
namespace command {
#define COMMAND(menu, name, number, text, how, key, when, run) inline constexpr int name = number;
#include "ui/commands.def"
}  // namespace command

/// Of the first language of the translations; the others follow.
inline constexpr int FirstLanguageCommand = command::English + 1;

}  // namespace UX
