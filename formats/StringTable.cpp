// SPDX-License-Identifier: MIT
#include "formats/StringTable.h"

#include <algorithm>
#include <map>
#include <utility>

#include "QorLib/Format.h"

namespace TCBase {
namespace {

using qor::xml::element;

constexpr std::string_view UntranslatedMark = "translate";
constexpr qor::English UnknownLanguage = TR("the program has no language '{1}'");
constexpr qor::English Misplaced = TR("a translation belongs into an element of its language, such as <de>");

/// How often each placeholder stands in a text.
std::map<std::size_t, int> PlaceholdersOf(std::string_view text) {
  std::map<std::size_t, int> placeholders;
  std::size_t from = 0;
  while (const auto found = qor::FindPlaceholder(text, from)) {
    ++placeholders[found->number];
    from = found->start + found->length;
  }
  return placeholders;
}

std::string WithCrLf(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n' && !result.ends_with('\r')) result += '\r';
    result += c;
  }
  return result;
}

/// The text with a blank for each line break.
std::string WithBlanks(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c != '\r') result += c == '\n' ? ' ' : c;
  }
  return result;
}

/// What a translation does wrong with the placeholders of the English text; nothing when it is right or when
/// there is no translation.
qor::Sentence PlaceholderFault(std::string_view english, std::string_view translation) {
  if (translation.empty()) return {};
  const std::map<std::size_t, int> expected = PlaceholdersOf(english);
  const std::map<std::size_t, int> found = PlaceholdersOf(translation);
  for (const auto& [number, count] : expected) {
    if (!found.contains(number)) return {TR("the text lacks the placeholder {{1}}"), {number}};
    if (found.at(number) != count) {
      return {TR("the placeholder {{1}} must stand in the text as often as in the English one"), {number}};
    }
  }
  for (const auto& [number, count] : found) {
    if (!expected.contains(number))
      return {TR("there is no placeholder {{1}} in the English text"), {number}};
  }
  return {};
}

template <typename Visitor>
void ForEachChild(const element& parent, Visitor visit) {
  if (!parent) return;
  for (element child = parent.FirstChild(); child; child = child.NextSibling()) visit(child);
}

}  // namespace

/// Collects what there is to say of a file.
class StringTable::Remarks {
 public:
  explicit Remarks(const qor::xml::document& file) : file_(file) {}

  /// On something that was left out.
  void AddFault(const element& where, qor::Sentence fault) {
    result.isWhole = false;
    Add(where, std::move(fault));
  }
  void Add(const element& where, qor::Sentence remark) {
    if (result.remarks.size() < Most) {
      result.remarks.push_back(At(where, std::move(remark)));
    } else {
      ++moreCount_;
    }
  }
  qor::Sentence At(const element& where, qor::Sentence remark) const {
    return qor::xml::error{file_.PositionOf(where), std::move(remark)}.Told();
  }
  MergeResult Take() {
    if (moreCount_ > 0) result.remarks.push_back({TR("{1} more like these"), {moreCount_}});
    return std::move(result);
  }

  MergeResult result;

 private:
  static constexpr std::size_t Most = 20;

  const qor::xml::document& file_;
  std::size_t moreCount_ = 0;
};

std::optional<std::size_t> StringTable::EntryList::Find(std::string_view id) const {
  const auto found = index.find(id);
  if (found == index.end()) return std::nullopt;
  return found->second;
}

StringTable::Entry& StringTable::EntryList::Add(std::string_view id, std::size_t languages) {
  index.emplace(id, list.size());
  return list.emplace_back(Entry{id, std::vector<std::string_view>(languages)});
}

StringTable::StringTable(std::string_view xml) {
  Add(xml);
}

void StringTable::Add(std::string_view xml) {
  qor::xml::document file;
  if (file.Parse(std::string(xml))) return;
  ForEachChild(file.Root().FindChild("languages"), [this](const element& language) {
    const auto text = [&language](std::string_view name) { return std::string(language.Attribute(name)); };
    if (!LanguageIndex(text("id"))) languages_.push_back({text("id"), text("name"), text("author")});
  });
  ForEachChild(file.Root().FindChild("strings"), [this](const element& source) {
    Entry& entry = entries_.Add(Keep(source.Attribute("id")), languages_.size());
    ForEachChild(source, [&](const element& text) { MergeText(text, entry); });
    // Other XML programs make blanks of the line breaks in attributes.
    if (entry.id.find('\n') != std::string_view::npos) {
      entries_.index.emplace(Keep(WithBlanks(entry.id)), entries_.list.size() - 1);
    }
  });
}

std::string_view StringTable::Text(std::size_t entry, std::size_t language) const {
  return entries_.list[entry].texts[language];
}

std::string_view StringTable::Translate(std::string_view english, std::optional<std::size_t> language) {
  if (english.empty()) return english;
  EntryList* list = &entries_;
  std::optional<std::size_t> known = entries_.Find(english);
  if (!known) {
    list = &missing_;
    known = missing_.Find(english);
    if (!known) missing_.Add(Keep(english), languages_.size());
  }
  if (!known || !language) return english;
  const std::string_view text = list->list[*known].texts[*language];
  return text.empty() ? english : text;
}

