// SPDX-License-Identifier: MIT
#include "ui/win32/renderers/RendererDX.h"

#include <algorithm>
#include <vector>

namespace UX {
namespace {

template <typename Interface>
using Owned = RendererDX::Owned<Interface>;

constexpr float UsualDpi = 96;

D2D1_COLOR_F ColorOf(Colour colour) {
  const auto part = [colour](int shift) { return static_cast<float>(colour >> shift & 0xFF) / 255; };
  return {part(16), part(8), part(0), part(24)};
}

/// Direct2D's pixels have their colour multiplied by their opacity.
UINT32 Premultiplied(Colour colour) {
  const UINT32 alpha = colour >> 24;
  const auto part = [&](int shift) { return ((colour >> shift & 0xFF) * alpha + 127) / 255 << shift; };
  return alpha << 24 | part(16) | part(8) | part(0);
}

/// Between BeginDraw and EndDraw, even when an exception passes.
class OpenTarget {
 public:
  explicit OpenTarget(ID2D1RenderTarget* target) : target_(target) { target->BeginDraw(); }
  ~OpenTarget() { Close(); }
  OpenTarget(const OpenTarget&) = delete;
  OpenTarget& operator=(const OpenTarget&) = delete;
  bool Close() {
    ID2D1RenderTarget* const target = std::exchange(target_, nullptr);
    return target == nullptr || SUCCEEDED(target->EndDraw());
  }

 private:
  ID2D1RenderTarget* target_;
};

/// Null when the system has no such library or function. The library stays for good.
template <typename Function>
Function* FindFunction(const wchar_t* library, const char* name) {
  const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

using D2D1CreateFactoryFunction = HRESULT WINAPI(D2D1_FACTORY_TYPE, REFIID, const D2D1_FACTORY_OPTIONS*,
                                                 void**);
using DWriteCreateFactoryFunction = HRESULT WINAPI(DWRITE_FACTORY_TYPE, REFIID, IUnknown**);

Owned<ID2D1Factory> MakeFactory() {
  Owned<ID2D1Factory> factory;
  if (auto* const create = FindFunction<D2D1CreateFactoryFunction>(L"d2d1.dll", "D2D1CreateFactory")) {
    void* made = nullptr;
    create(D2D1_FACTORY_TYPE_SINGLE_THREADED, __uuidof(ID2D1Factory), nullptr, &made);
    factory.Attach(static_cast<ID2D1Factory*>(made));
  }
  return factory;
}

Owned<IDWriteFactory> MakeTexts() {
  Owned<IDWriteFactory> texts;
  if (auto* const create = FindFunction<DWriteCreateFactoryFunction>(L"dwrite.dll", "DWriteCreateFactory")) {
    IUnknown* made = nullptr;
    create(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory), &made);
    texts.Attach(static_cast<IDWriteFactory*>(made));
  }
  return texts;
}

const wchar_t* FamilyOf(IDWriteFactory* texts) {
  Owned<IDWriteFontCollection> fonts;
  if (FAILED(texts->GetSystemFontCollection(fonts.GetAddressOf()))) return L"";
  const wchar_t* const family = ChooseFontFamily([&fonts](const wchar_t* name) {
    UINT32 index = 0;
    BOOL isThere = FALSE;
    return SUCCEEDED(fonts->FindFamilyName(name, &index, &isThere)) && isThere;
  });
  return family != nullptr ? family : L"";
}

}  // namespace

std::unique_ptr<WindowRenderer> MakeRendererDX(HWND window) {
  Owned<ID2D1Factory> factory = MakeFactory();
  Owned<IDWriteFactory> texts = MakeTexts();
  if (factory == nullptr || texts == nullptr) return nullptr;
  auto renderer = std::make_unique<RendererDX>(window, std::move(factory), std::move(texts));
  if (renderer->IsLost()) return nullptr;
  return renderer;
}

RendererDX::RendererDX(HWND window, Owned<ID2D1Factory> factory, Owned<IDWriteFactory> texts)
    : window_(window),
      factory_(std::move(factory)),
      texts_(std::move(texts)),
      family_(FamilyOf(texts_.Get())) {
  const D2D1_STROKE_STYLE_PROPERTIES joins = D2D1::StrokeStyleProperties(
      D2D1_CAP_STYLE_FLAT, D2D1_CAP_STYLE_FLAT, D2D1_CAP_STYLE_FLAT, D2D1_LINE_JOIN_ROUND);
  factory_->CreateStrokeStyle(joins, nullptr, 0, roundJoins_.GetAddressOf());
  isLost_ = !MakeTarget();
}

bool RendererDX::MakeTarget() {
  dots_.clear();
  brush_.Reset();
  target_.Reset();
  const auto format = D2D1::PixelFormat(DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_IGNORE);
  const float dpi = UsualDpi * grid_.Scale();
  const auto properties = D2D1::RenderTargetProperties(D2D1_RENDER_TARGET_TYPE_DEFAULT, format, dpi, dpi);
  if (FAILED(factory_->CreateDCRenderTarget(&properties, target_.GetAddressOf()))) return false;
  target_->SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE_GRAYSCALE);
  return SUCCEEDED(target_->CreateSolidColorBrush(D2D1_COLOR_F{}, brush_.GetAddressOf()));
}

