// SPDX-License-Identifier: MIT
#include "ui/win32/renderers/Masks.h"

#include <cmath>

namespace UX {
namespace {

constexpr std::size_t MostTexts = 500;  // a chart shows some forty
constexpr int Margin = 2;               // for what reaches over a text's box

std::unique_ptr<Gdiplus::FontFamily> MakeFamily() {
  std::unique_ptr<Gdiplus::FontFamily> family;
  const auto isThere = [&family](const wchar_t* name) {
    family = std::make_unique<Gdiplus::FontFamily>(name);
    return family->IsAvailable() != FALSE;
  };
  if (ChooseFontFamily(isThere) == nullptr) {
    family.reset(Gdiplus::FontFamily::GenericSansSerif()->Clone());
  }
  return family;
}

int RoundedUp(float length) {
  return static_cast<int>(std::ceil(length));
}

}  // namespace

Masks::Masks() : measure_(1, 1), family_(MakeFamily()) {}

const Masks::Text& Masks::TextOf(const std::wstring& text, float size, bool isBold) {
  if (texts_.size() > MostTexts) texts_.clear();
  const auto [place, isNew] = texts_.try_emplace({text, size, isBold});
  if (isNew) place->second = Draw(text, FaceOf(size, isBold));
  return place->second;
}

const Mask& Masks::CircleOf(float radius) {
  const auto [place, isNew] = circles_.try_emplace(radius);
  if (isNew) {
    const int half = RoundedUp(radius) + 1;
    Canvas canvas(2 * half, 2 * half);
    if (canvas.IsEmpty()) return place->second;
    const Gdiplus::SolidBrush white(Gdiplus::Color(0xFFFFFFFF));
    const float corner = static_cast<float>(half) - radius;
    canvas.Smooth().FillEllipse(&white, corner, corner, 2 * radius, 2 * radius);
    place->second = canvas.AsMask();
    place->second.left = place->second.top = -half;
  }
  return place->second;
}

const Masks::Face& Masks::FaceOf(float size, bool isBold) {
  Face& face = faces_[{size, isBold}];
  if (face.font == nullptr) {
    const int style = isBold ? Gdiplus::FontStyleBold : Gdiplus::FontStyleRegular;
    face.font = std::make_unique<Gdiplus::Font>(family_.get(), size, style, Gdiplus::UnitPixel);
    face.ascent = size * family_->GetCellAscent(style) / static_cast<float>(family_->GetEmHeight(style));
  }
  return face;
}

Masks::Text Masks::Draw(const std::wstring& text, const Face& face) {
  if (measure_.IsEmpty()) return {};
  Gdiplus::StringFormat format(Gdiplus::StringFormat::GenericTypographic());
  format.SetFormatFlags(format.GetFormatFlags() | Gdiplus::StringFormatFlagsMeasureTrailingSpaces);
  const int length = static_cast<int>(text.size());
  Gdiplus::RectF box;
  measure_.Smooth().MeasureString(text.data(), length, face.font.get(), Gdiplus::PointF(), &format, &box);
  Canvas canvas(RoundedUp(box.Width) + 2 * Margin, RoundedUp(box.Height) + 2 * Margin);
  if (canvas.IsEmpty()) return {};
  const Gdiplus::SolidBrush white(Gdiplus::Color(0xFFFFFFFF));
  canvas.Smooth().DrawString(text.data(), length, face.font.get(), Gdiplus::PointF(Margin, Margin), &format, &white);
  Text result{canvas.AsMask(), box.Width};
  result.mask.left = -Margin;
  result.mask.top = -Margin - static_cast<int>(std::lround(face.ascent));
  return result;
}

}  // namespace UX
