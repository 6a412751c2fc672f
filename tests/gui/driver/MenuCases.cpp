// SPDX-License-Identifier: MIT
// Menus, held against the table of commands, and resources.
#include <algorithm>

#include "QorLib/qor_win_str_utils.h"
#include "formats/Localisation.h"
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"
#include "ui/MenuState.h"
#include "ui/win32/ResourceIds.h"

namespace gui {
namespace {

using UX::CommandRow;
using Kind = UX::CommandRow::Kind;

/// How menus are written down here: a line for each item.
using Lines = std::vector<std::string>;

std::string Marks(bool isGreyed, bool isChecked) {
  const std::string marks = std::string(isGreyed ? "G" : "") + (isChecked ? "C" : "");
  return marks.empty() ? "-" : marks;
}

std::string Line(int depth, int number, const std::string& marks, const std::string& text) {
  return std::to_string(depth) + ' ' + std::to_string(number) + ' ' + marks + ' ' + text;
}

Lines LinesOf(const std::vector<MenuLine>& menu) {
  Lines lines;
  for (const MenuLine& line : menu) lines.push_back(Line(line.depth, line.number, line.marks, line.text));
  return lines;
}

/// What the window is to show.
class ExpectedMenu {
 public:
  ExpectedMenu(TCBase::Localisation& texts, const UX::MenuConditions& conditions)
      : texts_(texts), conditions_(conditions) {}

  Lines Bar() {
    for (const UX::MenuTitle& title : UX::MenuBar()) {
      const bool isGreyed = !IsEnabled(title.menu, conditions_);
      lines_.push_back(Line(0, 0, isGreyed ? "PG" : "P", Text(title.text)));
      Add(title.menu, 1);
    }
    return lines_;
  }

 private:
  std::string Text(const char* text) { return std::string(texts_.Translate(UX::WithoutMnemonic(text))); }

  void Add(UX::Menu menu, int depth) {
    for (const CommandRow& row : UX::CommandTable()) {
      if (row.menu == menu) Add(row, depth);
    }
    if (menu != UX::Menu::Language) return;
    int number = UX::FirstLanguageCommand;
    for (const auto& language : texts_.Languages()) {
      lines_.push_back(Line(depth, number, Marks(false, IsChecked(number, conditions_)), language.name));
      ++number;
    }
  }

  void Add(const CommandRow& row, int depth) {
    switch (row.kind) {
      case Kind::Separator: lines_.push_back(Line(depth, 0, "S", "")); break;
      case Kind::Submenu:
        lines_.push_back(Line(depth, 0, "P", Text(row.text)));
        Add(row.submenu, depth + 1);
        break;
      case Kind::Command:
        lines_.push_back(Line(depth, row.number,
                              Marks(!IsEnabled(row, conditions_), IsChecked(row.number, conditions_)),
                              Text(row.text) + row.suffix + Key(row.number)));
    }
  }

  std::string Key(int command) {
    const std::string key = UX::KeyText(command, texts_.Translator());
    return key.empty() ? "" : "\t" + key;
  }

