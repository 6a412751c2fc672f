// SPDX-License-Identifier: MIT
#include "formats/Localisation.h"

#include "QorLib/Exceptions.h"
#include "formats/FileBytes.h"
#include "formats/Settings.h"
#include "platform/Resources.h"

namespace TCBase {
namespace {

constexpr std::size_t MaxFileBytes = std::size_t{4} << 20;  // of a translator's file

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\r\n") + line;
  return text;
}

TranslationTest Refusal(std::vector<std::string> faults) {
  const qor::Sentence message = {
      "Error loading the XML translation file!\r\n{1}\r\n\r\nThis is most probably caused by invalid XML.\r\n"
      "Please try to open your XML file in your web browser to see the parsing error location.",
      {Joined(faults)}};
  return {false, message, {"Invalid Translation File", {}}, std::move(faults), {}};
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

std::vector<std::string> Localisation::MissingTexts() {
  const std::lock_guard lock(mutex_);
  return table_.Missing();
}

std::string Localisation::CurrentLanguage() {
  const std::lock_guard lock(mutex_);
  return current_ ? table_.Languages()[*current_].id : std::string(EnglishId);
}

std::vector<qor::Sentence> Localisation::SetLanguage(std::string_view id) {
  const std::lock_guard lock(mutex_);
  current_ = table_.LanguageIndex(id);
  if (!current_) return {{"Language set to English", {}}};
  const StringTable::Language& language = table_.Languages()[*current_];
  std::vector<qor::Sentence> report = {{"Language set to {1}", {language.name}}};
  if (!language.author.empty()) report.push_back({"translated by {1}!", {language.author}});
  return report;
}

ExportResult Localisation::Export(const std::string& path) {
  try {
    std::string table;
    {
      const std::lock_guard lock(mutex_);
      table = table_.Write(current_);
    }
    ReplaceFileBytes(path, table);
    return {true, {"Localization file {1} exported successfully!", {path}}, {}};
  } catch (const qor::win::xsystem& failed) {
    return {false, {"Error exporting localization file {1}!", {path}}, failed.Description()};
  }
}

TranslationTest Localisation::Test(const std::string& path) {
  try {
    std::string bytes = ReadFileBytes(path, MaxFileBytes);
    if (bytes.size() > MaxFileBytes) return Refusal({"the file is larger than 4 MiB"});
    const std::lock_guard lock(mutex_);
    std::vector<std::string> faults = table_.Merge(std::move(bytes));
    if (!faults.empty()) return Refusal(std::move(faults));
    return {true, {"Translation file {1} loaded successfully!", {path}}, {}, {}, table_.NotFound()};
  } catch (const qor::win::xsystem& failed) {
    return Refusal({failed.Description()});
  }
}

void ChooseLanguage(std::string_view id, Localisation& texts, Settings& settings, qor::Log& log) {
  const std::vector<qor::Sentence> report = texts.SetLanguage(id);
  settings.Set(SettingLocale, texts.CurrentLanguage());
  for (const qor::Sentence& sentence : report) log.Message(sentence);
}

}  // namespace TCBase
