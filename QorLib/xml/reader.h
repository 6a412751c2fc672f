// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "QorLib/Sentence.h"
#include "QorLib/xml/observer.h"

namespace qor::xml {

/// A position in a text; both count from 1, columns in characters.
struct position {
  std::size_t line = 1;
  std::size_t column = 1;
};

/// The position of the byte at `offset`.
position PositionAt(std::string_view text, std::size_t offset);

/// Why a text could not be read.
struct error {
  position where;
  Sentence reason;

  /// "line 3, column 14: …"
  Sentence Told() const;
  /// The same in English.
  std::string Text() const { return Told().In(InEnglish); }
};

/// Reads UTF-8 text as XML 1.0 (W3C, fifth edition) and reports it to an observer. Understood are elements,
/// attributes, text, CDATA sections, the five named entities and character references, comments, processing
/// instructions and a DOCTYPE without internal subset; the last three are passed over. White space is kept.
class reader {
 public:
  static constexpr std::size_t MaxBytes = std::size_t{64} << 20;
  static constexpr std::size_t MaxDepth = 256;

  /// Neither is owned.
  reader(std::string_view text, observer& target);

  /// Nothing when the whole text was read. After an error the observer has had the events before it.
  std::optional<error> Read();

 private:
  struct failure;

  void CheckBytes() const;
  void ReadDocument();
  void SkipMisc(bool allowDoctype);
  void SkipDoctype();
  void SkipThrough(std::string_view terminator, English fault);
  void ReadContent();
  void ReadStartTag();
  void ReadAttributes();
  const char* ReadAttribute(const char* at);
  void ReadEndTag();
  void ReadUnusualEndTag();
  void ReadCData();
  void ReadText();
  std::string_view ReadName(const char* at, English fault) const;
  std::string_view Decode(std::string_view raw);
  const char* DecodeReference(const char* ampersand, const char* rawEnd);
  char32_t CharacterReference(std::string_view digits, const char* ampersand) const;
  void CheckAttributeNames();
  void CheckManyAttributeNames();
  [[noreturn]] void RefuseSecond(std::string_view name) const;
  bool StartsWith(std::string_view word) const;
  bool SkipBlanks();
  [[noreturn]] void Fail(const char* where, Sentence reason) const;
  [[noreturn]] void FailAtEnd() const;
  [[noreturn]] void FailForName(const char* where, English fault) const;

  std::string_view text_;
  observer& target_;
  const char* at_;
  const char* end_;
  std::vector<std::string_view> open_;            // names of the open elements, the root first
  std::vector<std::string_view> attributeNames_;  // of the start tag that is being read
  std::string decoded_;
};

}  // namespace qor::xml
