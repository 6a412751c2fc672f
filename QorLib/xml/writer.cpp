// SPDX-License-Identifier: MIT
#include "QorLib/xml/writer.h"

#include <algorithm>

namespace qor::xml {
namespace {

constexpr std::size_t IndentWidth = 2;

std::string_view EntityOf(char c) {
  switch (c) {
    case '"': return "&quot;";
    case '&': return "&amp;";
    case '\'': return "&apos;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    default: return {};
  }
}

}  // namespace

void AppendEscaped(std::string_view text, std::string& xml) {
  std::size_t plainStart = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view entity = EntityOf(text[i]);
    if (entity.empty()) continue;
    xml.append(text, plainStart, i - plainStart);
    xml += entity;
    plainStart = i + 1;
  }
  xml.append(text, plainStart);
}

std::string writer::Text() {
  xml_.reserve(ExpectedLength());
  WriteElement(document::RootIndex, 0);
  return std::move(xml_);
}

/// About as long as the text will be: growing would copy it over and over.
std::size_t writer::ExpectedLength() const {
  constexpr std::size_t AroundElement = 16;   // indentation, "<", "/>" and line end
  constexpr std::size_t AroundAttribute = 4;  // blank, "=" and apostrophes
  return source_.source_.size() + source_.added_.size() + source_.nodes_.Size() * AroundElement +
         source_.attributes_.Size() * AroundAttribute;
}

void writer::WriteElement(std::uint32_t index, std::size_t level) {
  const document::node& node = source_.nodes_[index];
  const std::string_view name = source_.View(node.name);
  xml_.append(level * IndentWidth, ' ');
  xml_ += '<';
  xml_ += name;
  const std::string_view text = WriteAttributes(node);
  const bool hasChildren = node.lastChild != 0;
  if (text.empty() && !hasChildren) {
    xml_ += "/>\r\n";
    return;
  }
  xml_ += hasChildren ? ">\r\n" : ">";
  if (text.starts_with("<![CDATA[")) {
    xml_ += text;
  } else {
    AppendEscaped(text, xml_);
  }
  if (hasChildren) {
    WriteChildren(node, level + 1);
    xml_.append(level * IndentWidth, ' ');
  }
  xml_ += "</";
  xml_ += name;
  xml_ += ">\r\n";
}

/// Returns the element's text, which stands among the attributes.
std::string_view writer::WriteAttributes(const document::node& node) {
  std::string_view text;
  if (node.lastAttribute == 0) return text;
  std::uint32_t index = node.lastAttribute;
  do {
    index = source_.attributes_[index].next;
    const document::attribute& attribute = source_.attributes_[index];
    if (attribute.name.length == 0) {
      text = source_.View(attribute.value);
      continue;
    }
    xml_ += ' ';
    xml_ += source_.View(attribute.name);
    xml_ += "='";
    AppendEscaped(source_.View(attribute.value), xml_);
    xml_ += '\'';
  } while (index != node.lastAttribute);
  return text;
}

void writer::WriteChildren(const document::node& node, std::size_t level) {
  std::uint32_t child = node.lastChild;
  do {
    child = source_.nodes_[child].next;
    WriteElement(child, level);
  } while (child != node.lastChild);
}

}  // namespace qor::xml
