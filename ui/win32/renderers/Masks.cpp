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

Masks::Masks() : family_(MakeFamily()) {
  const Gdiplus::StringFormat& tight = *Gdiplus::StringFormat::GenericTypographic();
  format_ = std::make_unique<Gdiplus::StringFormat>(&tight);
  format_->SetFormatFlags(tight.GetFormatFlags() | Gdiplus::StringFormatFlagsMeasureTrailingSpaces);
}

const Masks::Text& Masks::TextOf(const std::wstring& text, float size, bool isBold) {
  const std::tuple key{text, size, isBold};
  if (const auto found = texts_.find(key); found != texts_.end()) return found->second;
  if (texts_.size() >= MostTexts) texts_.clear();
  return texts_[key] = MakeText(text, FaceOf(size, isBold));
}

const Mask& Masks::CircleOf(float radius) {
  const auto key = static_cast<int>(std::lround(radius * 4));
  if (const auto found = circles_.find(key); found != circles_.end()) return found->second;
  return circles_[key] = MakeCircle(static_cast<float>(key) / 4);
}

const Masks::Face& Masks::FaceOf(float size, bool isBold) {
  Face& face = faces_[{size, isBold}];
  if (face.font == nullptr) {
    const int style = isBold ? Gdiplus::FontStyleBold : Gdiplus::FontStyleRegular;
    face.font = std::make_unique<Gdiplus::Font>(family_.get(), size, style, Gdiplus::UnitPixel);
    face.ascent = size * static_cast<float>(family_->GetCellAscent(style)) /
                  static_cast<float>(family_->GetEmHeight(style));
  }
  return face;
}

/// Makes the canvas black, and as large as that at least; false when there is no memory.
bool Masks::Clear(int width, int height) {
  if (!canvas_.HasRoomFor(width, height)) canvas_ = Canvas(width, height);
  if (canvas_.IsEmpty()) return false;
  canvas_.Fill(canvas_.Whole(), 0xFF000000);
  return true;
}

Masks::Text Masks::MakeText(const std::wstring& text, const Face& face) {
  if (!Clear(1, 1)) return {};
  const int length = static_cast<int>(text.size());
  Gdiplus::RectF box;
  canvas_.Smooth().MeasureString(text.data(), length, face.font.get(), Gdiplus::PointF(), format_.get(),
                                 &box);
  const int width = RoundedUp(box.Width) + 2 * Margin, height = RoundedUp(box.Height) + 2 * Margin;
  if (!Clear(width, height)) return {};
  canvas_.Smooth().DrawString(text.data(), length, face.font.get(), Gdiplus::PointF(Margin, Margin),
                              format_.get(), &white_);
  Text result{canvas_.AsMask(width, height), box.Width};
  result.mask.left = -Margin;
  result.mask.top = -Margin - static_cast<int>(std::lround(face.ascent));
  return result;
}

/// Reduced from a larger one: small circles come out rounder than GDI+ smooths them.
Mask Masks::MakeCircle(float radius) {
  constexpr int Reduction = 4;
  const int half = RoundedUp(radius);
  if (!Clear(2 * half * Reduction, 2 * half * Reduction)) return {};
  const float corner = (static_cast<float>(half) - radius) * Reduction, diameter = 2 * radius * Reduction;
  canvas_.Smooth().FillEllipse(&white_, corner, corner, diameter, diameter);
  Mask mask = canvas_.AsMask(2 * half, 2 * half, Reduction);
  mask.left = mask.top = -half;
  return mask;
}

}  // namespace UX
