// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "QorLib/Sentence.h"
#include "QorLib/Translate.h"
#include "formats/StringTable.h"

namespace TCBase {

inline constexpr std::string_view EnglishId = "en";

/// What came of a translator's file.
struct TranslationTest {
  bool isLoaded = false;               // and in use; at least in part
  bool isWhole = false;                // all of its texts that the program has
  qor::Sentence caption;               // of a message box about it
  qor::Sentence message;               // what came of it, and why
  std::vector<qor::Sentence> remarks;  // on its lines
};

/// The user's language: each English text leads to its translation. Safe to use from several threads; a
/// program makes one for its whole run.
class Localisation {
 public:
  /// With the tables that are built into the program, as one; all texts stay English when there is none.
  Localisation();
  /// With a table as StringTable::Write gives it.
  explicit Localisation(std::string_view table) : table_(table) {}

  /// The languages beside English, in the order of the table.
  std::vector<StringTable::Language> Languages();

  /// The text in the current language; the English text where there is no translation. A text that the table
  /// lacks altogether is remembered. What is returned holds as long as this object and `english`.
  std::string_view Translate(std::string_view english);
  /// Translate as a function; valid as long as this object.
  qor::Translate Translator();

  /// "en" or the id of a language of the table.
  std::string CurrentLanguage();
  /// The id of the language that is meant by an id, or by a locale such as "de_DE.UTF-8" or "cs"; empty when
  /// there is none.
  std::string FindLanguage(std::string_view asked);
  /// Makes a language current; an empty or unknown id is English. Returns what to report: one text, and a
  /// second one where the translator is known.
  std::vector<qor::Sentence> SetLanguage(std::string_view id);

  /// The table for translators into the current language.
  std::string ExportText();
  /// Writes it into a file, safely. Why that failed, or nothing.
  qor::Sentence Export(const std::string& path);

  /// Merges a translator's file into the table, but for its faults, of which the remarks tell.
  TranslationTest Test(const std::string& path);
  /// The same with the file's bytes; `name` is what messages call it.
  TranslationTest TestText(std::string bytes, const std::string& name);

 private:
  std::mutex mutex_;  // guards the members below
  StringTable table_;
  std::optional<std::size_t> current_;  // none is English
};

}  // namespace TCBase
