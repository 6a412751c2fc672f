// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <memory>

#include "formats/LogFile.h"
#include "ui/Recovery.h"
#include "ui/win32/Ctrls.h"
#include "ui/win32/Logo.h"
#include "ui/win32/WindowDialogs.h"

namespace UX {

/// The one window of the program.
class MainWindow : public View {
 public:
  // Messages that come from other threads, or from the start
  static constexpr UINT FlushLogMessage = WM_USER;
  static constexpr UINT DevicesMessage = WM_USER + 1;
  static constexpr UINT NotifyMessage = WM_USER + 2;
  static constexpr UINT StartedMessage = WM_USER + 3;

  /// `settingsFolder` is where the log file and the copy for a recovery live.
  MainWindow(HINSTANCE instance, const Services& services, platform::Network& network,
             const std::string& settingsFolder);
  ~MainWindow() override;

  /// Registers the classes and makes the window, its controls and its renderer; false when there is no
  /// window.
  bool Create(RendererChoice choice);
  HWND Window() const { return window_; }
  Workbench& Bench() { return workbench_; }
  /// Shows it where it was when it was closed last, with its menu.
  void Show(int command);
  /// Opens the file, or the one that was open last; then what a crash left behind is offered.
  void OpenFirst(const std::string& path);
  void StartTimer();
  /// The log has lines; from any thread.
  void PostLog();
  void Flush();

  /// Once there is no message: lets animations go on and draws.
  void OnIdle();
  /// Whether there is nothing to draw until the next message.
  bool IsQuiet() const;
  void ReleaseRenderer();

  // For WindowProcedure
  void Attach(HWND window) { window_ = window; }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnFailure(const std::exception& failed);

  // View
  void CaptureMouse(bool on) override;
  void Refresh() override { isStale_ = true; }
  void Retranslate() override;
  bool IsFree() const override { return IsWindowEnabled(window_) != FALSE; }
  void Close() override;

 private:
  std::optional<LRESULT> OnInput(UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> OnPlacement(UINT message, WPARAM wParam, LPARAM lParam);
  void RefreshNow();
  void RefreshHint();
  void RedrawChart();
  void DrawNext();
  void ShowNow();
  void OnTimer(WPARAM id);
  void OnStarted();
  void OnCommand(WPARAM wParam, LPARAM lParam);
  void OnDrop(WPARAM drop);
  void OnFocus();
  void OnDestroy();
  void OnSessionEnd();
  void Paint();
  void RebuildMenu();
  void ShowContextMenu(POINT at);
  int RestoreBounds(int command);
  void KeepBounds();
  void LayOut();
  POINT LeastSize() const;
  POINT FittingSize(int width, int height) const;
  double SecondsSince(std::int64_t counter) const;

  HINSTANCE instance_;
  Services services_;
  TCBase::LogFile logFile_;
  WindowDialogs dialogs_;
  Workbench workbench_;
  Recovery recovery_;
  bool mayRecover_;
  HWND window_ = nullptr;
  SIZE laidOut_{};          // of the client area, when the controls were placed
  HWND focused_ = nullptr;  // the control that had the focus when another window came to the front
  std::atomic<HWND> logWindow_ = nullptr;
  std::atomic<bool> isLogPosted_ = false;
  std::unique_ptr<Ctrls> ctrls_;
  Logo logo_;
  bool isStale_ = true;
  std::string shownTitle_;
  std::int64_t idleSince_ = 0;  // of the clock's counter: the last resize or move
  std::int64_t lastFrame_ = 0;
  int ticks_ = 0;
};

}  // namespace UX
