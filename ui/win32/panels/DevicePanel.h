// SPDX-License-Identifier: MIT
#pragma once

#include "ui/win32/panels/CheckList.h"

namespace UX {

/// The controllers, with a check mark for those that commands work on, how each is reached and how far a job
/// is with it, or how its last one ended. While controllers are worked on, the button for the upload cancels
/// that, and what is happening stands in the place of the other buttons.
class DevicePanel {
 public:
  explicit DevicePanel(const PanelContext& context);

  void Translate();
  void Refresh();
  /// From the heading to the buttons.
  void LayOut(const RECT& area);
  /// The width that the row of buttons needs.
  int LeastWidth() const { return leastWidth_; }
  CheckList& List() { return list_; }
  /// Whether the button has just got another meaning: a click on it was meant for the one before.
  bool IsTooSoon(int id) const;
  HWND ScanButton() const { return scan_; }

 private:
  CheckRow RowOf(const TCBase::DeviceInfo& device) const;
  void AddOutcome(const TCBase::DeviceOutcome& outcome, CheckRow& row) const;
  void ShowWorking(bool isWorking);
  void Arrange();

  const PanelContext& context_;
  HWND heading_;
  CheckList list_;
  HWND scan_, addEmulator_, activity_, upload_;
  bool isWorking_ = false;
  std::int64_t changedAt_ = 0;  // when the button got its meaning, in milliseconds
  StackLayout rows_;
  RECT area_{};
  int leastWidth_ = 0;
};

}  // namespace UX
