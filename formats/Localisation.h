// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "QorLib/Log.h"
#include "formats/StringTable.h"

namespace TCBase {

class Settings;

inline constexpr std::string_view EnglishId = "en";

/// What came of a translator's file.
struct TranslationTest {
  bool isLoaded = false;
  qor::Sentence message;
  qor::Sentence caption;              // of a message box, when it was not loaded
  std::vector<std::string> faults;    // why not, line by line; stands in the message as well
  std::vector<std::string> notFound;  // texts that the table lacks, of this file and those before it
};

/// What came of writing the table for translators.
struct ExportResult {
  bool isExported = false;
  qor::Sentence message;
  std::string reason;  // why not, in the system's words
};

/// The user's language: each English text leads to its translation. Safe to use from several threads; a
/// program makes one for its whole run.
class Localisation {
 public:
  /// With the tables that are built into the program, as one; all texts stay English when there is none.
  Localisation();
  /// With a table as StringTable::Write gives it; the bytes must outlive this object.
  explicit Localisation(std::string_view table) : table_(table) {}

  /// The languages beside English, in the order of the table.
  std::vector<StringTable::Language> Languages();

  /// The text in the current language; the English text where there is no translation. A text that the table
  /// lacks altogether is remembered. What is returned holds as long as this object and `english`.
  std::string_view Translate(std::string_view english);
  /// Translate as a function; valid as long as this object.
  qor::Translate Translator();
  /// The texts that were asked for and that the table lacks, in the order of their first time.
  std::vector<std::string> MissingTexts();

  /// "en" or the id of a language of the table.
  std::string CurrentLanguage();
  /// Makes a language current; an empty or unknown id is English. Returns what to report: one text, and a
  /// second one where the translator is known.
  std::vector<qor::Sentence> SetLanguage(std::string_view id);

  /// Writes the table for translators into the current language, safely.
  ExportResult Export(const std::string& path);

  /// Merges a translator's file into the table. A file that cannot be read, or with faults, changes nothing.
  TranslationTest Test(const std::string& path);

 private:
  std::mutex mutex_;  // guards the members below
  StringTable table_;
  std::optional<std::size_t> current_;  // none is English
};

/// Makes a language current as the user's choice: it is kept in the settings, and the log says so.
void ChooseLanguage(std::string_view id, Localisation& texts, Settings& settings, qor::Log& log);

}  // namespace TCBase
