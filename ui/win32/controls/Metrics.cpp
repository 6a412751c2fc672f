// SPDX-License-Identifier: MIT
#include "ui/win32/controls/Metrics.h"

#include <cwchar>

#include "QorLib/qor_win_str_utils.h"

namespace UX {
namespace {

using qor::win::Utf8FromWide;
using qor::win::WideFromUtf8;

constexpr int UsualDpi = 96;

int DpiOf(HWND window) {
  const UINT dpi = window != nullptr ? GetDpiForWindow(window) : GetDpiForSystem();
  return dpi != 0 ? static_cast<int>(dpi) : UsualDpi;
}

/// A window's device context with a font in it.
class TextContext {
 public:
  TextContext(HWND window, HFONT font)
      : window_(window), context_(GetDC(window)), former_(SelectObject(context_, font)) {}
  ~TextContext() {
    SelectObject(context_, former_);
    ReleaseDC(window_, context_);
  }
  TextContext(const TextContext&) = delete;
  TextContext& operator=(const TextContext&) = delete;
  HDC Get() const { return context_; }

 private:
  HWND window_;
  HDC context_;
  HGDIOBJ former_;
};

}  // namespace

int Scaled(HWND window, int length) {
  return MulDiv(length, DpiOf(window), UsualDpi);
}

float ScaleOf(HWND window) {
  return static_cast<float>(DpiOf(window)) / UsualDpi;
}

Font& Font::operator=(Font&& other) noexcept {
  if (this != &other) {
    Reset(other.font_);
    other.font_ = nullptr;
  }
  return *this;
}

void Font::Reset(HFONT font) {
  if (font_ != nullptr) DeleteObject(font_);
  font_ = font;
}

Font TextFont(HWND window, FontWeight weight, int percent) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  LOGFONTW font{};
  if (SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                                 static_cast<UINT>(DpiOf(window)))) {
    font = metrics.lfMessageFont;
  } else {
    font.lfHeight = -Scaled(window, 12);
    wcscpy(font.lfFaceName, L"Segoe UI");
  }
  font.lfHeight = MulDiv(font.lfHeight, percent, 100);
  if (weight == FontWeight::Bold) font.lfWeight = FW_BOLD;
  return Font(CreateFontIndirectW(&font));
}

Font LogFont(HWND window) {
  LOGFONTW font{};
  font.lfHeight = -Scaled(window, 12);
  font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  font.lfCharSet = DEFAULT_CHARSET;
  wcscpy(font.lfFaceName, L"Consolas");
  return Font(CreateFontIndirectW(&font));
}

bool HasHighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0);
  return (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool IsDark(int systemColour) {
  const COLORREF colour = GetSysColor(systemColour);
  return GetRValue(colour) + GetGValue(colour) + GetBValue(colour) < 3 * 128;
}

SIZE TextSize(HWND window, HFONT font, std::string_view text) {
  const TextContext context(window, font);
  const std::wstring wide = WideFromUtf8(text);
  SIZE size{};
  GetTextExtentPoint32W(context.Get(), wide.data(), static_cast<int>(wide.size()), &size);
  return size;
}

int TextHeight(HWND window, HFONT font, std::string_view text, int width) {
  const TextContext context(window, font);
  const std::wstring wide = WideFromUtf8(text);
  RECT area{0, 0, width, 0};
  DrawTextW(context.Get(), wide.data(), static_cast<int>(wide.size()), &area,
            DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL);
  return area.bottom;
}

void SetText(HWND window, std::string_view text) {
  SetWindowTextW(window, WideFromUtf8(text).c_str());
}

std::string TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(length));
  return Utf8FromWide(text);
}

}  // namespace UX
