// SPDX-License-Identifier: MIT
#pragma once

#include "ui/win32/panels/Panel.h"

namespace UX {

/// Play, pause and stop, the time of day that a demo shows, and below them the current hint.
class DemoPanel {
 public:
  explicit DemoPanel(const PanelContext& context);

  void Translate();
  void Refresh();
  /// Whether another one stood there.
  bool ShowHint(const std::string& hint);
  /// What the hint needs at that width.
  int HintHeight(int width) const;
  void LayOutHint(const RECT& area) const;
  void LayOut(const RECT& area) const;
  HWND PauseButton() const { return pause_; }
  /// What the button does now, in English.
  qor::English PauseTip() const;
  HWND Time() const { return time_; }

 private:
  const PanelContext& context_;
  HWND play_, pause_, stop_, time_, status_, hint_;
  StackLayout row_;
};

}  // namespace UX
