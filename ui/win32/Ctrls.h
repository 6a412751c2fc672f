// SPDX-License-Identifier: MIT
#pragma once

#include "ui/win32/ChartWindow.h"
#include "ui/win32/panels/DemoPanel.h"
#include "ui/win32/panels/DevicePanel.h"
#include "ui/win32/panels/LogPane.h"
#include "ui/win32/panels/ModePanel.h"
#include "ui/win32/panels/PowerPanel.h"

namespace UX {

/// The main window's controls: makes them, gives them their places, and shows in them what the workbench
/// holds. Tab goes through them in the order of the members.
class Ctrls {
 public:
  Ctrls(HINSTANCE instance, HWND window, Workbench& workbench, RendererChoice choice);
  ~Ctrls();

  ChartWindow& Chart() { return chart_; }
  LogPane& Log() { return log_; }

  void Translate();
  /// Makes the tooltips, which nobody misses before the window is there; later in the current language.
  void AddTips();
  void Refresh();
  /// The demo controls alone.
  void RefreshDemo();
  void LayOut();
  void ScalingChanged();
  /// The system's colours or effects, as that message of the window says.
  void SettingsChanged(UINT message);
  void ShowHint(const std::string& hint);

  // Messages of the window that belong to controls; whether they did.
  bool OnCommand(HWND control, int id, int notification);
  LRESULT OnNotify(NMHDR* header);
  void OnScroll(HWND bar, int request, int position);
  void DrawButton(const DRAWITEMSTRUCT& draw) const;
  /// The place of the logo, in pixels of the client area; none where there is no room for it.
  std::optional<RECT> LogoArea() const;

 private:
  void MakeFonts();
  void SetFonts();
  void ShowTip(HWND control, const std::string& text);
  void RefreshBars();
  void RefreshButtons();
  int ColumnWidth(int clientWidth) const;
  void LayOutColumn(const RECT& column);
  int LogHeight(int clientHeight) const;
  void LayOutLog();

  PanelContext context_;
  Fonts fonts_;
  ChartWindow chart_;
  HWND scrollBar_, zoomLabel_, zoomBar_;
  DemoPanel demo_;
  DevicePanel devices_;
  ModePanel modes_;
  PowerPanel power_;
  LogPane log_;
  HWND tips_ = nullptr;
  qor::English pauseTip_{""};
  StackLayout chartRows_;
  RECT logArea_{};  // of the hint and the log below it
  bool hasLogo_ = true;
};

}  // namespace UX
