// SPDX-License-Identifier: MIT
#pragma once

#include "ui/win32/panels/CheckList.h"

namespace UX {

/// The modes of the program, with a check mark for those that an upload sends, and the shown one's
/// description.
class ModePanel {
 public:
  explicit ModePanel(const PanelContext& context);

  void Translate();
  void Refresh();
  /// From the list's heading to its buttons.
  void LayOutList(const RECT& area) const;
  /// The heading and the description.
  void LayOutDescription(const RECT& area) const;
  int DescriptionHeight() const;
  int LeastWidth() const;
  CheckList& List() { return list_; }
  /// A notification of the description's edit control.
  void OnDescription(int notification);
  HWND UpButton() const { return up_; }
  HWND DownButton() const { return down_; }

 private:
  CheckRow RowOf(std::size_t mode) const;

  const PanelContext& context_;
  HWND heading_;
  CheckList list_;
  HWND add_, copy_, rename_, delete_, up_, down_;
  HWND descriptionHeading_, description_;
  StackLayout listRows_, descriptionRows_;
  bool isShowing_ = false;  // the description is not being typed
};

}  // namespace UX
