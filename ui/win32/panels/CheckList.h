// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/win32/panels/Panel.h"

#include <commctrl.h>  // after windows.h

namespace UX {

/// A row: a check mark, a name, and what is to be known beside it.
struct CheckRow {
  enum class Tone { Usual, Warning, Error };

  bool isChecked = false;
  std::string name, info;
  std::string tip;  // shown when the pointer rests on the row; may be empty
  Tone tone = Tone::Usual;

  bool operator==(const CheckRow&) const = default;
};

/// A list view of such rows.
class CheckList {
 public:
  CheckList(const PanelContext& context, int id);

  HWND Window() const { return window_; }
  /// The user changed a check mark, chose a row, or opened it (double click).
  std::function<void(std::size_t row, bool isChecked)> onCheck;
  std::function<void(std::size_t row)> onSelect;
  std::function<void(std::size_t row)> onOpen;
  /// A key was pressed in the list.
  std::function<void(WPARAM key)> onKey;
  /// The user dragged a row to the place of another; without it rows stay where they are.
  std::function<void(std::size_t from, std::size_t to)> onMove;

  /// Shows the rows; `selected` is -1 for none.
  void Show(std::vector<CheckRow> rows, int selected);
  /// Answers a WM_NOTIFY of the list.
  LRESULT OnNotify(NMHDR* header);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR self);
  void ShowRow(int index, const CheckRow& row);
  void SetColumnWidths(const std::vector<CheckRow>& rows);
  void OnSize();
  void OnItemChanged(const NMLISTVIEW& change);
  LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw) const;
  bool MarksFaintly(int row) const;
  void ShowTip(NMLVGETINFOTIPW& tip) const;
  void DragTo(LPARAM position);
  void EndDrag(LPARAM position);
  int RowAt(LPARAM position) const;

  HWND window_;
  std::vector<CheckRow> rows_;
  bool hasColumns_ = false;
  bool isShowing_ = false;  // what changes now is not the user's doing
  int dragged_ = -1;
};

}  // namespace UX
