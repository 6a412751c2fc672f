// SPDX-License-Identifier: MIT
#include "ui/win32/panels/CheckList.h"

#include <windowsx.h>

#include <algorithm>
#include <cwchar>

#include "QorLib/qor_win_str_utils.h"

namespace UX {
namespace {

using qor::win::WideFromUtf8;

// On light lists, and on dark ones
constexpr COLORREF WarningColours[] = {RGB(0x9A, 0x60, 0x00), RGB(0xFF, 0xC4, 0x5C)};
constexpr COLORREF ErrorColours[] = {RGB(0xC4, 0x2B, 0x1C), RGB(0xFF, 0x94, 0x8A)};

/// Between the list's ground and the colour of a selection.
COLORREF FaintMark() {
  const COLORREF ground = GetSysColor(COLOR_WINDOW), mark = GetSysColor(COLOR_HIGHLIGHT);
  const auto blend = [](int a, int b) { return static_cast<BYTE>((3 * a + 2 * b) / 5); };
  return RGB(blend(GetRValue(ground), GetRValue(mark)), blend(GetGValue(ground), GetGValue(mark)),
             blend(GetBValue(ground), GetBValue(mark)));
}

void SetCell(HWND list, int row, int column, const std::string& text) {
  std::wstring wide = WideFromUtf8(text);
  ListView_SetItemText(list, row, column, wide.data());
}

}  // namespace

CheckList::CheckList(const PanelContext& context, int id)
    : window_(MakeControl(
          context.window, WC_LISTVIEWW,
          WS_TABSTOP | WS_BORDER | LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL | LVS_SHOWSELALWAYS, id)) {
  constexpr DWORD Style = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_INFOTIP;
  ListView_SetExtendedListViewStyle(window_, Style);
  SetWindowSubclass(window_, Procedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

void CheckList::Show(std::vector<CheckRow> rows, int selected) {
  if (rows == rows_ && ListView_GetNextItem(window_, -1, LVNI_SELECTED) == selected) return;
  isShowing_ = true;
  SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
  SetColumnWidths(rows);
  const int count = ListView_GetItemCount(window_);
  for (int extra = count; extra > static_cast<int>(rows.size()); --extra) {
    ListView_DeleteItem(window_, extra - 1);
  }
  rows_.resize(std::min(rows_.size(), rows.size()));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i >= rows_.size() || rows_[i] != rows[i]) ShowRow(static_cast<int>(i), rows[i]);
  }
  rows_ = std::move(rows);
  if (ListView_GetNextItem(window_, -1, LVNI_SELECTED) != selected) {
    constexpr UINT Marks = LVIS_SELECTED | LVIS_FOCUSED;
    ListView_SetItemState(window_, selected, selected >= 0 ? Marks : 0, Marks);
    if (selected >= 0) ListView_EnsureVisible(window_, selected, FALSE);
  }
  SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
  isShowing_ = false;
}

void CheckList::ShowRow(int index, const CheckRow& row) {
  if (index >= ListView_GetItemCount(window_)) {
    LVITEMW item{};
    item.iItem = index;
    ListView_InsertItem(window_, &item);
  }
  SetCell(window_, index, 0, row.name);
  SetCell(window_, index, 1, row.info);
  ListView_SetCheckState(window_, index, row.isChecked);
}

/// The second column is as wide as its texts need, but no wider than two thirds; the first has the rest. They
/// are made with the first rows, when it is known how wide: the system takes long for every change.
void CheckList::SetColumnWidths(const std::vector<CheckRow>& rows) {
  RECT client{};
  GetClientRect(window_, &client);
  int info = 0;
  for (const CheckRow& row : rows) {
    const std::wstring text = WideFromUtf8(row.info);
    info = std::max(info, ListView_GetStringWidth(window_, text.c_str()));
  }
  info = std::min<int>(info + Scaled(window_, 14), client.right * 2 / 3);
  const int widths[] = {client.right - info, info};
  for (int index = 0; index < 2; ++index) {
    if (hasColumns_) {
      if (ListView_GetColumnWidth(window_, index) == widths[index]) continue;
      ListView_SetColumnWidth(window_, index, widths[index]);
    } else {
      LVCOLUMNW column{};
      column.mask = LVCF_FMT | LVCF_WIDTH;
      column.fmt = index == 0 ? LVCFMT_LEFT : LVCFMT_RIGHT;
      column.cx = widths[index];
      ListView_InsertColumn(window_, index, &column);
    }
  }
  hasColumns_ = true;
}

void CheckList::OnSize() {
  if (!hasColumns_) return;
  SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
  SetColumnWidths(rows_);
  SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(window_, nullptr, TRUE);
}

LRESULT CheckList::OnNotify(NMHDR* header) {
  switch (header->code) {
    case LVN_ITEMCHANGED: OnItemChanged(*reinterpret_cast<NMLISTVIEW*>(header)); return 0;
    case LVN_GETINFOTIPW: ShowTip(*reinterpret_cast<NMLVGETINFOTIPW*>(header)); return 0;
    case NM_CUSTOMDRAW: return OnCustomDraw(*reinterpret_cast<NMLVCUSTOMDRAW*>(header));
    case LVN_KEYDOWN:
      if (onKey) onKey(reinterpret_cast<NMLVKEYDOWN*>(header)->wVKey);
      return 0;
    case LVN_BEGINDRAG:
      if (!onMove) return 0;
      dragged_ = reinterpret_cast<NMLISTVIEW*>(header)->iItem;
      SetCapture(window_);
      return 0;
    case NM_DBLCLK: {
      const auto& click = *reinterpret_cast<NMITEMACTIVATE*>(header);
      LVHITTESTINFO hit{};
      hit.pt = click.ptAction;
      ListView_HitTest(window_, &hit);
      const int row = (hit.flags & LVHT_ONITEMSTATEICON) == 0 ? click.iItem : -1;
      if (row >= 0 && onOpen) onOpen(static_cast<std::size_t>(row));
      return 0;
    }
    default: return 0;
  }
}

void CheckList::OnItemChanged(const NMLISTVIEW& change) {
  if (isShowing_ || change.iItem < 0) return;
  const auto row = static_cast<std::size_t>(change.iItem);
  const UINT changed = change.uNewState ^ change.uOldState;
  if ((changed & LVIS_STATEIMAGEMASK) != 0 && (change.uOldState & LVIS_STATEIMAGEMASK) != 0) {
    const bool isChecked = ListView_GetCheckState(window_, change.iItem) != 0;
    if (row < rows_.size()) rows_[row].isChecked = isChecked;
    if (onCheck) onCheck(row, isChecked);
  }
  const bool isSelected = (changed & change.uNewState & LVIS_SELECTED) != 0;
  if (isSelected && dragged_ < 0 && onSelect) onSelect(row);
}

/// Whether the row is selected in a list that does not have the focus: the system marks it in a colour that
/// is hardly seen on dark desktops.
bool CheckList::MarksFaintly(int row) const {
  return GetFocus() != window_ && ListView_GetItemState(window_, row, LVIS_SELECTED) != 0;
}

LRESULT CheckList::OnCustomDraw(NMLVCUSTOMDRAW& draw) const {
  switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT: return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT: return CDRF_NOTIFYSUBITEMDRAW;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM: break;
    default: return CDRF_DODEFAULT;
  }
  const std::size_t row = draw.nmcd.dwItemSpec;
  if (row >= rows_.size() || HasHighContrast()) return CDRF_DODEFAULT;
  draw.clrText = GetSysColor(COLOR_WINDOWTEXT);
  draw.clrTextBk = GetSysColor(COLOR_WINDOW);
  const bool isMarked = MarksFaintly(static_cast<int>(row));
  if (isMarked) {
    draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
    draw.clrTextBk = FaintMark();
  }
  if (draw.iSubItem != 1) return CDRF_NEWFONT;
  switch (rows_[row].tone) {
    case CheckRow::Tone::Usual:
      if (!isMarked) draw.clrText = GetSysColor(COLOR_GRAYTEXT);
      break;
    case CheckRow::Tone::Warning: draw.clrText = WarningColours[IsDark(COLOR_WINDOW)]; break;
    case CheckRow::Tone::Error: draw.clrText = ErrorColours[IsDark(COLOR_WINDOW)]; break;
  }
  return CDRF_NEWFONT;
}

