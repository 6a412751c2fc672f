// SPDX-License-Identifier: MIT
#pragma once

#include "ui/win32/panels/Panel.h"

namespace UX {

/// The lines of the log. It follows the newest line while its end is in sight; whoever reads further up, or
/// has selected something, is left alone.
class LogPane {
 public:
  explicit LogPane(const PanelContext& context);

  HWND Window() const { return window_; }
  /// The height up to that for whole lines.
  int HeightFor(int most) const;
  /// Follows the newest line there, too.
  void LayOut(const RECT& area);
  /// Lines that each end in CR LF.
  void Append(const std::string& lines);
  void ShowMenu(POINT at);

 private:
  bool IsEndInSight() const;
  void DropOldest();

  const PanelContext& context_;
  HWND window_;
};

}  // namespace UX
