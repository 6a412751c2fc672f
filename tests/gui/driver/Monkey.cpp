// SPDX-License-Identifier: MIT
// Random use of everything that does not end the program or reach for a network.
#include <cstdlib>
#include <iostream>
#include <random>
#include <vector>

#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

constexpr BYTE KeyCodes[] = {VK_LEFT,  VK_RIGHT,  VK_UP,       VK_DOWN,     VK_DELETE, VK_BACK,  VK_INSERT,
                             VK_SPACE, VK_ESCAPE, VK_HOME,     VK_END,      VK_NEXT,   VK_PRIOR, VK_ADD,
                             VK_F1,    'J',       VK_SUBTRACT, VK_MULTIPLY, 'Z',       'Y'};
/// What is clicked on: not the buttons, of which one scans the network.
constexpr int Panels[] = {UX::ChartId,    UX::ChartId,       UX::ScrollBarId, UX::ZoomBarId, UX::DeviceListId,
                          UX::ModeListId, UX::DescriptionId, UX::PowerId,     UX::LogId};

std::vector<int> Commands() {
  std::vector<int> commands(20, UX::command::StopDemo);  // else a demo runs most of the time
  for (const UX::CommandRow& row : UX::CommandTable()) {
    if (row.kind == UX::CommandRow::Kind::Command) commands.push_back(row.number);
  }
  for (const int leftOut : {UX::command::Exit, UX::command::ScanNetwork, UX::command::SetUpWiFi})
    std::erase(commands, leftOut);
  commands.push_back(UX::FirstLanguageCommand + 1);  // English is in the table
  return commands;
}

class Monkey {
 public:
  explicit Monkey(int seed) : random_(static_cast<unsigned>(seed)) {}

  void Play(int seconds) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(seconds) * 1000;
    try {
      for (; GetTickCount64() < end; ++actions_) {
        Act();
        CloseDialogs();
        Expect(app_.IsRunning(), "the program is gone");
      }
    } catch (const Failure& failure) {
      throw Failure{failure.why + ", after these kinds, commands, panels, keys:\n" + story_};
    }
  }
  /// What is measured must not depend on what was done last.
  std::size_t KilobytesOfNewProgram() {
    app_.Run(UX::command::StopDemo);
    Until("no demo runs", [this] { return IsWindowEnabled(app_.Control(UX::command::PlayDemo)) != FALSE; });
    app_.Run(UX::command::New);
    if (app_.FindDialog() != nullptr) app_.Answer(IDNO);
    app_.Settle();
    return app_.PrivateKilobytes();
  }
  int Actions() const { return actions_; }
  void Close() { app_.Close(); }

 private:
  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  template <typename Range>
  auto OneOf(const Range& range) {
    return std::data(range)[Below(static_cast<int>(std::size(range)))];
  }
  POINT PlaceIn(HWND window) { return Within(window, Below(1000) / 1000.0, Below(1000) / 1000.0); }

  void Act() {
    const int kind = Below(9), command = OneOf(commands_), panel = OneOf(Panels);
    const BYTE key = OneOf(KeyCodes);
    Note({kind, command, panel, key});
    const HWND control = app_.Control(panel);
    switch (kind) {
      case 0:
      case 1: PostMessageW(app_.Window(), WM_COMMAND, static_cast<WPARAM>(command), 0); return;
      case 2:
        SetWindowPos(app_.Window(), nullptr, 0, 0, 700 + Below(500), 600 + Below(350),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_ASYNCWINDOWPOS);
        return;
      case 3:
        PostMessageW(app_.Control(UX::ChartId), WM_CONTEXTMENU, 0, -1);
        app_.Settle();
        return Key(VK_ESCAPE);
      case 4: return Click(PlaceIn(control));
      case 5: return Drag(PlaceIn(control), PlaceIn(control));
      case 6: return Key(key, VK_CONTROL);
      default: return Key(key);
    }
  }

  /// Keeps what was done last, to be told.
  void Note(std::initializer_list<int> action) {
    constexpr std::size_t MostCharacters = 300;
    for (const int number : action) story_ += std::to_string(number) + ' ';
    story_ += '\n';
    if (story_.size() > MostCharacters) story_.erase(0, story_.find('\n') + 1);
  }

  /// By Esc or Enter, as a user would; boxes that know neither get what they have.
  void CloseDialogs() {
    constexpr int NameOfFile = 0x480, MostTries = 20;
    Sleep(20);
    Send(app_.Window(), WM_NULL);
    for (int tries = 1; const HWND dialog = app_.FindDialog(); ++tries) {
      Expect(tries < MostTries, "a dialog does not close");
      Key(Below(2) == 0 || GetDlgItem(dialog, NameOfFile) != nullptr ? VK_ESCAPE : VK_RETURN);
      Sleep(100);
      if (tries % 2 == 1) continue;
      for (const WPARAM button : {IDCANCEL, IDNO, IDOK}) PostMessageW(dialog, WM_COMMAND, button, 0);
      Sleep(100);
    }
  }

  App app_{"monkey"};
  std::mt19937 random_;
  std::vector<int> commands_ = Commands();
  std::string story_;
  int actions_ = 0;
};

int NumberOf(const char* variable, int usual) {
  const char* const text = std::getenv(variable);
  return text != nullptr ? std::atoi(text) : usual;
}

}  // namespace

/// The first quarter of the time warms up: dialogs, fonts and the many lines of a full log are there once
/// they were used. What each use left behind would show a hundred times in the rest.
void RunMonkey() {
  constexpr std::size_t MostKilobytes = 12288;  // the log, and free parts of the heap
  const int seconds = NumberOf("MONKEY_SECONDS", 120);
  const int seed = NumberOf("MONKEY_SEED", static_cast<int>(GetTickCount() & 0xFFFF));
  std::cout << "        monkey: seed " << seed << std::endl;
  Monkey monkey(seed);
  monkey.Play(seconds / 4);
  const std::size_t before = monkey.KilobytesOfNewProgram();
  monkey.Play(seconds * 3 / 4);
  const std::size_t after = monkey.KilobytesOfNewProgram();
  std::cout << "        " << monkey.Actions() << " actions, private KiB " << before << " -> " << after
            << std::endl;
  Expect(after <= before + MostKilobytes, "something is left behind");
  monkey.Close();
}

}  // namespace gui
