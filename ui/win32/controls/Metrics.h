// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

/// Sizes and fonts of windows at their monitor's scaling.
namespace UX {

/// A length given for 96 dpi, in the window's pixels.
int Scaled(HWND window, int length);
/// The number of its pixels for one of 96 dpi.
float ScaleOf(HWND window);

/// A font that deletes itself.
class Font {
 public:
  Font() = default;
  explicit Font(HFONT font) : font_(font) {}
  ~Font() { Reset(nullptr); }
  Font(Font&& other) noexcept : font_(other.font_) { other.font_ = nullptr; }
  Font& operator=(Font&& other) noexcept;
  HFONT Get() const { return font_; }

 private:
  void Reset(HFONT font);

  HFONT font_ = nullptr;
};

enum class FontWeight { Usual, Bold };
/// The system's font for texts of windows, at the window's scaling. `percent` is of its usual height.
Font TextFont(HWND window, FontWeight weight = FontWeight::Usual, int percent = 100);
/// A font whose characters have one width.
Font LogFont(HWND window);

/// The text's width and height when it is written on one line.
SIZE TextSize(HWND window, HFONT font, std::string_view text);
/// The height of the text when it is broken at `width`.
int TextHeight(HWND window, HFONT font, std::string_view text, int width);

/// Whether the user wants the colours of high contrast.
bool HasHighContrast();
/// Whether one of the system's colours (COLOR_WINDOW) is dark.
bool IsDark(int systemColour);

// Windows' texts, in UTF-8
void SetText(HWND window, std::string_view text);
std::string TextOf(HWND window);

}  // namespace UX
