// SPDX-License-Identifier: MIT
#include "ui/CommandTable.h"

#include <algorithm>

#include "ui/Commands.h"

namespace UX {
namespace {

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

constexpr CommandRow Table[] = {
#define SUBMENU(menu, submenu, text) \
  {text, "", nullptr, 0, CommandRow::Kind::Submenu, Menu::menu, When::Always, Menu::submenu},
#define SEPARATOR(menu) {qor::English(""), "", nullptr, 0, CommandRow::Kind::Separator, Menu::menu},
#define COMMAND(menu, name, number, text, how, key, when, run) \
  FORMAT_COMMAND(menu, name, number, text, "", how, key, when, run)
#define FORMAT_COMMAND(menu, name, number, text, suffix, how, key, when, run) \
  {text, suffix, run, number, CommandRow::Kind::Command, Menu::menu, When::when},
#include "ui/commands.def"
};

constexpr MenuTitle Bar[] = {
#define MENU(menu, text) {Menu::menu, text},
#include "ui/commands.def"
};

constexpr std::uint16_t Code(const char* character) {
  return static_cast<std::uint16_t>(*character);
}
constexpr std::uint16_t Code(std::uint16_t key) {
  return key;
}

constexpr CommandKey Keys[] = {
#define NO_KEY(number, key)
#define PLAIN(number, key) {Code(key), number},
#define CTRL(number, key) {Code(key), number, true},
#define CTRL_SHIFT(number, key) {Code(key), number, true, true},
#define ALT(number, key) {Code(key), number, false, false, true},
#define CHART(number, key) {Code(key), number, false, false, false, true},
#define CHART_CTRL(number, key) {Code(key), number, true, false, false, true},
#define COMMAND(menu, name, number, text, how, key, when, run) how(number, key)
#define SECOND_KEY(number, how, key) how(number, key)
#include "ui/commands.def"
};

}  // namespace

std::span<const CommandRow> CommandTable() {
  return Table;
}

const CommandRow* FindCommand(int number) {
  const auto* found = std::ranges::find_if(Table, [number](const CommandRow& row) {
    return row.kind == CommandRow::Kind::Command && row.number == number;
  });
  return found != std::end(Table) ? found : nullptr;
}

std::span<const MenuTitle> MenuBar() {
  return Bar;
}

std::string MenuText(qor::English text, const qor::Translate& translate) {
  std::string key(text);
  std::erase(key, '&');
  return translate(qor::English(key));
}

std::span<const CommandKey> CommandKeys() {
  return Keys;
}

std::string KeyText(int command, const qor::Translate& translate) {
  const auto* found = std::ranges::find(Keys, command, &CommandKey::command);
  if (found == std::end(Keys)) return {};
  std::string text;
  if (found->isControl) text += translate(TR("Ctrl")) + "+";
  if (found->isShift) text += translate(TR("Shift")) + "+";
  if (found->isAlt) text += "Alt+";
  return text +
         (found->key == DELETE_KEY ? translate(TR("Del")) : std::string(1, static_cast<char>(found->key)));
}

}  // namespace UX
