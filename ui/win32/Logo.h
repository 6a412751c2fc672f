// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <memory>

namespace Gdiplus {
class Bitmap;
}

namespace UX {

/// The picture in the window's corner, from the program's resources. It is decoded here, which takes a tenth
/// of the time that the system's own decoders take to start. GDI+ must be running while it is held.
class Logo {
 public:
  Logo();
  ~Logo();
  /// In colours for the window as the system has it now. Without a resource that can be read there is no
  /// picture, and nothing is drawn.
  void Load(HINSTANCE instance);
  void Release();
  void Draw(HDC context, const RECT& area) const;

 private:
  struct FreePixels {
    void operator()(unsigned char* pixels) const;
  };

  std::unique_ptr<unsigned char, FreePixels> pixels_;  // those of the bitmap
  std::unique_ptr<Gdiplus::Bitmap> bitmap_;
};

}  // namespace UX
