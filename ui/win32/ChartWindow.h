// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "ui/Animation.h"
#include "ui/Workbench.h"
#include "ui/win32/WindowRenderer.h"

namespace UX {

/// How the program was asked to draw; Best is what the system offers.
enum class RendererChoice { Best, DX, GDI };

/// The window of the chart: hands mouse and keys to the editor, and draws what has changed.
class ChartWindow {
 public:
  /// Registers the window's class.
  static void Register(HINSTANCE instance);
  ChartWindow(HINSTANCE instance, HWND parent, Workbench& workbench, RendererChoice choice);

  HWND Window() const { return window_; }
  /// GDI+ brings the first picture soonest; Direct2D follows in UseBestRenderer.
  void InitRenderer();
  /// To be called once the window has been shown: takes Direct2D, unless it is not to be had, draws slowly
  /// for want of a graphics card, or was not asked for.
  void UseBestRenderer();
  void ReleaseRenderer() { renderer_.reset(); }
  /// A place or the scaling has changed.
  void Resized();
  void Redraw() { isStale_ = true; }
  /// Lets animations go on.
  void Advance(float seconds);
  bool IsAnimating() const { return hover_.IsMoving() || selection_.IsMoving(); }
  /// Whether what is shown is what is there.
  bool IsQuiet() const;
  /// Draws when anything has changed since the last call.
  void DrawFrame();
  /// The system's colours or effects have changed.
  void SettingsChanged();
  // For WindowProcedure
  void Attach(HWND window) { window_ = window; }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnFailure(const std::exception& failed);

  /// Called to show a menu about what is selected, at a place on the screen.
  std::function<void(POINT at)> onMenu;

 private:
  void OnMouse(UINT message, LPARAM position);
  void OnWheel(int delta, WPARAM keys, LPARAM screenPosition);
  void OnMenu(LPARAM screenPosition);
  bool OnKey(WPARAM key);
  void OnFocus(bool hasFocus);
  Point PointAt(LPARAM position) const;
  ChartGeometry Geometry() const;
  ChartScene MakeScene() const;
  void Draw();
  void UseNextRenderer();
  double SecondsForFrame(WindowRenderer& renderer) const;
  void FollowEditor();

  Workbench& workbench_;
  RendererChoice choice_;
  HWND window_ = nullptr;
  std::unique_ptr<WindowRenderer> renderer_;
  ChartPalette palette_;
  bool mayAnimate_ = true;
  bool isStale_ = true;
  Animation hover_{0.12F}, selection_{0.12F};
  std::optional<StepIndex> hovered_;
  std::optional<std::size_t> selected_;
  ViewSpan shownSpan_;
  int wheel_ = 0;  // what is left of turns that were less than a notch
};

}  // namespace UX
