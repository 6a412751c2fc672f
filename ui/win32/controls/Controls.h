// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The controls of windows, made one by one: their order is that of the Tab key.
namespace UX {

enum class Face { Usual, Bold, Title, Clock, Fixed };

/// A control with what its place among others depends on.
struct Cell {
  /// The size of a plain control is the one given here, that of the others follows from their texts.
  enum class Kind { Label, Edit, Choice, Check, Button, SmallButton, List, Plain };

  HWND control = nullptr;
  Kind kind = Kind::Label;
  Face face = Face::Usual;
  // Lengths for 96 dpi
  int width = 0;                // at least
  int height = 0;               // where it does not follow from the text
  int lines = 1;                // at least, of its text
  int gap = 8;                  // to the control before it
  std::optional<int> top = {};  // from its row's upper edge; else in the row's middle
  bool fills = false;           // takes the width that its row has left
  bool isTall = false;          // takes the height that its stack has left
  bool isCaption = false;       // as wide as the other captions of its stack
};

/// A control of any class; dialogs number theirs by themselves.
HWND MakeControl(HWND window, const wchar_t* kind, DWORD style, int id = 0, DWORD extendedStyle = 0,
                 std::string_view text = {});
/// Text that is broken to lines where it must; it keeps room for `lines` lines, as it may change.
Cell Paragraph(HWND dialog, std::string_view text, int lines = 1);
/// Text that keeps to its own lines, of the given face.
Cell PlainText(HWND dialog, std::string_view text, Face face);
/// A short text beside a control.
Cell Caption(HWND dialog, std::string_view text);
/// `style`: ES_NUMBER, ES_PASSWORD
Cell LineEdit(HWND dialog, std::string_view text, DWORD style = 0);
/// Several lines, in which Enter begins a new one. They end with CR LF there, whatever they ended with
/// before.
Cell TextEdit(HWND dialog, std::string_view text, int lines);
Cell CheckBox(HWND dialog, std::string_view text);
Cell PushButton(HWND dialog, std::string_view text);
/// A list that drops down; none is chosen when there is none of that number.
Cell ComboBox(HWND dialog, const std::vector<std::string>& choices, std::size_t chosen);
/// A list view with columns, of which one row can be selected.
Cell ReportList(HWND dialog, const std::vector<std::string>& columns, int lines);
Cell DatePicker(HWND dialog, const SYSTEMTIME& time);
/// With seconds.
Cell TimePicker(HWND dialog, const SYSTEMTIME& time);

/// A button of the dialog's row of buttons; `id` is what it reports.
Cell DialogButton(HWND dialog, std::string_view text, int id, bool isDefault);

bool IsChecked(HWND checkBox);
/// -1 when nothing is chosen.
int ChosenOf(HWND comboBox);
void Choose(HWND comboBox, int index);

// Of a report list
void SetRows(HWND list, const std::vector<std::vector<std::string>>& rows);
/// The selected row; -1 when there is none.
int SelectedRow(HWND list);
/// Makes the columns but the first as wide as their texts; the first gets the rest.
void FitColumns(HWND list);

}  // namespace UX