std::optional<std::size_t> StringTable::LanguageIndex(std::string_view id) const {
  const auto found = std::ranges::find(languages_, id, &Language::id);
  if (found == languages_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - languages_.begin());
}

// Merging

StringTable::MergeResult StringTable::Merge(std::string xml) {
  qor::xml::document file;
  if (const auto failed = file.Parse(std::move(xml))) return {failed->Told(), false, {}, false};
  Remarks remarks(file);
  const element root = file.Root();
  const element strings = root.FindChild("strings");
  if (root.Name() != "localisation" || !strings) {
    return {
        remarks.At(root, TR("<localisation> with <strings> was expected here, as an exported file has them")),
        true,
        {},
        false};
  }
  ForEachChild(root.FindChild("languages"), [&](const element& child) { MergeLanguage(child, remarks); });
  for (const element& list : {strings, root.FindChild("not_found")}) {
    ForEachChild(list, [&](const element& child) { MergeEntry(child, remarks); });
  }
  return remarks.Take();
}

void StringTable::MergeLanguage(const element& source, Remarks& remarks) {
  const std::string_view id = source.Attribute("id");
  const std::optional<std::size_t> index = LanguageIndex(id);
  if (!index) return remarks.AddFault(source, {UnknownLanguage, {id}});
  Language& language = languages_[*index];
  if (!source.Attribute("name").empty()) language.name = source.Attribute("name");
  if (!source.Attribute("author").empty()) language.author = source.Attribute("author");
}

void StringTable::MergeEntry(const element& source, Remarks& remarks) {
  const std::string_view id = source.Attribute("id");
  if (source.Name() != "string" || id.empty()) {
    return remarks.AddFault(source, TR("<string id='…'> with an English text was expected here"));
  }
  Entry& entry = EntryToMerge(id);
  if (notFound_.Find(entry.id)) remarks.Add(source, {TR("the program has no text '{1}'"), {id}});
  if (!source.Text().empty()) remarks.AddFault(source, Misplaced);
  ForEachChild(source, [&](const element& text) {
    if (qor::Sentence fault = FaultOf(text, entry.id)) {
      remarks.AddFault(text, std::move(fault));
    } else {
      MergeText(text, entry);
    }
  });
}

/// Why a text of a translator's file is left out.
qor::Sentence StringTable::FaultOf(const element& text, std::string_view english) const {
  if (text.Name() == UntranslatedMark) return text.Text().empty() ? qor::Sentence() : Misplaced;
  if (!LanguageIndex(text.Name())) return {UnknownLanguage, {text.Name()}};
  return PlaceholderFault(english, text.Text());
}

StringTable::Entry& StringTable::EntryToMerge(std::string_view id) {
  for (EntryList* list : {&entries_, &missing_, &notFound_}) {
    for (const std::string& spelt : {std::string(id), WithCrLf(id)}) {
      if (const auto known = list->Find(spelt)) return list->list[*known];
    }
  }
  return notFound_.Add(Keep(id), languages_.size());
}

void StringTable::MergeText(const element& text, Entry& entry) {
  const std::optional<std::size_t> language = LanguageIndex(text.Name());
  if (language && !text.Text().empty()) entry.texts[*language] = Keep(WithCrLf(text.Text()));
}

// Writing

std::string StringTable::Write(std::optional<std::size_t> language) const {
  qor::xml::document written("localisation");
  element languages = written.Root().CreateChild("languages");
  for (const Language& one : languages_) {
    element child = languages.CreateChild("language");
    child.SetAttribute("id", one.id);
    child.SetAttribute("name", one.name);
    if (!one.author.empty()) child.SetAttribute("author", one.author);
  }
  element strings = written.Root().CreateChild("strings");
  for (const Entry& entry : entries_.list) WriteEntry(entry, language, strings);
  for (const Entry& entry : missing_.list) WriteEntry(entry, language, strings);
  if (!notFound_.list.empty()) {
    element apart = written.Root().CreateChild("not_found");
    for (const Entry& entry : notFound_.list) WriteEntry(entry, language, apart);
  }
  return written.Write();
}

void StringTable::WriteEntry(const Entry& entry, std::optional<std::size_t> language, element list) const {
  const auto isWanted = [&](std::size_t i) { return !language || *language == i; };
  element written = list.CreateChild("string");
  written.SetAttribute("id", entry.id);
  bool isMarked = false;
  for (std::size_t i = 0; i < languages_.size(); ++i) {
    if (!isMarked && isWanted(i) && entry.texts[i].empty()) {
      written.CreateChild(UntranslatedMark);
      isMarked = true;
    }
  }
  for (std::size_t i = 0; i < languages_.size(); ++i) {
    const std::string_view text = entry.texts[i];
    if (text.empty() && !isWanted(i)) continue;
    element child = written.CreateChild(languages_[i].id);
    if (!text.empty()) child.SetAnyText(text);
  }
}

}  // namespace TCBase
