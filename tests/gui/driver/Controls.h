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

struct BarState {
  int position = 0, page = 0, most = 0;
};
/// `bar` is SB_CTL for a scroll bar control, else that of a window.
BarState ScrollOf(HWND window, int bar = SB_CTL);

/// The pixels of a window as they stand on the screen, in rows from the top, as 0x00RRGGBB.
struct Picture {
  int width = 0, height = 0;
  std::vector<DWORD> pixels;
};
Picture PictureOf(HWND window);
/// Of the three colours' differences, as a part of the full scale; 1 for pictures of different sizes.
double MeanDifference(const Picture& a, const Picture& b);
int ColoursOf(const Picture& picture);

}  // namespace gui
