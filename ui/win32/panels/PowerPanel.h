// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "ui/PanelEdits.h"
#include "ui/win32/panels/Panel.h"

namespace UX {

/// The channels, each with its colour, its name and a bar of its power; while a demo runs, of what it sends.
/// A bar is dragged, or moved by the arrow keys, to scale the channel's curve.
class PowerPanel {
 public:
  explicit PowerPanel(const PanelContext& context);

  void Translate();
  void Refresh();
  void LayOut(const RECT& area) const;
  int Height() const;
  HWND Window() const { return window_; }

  // For WindowProcedure
  void Attach(HWND window) { window_ = window; }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnFailure(const std::exception& failed);

 private:
  struct Row {
    std::string name;
    COLORREF colour = 0;
    int percent = 0;
    bool isSelected = false;
    bool operator==(const Row&) const = default;
  };

  static void Register(HINSTANCE instance);
  void Paint();
  void PaintRow(HDC context, std::size_t channel) const;
  void OnButtonDown(POINT at);
  void OnDoubleClick(POINT at);
  void OnDrag(POINT at);
  bool OnKey(WPARAM key);
  RECT RowArea(std::size_t channel) const;
  RECT SwatchArea(std::size_t channel) const;
  RECT BarArea(std::size_t channel) const;

  const PanelContext& context_;
  HWND heading_, window_;
  StackLayout layout_;
  PowerEdit edit_;
  std::array<Row, TCBase::ChannelCount> rows_;
  int dragged_ = -1;
};

}  // namespace UX
