// SPDX-License-Identifier: MIT
#include "formats/Localisation.h"

#include "formats/FileBytes.h"
#include "platform/Resources.h"

namespace TCBase {
namespace {

constexpr std::size_t MaxFileBytes = std::size_t{4} << 20;  // of a translator's file

/// For a file of which nothing was loaded.
TranslationTest Refused(qor::Sentence message) {
  return {false, false, TR("Invalid Translation File"), std::move(message), {}};
}

TranslationTest Unread(const std::string& path, qor::Sentence reason) {
  return Refused({TR("{1} could not be read"), {path}, {std::move(reason)}});
}

}  // namespace

Localisation::Localisation() : Localisation(platform::StringTableResources()[0]) {
  table_.Add(platform::StringTableResources()[1]);
}

std::vector<StringTable::Language> Localisation::Languages() {
  const std::lock_guard lock(mutex_);
  return table_.Languages();
}

std::string_view Localisation::Translate(std::string_view english) {
  const std::lock_guard lock(mutex_);
  return table_.Translate(english, current_);
}

qor::Translate Localisation::Translator() {
  return [this](std::string_view english) { return std::string(Translate(english)); };
}

std::string Localisation::CurrentLanguage() {
  const std::lock_guard lock(mutex_);
  return current_ ? table_.Languages()[*current_].id : std::string(EnglishId);
}

std::string Localisation::FindLanguage(std::string_view asked) {
  std::string id(asked.substr(0, asked.find_first_of("_-.@")));
  for (char& c : id) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  if (id == "cs") id = "cz";  // ISO 639 has the language, the table the country
  if (id == EnglishId) return id;
  const std::lock_guard lock(mutex_);
  return table_.LanguageIndex(id) ? id : "";
}

std::vector<qor::Sentence> Localisation::SetLanguage(std::string_view id) {
  const std::lock_guard lock(mutex_);
  current_ = table_.LanguageIndex(id);
  if (!current_) return {TR("Language set to English")};
  const StringTable::Language& language = table_.Languages()[*current_];
  std::vector<qor::Sentence> report = {{TR("Language set to {1}"), {language.name}}};
  if (!language.author.empty()) report.push_back({TR("translated by {1}!"), {language.author}});
  return report;
}

std::string Localisation::ExportText() {
  const std::lock_guard lock(mutex_);
  return table_.Write(current_);
}

qor::Sentence Localisation::Export(const std::string& path) {
  qor::Sentence reason = Attempt([&] { ReplaceFileBytes(path, ExportText()); });
  if (!reason) return {};
  return {TR("Error exporting localization file {1}!"), {path}, {std::move(reason)}};
}

TranslationTest Localisation::Test(const std::string& path) {
  std::string bytes;
  qor::Sentence reason = Attempt([&] { bytes = ReadFileBytes(path, MaxFileBytes); });
  return reason ? Unread(path, std::move(reason)) : TestText(std::move(bytes), path);
}

TranslationTest Localisation::TestText(std::string bytes, const std::string& name) {
  if (bytes.size() > MaxFileBytes) {
    return Unread(name, {TR("the file is larger than {1} MiB"), {MaxFileBytes >> 20}});
  }
  const std::lock_guard lock(mutex_);
  StringTable::MergeResult merged = table_.Merge(std::move(bytes));
  if (!merged.isXml) {
    const auto translate = [this](std::string_view text) {
      return std::string(table_.Translate(text, current_));
    };
    return Refused(
        {TR("Error loading the XML translation file!\r\n{1}\r\n\r\nThis is most probably caused by invalid "
            "XML.\r\n"
            "Please try to open your XML file in your web browser to see the parsing error location."),
         {merged.failure.In(translate)}});
  }
  if (merged.failure)
    return Refused({TR("{1} is no file of translations"), {name}, {std::move(merged.failure)}});
  if (!merged.isWhole) {
    return {true,
            false,
            TR("Invalid Translation File"),
            {TR("Translation file {1} loaded in part, without what is faulty"), {name}},
            std::move(merged.remarks)};
  }
  return {true,
          true,
          TR("Test localization XML"),
          {TR("Translation file {1} loaded successfully!"), {name}},
          std::move(merged.remarks)};
}

}  // namespace TCBase