  TCBase::Localisation& texts_;
  UX::MenuConditions conditions_;
  Lines lines_;
};

void ExpectLines(const Lines& actual, const Lines& expected) {
  for (std::size_t i = 0; i < std::min(actual.size(), expected.size()); ++i) {
    ExpectEqual("line " + std::to_string(i + 1), actual[i], expected[i]);
  }
  ExpectEqual("the number of lines", actual.size(), expected.size());
}

void ExpectMenu(const App& app, const UX::MenuConditions& conditions, std::string_view language = "en") {
  TCBase::Localisation texts;
  texts.SetLanguage(language);
  ExpectLines(LinesOf(app.MenuLines()), ExpectedMenu(texts, conditions).Bar());
}

void ShowsTheTable() {
  App app("menu");
  ExpectMenu(app, {});
  app.Close();
}

void ShowsStates() {
  App app("menu-states");
  UX::MenuConditions conditions;
  Click(app.ChartPoint(0, 600, 80));
  app.Settle();
  conditions.isStepSelected = true;
  ExpectMenu(app, conditions);
  app.Run(UX::command::Logging);
  app.Run(UX::command::SlowDemo);
  conditions.isLogging = true;
  conditions.demoSeconds = 300;
  ExpectMenu(app, conditions);
  app.PickEmulator();
  app.Run(UX::command::PlayDemo);
  conditions.isDemoRunning = true;
  ExpectMenu(app, conditions);
  app.Run(UX::FirstLanguageCommand);
  app.Run(UX::command::English);
  ExpectMenu(app, conditions);
  app.Run(UX::command::StopDemo);
  conditions.isDemoRunning = false;
  Until("the demo ends", [&] { return !IsWindowEnabled(app.Control(UX::command::StopDemo)); });
  ExpectMenu(app, conditions);
  const std::string settings = BytesOf(app.FileIn("TC420Config.xml"));
  Expect(Contains(settings, "<demo_speed>300<") && Contains(settings, "<logging>on<"),
         "the settings are not kept: " + settings);
  app.Close();
}

int CommandOf(std::string_view language) {
  TCBase::Localisation texts;
  const auto languages = texts.Languages();
  const auto found = std::ranges::find(languages, language, &TCBase::StringTable::Language::id);
  Expect(found != languages.end(), "no such language");
  return UX::FirstLanguageCommand + static_cast<int>(found - languages.begin());
}

/// German through the menu by its keys, Polish as a command; it is there again at the next start.
void SwitchesLanguages() {
  {
    App app("language");
    const int german = CommandOf("de");
    Key(VK_F10);
    for (int i = 0; i < 5; ++i) Key(VK_RIGHT);
    for (int i = UX::command::English; i <= german; ++i) Key(VK_DOWN);
    Key(VK_RETURN);
    Until("the title is German", [&] { return app.Title() == "Orvanta 24 - Neues Programm"; });
    UX::MenuConditions conditions;
    conditions.languageCommand = german;
    ExpectMenu(app, conditions, "de");
    app.Run(CommandOf("pl"));
    app.Close();
  }
  App app("language");
  UX::MenuConditions conditions;
  conditions.languageCommand = CommandOf("pl");
  ExpectMenu(app, conditions, "pl");
  app.Close();
}

// Resources

std::string StringIn(HMODULE module, UINT id) {
  wchar_t text[64] = L"";
  LoadStringW(module, id, text, 64);
  return qor::win::Utf8FromWide(text);
}

std::string BytesIn(HMODULE module, const wchar_t* name, const wchar_t* type) {
  const HRSRC place = FindResourceW(module, name, type);
  if (place == nullptr) return {};
  const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module, place)));
  return {bytes, SizeofResource(module, place)};
}

void HasResources() {
  const HMODULE module =
      LoadLibraryExW(qor::win::WideFromUtf8(TheRig().program).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  Expect(module != nullptr, "the program cannot be read");
  ExpectEqual("text 103", StringIn(module, IDS_APP_TITLE), "Halvex");
  ExpectEqual("text 109", StringIn(module, IDC_HALVEX), "HALVEX");
  for (const int icon : {IDI_HALVEX, IDI_SMALL}) {
    Expect(!BytesIn(module, MAKEINTRESOURCEW(icon), RT_GROUP_ICON).empty(), "an icon is missing");
  }
  Expect(BytesIn(module, MAKEINTRESOURCEW(IDP_LOGO), L"PNG").starts_with("\x89PNG"), "no logo");
  const std::string manifest = BytesIn(module, MAKEINTRESOURCEW(1), RT_MANIFEST);
  for (const char* part : {"Microsoft.Windows.Common-Controls", "PerMonitorV2", "longPathAware"}) {
    Expect(Contains(manifest, part), std::string("the manifest lacks ") + part);
  }
  FreeLibrary(module);
}

constexpr Case Cases[] = {
    {"menu.shows-the-table", ShowsTheTable},
    {"menu.states", ShowsStates},
    {"menu.languages", SwitchesLanguages},
    {"resources", HasResources},
};

}  // namespace

std::span<const Case> MenuCases() {
  return Cases;
}

}  // namespace gui
