// SPDX-License-Identifier: MIT
#include "ui/win32/MainMenu.h"

#include "QorLib/qor_win_str_utils.h"

namespace UX {
namespace {

/// The text with no mnemonic in it.
std::wstring ItemText(std::string text) {
  for (std::size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 2))
    text.insert(at, 1, '&');
  return qor::win::WideFromUtf8(text);
}

/// The key that runs the command, at the right edge of the menu.
std::wstring KeyOf(int command, const qor::Translate& translate) {
  const std::string key = KeyText(command, translate);
  return key.empty() ? L"" : qor::win::WideFromUtf8("\t" + key);
}

void AppendLanguages(HMENU menu, Workbench& workbench) {
  int number = FirstLanguageCommand;
  for (const TCBase::StringTable::Language& language : workbench.services.texts.Languages()) {
    AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(number++), ItemText(language.name).c_str());
  }
}

void Append(HMENU menu, const CommandRow& row, Workbench& workbench) {
  const auto translate = workbench.services.texts.Translator();
  switch (row.kind) {
    case CommandRow::Kind::Separator: AppendMenuW(menu, MF_SEPARATOR, 0, nullptr); return;
    case CommandRow::Kind::Submenu:
      AppendMenuW(menu, MF_POPUP | MF_STRING, reinterpret_cast<UINT_PTR>(BuildMenu(workbench, row.submenu)),
                  ItemText(MenuText(row.text, translate)).c_str());
      return;
    case CommandRow::Kind::Command:
      AppendMenuW(
          menu, MF_STRING, static_cast<UINT_PTR>(row.number),
          (ItemText(MenuText(row.text, translate) + row.suffix) + KeyOf(row.number, translate)).c_str());
      return;
  }
}

UINT EnabledFlag(bool isEnabled) {
  return isEnabled ? MF_ENABLED : MF_GRAYED;
}

void UpdateMenu(HMENU menu, const MenuConditions& conditions) {
  for (int position = 0; position < GetMenuItemCount(menu); ++position) {
    if (const HMENU submenu = GetSubMenu(menu, position)) {
      UpdateMenu(submenu, conditions);
      continue;
    }
    const auto number = static_cast<int>(GetMenuItemID(menu, position));
    if (number == 0) continue;
    const auto at = static_cast<UINT>(position);
    CheckMenuItem(menu, at, MF_BYPOSITION | (IsChecked(number, conditions) ? MF_CHECKED : MF_UNCHECKED));
    if (const CommandRow* row = FindCommand(number)) {
      EnableMenuItem(menu, at, MF_BYPOSITION | EnabledFlag(IsEnabled(*row, conditions)));
    }
  }
}

void EnableMenus(HMENU bar, const MenuConditions& conditions) {
  UINT position = 0;
  for (const MenuTitle& title : MenuBar()) {
    EnableMenuItem(bar, position++, MF_BYPOSITION | EnabledFlag(IsEnabled(title.menu, conditions)));
  }
}

}  // namespace

HMENU BuildMenu(Workbench& workbench, Menu menu) {
  const HMENU popup = CreatePopupMenu();
  for (const CommandRow& row : CommandTable()) {
    if (row.menu == menu) Append(popup, row, workbench);
  }
  if (menu == Menu::Language) AppendLanguages(popup, workbench);
  UpdateMenu(popup, workbench.Conditions());
  return popup;
}

HMENU BuildMenuBar(Workbench& workbench) {
  const auto translate = workbench.services.texts.Translator();
  const HMENU bar = CreateMenu();
  for (const MenuTitle& title : MenuBar()) {
    AppendMenuW(bar, MF_POPUP | MF_STRING, reinterpret_cast<UINT_PTR>(BuildMenu(workbench, title.menu)),
                ItemText(MenuText(title.text, translate)).c_str());
  }
  EnableMenus(bar, workbench.Conditions());
  return bar;
}

void UpdateMenuBar(HMENU bar, Workbench& workbench) {
  const MenuConditions conditions = workbench.Conditions();
  UpdateMenu(bar, conditions);
  EnableMenus(bar, conditions);
}

}  // namespace UX