void RendererDX::Resize(int width, int height, float scale) {
  grid_ = PixelGrid(scale);
  dots_.clear();
  picture_ = Canvas();  // first of all, so that the new one may have its memory
  if (width > 0 && height > 0) picture_ = Canvas(width, height);
  const float dpi = UsualDpi * scale;
  if (!isLost_) target_->SetDpi(dpi, dpi);
}

void RendererDX::Lose() {
  isLost_ = wasLost_ || !MakeTarget();
  wasLost_ = true;
}

bool RendererDX::TryDraw(const ChartScene& scene) {
  const PixelArea whole = picture_.Whole();
  const RECT bounds{whole.left, whole.top, whole.right, whole.bottom};
  if (FAILED(target_->BindDC(picture_.Context(), &bounds))) return false;
  OpenTarget open(target_.Get());
  DrawScene(scene, [this](const auto& shape) { Paint(shape); });
  if (!open.Close()) return false;
  const HDC context = GetDC(window_);
  picture_.CopyTo(context);
  ReleaseDC(window_, context);
  return true;
}

void RendererDX::Draw(const ChartScene& scene) {
  while (!isLost_ && !picture_.IsEmpty() && !TryDraw(scene)) Lose();
}

void RendererDX::Paint(const Box& box) {
  Fill(grid_.AreaOf(box.area), box.fill);
}

void RendererDX::Paint(const Area& area) {
  if (const auto geometry = Geometry(area.points, true)) {
    target_->FillGeometry(geometry.Get(), Brush(area.fill));
  }
}

void RendererDX::Paint(const Line& line) {
  const std::vector<PixelArea> areas = grid_.AreasOfStraight(line);
  for (const PixelArea& area : areas) {
    line.isDotted ? FillDots(area, line.colour) : Fill(area, line.colour);
  }
  if (!areas.empty()) return;
  if (const auto geometry = Geometry(line.points, false)) {
    target_->DrawGeometry(geometry.Get(), Brush(line.colour), line.width, roundJoins_.Get());
  }
}

void RendererDX::Paint(const Mark& mark) {
  const float half = mark.lineWidth / 2;
  if (mark.isSquare) {
    const PixelArea outer = grid_.AreaOfSquare(mark.centre, mark.radius + half);
    Fill(outer, mark.line);
    Fill(Inset(outer, grid_.Pixels(mark.lineWidth)), mark.fill);
  } else {
    FillCircle(grid_.Rounded(mark.centre), mark.radius + half, mark.line);
    FillCircle(grid_.Rounded(mark.centre), mark.radius - half, mark.fill);
  }
}

void RendererDX::Paint(const Label& label) {
  IDWriteTextFormat* const format = Format(label.size, label.isBold);
  if (format == nullptr) return;
  const std::wstring text = LineOfText(label);
  Owned<IDWriteTextLayout> layout;
  DWRITE_TEXT_METRICS metrics{};
  DWRITE_LINE_METRICS line{};
  UINT32 lineCount = 0;
  if (FAILED(texts_->CreateTextLayout(text.data(), static_cast<UINT32>(text.size()), format, 0, 0,
                                      layout.GetAddressOf())) ||
      FAILED(layout->GetMetrics(&metrics)) || FAILED(layout->GetLineMetrics(&line, 1, &lineCount))) {
    return;
  }
  const D2D1_POINT_2F corner{grid_.Rounded(LeftOf(label, metrics.widthIncludingTrailingWhitespace)),
                             grid_.Rounded(label.at.y) - line.baseline};
  target_->DrawTextLayout(corner, layout.Get(), Brush(label.colour));
}

