// SPDX-License-Identifier: MIT
#include "ui/win32/controls/StackLayout.h"

#include <commctrl.h>

#include <algorithm>

namespace UX {
namespace {

constexpr int DropDownLines = 8;  // of a combo box's list

/// What a control needs beside its text, for 96 dpi.
struct Padding {
  int across, down;
};

Padding PaddingOf(Cell::Kind kind) {
  switch (kind) {
    case Cell::Kind::Label: return {0, 0};
    case Cell::Kind::Edit: return {12, 7};
    case Cell::Kind::Choice: return {36, 8};
    case Cell::Kind::Check: return {22, 2};
    case Cell::Kind::Button: return {24, 10};
    case Cell::Kind::SmallButton: return {14, 10};
    case Cell::Kind::List: return {24, 30};  // the columns' headings
    case Cell::Kind::Plain: break;
  }
  return {0, 0};
}

int LineHeight(HWND window, HFONT font) {
  return static_cast<int>(TextSize(window, font, "Xg").cy);
}

int WidestLine(HWND window, HFONT font, std::string_view text) {
  int widest = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find("\r\n"), text.size());
    widest = std::max(widest, static_cast<int>(TextSize(window, font, text.substr(0, end)).cx));
    text.remove_prefix(std::min(end + 2, text.size()));
  }
  return widest;
}

/// Whether the control's width follows its text, which stands on one line.
bool IsAsWideAsItsText(Cell::Kind kind) {
  return kind == Cell::Kind::Label || kind == Cell::Kind::Check || kind == Cell::Kind::Button ||
         kind == Cell::Kind::SmallButton;
}

int NaturalWidth(const Cell& cell, const Fonts& fonts) {
  const int least = Scaled(cell.control, cell.width);
  if (cell.fills || !IsAsWideAsItsText(cell.kind)) return least;
  const int text = WidestLine(cell.control, fonts.Of(cell.face), TextOf(cell.control));
  return std::max(least, text + Scaled(cell.control, PaddingOf(cell.kind).across));
}

int HeightAt(const Cell& cell, const Fonts& fonts, int width) {
  if (cell.height > 0 || cell.isTall) return Scaled(cell.control, cell.height);
  const HFONT font = fonts.Of(cell.face);
  int text = cell.lines * LineHeight(cell.control, font);
  if (cell.kind == Cell::Kind::Label) {
    text = std::max(text, TextHeight(cell.control, font, TextOf(cell.control), width));
  } else if (cell.kind == Cell::Kind::List) {
    text += cell.lines * Scaled(cell.control, 4);
  }
  return text + Scaled(cell.control, PaddingOf(cell.kind).down);
}

bool IsComboBox(HWND control) {
  wchar_t kind[16] = L"";
  GetClassNameW(control, kind, static_cast<int>(std::size(kind)));
  return _wcsicmp(kind, WC_COMBOBOXW) == 0;
}

bool TakesKeys(HWND control) {
  return (GetWindowLongPtrW(control, GWL_STYLE) & WS_TABSTOP) != 0;
}

}  // namespace

Fonts::Fonts(HWND window)
    : usual_(TextFont(window)),
      bold_(TextFont(window, FontWeight::Bold)),
      title_(TextFont(window, FontWeight::Bold, 160)),
      clock_(TextFont(window, FontWeight::Bold, 125)),
      fixed_(LogFont(window)) {}

HFONT Fonts::Of(Face face) const {
  switch (face) {
    case Face::Usual: return usual_.Get();
    case Face::Bold: return bold_.Get();
    case Face::Title: return title_.Get();
    case Face::Clock: return clock_.Get();
    case Face::Fixed: break;
  }
  return fixed_.Get();
}

SIZE NaturalSize(const Cell& cell, const Fonts& fonts) {
  const int width = NaturalWidth(cell, fonts);
  return {width, HeightAt(cell, fonts, width)};
}

void Place(const Cell& cell, const RECT& area) {
  constexpr UINT Flags = SWP_NOZORDER | SWP_NOACTIVATE;
  const int height = static_cast<int>(area.bottom - area.top);
  const int list = IsComboBox(cell.control) ? DropDownLines * height : 0;
  SetWindowPos(cell.control, nullptr, area.left, area.top, area.right - area.left, height + list, Flags);
  if (list == 0) return;
  // The height was that of field and list; how high the field is, the combo box decides by its font.
  RECT field;
  GetWindowRect(cell.control, &field);
  const LONG top = area.top + (height - (field.bottom - field.top)) / 2;
  SetWindowPos(cell.control, nullptr, area.left, top, 0, 0, Flags | SWP_NOSIZE);
}

