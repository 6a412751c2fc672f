// SPDX-License-Identifier: MIT
#include "ui/win32/controls/Controls.h"

#include <commctrl.h>

#include <algorithm>

#include "QorLib/qor_win_str_utils.h"
#include "ui/win32/controls/Metrics.h"

namespace UX {
namespace {

using qor::win::WideFromUtf8;

constexpr int FirstId = 100;  // above those of a dialog's own buttons
constexpr DWORD EditStyle = WS_TABSTOP | ES_AUTOHSCROLL;

/// The number of the next control; the dialog manager tells controls apart by it.
int NextId(HWND dialog) {
  int id = FirstId;
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    ++id;
  return id;
}

HWND NewControl(HWND dialog, const wchar_t* kind, std::string_view text, DWORD style, DWORD extendedStyle = 0,
                int id = 0) {
  return MakeControl(dialog, kind, style, id != 0 ? id : NextId(dialog), extendedStyle, text);
}

Cell Picker(HWND dialog, const SYSTEMTIME& time, DWORD style) {
  const HWND picker = NewControl(dialog, DATETIMEPICK_CLASSW, {}, WS_TABSTOP | style);
  DateTime_SetSystemtime(picker, GDT_VALID, &time);
  return {.control = picker, .kind = Cell::Kind::Choice, .width = 150, .fills = true};
}

void SetItemText(HWND list, int row, int column, std::string_view text) {
  std::wstring wide = WideFromUtf8(text);
  ListView_SetItemText(list, row, column, wide.data());
}

void AddRow(HWND list, int row, const std::vector<std::string>& texts) {
  LVITEMW item{};
  item.iItem = row;
  ListView_InsertItem(list, &item);
  for (std::size_t column = 0; column < texts.size(); ++column) {
    SetItemText(list, row, static_cast<int>(column), texts[column]);
  }
}

void AddColumn(HWND list, int index, std::string_view text) {
  std::wstring wide = WideFromUtf8(text);
  LVCOLUMNW column{};
  column.mask = LVCF_TEXT | LVCF_SUBITEM;
  column.pszText = wide.data();
  column.iSubItem = index;
  ListView_InsertColumn(list, index, &column);
}

int ColumnCount(HWND list) {
  return Header_GetItemCount(ListView_GetHeader(list));
}

int WidestText(HWND list, int column) {
  wchar_t text[128] = L"";
  LVCOLUMNW header{};
  header.mask = LVCF_TEXT;
  header.pszText = text;
  header.cchTextMax = static_cast<int>(std::size(text));
  ListView_GetColumn(list, column, &header);
  int widest = ListView_GetStringWidth(list, text);
  for (int row = 0; row < ListView_GetItemCount(list); ++row) {
    ListView_GetItemText(list, row, column, text, static_cast<int>(std::size(text)));
    widest = std::max(widest, ListView_GetStringWidth(list, text));
  }
  return widest;
}

}  // namespace

HWND MakeControl(HWND window, const wchar_t* kind, DWORD style, int id, DWORD extendedStyle,
                 std::string_view text) {
  return CreateWindowExW(extendedStyle, kind, WideFromUtf8(text).c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0,
                         0, 0, window, reinterpret_cast<HMENU>(static_cast<std::intptr_t>(id)),
                         GetModuleHandleW(nullptr), nullptr);
}

Cell Paragraph(HWND dialog, std::string_view text, int lines) {
  return {.control = NewControl(dialog, WC_STATICW, text, SS_NOPREFIX), .lines = lines, .fills = true};
}

Cell PlainText(HWND dialog, std::string_view text, Face face) {
  return {.control = NewControl(dialog, WC_STATICW, text, SS_NOPREFIX), .face = face};
}

Cell Caption(HWND dialog, std::string_view text) {
  return {.control = NewControl(dialog, WC_STATICW, text, SS_NOPREFIX), .isCaption = true};
}

Cell LineEdit(HWND dialog, std::string_view text, DWORD style) {
  const HWND edit = NewControl(dialog, WC_EDITW, text, EditStyle | style, WS_EX_CLIENTEDGE);
  return {.control = edit, .kind = Cell::Kind::Edit, .width = 120, .fills = true};
}

Cell TextEdit(HWND dialog, std::string_view text, int lines) {
  constexpr DWORD Style = WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;
  const HWND edit = NewControl(dialog, WC_EDITW, qor::win::WithCrLf(text), Style, WS_EX_CLIENTEDGE);
  SendMessageW(edit, EM_SETMODIFY, FALSE, 0);
  return {.control = edit, .kind = Cell::Kind::Edit, .width = 200, .lines = lines, .fills = true};
}

Cell CheckBox(HWND dialog, std::string_view text) {
  return {.control = NewControl(dialog, WC_BUTTONW, text, WS_TABSTOP | BS_AUTOCHECKBOX),
          .kind = Cell::Kind::Check};
}

Cell PushButton(HWND dialog, std::string_view text) {
  return {.control = NewControl(dialog, WC_BUTTONW, text, WS_TABSTOP), .kind = Cell::Kind::Button};
}

Cell ComboBox(HWND dialog, const std::vector<std::string>& choices, std::size_t chosen) {
  const HWND box = NewControl(dialog, WC_COMBOBOXW, {}, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST);
  for (const std::string& choice : choices) {
    SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(WideFromUtf8(choice).c_str()));
  }
  Choose(box, static_cast<int>(chosen));
  return {.control = box, .kind = Cell::Kind::Choice, .width = 160, .fills = true};
}

