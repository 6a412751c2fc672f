// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>

#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Desktop.h"

namespace gui {

/// The path of the program under test.
inline std::string program;

/// The program under test while a case works with it. What is left of it is ended with the object.
class App {
 public:
  /// Starts it with its settings in a folder of that name, made when missing, and waits until it is ready or
  /// asks something.
  explicit App(const std::string& folder, const std::string& arguments = "");
  ~App();
  App(const App&) = delete;
  App& operator=(const App&) = delete;

  HWND Window() const { return window_; }
  /// By the number of a control or of a button's command.
  HWND Control(int id) const;
  /// Waits until the control has that text in its own.
  void Await(int id, const std::string& part) const;
  void AwaitTitle(const std::string& title) const;
  /// Waits until the program has taken what was sent to it.
  void Settle() const;

  /// Clicks on the middle of a control.
  void Press(int id) const;
  /// Posts a menu's command, as one that is chosen comes.
  void Run(int command) const;
  /// The dialog or message box in front, if there is one; the other one waits for it.
  HWND FindDialog() const;
  HWND Dialog() const;
  /// Presses a button of the dialog in front, by its number, and waits until the dialog is gone.
  void Answer(int button) const;
  /// Waits for a message box with that caption and text, and answers it.
  void AnswerTo(const std::string& question, int button) const;

  /// Of the whole day.
  POINT ChartPoint(std::size_t channel, int minuteOfDay, float percent) const;

  bool IsRunning() const;
  std::size_t PrivateKilobytes() const;
  /// Asks the window to close, as its frame does.
  void AskToClose() const;
  /// Waits for the end, which must be a good one.
  void AwaitEnd() const;
  /// Closes the window, dropping what was changed.
  void Close() const;
  std::string FileIn(const std::string& name) const { return folder_ + "\\" + name; }

 private:
  std::string folder_;
  PROCESS_INFORMATION process_{};
  HWND window_ = nullptr;
  HHOOK hook_ = nullptr;
};

/// A file's bytes; empty when there is none.
std::string BytesOf(const std::string& path);

}  // namespace gui