void StackLayout::Add(std::vector<Cell> cells, int gap) {
  rows_.push_back({std::move(cells), gap});
}

int StackLayout::GapAbove(std::size_t row) const {
  return row == 0 ? 0 : Scaled(window_, rows_[row].gap);
}

int StackLayout::CaptionWidth(const Fonts& fonts) const {
  int widest = 0;
  for (const Row& row : rows_) {
    for (const Cell& cell : row.cells) {
      if (cell.isCaption) widest = std::max(widest, NaturalWidth(cell, fonts));
    }
  }
  return widest;
}

int StackLayout::LeastWidthOf(const Row& row, const Fonts& fonts) const {
  int width = 0;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const Cell& cell = row.cells[i];
    width += GapBefore(row, i) + (cell.isCaption ? CaptionWidth(fonts) : NaturalWidth(cell, fonts));
  }
  return width;
}

/// The first control of a row stands at its edge.
int StackLayout::GapBefore(const Row& row, std::size_t cell) const {
  return cell == 0 ? 0 : Scaled(window_, row.cells[cell].gap);
}

int StackLayout::LeastWidth(const Fonts& fonts) const {
  int width = 0;
  for (const Row& row : rows_) width = std::max(width, LeastWidthOf(row, fonts));
  return width;
}

std::vector<int> StackLayout::WidthsOf(const Row& row, const Fonts& fonts, int width) const {
  const auto filling = static_cast<int>(std::ranges::count(row.cells, true, &Cell::fills));
  const int spare = filling > 0 ? std::max(width - LeastWidthOf(row, fonts), 0) / filling : 0;
  std::vector<int> widths;
  for (const Cell& cell : row.cells) {
    const int natural = cell.isCaption ? CaptionWidth(fonts) : NaturalWidth(cell, fonts);
    widths.push_back(natural + (cell.fills ? spare : 0));
  }
  return widths;
}

int StackLayout::HeightOf(const Row& row, const Fonts& fonts, const std::vector<int>& widths) const {
  int height = 0;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    height = std::max(height, HeightAt(row.cells[i], fonts, widths[i]));
  }
  return height;
}

int StackLayout::Height(const Fonts& fonts, int width) const {
  int height = 0;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    height += GapAbove(i) + HeightOf(rows_[i], fonts, WidthsOf(rows_[i], fonts, width));
  }
  return height;
}

bool StackLayout::Row::IsTall() const {
  return std::ranges::any_of(cells, &Cell::isTall);
}

void StackLayout::Place(const Fonts& fonts, const RECT& area) const {
  const int width = static_cast<int>(area.right - area.left);
  const auto tall = static_cast<int>(std::ranges::count_if(rows_, &Row::IsTall));
  const int spare = static_cast<int>(area.bottom - area.top) - Height(fonts, width);
  POINT corner{area.left, area.top};
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    int height = HeightOf(rows_[i], fonts, WidthsOf(rows_[i], fonts, width));
    if (rows_[i].IsTall()) height += std::max(spare, 0) / tall;
    corner.y += GapAbove(i);
    PlaceRow(rows_[i], fonts, corner, width, height);
    corner.y += height;
  }
}

void StackLayout::PlaceRow(const Row& row, const Fonts& fonts, POINT corner, int width, int height) const {
  const std::vector<int> widths = WidthsOf(row, fonts, width);
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const Cell& cell = row.cells[i];
    const int own = cell.isTall ? height : HeightAt(cell, fonts, widths[i]);
    const LONG top = corner.y + (cell.top ? Scaled(window_, *cell.top) : (height - own) / 2);
    corner.x += GapBefore(row, i);
    UX::Place(cell, {corner.x, top, corner.x + widths[i], top + own});
    corner.x += widths[i];
  }
}

void StackLayout::SetFonts(const Fonts& fonts) const {
  for (const Row& row : rows_) {
    for (const Cell& cell : row.cells) {
      SendMessageW(cell.control, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.Of(cell.face)), TRUE);
    }
  }
}

void StackLayout::Show(bool isVisible) const {
  for (const Row& row : rows_) {
    for (const Cell& cell : row.cells) ShowWindow(cell.control, isVisible ? SW_SHOW : SW_HIDE);
  }
}

HWND StackLayout::FirstInput() const {
  HWND first = nullptr;
  for (const Row& row : rows_) {
    for (const Cell& cell : row.cells) {
      if (cell.kind == Cell::Kind::Edit) return cell.control;
      if (first == nullptr && TakesKeys(cell.control)) first = cell.control;
    }
  }
  return first;
}

}  // namespace UX
