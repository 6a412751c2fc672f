// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "QorLib/Sentence.h"
#include "QorLib/xml/document.h"

namespace TCBase {

/// The translations of the program's texts. As a file, XML in UTF-8:
///
///     <localisation>
///       <languages>
///         <language id='de' name='Deutsch' author='…'/>
///       </languages>
///       <strings>
///         <string id='English text'>
///           <de>Text</de>
///         </string>
///       </strings>
///     </localisation>
///
/// Views that it gives hold as long as the table, whatever is merged into it.
class StringTable {
 public:
  struct Language {
    std::string id;      // "de"
    std::string name;    // as the language menu shows it
    std::string author;  // the translator's name; may be empty

    bool operator==(const Language&) const = default;
  };

  /// A table as `Write` gives it; without languages and texts when it cannot be read. An empty text is none.
  explicit StringTable(std::string_view xml);
  /// Appends the entries of another one with the same languages, which has none of this one's.
  void Add(std::string_view xml);

  const std::vector<Language>& Languages() const { return languages_; }
  std::optional<std::size_t> LanguageIndex(std::string_view id) const;

  /// The number of entries, and the English text of each.
  std::size_t Size() const { return entries_.list.size(); }
  std::string_view English(std::size_t entry) const { return entries_.list[entry].id; }
  /// The entry of an English text; none when the table lacks it.
  std::optional<std::size_t> Find(std::string_view english) const { return entries_.Find(english); }
  /// The translation; empty when there is none.
  std::string_view Text(std::size_t entry, std::size_t language) const;
  /// The translation into a language, or the English text as it was given: where there is none, or for no
  /// language. A text that the table lacks is remembered: `Write` has it.
  std::string_view Translate(std::string_view english, std::optional<std::size_t> language);

  /// What came of merging a file.
  struct MergeResult {
    qor::Sentence failure;               // why nothing was merged
    bool isXml = true;                   // false: that is why
    std::vector<qor::Sentence> remarks;  // on lines of the file, in their order
    bool isWhole = true;                 // false: there are remarks on texts that were left out
  };
  /// Merges a translator's file: texts that are not empty take the places of those with the same ids. Entries
  /// that the table lacks are kept apart. Line breaks of ids may have lost their CR on the way. Left out is
  /// what belongs to a language that the table lacks, or lacks a placeholder, or has one too many.
  MergeResult Merge(std::string xml);

  /// The table for translators into one language, or (none) into all. An entry that lacks a translation
  /// begins with an empty element "translate" and has an empty one for each missing language. Behind the
  /// table's entries stand the remembered texts, and under "not_found" the entries that were kept apart.
  std::string Write(std::optional<std::size_t> language) const;

 private:
  class Remarks;

  struct Entry {
    std::string_view id;
    std::vector<std::string_view> texts;  // for each language; empty where there is none
  };
  /// Entries in order, found by their ids.
  struct EntryList {
    std::vector<Entry> list;
    std::unordered_map<std::string_view, std::size_t> index;

    std::optional<std::size_t> Find(std::string_view id) const;
    /// For an id that is not there yet.
    Entry& Add(std::string_view id, std::size_t languages);
  };

  void MergeLanguage(const qor::xml::element& source, Remarks& remarks);
  void MergeEntry(const qor::xml::element& source, Remarks& remarks);
  Entry& EntryToMerge(std::string_view id);
  qor::Sentence FaultOf(const qor::xml::element& text, std::string_view english) const;
  void MergeText(const qor::xml::element& text, Entry& entry);
  void WriteEntry(const Entry& entry, std::optional<std::size_t> language, qor::xml::element list) const;
  std::string_view Keep(std::string_view text) { return kept_.emplace_back(text); }

  std::deque<std::string> kept_;  // all ids and texts; a deque never moves them
  std::vector<Language> languages_;
  EntryList entries_;
  EntryList missing_;   // asked for, and not in the table
  EntryList notFound_;  // of translators' files, and neither in the table nor asked for
};

}  // namespace TCBase
