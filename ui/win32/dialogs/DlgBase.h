// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <deque>
#include <string_view>
#include <vector>

#include "QorLib/Translate.h"
#include "ui/win32/controls/StackLayout.h"

namespace UX {

/// A modal dialog of rows of controls over a row of buttons. Derived classes say what stands in it. It may
/// have several pages, of which one is seen; it is as large as the largest needs.
class DlgBase {
 public:
  virtual ~DlgBase() = default;
  DlgBase(const DlgBase&) = delete;
  DlgBase& operator=(const DlgBase&) = delete;

  /// Shows the dialog before `owner`, or alone, until the user closes it. True when what was entered counts;
  /// false when the user cancelled, or when the dialog failed.
  bool Run(HWND owner);

 protected:
  explicit DlgBase(qor::Translate translate) : translate_(std::move(translate)) {}

  HWND Window() const { return window_; }
  const qor::Translate& Translator() const { return translate_; }

  /// Called once, when the window is there, to give it title, rows and buttons.
  virtual void Build(const qor::Translate& translate) = 0;
  /// `control` has something to report: `notification` is one of those of WM_COMMAND.
  virtual void OnCommand(HWND control, int notification);
  virtual void OnNotify(const NMHDR& header);
  /// A button of the row below was pressed, or Enter or Esc for it. Closes the dialog; OK makes it count.
  virtual void OnButton(int id);
  /// The controls have got their places, at first and whenever the scaling changes.
  virtual void OnLaidOut() {}
  /// The window is about to go; its controls are still there.
  virtual void OnClosing() {}

  /// What is added first is seen first. Lives as long as the dialog.
  StackLayout& AddPage();
  void ShowPage(std::size_t page);
  /// To the row of buttons, which Tab reaches behind all rows that were added before. `id` is IDOK, IDCANCEL
  /// or a number below 100; Enter presses the default one.
  HWND AddButton(int id, std::string_view text, bool isDefault = false);
  void AddOkAndCancel(const qor::Translate& translate);
  void Focus(HWND control);
  void Close(bool counts);
  /// Says why what was entered cannot be taken, if there is a reason, and goes back to the control where it
  /// stands; whether there was one.
  bool Stays(const std::string& fault, HWND control);
  /// Gives everything its place; needed anew when a button got another text. Returns the window's size.
  SIZE LayOut();

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void Initialise();
  void SetFonts();
  void PlaceButtons(const SIZE& client);
  int ButtonWidth() const;
  int ButtonRowWidth() const;
  void Centre(const SIZE& size);
  void OnScalingChanged(const RECT& suggested);
  bool IsButton(int id) const;

  qor::Translate translate_;
  HWND window_ = nullptr;
  HWND owner_ = nullptr;
  Fonts fonts_;
  std::deque<StackLayout> pages_;
  std::size_t page_ = 0;
  std::vector<Cell> buttons_;
};

}  // namespace UX
