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
  void ShowHint(const std::string& hint);
  void LayOut(const Frame& row, const Frame& hint);
  HWND PauseButton() const { return pause_; }
  HWND Time() const { return time_; }

 private:
  const PanelContext& context_;
  HWND play_, pause_, stop_, time_, status_, hint_;
};

}  // namespace UX
