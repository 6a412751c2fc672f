// SPDX-License-Identifier: MIT
#include "chart/RendererSVG.h"

#include <cmath>

#include "QorLib/Format.h"
#include "QorLib/qor_win_str_utils.h"

namespace UX {
namespace {

/// A length with up to two decimals, the same on every machine.
std::string Number(float value) {
  const long long hundredths = std::llround(static_cast<double>(value) * 100);
  std::string text = hundredths < 0 ? "-" : "";
  text += std::to_string(std::abs(hundredths) / 100);
  const std::string decimals = qor::ZeroFilled(std::abs(hundredths) % 100, 2);
  if (decimals != "00") text += "." + decimals.substr(0, decimals[1] == '0' ? 1 : 2);
  return text;
}

/// An attribute for a colour, with its opacity where it is not solid.
std::string Paint(const char* attribute, Colour colour) {
  constexpr char Digits[] = "0123456789ABCDEF";
  std::string hex;
  for (int shift = 20; shift >= 0; shift -= 4) hex += Digits[colour >> shift & 0xF];
  std::string text = qor::Format(" {1}=\"#{2}\"", {attribute, hex});
  const unsigned alpha = colour >> 24;
  if (alpha < 0xFF) {
    text += qor::Format(" {1}-opacity=\"{2}\"", {attribute, Number(static_cast<float>(alpha) / 255)});
  }
  return text;
}

std::string PointList(const std::vector<Point>& points) {
  std::string list;
  for (const Point& point : points) {
    list += qor::Format(list.empty() ? "{1},{2}" : " {1},{2}", {Number(point.x), Number(point.y)});
  }
  return list;
}

/// The text as XML may hold it: names come from files.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : qor::win::WellFormedUtf8(text)) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      default: escaped += qor::IsControl(c) ? ' ' : c;
    }
  }
  return escaped;
}

std::string Rect(const Rectangle& area) {
  return qor::Format("<rect x=\"{1}\" y=\"{2}\" width=\"{3}\" height=\"{4}\"",
                     {Number(area.left), Number(area.top), Number(area.width), Number(area.height)});
}

std::string Element(const Box& box) {
  return Rect(box.area) + Paint("fill", box.fill) + "/>";
}

std::string Element(const Area& area) {
  return qor::Format("<polygon points=\"{1}\"{2}/>", {PointList(area.points), Paint("fill", area.fill)});
}

std::string Element(const Line& line) {
  return qor::Format("<polyline points=\"{1}\" fill=\"none\"{2} stroke-width=\"{3}\"{4}/>",
                     {PointList(line.points), Paint("stroke", line.colour), Number(line.width),
                      line.isDotted ? " stroke-dasharray=\"2 4\"" : " stroke-linejoin=\"round\""});
}

std::string Element(const Mark& mark) {
  const std::string paint =
      qor::Format("{1}{2} stroke-width=\"{3}\"/>",
                  {Paint("fill", mark.fill), Paint("stroke", mark.line), Number(mark.lineWidth)});
  const float radius = mark.radius;
  if (mark.isSquare) {
    return Rect({mark.centre.x - radius, mark.centre.y - radius, 2 * radius, 2 * radius}) + paint;
  }
  return qor::Format("<circle cx=\"{1}\" cy=\"{2}\" r=\"{3}\"",
                     {Number(mark.centre.x), Number(mark.centre.y), Number(radius)}) +
         paint;
}

std::string Element(const Label& label) {
  constexpr const char* Anchors[] = {"start", "middle", "end"};
  return qor::Format(
      "<text x=\"{1}\" y=\"{2}\" font-size=\"{3}\" text-anchor=\"{4}\"{5}{6}>{7}</text>",
      {Number(label.at.x), Number(label.at.y), Number(label.size),
       Anchors[static_cast<std::size_t>(label.anchor)], label.isBold ? " font-weight=\"bold\"" : "",
       Paint("fill", label.colour), Escaped(label.text)});
}

void Append(std::string& picture, const std::vector<Shape>& shapes) {
  for (const Shape& shape : shapes) {
    picture += std::visit([](const auto& one) { return Element(one); }, shape);
    picture += '\n';
  }
}

}  // namespace

void RendererSVG::Draw(const ChartScene& scene) {
  picture_ = qor::Format(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{1}\" height=\"{2}\" viewBox=\"0 0 {1} {2}\" "
      "font-family=\"Segoe UI, Noto Sans, Liberation Sans, sans-serif\">\n",
      {Number(scene.width), Number(scene.height)});
  Append(picture_, scene.back);
  for (const std::vector<Shape>& lane : scene.lanes) Append(picture_, lane);
  Append(picture_, scene.front);
  picture_ += "</svg>\n";
}

}  // namespace UX
