// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "QorLib/Format.h"
#include "QorLib/Translate.h"

namespace qor {

/// A text for the user that nobody has translated yet: the English text, which is the key of its
/// translations, and what its placeholders stand for.
struct Sentence {
  English english = Nothing;
  std::vector<FormatArgument> arguments = {};
  /// Each stands behind the text and a colon: "not saved: the disk is full".
  std::vector<Sentence> reasons = {};

  Sentence() = default;
  Sentence(English text, std::vector<FormatArgument> forPlaceholders = {}, std::vector<Sentence> why = {})
      : english(text), arguments(std::move(forPlaceholders)), reasons(std::move(why)) {}

  /// Whether there is anything to say.
  explicit operator bool() const { return english != Nothing; }
  std::string In(const Translate& translate) const {
    std::string text = Format(english == AsItIs ? InEnglish(english) : translate(english), arguments);
    for (const Sentence& reason : reasons) text += ": " + reason.In(translate);
    return text;
  }

  static constexpr English Nothing{""}, AsItIs{"{1}"};  // the second of Verbatim; they have no translations
};

/// Words that are not the program's own, such as the system's, which are shown as they are.
inline Sentence Verbatim(std::string text) {
  if (text.empty()) return {};
  return {Sentence::AsItIs, {std::move(text)}};
}

/// A sentence about what has a name: "reef.xml: it is empty".
inline Sentence About(std::string name, Sentence sentence) {
  return {Sentence::AsItIs, {std::move(name)}, {std::move(sentence)}};
}

}  // namespace qor
