// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "QorLib/Sentence.h"

namespace UX {

/// The window, as what happens behind it needs it.
class View {
 public:
  virtual ~View() = default;
  virtual void RedrawChart() = 0;
  /// Of the chart, one channel's lane changed and nothing else.
  virtual void RedrawLane(std::size_t channel) = 0;
  /// While it is on, the chart gets the mouse wherever it is.
  virtual void CaptureMouse(bool on) = 0;
  /// Shows advice, in the place of the one before.
  virtual void ShowHint(const std::vector<qor::Sentence>& hint) = 0;
  /// Panels, bars, title and menu may show something old. Called often, so best done once and a bit later.
  virtual void Refresh() = 0;
  /// The language changed.
  virtual void Retranslate() = 0;
  /// Whether no dialog stands before it.
  virtual bool IsFree() const = 0;
  /// Ends the program; everything has been asked.
  virtual void Close() = 0;
};

}  // namespace UX