void RendererDX::Fill(const PixelArea& area, Colour colour) {
  target_->FillRectangle(InScene(area), Brush(colour));
}

void RendererDX::FillDots(const PixelArea& area, Colour colour) {
  ID2D1BitmapBrush* const dots = Dots(colour);
  if (dots == nullptr) return;
  const D2D1_RECT_F bounds = InScene(area);
  dots->SetTransform(D2D1::Matrix3x2F::Translation(bounds.left, bounds.top));
  target_->FillRectangle(bounds, dots);
}

void RendererDX::FillCircle(Point centre, float radius, Colour colour) {
  target_->FillEllipse(D2D1_ELLIPSE{{centre.x, centre.y}, radius, radius}, Brush(colour));
}

ID2D1Brush* RendererDX::Brush(Colour colour) {
  brush_->SetColor(ColorOf(colour));
  return brush_.Get();
}

ID2D1BitmapBrush* RendererDX::Dots(Colour colour) {
  Owned<ID2D1BitmapBrush>& brush = dots_[colour];
  if (brush != nullptr) return brush.Get();
  const auto length = static_cast<UINT32>(grid_.DotLength());
  const UINT32 width = length + static_cast<UINT32>(grid_.DotGap());
  std::vector<UINT32> pixels(width);
  std::fill_n(pixels.begin(), length, Premultiplied(colour));
  const float dpi = UsualDpi * grid_.Scale();
  const D2D1_BITMAP_PROPERTIES properties{
      {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED}, dpi, dpi};
  const auto repeated = D2D1::BitmapBrushProperties(D2D1_EXTEND_MODE_WRAP, D2D1_EXTEND_MODE_WRAP,
                                                    D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR);
  Owned<ID2D1Bitmap> bitmap;
  if (SUCCEEDED(
          target_->CreateBitmap({width, 1}, pixels.data(), 4 * width, properties, bitmap.GetAddressOf()))) {
    target_->CreateBitmapBrush(bitmap.Get(), repeated, brush.GetAddressOf());
  }
  return brush.Get();
}

IDWriteTextFormat* RendererDX::Format(float size, bool isBold) {
  Owned<IDWriteTextFormat>& format = formats_[{size, isBold}];
  if (format == nullptr) {
    const auto weight = isBold ? DWRITE_FONT_WEIGHT_BOLD : DWRITE_FONT_WEIGHT_NORMAL;
    texts_->CreateTextFormat(family_, nullptr, weight, DWRITE_FONT_STYLE_NORMAL, DWRITE_FONT_STRETCH_NORMAL,
                             size, L"", format.GetAddressOf());
    if (format != nullptr) format->SetWordWrapping(DWRITE_WORD_WRAPPING_NO_WRAP);
  }
  return format.Get();
}

/// Null when there is nothing to draw.
RendererDX::Owned<ID2D1PathGeometry> RendererDX::Geometry(const std::vector<Point>& points, bool isFilled) {
  const std::vector<Point> corners = grid_.CornersOf(points);
  Owned<ID2D1PathGeometry> geometry;
  Owned<ID2D1GeometrySink> sink;
  if (corners.size() < 2 || FAILED(factory_->CreatePathGeometry(geometry.GetAddressOf())) ||
      FAILED(geometry->Open(sink.GetAddressOf()))) {
    return nullptr;
  }
  const auto at = [this](Point pixel) {
    return D2D1_POINT_2F{pixel.x / grid_.Scale(), pixel.y / grid_.Scale()};
  };
  sink->BeginFigure(at(corners[0]), isFilled ? D2D1_FIGURE_BEGIN_FILLED : D2D1_FIGURE_BEGIN_HOLLOW);
  for (std::size_t i = 1; i < corners.size(); ++i) sink->AddLine(at(corners[i]));
  sink->EndFigure(isFilled ? D2D1_FIGURE_END_CLOSED : D2D1_FIGURE_END_OPEN);
  if (FAILED(sink->Close())) return nullptr;
  return geometry;
}

D2D1_RECT_F RendererDX::InScene(const PixelArea& area) const {
  const Rectangle bounds = grid_.InScene(area);
  return {bounds.left, bounds.top, bounds.Right(), bounds.Bottom()};
}

}  // namespace UX
