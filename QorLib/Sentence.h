// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "QorLib/Format.h"
#include "QorLib/Translate.h"

namespace qor {

/// A text for the user that nobody has translated yet: the English text, which is the key of its
/// translations, and what its placeholders stand for.
struct Sentence {
  std::string english;
  std::vector<FormatArgument> arguments;

  /// Whether there is anything to say.
  explicit operator bool() const { return !english.empty(); }
  std::string In(const Translate& translate) const { return Format(translate(english), arguments); }
};

}  // namespace qor
