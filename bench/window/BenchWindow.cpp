// SPDX-License-Identifier: MIT
#include "bench/window/BenchWindow.h"

// GDI+'s headers need this one.
#include <objidl.h>

#include <gdiplus.h>

#include <cstdlib>

namespace bench {
namespace {

constexpr DWORD SettlingTime = 1000;  // ms

LRESULT CALLBACK Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return 1;
  if (message == WM_PAINT) {
    ValidateRect(window, nullptr);
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

const wchar_t* WindowClass() {
  static const wchar_t* const name = [] {
    WNDCLASSW kind{};
    kind.lpfnWndProc = Answer;
    kind.lpszClassName = L"HalvexBench";
    RegisterClassW(&kind);
    return kind.lpszClassName;
  }();
  return name;
}

BITMAPINFO FormatOf(int width, int height) {
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = width;
  format.bmiHeader.biHeight = -height;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  return format;
}

/// Answers the messages that wait.
void HandleMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

}  // namespace

double MeanDifference(const Picture& a, const Picture& b) {
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < a.pixels.size(); ++i) {
    for (const int shift : {0, 8, 16}) {
      sum += static_cast<unsigned>(std::abs(static_cast<int>(a.pixels[i] >> shift & 0xFF) -
                                            static_cast<int>(b.pixels[i] >> shift & 0xFF)));
    }
  }
  return static_cast<double>(sum) / (255.0 * 3.0 * static_cast<double>(a.pixels.size()));
}

bool Save(const Picture& picture, const std::wstring& path) {
  constexpr CLSID PngEncoder{0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
  std::vector<std::uint32_t> pixels = picture.pixels;
  Gdiplus::Bitmap bitmap(picture.width, picture.height, 4 * picture.width, PixelFormat32bppRGB,
                         reinterpret_cast<BYTE*>(pixels.data()));
  return bitmap.Save(path.c_str(), &PngEncoder, nullptr) == Gdiplus::Ok;
}

BenchWindow::BenchWindow(int width, int height)
    : width_(width),
      height_(height),
      handle_(CreateWindowExW(0, WindowClass(), L"Halvex", WS_POPUP | WS_VISIBLE, 0, 0, width, height,
                              nullptr, nullptr, nullptr, nullptr)) {
  HandleMessages();
  Sleep(SettlingTime);
  HandleMessages();
}

BenchWindow::~BenchWindow() {
  DestroyWindow(handle_);
  HandleMessages();
}

void BenchWindow::Raise() const {
  SetWindowPos(handle_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  HandleMessages();
}

Picture BenchWindow::Grab() const {
  Raise();
  Sleep(SettlingTime);  // the screen is another process's
  Picture picture{width_, height_, std::vector<std::uint32_t>(static_cast<std::size_t>(width_ * height_))};
  const BITMAPINFO format = FormatOf(width_, height_);
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP copy = CreateCompatibleBitmap(screen, width_, height_);
  const HGDIOBJ former = SelectObject(memory, copy);
  BitBlt(memory, 0, 0, width_, height_, screen, 0, 0, SRCCOPY);
  SelectObject(memory, former);
  GetDIBits(memory, copy, 0, static_cast<UINT>(height_), picture.pixels.data(),
            const_cast<BITMAPINFO*>(&format), DIB_RGB_COLORS);
  DeleteObject(copy);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return picture;
}

GdiPlus::GdiPlus() {
  const Gdiplus::GdiplusStartupInput input;
  Gdiplus::GdiplusStartup(&token_, &input, nullptr);
}

GdiPlus::~GdiPlus() {
  Gdiplus::GdiplusShutdown(token_);
}

}  // namespace bench
