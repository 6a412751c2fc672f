// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

#include "chart/ChartGeometry.h"
#include "tests/gui/driver/Probe.h"

namespace gui {

/// What all cases share; set once.
struct Rig {
  std::string program;   // the path of the program under test
  std::string renderer;  // by which it draws where a case does not say it
  std::string folder;    // a new one for this run
};
Rig& TheRig();

/// The program under test while a case works with it. What is left of it is ended with the object.
class App {
 public:
  struct Start {
    std::string folder;    // of settings, below the rig's; made when missing
    std::string settings;  // elements within <config>, for a first start
    std::string arguments;
    bool isQuiet = true;  // whether no question comes before the window is ready
  };
  explicit App(const Start& start);
  /// With a folder of the case's name.
  explicit App(const std::string& folder) : App(Start{folder, "", "", true}) {}
  ~App();
  App(const App&) = delete;
  App& operator=(const App&) = delete;

  HWND Window() const { return window_; }
  /// By the number of a control or of a button's command.
  HWND Control(int id) const;
  HWND Chart() const;
  HWND Log() const;
  std::string Title() const;
  std::string LogText() const;
  /// Waits for a part of a line in the log pane.
  void AwaitLog(const std::string& part) const;
  /// Waits until the program has taken what was sent to it.
  void Settle() const;

  /// Posts a menu's command, as one that is chosen comes.
  void Run(int command) const;
  /// The dialog or message box in front; waits for it.
  HWND Dialog() const;
  HWND FindDialog() const;
  /// Presses a button of the dialog in front, by its number, and waits until the dialog is gone.
  void Answer(int button) const;
  /// The text of a message box that comes up.
  std::string Question() const;
  /// Enters a path into the file dialog that comes up.
  void ChooseFile(const std::string& path) const;

  /// The items of all menus, as the probe writes them.
  std::string MenuText() const;
  void Drop(const std::string& path) const;

  /// As the chart stands on the screen.
  UX::ChartGeometry Geometry() const;
  POINT ChartPoint(std::size_t channel, int minuteOfDay, float percent) const;
  /// The steps of the first mode, as its row in the list says.
  std::string StepsShown() const;
  /// Adds the emulator; as the only device it is picked at once.
  void PickEmulator() const;

  /// Whether a label of the window begins so.
  bool ShowsText(const std::string& beginning) const;

  bool IsRunning() const;
  std::size_t PrivateBytes() const;
  /// Closes the window, dropping what was changed, and expects the program to end well.
  void Close();
  /// As a crash ends it.
  void Kill();
  /// Waits for the end; the exit code.
  DWORD AwaitEnd(DWORD milliseconds = 10000) const;
  std::string FileIn(const std::string& name) const { return folder_ + "\\" + name; }

 private:
  void Launch(const std::string& arguments);
  void ComeToFront() const;
  void SetProbe();
  probe::Answer& Ask(probe::Question question) const;

  std::string folder_;
  PROCESS_INFORMATION process_{};
  HWND window_ = nullptr;
  HHOOK hook_ = nullptr;
};

/// A file's bytes; empty when there is none.
std::string BytesOf(const std::string& path);
void WriteBytes(const std::string& path, const std::string& bytes);

}  // namespace gui