void CheckList::ShowTip(NMLVGETINFOTIPW& tip) const {
  const auto row = static_cast<std::size_t>(tip.iItem);
  if (row >= rows_.size() || rows_[row].tip.empty() || tip.cchTextMax < 1) return;
  const std::wstring text = WideFromUtf8(rows_[row].tip);
  const std::size_t length = std::min<std::size_t>(text.size(), static_cast<std::size_t>(tip.cchTextMax) - 1);
  wmemcpy(tip.pszText, text.data(), length);
  tip.pszText[length] = L'\0';
}

int CheckList::RowAt(LPARAM position) const {
  LVHITTESTINFO hit{};
  hit.pt = {Scaled(window_, 30), GET_Y_LPARAM(position)};
  const int row = ListView_HitTest(window_, &hit);
  if (row >= 0) return row;
  return hit.pt.y < 0 ? 0 : ListView_GetItemCount(window_) - 1;
}

/// While a row is dragged, the one in whose place it would come is marked.
void CheckList::DragTo(LPARAM position) {
  const int target = RowAt(position);
  for (int row = 0; row < ListView_GetItemCount(window_); ++row) {
    ListView_SetItemState(window_, row, row == target ? LVIS_DROPHILITED : 0U, LVIS_DROPHILITED);
  }
}

void CheckList::EndDrag(LPARAM position) {
  const int from = dragged_;
  const int to = RowAt(position);
  ListView_SetItemState(window_, -1, 0, LVIS_DROPHILITED);
  dragged_ = -1;
  if (from >= 0 && to >= 0 && from != to && onMove) {
    onMove(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
  }
}

LRESULT CALLBACK CheckList::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR data) {
  auto& self = *reinterpret_cast<CheckList*>(data);
  try {
    switch (message) {
      case WM_SIZE: {
        const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        self.OnSize();
        return result;
      }
      case WM_MOUSEMOVE:
        if (self.dragged_ >= 0) self.DragTo(lParam);
        break;
      case WM_LBUTTONUP:
        if (self.dragged_ >= 0) {
          self.EndDrag(lParam);  // first: losing the capture ends a drag without a move
          ReleaseCapture();
        }
        break;
      case WM_CAPTURECHANGED: {
        if (reinterpret_cast<HWND>(lParam) == window || self.dragged_ < 0) break;
        self.dragged_ = -1;
        ListView_SetItemState(window, -1, 0, LVIS_DROPHILITED);
        break;
      }
      case WM_NCDESTROY: RemoveWindowSubclass(window, Procedure, 0); break;
      default: break;
    }
  } catch (const std::exception&) {
    self.dragged_ = -1;  // the list stays as it was
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace UX
