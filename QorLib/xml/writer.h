// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "QorLib/xml/document.h"

namespace qor::xml {

/// Appends `text` with the five characters that XML reserves written as entities.
void AppendEscaped(std::string_view text, std::string& xml);

/// Writes a tree as text (see document::Write).
class writer {
 public:
  explicit writer(const document& source) : source_(source) {}

  std::string Text();

 private:
  std::size_t ExpectedLength() const;
  void WriteElement(std::uint32_t index, std::size_t level);
  std::string_view WriteAttributes(const document::node& node);
  void WriteChildren(const document::node& node, std::size_t level);

  const document& source_;
  std::string xml_;
};

}  // namespace qor::xml