Cell ReportList(HWND dialog, const std::vector<std::string>& columns, int lines) {
  constexpr DWORD Style = WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
  constexpr DWORD Extras = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
  const HWND list = NewControl(dialog, WC_LISTVIEWW, {}, Style, WS_EX_CLIENTEDGE);
  ListView_SetExtendedListViewStyle(list, Extras);
  for (std::size_t i = 0; i < columns.size(); ++i) AddColumn(list, static_cast<int>(i), columns[i]);
  return {.control = list, .kind = Cell::Kind::List, .width = 380, .lines = lines, .fills = true};
}

Cell DatePicker(HWND dialog, const SYSTEMTIME& time) {
  return Picker(dialog, time, DTS_SHORTDATECENTURYFORMAT);
}

Cell TimePicker(HWND dialog, const SYSTEMTIME& time) {
  Cell picker = Picker(dialog, time, DTS_TIMEFORMAT);
  DateTime_SetFormat(picker.control, L"HH':'mm':'ss");
  return picker;
}

Cell DialogButton(HWND dialog, std::string_view text, int id, bool isDefault) {
  const DWORD style = WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
  const Cell button = {
      .control = NewControl(dialog, WC_BUTTONW, text, style, 0, id), .kind = Cell::Kind::Button, .width = 80};
  if (isDefault) SendMessageW(dialog, DM_SETDEFID, static_cast<WPARAM>(id), 0);
  return button;
}

bool IsChecked(HWND checkBox) {
  return SendMessageW(checkBox, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

int ChosenOf(HWND comboBox) {
  return static_cast<int>(SendMessageW(comboBox, CB_GETCURSEL, 0, 0));
}

void Choose(HWND comboBox, int index) {
  SendMessageW(comboBox, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void SetRows(HWND list, const std::vector<std::vector<std::string>>& rows) {
  ListView_DeleteAllItems(list);
  for (std::size_t row = 0; row < rows.size(); ++row) AddRow(list, static_cast<int>(row), rows[row]);
  FitColumns(list);
}

int SelectedRow(HWND list) {
  return ListView_GetNextItem(list, -1, LVNI_SELECTED);
}

void FitColumns(HWND list) {
  const int padding = Scaled(list, 20);
  RECT area;
  GetClientRect(list, &area);
  int left = area.right - GetSystemMetricsForDpi(SM_CXVSCROLL, GetDpiForWindow(list));
  for (int column = 1; column < ColumnCount(list); ++column) {
    const int width = WidestText(list, column) + padding;
    ListView_SetColumnWidth(list, column, width);
    left -= width;
  }
  ListView_SetColumnWidth(list, 0, std::max(left, Scaled(list, 80)));
}

}  // namespace UX
