// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace qor {

/// Gives the user's language for an English text; the English text itself where there is no translation.
using Translate = std::function<std::string(std::string_view english)>;

/// The translation into English: the text as it is.
inline std::string InEnglish(std::string_view english) {
  return std::string(english);
}

}  // namespace qor
