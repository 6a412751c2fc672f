// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "ui/win32/controls/Controls.h"
#include "ui/win32/controls/Metrics.h"

namespace UX {

/// The fonts of a window, at its scaling.
class Fonts {
 public:
  Fonts() = default;
  explicit Fonts(HWND window);
  HFONT Of(Face face) const;

 private:
  Font usual_, bold_, title_, clock_, fixed_;
};

/// The distance to the row above, for 96 dpi.
namespace Gap {
inline constexpr int None = 0, Close = 3, Usual = 9, Wide = 15;
}

/// Rows of controls, one below the other. Sizes follow the texts, so that every language fits; tall controls
/// share what height is left.
class StackLayout {
 public:
  explicit StackLayout(HWND window) : window_(window) {}

  void Add(std::vector<Cell> cells, int gap = Gap::Usual);

  // In pixels
  int LeastWidth(const Fonts& fonts) const;
  int Height(const Fonts& fonts, int width) const;
  void Place(const Fonts& fonts, const RECT& area) const;

  void SetFonts(const Fonts& fonts) const;
  void Show(bool isVisible) const;
  /// The control to begin with: the first edit, else the first that takes keys; null when there is none.
  HWND FirstInput() const;

 private:
  struct Row {
    std::vector<Cell> cells;
    int gap;
    bool IsTall() const;
  };

  int GapAbove(std::size_t row) const;
  int GapBefore(const Row& row, std::size_t cell) const;
  int CaptionWidth(const Fonts& fonts) const;
  int LeastWidthOf(const Row& row, const Fonts& fonts) const;
  std::vector<int> WidthsOf(const Row& row, const Fonts& fonts, int width) const;
  int HeightOf(const Row& row, const Fonts& fonts, const std::vector<int>& widths) const;
  void PlaceRow(const Row& row, const Fonts& fonts, POINT corner, int width, int height) const;

  HWND window_;
  std::vector<Row> rows_;
};

/// The size of a control by itself, in pixels.
SIZE NaturalSize(const Cell& cell, const Fonts& fonts);
void Place(const Cell& cell, const RECT& area);

}  // namespace UX
