// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace qor::xml {

/// Receives a document's events in document order. The views live for the call only, unless they point into
/// the text that is being read.
class observer {
 public:
  virtual ~observer() = default;
  virtual void StartElement(std::string_view name) = 0;
  /// Follows the StartElement it belongs to, before any other event. The value is decoded.
  virtual void Attribute(std::string_view name, std::string_view value) = 0;
  /// A stretch of text between two pieces of markup, decoded, white space included.
  virtual void Text(std::string_view text) = 0;
  virtual void EndElement() = 0;
};

}  // namespace qor::xml
