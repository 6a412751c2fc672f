// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// The pixels of a window, row by row, as 0x00RRGGBB.
struct Picture {
  int width = 0, height = 0;
  std::vector<std::uint32_t> pixels;
};

/// The mean over all channels of all pixels, of two pictures of one size; 1 is from black to white.
double MeanDifference(const Picture& a, const Picture& b);
/// Writes a PNG; GDI+ must have been started.
bool Save(const Picture& picture, const std::wstring& path);

/// A window without a frame at the screen's top left corner, which leaves all drawing to others.
class BenchWindow {
 public:
  BenchWindow(int width, int height);
  ~BenchWindow();
  BenchWindow(const BenchWindow&) = delete;
  BenchWindow& operator=(const BenchWindow&) = delete;
  HWND Handle() const { return handle_; }
  /// Over all other windows.
  void Raise() const;
  /// What the screen shows in its place, after it was given the time to show what was drawn.
  Picture Grab() const;

 private:
  int width_, height_;
  HWND handle_;
};

/// GDI+, for as long as this lives.
class GdiPlus {
 public:
  GdiPlus();
  ~GdiPlus();
  GdiPlus(const GdiPlus&) = delete;
  GdiPlus& operator=(const GdiPlus&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

}  // namespace bench
