// SPDX-License-Identifier: MIT
#pragma once

namespace UX {

/// The window, as what happens behind it needs it.
class View {
 public:
  virtual ~View() = default;
  /// While it is on, the chart gets the mouse wherever it is.
  virtual void CaptureMouse(bool on) = 0;
  /// Chart, panels, bars, title and menu may show something old. Called often, so best done once and a bit
  /// later.
  virtual void Refresh() = 0;
  /// The language changed.
  virtual void Retranslate() = 0;
  /// Whether no dialog stands before it.
  virtual bool IsFree() const = 0;
  /// Ends the program; everything has been asked.
  virtual void Close() = 0;
};

}  // namespace UX
