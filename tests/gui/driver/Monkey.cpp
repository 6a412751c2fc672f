// SPDX-License-Identifier: MIT
// Random use of everything that does not end the program or reach for a network.
#include <algorithm>
#include <deque>
#include <random>

#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

constexpr int Languages = 6;

constexpr WORD Keys[] = {VK_LEFT,   VK_RIGHT, VK_UP,     VK_DOWN,     VK_DELETE,   VK_BACK,
                         VK_INSERT, VK_SPACE, VK_ESCAPE, VK_HOME,     VK_END,      VK_NEXT,
                         VK_PRIOR,  VK_ADD,   VK_F1,     VK_SUBTRACT, VK_MULTIPLY, 'J'};
constexpr WORD KeysWithControl[] = {'Z', 'Y', VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN};
/// The panels that are clicked on: not the buttons, of which one scans the network.
constexpr int Panels[] = {UX::ScrollBarId,   UX::ZoomBarId, UX::DeviceListId, UX::ModeListId,
                          UX::DescriptionId, UX::PowerId,   UX::LogId};

std::vector<int> Commands() {
  std::vector<int> commands;
  for (const UX::CommandRow& row : UX::CommandTable()) {
    const bool isLeftOut = row.number == UX::command::Exit || row.number == UX::command::ScanNetwork ||
                           row.number == UX::command::SetUpWiFi;
    if (row.kind == UX::CommandRow::Kind::Command && !isLeftOut) commands.push_back(row.number);
  }
  for (int i = 0; i < Languages; ++i) commands.push_back(UX::FirstLanguageCommand + i);
  return commands;
}

class Monkey {
 public:
  explicit Monkey(unsigned seed) : random_(seed) {}

  void Play(ULONGLONG milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    while (GetTickCount64() < end) {
      Act();
      CloseDialogs();
      Expect(app_.IsRunning(), "the program is gone after " + Story());
    }
  }

  int Actions() const { return actions_; }
  /// As at the start: what is measured must not depend on what was done last.
  std::size_t KilobytesAtRest() const {
    app_.Run(UX::command::StopDemo);
    Until("no demo runs", [this] { return IsWindowEnabled(app_.Control(UX::command::PlayDemo)) != FALSE; });
    app_.Run(UX::command::English);
    SetWindowPos(app_.Window(), nullptr, 0, 0, 1024, 768, SWP_NOMOVE | SWP_NOZORDER);
    app_.Run(UX::command::New);
    if (app_.FindDialog() != nullptr) app_.Answer(IDNO);
    app_.Settle();
    return app_.PrivateBytes() / 1024;
  }
  std::string Story() const {
    std::string story;
    for (const std::string& action : last_) story += "\n          " + action;
    return story;
  }
  void Close() { app_.Close(); }

 private:
  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  template <typename Range>
  auto OneOf(const Range& range) {
    return std::data(range)[Below(static_cast<int>(std::size(range)))];
  }

  void Note(const std::string& action) {
    constexpr std::size_t MostNotes = 12;
    ++actions_;
    last_.push_back(action);
    if (last_.size() > MostNotes) last_.pop_front();
  }

  void Act() {
    switch (Below(16)) {
      case 0:
      case 1:
      case 2:
      case 3: return RunCommand(OneOf(commands_));
      case 4: return RunCommand(UX::command::StopDemo);
      case 5: return Resize();
      case 6: return ClickIn(app_.Control(OneOf(Panels)));
      case 7: return ShowContextMenu();
      case 8: return DragInChart();
      case 9:
      case 10: return ClickIn(app_.Chart());
      case 11: return PressKey(OneOf(KeysWithControl), VK_CONTROL);
      default: return PressKey(OneOf(Keys), 0);
    }
  }

  void RunCommand(int command) {
    Note("command " + std::to_string(command));
    PostMessageW(app_.Window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
  }

  void PressKey(WORD key, WORD held) {
    Note("key " + std::to_string(key) + (held != 0 ? " with Ctrl" : ""));
    Key(key, held);
  }

  POINT PlaceIn(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return OnScreen(window, Below(area.right), Below(area.bottom));
  }

  void ClickIn(HWND window) {
    Note("click in " + std::to_string(GetDlgCtrlID(window)));
    Click(PlaceIn(window));
  }

  void DragInChart() {
    Note("drag");
    Drag(PlaceIn(app_.Chart()), PlaceIn(app_.Chart()));
  }

  void ShowContextMenu() {
    Note("context menu");
    PostMessageW(app_.Chart(), WM_CONTEXTMENU, 0, -1);
    app_.Settle();
    Key(VK_ESCAPE);
    app_.Settle();
  }

  void Resize() {
    const int width = 700 + Below(500), height = 600 + Below(350);
    Note("size " + std::to_string(width) + " x " + std::to_string(height));
    SetWindowPos(app_.Window(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_ASYNCWINDOWPOS);
  }

  static bool IsFileDialog(HWND dialog) {
    constexpr int NameBox = 0x480, NameCombo = 0x47C;
    return GetDlgItem(dialog, NameBox) != nullptr || GetDlgItem(dialog, NameCombo) != nullptr;
  }

  /// By Esc or Enter, as a user would; boxes that know neither get what they have.
  void CloseDialogs() {
    constexpr DWORD UntilItIsThere = 20;  // ms
    Sleep(UntilItIsThere);
    SendMessageTimeoutW(app_.Window(), WM_NULL, 0, 0, SMTO_NORMAL, 10000, nullptr);
    for (int tries = 0; HWND dialog = app_.FindDialog(); ++tries) {
      Expect(tries < 20, "a dialog does not close after " + Story());
      const WORD key = Below(2) == 0 || IsFileDialog(dialog) ? VK_ESCAPE : VK_RETURN;
      Note(key == VK_ESCAPE ? "Esc" : "Enter");
      Key(key);
      if (HoldsWithin(200, [&] { return app_.FindDialog() != dialog; })) continue;
      for (const int button : {IDCANCEL, IDNO, IDOK})
        PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
      HoldsWithin(200, [&] { return app_.FindDialog() != dialog; });
    }
  }

  App app_{"monkey"};
  std::mt19937 random_;
  std::vector<int> commands_ = Commands();
  std::deque<std::string> last_;
  int actions_ = 0;
};

}  // namespace

/// The first quarter of the time warms up: dialogs, fonts and the many lines of a full log are there once
/// they were used. What each use left behind would show a hundred times in the rest.
void RunMonkey(unsigned seed, int seconds) {
  constexpr std::size_t MostKilobytes = 12288;  // the log, and free parts of the heap
  const ULONGLONG milliseconds = static_cast<ULONGLONG>(seconds) * 1000;
  Monkey monkey(seed);
  monkey.Play(milliseconds / 4);
  const std::size_t before = monkey.KilobytesAtRest();
  monkey.Play(milliseconds * 3 / 4);
  const std::size_t after = monkey.KilobytesAtRest();
  const std::string account = std::to_string(monkey.Actions()) + " actions, private KiB " +
                              std::to_string(before) + " -> " + std::to_string(after);
  std::puts(("        " + account).c_str());
  Expect(after <= before + MostKilobytes, "something is left behind: " + account);
  monkey.Close();
}

}  // namespace gui
