// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// Controls of another process, read and used by their windows.
namespace gui {

/// What the control holds, in UTF-8; lines end with LF.
std::string TextOf(HWND control);
void SetText(HWND control, const std::string& text);

struct ListRow {
  bool isChecked = false, isSelected = false;
  std::string name, info;
};
std::vector<ListRow> RowsOf(HWND list);
/// Clicks on the row's check box.
void ClickCheckBox(HWND list, int row);
void ClickRow(HWND list, int row);

/// The pixels of a window as they stand on the screen, in rows from the top, as 0x00RRGGBB.
using Picture = std::vector<DWORD>;
Picture PictureOf(HWND window);
/// Of the three colours' differences, as a part of the full scale; 1 for pictures of different sizes.
double MeanDifference(const Picture& a, const Picture& b);

}  // namespace gui
