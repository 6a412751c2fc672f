// SPDX-License-Identifier: MIT
#pragma once

#include "ui/win32/panels/CheckList.h"

namespace UX {

/// The controllers, with a check mark for those that commands work on, how each is reached and how its last
/// job ended.
class DevicePanel {
 public:
  explicit DevicePanel(const PanelContext& context);

  void Translate();
  void Refresh();
  /// From the heading to the buttons.
  void LayOut(const Frame& area);
  /// The width that the row of buttons needs.
  int LeastWidth() const;
  CheckList& List() { return list_; }
  HWND ScanButton() const { return scan_; }

 private:
  CheckRow RowOf(const TCBase::DeviceInfo& device) const;

  const PanelContext& context_;
  HWND heading_;
  CheckList list_;
  HWND scan_, addEmulator_, upload_;
};

}  // namespace UX
