// SPDX-License-Identifier: MIT
#include "formats/StringTable.h"

#include <algorithm>
#include <map>

#include "QorLib/Format.h"

namespace TCBase {
namespace {

using qor::xml::element;

constexpr std::string_view UntranslatedMark = "translate";

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

/// What a translation does wrong with the placeholders of the English text; empty when it is right or when
/// there is no translation.
std::string PlaceholderFault(std::string_view english, std::string_view translation) {
  if (translation.empty()) return {};
  const std::map<std::size_t, int> expected = PlaceholdersOf(english);
  const std::map<std::size_t, int> found = PlaceholdersOf(translation);
  for (const auto& [number, count] : expected) {
    if (!found.contains(number)) return qor::Format("the text lacks the placeholder {{1}}", {number});
    if (found.at(number) != count) {
      return qor::Format("the placeholder {{1}} must stand in the text as often as in the English one",
                         {number});
    }
  }
  for (const auto& [number, count] : found) {
    if (!expected.contains(number)) {
      return qor::Format("there is no placeholder {{1}} in the English text", {number});
    }
  }
  return {};
}

template <typename Visitor>
void ForEachChild(const element& parent, Visitor visit) {
  if (!parent) return;
  for (element child = parent.FirstChild(); child; child = child.NextSibling()) visit(child);
}

}  // namespace

/// Collects what is wrong with a file.
class StringTable::Faults {
 public:
  explicit Faults(const qor::xml::document& file) : file_(file) {}

  void Add(const element& where, const std::string& reason) {
    if (!AreMany()) texts_.push_back(qor::xml::error{file_.PlaceOf(where), reason}.Text());
  }
  bool AreNone() const { return texts_.empty(); }
  bool AreMany() const { return texts_.size() == Most; }
  std::vector<std::string> Take() { return std::move(texts_); }

 private:
  static constexpr std::size_t Most = 20;

  const qor::xml::document& file_;
  std::vector<std::string> texts_;
};

const StringTable::Entry* StringTable::EntryList::Find(std::string_view id) const {
  const auto found = index.find(id);
  return found != index.end() ? &list[found->second] : nullptr;
}

StringTable::Entry* StringTable::EntryList::Add(std::string_view id, std::size_t languageCount) {
  if (!index.try_emplace(id, list.size()).second) return nullptr;
  return &list.emplace_back(Entry{id, std::vector<std::string_view>(languageCount)});
}

StringTable::StringTable(std::string_view xml) {
  if (document_.Parse(std::string(xml))) return;
  if (const element languages = document_.Root().FindChild("languages")) ReadLanguages(languages);
  const element strings = document_.Root().FindChild("strings");
  if (!strings) return;
  const std::size_t count = strings.ChildCount();
  entries_.list.reserve(count);
  entries_.index.reserve(count);
  for (element child = strings.FirstChild(); child; child = child.NextSibling()) {
    if (child.Name() != "string") continue;
    if (Entry* entry = entries_.Add(child.Attribute("id"), languages_.size())) ReadEntry(child, *entry);
  }
}

void StringTable::ReadLanguages(const element& list) {
  for (element child = list.FirstChild(); child; child = child.NextSibling()) {
    if (child.Name() != "language") continue;
    languages_.push_back({std::string(child.Attribute("id")), std::string(child.Attribute("name")),
                          std::string(child.Attribute("author"))});
  }
}

void StringTable::ReadEntry(const element& source, Entry& entry) const {
  std::size_t expected = 0;  // languages nearly always stand in the order of their list
  for (element child = source.FirstChild(); child; child = child.NextSibling(), ++expected) {
    const std::string_view name = child.Name();
    const bool isExpected = expected < languages_.size() && languages_[expected].id == name;
    const std::optional<std::size_t> language = isExpected ? expected : LanguageIndex(name);
    if (language && entry.texts[*language].empty()) entry.texts[*language] = child.Text();
  }
}

std::optional<std::size_t> StringTable::LanguageIndex(std::string_view id) const {
  const auto found = std::ranges::find(languages_, id, &Language::id);
  if (found == languages_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - languages_.begin());
}

const StringTable::Entry* StringTable::Find(std::string_view english) const {
  return entries_.Find(english);
}

// Merging

std::vector<std::string> StringTable::Merge(std::string xml) {
  qor::xml::document file;
  if (const auto failed = file.Parse(std::move(xml))) return {failed->Text()};
  Faults faults(file);
  const element root = file.Root();
  const element strings = root.FindChild("strings");
  const element languages = root.FindChild("languages");
  if (root.Name() != "localisation" || !strings) {
    faults.Add(root, "<localisation> with <strings> was expected here, as an exported file has them");
    return faults.Take();
  }
  ForEachChild(languages, [&](const element& child) { CheckLanguage(child, faults); });
  ForEachChild(strings, [&](const element& child) { CheckEntry(child, faults); });
  if (!faults.AreNone()) return faults.Take();

  ForEachChild(languages, [this](const element& child) { MergeLanguage(child); });
  ForEachChild(strings, [this](const element& child) { MergeEntry(child); });
  return {};
}

void StringTable::CheckLanguage(const element& source, Faults& faults) const {
  const std::string_view id = source.Attribute("id");
  if (!LanguageIndex(id)) faults.Add(source, qor::Format("the program has no language '{1}'", {id}));
}

void StringTable::CheckEntry(const element& source, Faults& faults) const {
  if (faults.AreMany()) return;
  const std::string_view id = source.Attribute("id");
  if (source.Name() != "string" || id.empty()) {
    faults.Add(source, "<string id='…'> with an English text was expected here");
    return;
  }
  ForEachChild(source, [&](const element& text) {
    if (text.Name() == UntranslatedMark) return;
    if (!LanguageIndex(text.Name())) {
      faults.Add(text, qor::Format("the program has no language '{1}'", {text.Name()}));
    } else if (const std::string fault = PlaceholderFault(id, text.Text()); !fault.empty()) {
      faults.Add(text, fault);
    }
  });
}

void StringTable::MergeLanguage(const element& source) {
  Language& language = languages_[*LanguageIndex(source.Attribute("id"))];
  if (!source.Attribute("name").empty()) language.name = source.Attribute("name");
  if (!source.Attribute("author").empty()) language.author = source.Attribute("author");
}

StringTable::Entry& StringTable::EntryToMerge(std::string_view id) {
  for (const std::string& written : {std::string(id), WithCrLf(id)}) {
    if (const auto found = entries_.index.find(written); found != entries_.index.end()) {
      return entries_.list[found->second];
    }
  }
  const auto known = notFound_.index.find(id);
  return known != notFound_.index.end() ? notFound_.list[known->second]
                                        : *notFound_.Add(Keep(id), languages_.size());
}

void StringTable::MergeEntry(const element& source) {
  Entry& entry = EntryToMerge(source.Attribute("id"));
  ForEachChild(source, [&](const element& text) {
    const std::optional<std::size_t> language = LanguageIndex(text.Name());
    if (language && !text.Text().empty()) entry.texts[*language] = Keep(WithCrLf(text.Text()));
  });
}

// Writing

std::string StringTable::Write(std::optional<std::size_t> language,
                               std::span<const std::string_view> missing) const {
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
  for (const std::string_view text : missing) {
    WriteEntry({text, std::vector<std::string_view>(languages_.size())}, language, strings);
  }
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
