// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "ui/win32/Metrics.h"
#include "ui/win32/dialogs/Controls.h"

namespace UX {

/// The fonts of a dialog, at its window's scaling.
class DialogFonts {
 public:
  DialogFonts() = default;
  explicit DialogFonts(HWND dialog);
  HFONT Of(Face face) const;

 private:
  Font usual_, bold_, title_, fixed_;
};

/// The distance to the row above, for 96 dpi.
enum class Gap : int { Close = 3, Usual = 9, Wide = 15 };

/// Rows of controls, one below the other. Sizes follow the texts, so that every language fits.
class StackLayout {
 public:
  explicit StackLayout(HWND dialog) : dialog_(dialog) {}

  void Add(std::vector<Cell> cells, Gap gap = Gap::Usual);

  // In pixels
  int LeastWidth(const DialogFonts& fonts) const;
  int Height(const DialogFonts& fonts, int width) const;
  void Place(const DialogFonts& fonts, POINT corner, int width) const;

  void SetFonts(const DialogFonts& fonts) const;
  void Show(bool isVisible) const;
  /// The control to begin with: the first edit, else the first that takes keys; null when there is none.
  HWND FirstInput() const;

 private:
  struct Row {
    std::vector<Cell> cells;
    Gap gap;
  };

  int GapAbove(std::size_t row) const;
  int CaptionWidth(const DialogFonts& fonts) const;
  int LeastWidthOf(const Row& row, const DialogFonts& fonts) const;
  std::vector<int> WidthsOf(const Row& row, const DialogFonts& fonts, int width) const;
  int HeightOf(const Row& row, const DialogFonts& fonts, const std::vector<int>& widths) const;
  void PlaceRow(const Row& row, const DialogFonts& fonts, POINT corner, int width, int height) const;

  HWND dialog_;
  std::vector<Row> rows_;
};

/// The size of a control by itself, in pixels.
SIZE NaturalSize(const Cell& cell, const DialogFonts& fonts);
void Place(const Cell& cell, const RECT& area);

}  // namespace UX
