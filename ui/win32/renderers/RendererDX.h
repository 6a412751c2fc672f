// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>
// Direct2D's headers need what stands above.
#include <d2d1.h>
#include <dwrite.h>
#include <wrl/client.h>

#include <map>
#include <utility>

#include "ui/win32/WindowRenderer.h"
#include "ui/win32/renderers/Canvas.h"
#include "ui/win32/renderers/SceneDrawing.h"

namespace UX {

/// Draws by Direct2D and DirectWrite, into a picture that is then copied to the window: so child windows show
/// it on every system. A target that is lost is made anew once; the second loss is final.
class RendererDX : public WindowRenderer {
 public:
  template <typename Interface>
  using Owned = Microsoft::WRL::ComPtr<Interface>;

  RendererDX(HWND window, Owned<ID2D1Factory> factory, Owned<IDWriteFactory> texts);

  void Draw(const ChartScene& scene) override;
  void Resize(int width, int height, float scale) override;
  bool IsLost() const override { return isLost_; }

 private:
  bool MakeTarget();
  void Lose();
  /// False when the target was lost.
  bool TryDraw(const ChartScene& scene);

  void Paint(const Box& box);
  void Paint(const Area& area);
  void Paint(const Line& line);
  void Paint(const Mark& mark);
  void Paint(const Label& label);
  void Fill(const PixelArea& area, Colour colour);
  void FillDots(const PixelArea& area, Colour colour);
  void FillCircle(Point centre, float radius, Colour colour);

  ID2D1Brush* Brush(Colour colour);
  ID2D1BitmapBrush* Dots(Colour colour);
  IDWriteTextFormat* Format(float size, bool isBold);
  Owned<ID2D1PathGeometry> Geometry(const std::vector<Point>& points, bool isFilled);
  D2D1_RECT_F InScene(const PixelArea& area) const;

  HWND window_;
  Owned<ID2D1Factory> factory_;
  Owned<IDWriteFactory> texts_;
  const wchar_t* family_;
  std::map<std::pair<float, bool>, Owned<IDWriteTextFormat>> formats_;
  Owned<ID2D1StrokeStyle> roundJoins_;

  // These belong to the target and go with it.
  Owned<ID2D1DCRenderTarget> target_;
  Owned<ID2D1SolidColorBrush> brush_;
  std::map<Colour, Owned<ID2D1BitmapBrush>> dots_;
  Canvas picture_;

  PixelGrid grid_{1};
  bool wasLost_ = false, isLost_ = false;
};

}  // namespace UX
