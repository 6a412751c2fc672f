// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <memory>

namespace Gdiplus {
class Bitmap;
}

namespace UX {

/// The picture in the window's corner, from the program's resources. GDI+ must be running while it is held.
class Logo {
 public:
  Logo();
  ~Logo();
  /// Without a resource that can be read there is no picture, and nothing is drawn.
  void Load(HINSTANCE instance);
  void Release();
  void Draw(HDC context, const RECT& area) const;

 private:
  std::unique_ptr<Gdiplus::Bitmap> bitmap_;
};

}  // namespace UX
