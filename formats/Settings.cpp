// SPDX-License-Identifier: MIT
#include "formats/Settings.h"

#include "QorLib/qor_win_str_utils.h"
#include "platform/Files.h"

namespace TCBase {
namespace {

constexpr const char* FileName = "TC420Config.xml";
constexpr const char* BrokenEnding = ".broken";
constexpr std::size_t MaxTextBytes = std::size_t{1} << 15;  // as long as a path can be
constexpr std::size_t MaxBytes = std::size_t{1} << 20;      // what is larger is no settings file

/// The text as a file can hold it: UTF-8 without zero bytes, and no longer than a setting can be.
std::string AsXmlText(std::string_view text) {
  std::string written = qor::win::WellFormedUtf8(text.substr(0, MaxTextBytes));
  std::erase(written, '\0');
  return written;
}

/// The document's bytes, which read back as it is.
std::string Written(qor::xml::document& settings) {
  const qor::xml::element root = settings.Root();
  for (qor::xml::element child = root.FirstChild(); child; child = child.NextSibling()) {
    if (child.Text().starts_with('<')) child.SetAnyText(child.Text());
  }
  return settings.Write();
}

}  // namespace

Settings::Settings(const std::string& folder, qor::Log& log)
    : folder_(folder.empty() ? "." : folder), path_(platform::PathIn(folder_, FileName)), log_(log) {
  ReadFile();
}

void Settings::ReadFile() {
  std::string bytes;
  readFault_ = platform::ReadWholeFile(path_, MaxBytes, bytes);
  if (readFault_.kind == platform::ErrorKind::NotFound) readFault_ = {};
  if (readFault_ || bytes.empty()) return;
  qor::xml::document file;
  isFileBroken_ = bytes.size() > MaxBytes || file.Parse(std::move(bytes)).has_value();
  if (!isFileBroken_) JoinFile(file);
}

/// Adds what has been set in this run to the file's settings.
void Settings::JoinFile(qor::xml::document& file) {
  qor::xml::element root = file.Root();
  const qor::xml::element own = document_.Root();
  for (qor::xml::element child = own.FirstChild(); child; child = child.NextSibling()) {
    if (child.Text().empty()) continue;
    const std::string_view id = child.Attribute("id");
    qor::xml::element setting = id.empty() ? root.FindChild(child.Name()) : root.FindChild(child.Name(), id);
    if (!setting) {
      setting = root.CreateChild(child.Name());
      if (!id.empty()) setting.SetAttribute("id", id);
    }
    setting.SetText(child.Text());
  }
  document_.Parse(Written(file));
}

std::string Settings::Get(std::string_view key) {
  const std::lock_guard lock(mutex_);
  qor::xml::element root = document_.Root();
  qor::xml::element setting = root.FindChild(key);
  if (!setting) setting = root.CreateChild(key);
  return std::string(setting.Text());
}

std::string Settings::Get(std::string_view key, std::string_view id, std::string_view defaultText) {
  const std::lock_guard lock(mutex_);
  const qor::xml::element setting = document_.Root().FindChild(key, AsXmlText(id));
  return std::string(setting ? setting.Text() : defaultText);
}

void Settings::Set(std::string_view key, std::string_view text) {
  const std::lock_guard lock(mutex_);
  qor::xml::element root = document_.Root();
  const qor::xml::element setting = root.FindChild(key);
  Change(setting ? setting : root.CreateChild(key), AsXmlText(text));
}

void Settings::Set(std::string_view key, std::string_view id, std::string_view text) {
  const std::lock_guard lock(mutex_);
  const std::string writtenId = AsXmlText(id);
  qor::xml::element root = document_.Root();
  qor::xml::element setting = root.FindChild(key, writtenId);
  if (!setting) {
    setting = root.CreateChild(key);
    setting.SetAttribute("id", writtenId);
  }
  Change(setting, AsXmlText(text));
}

void Settings::Change(qor::xml::element setting, const std::string& value) {
  if (setting.Text() == value) return;
  setting.SetText(value);
  if (readFault_) ReadFile();
  const std::string bytes = Written(document_);
  const platform::SystemError failed = WriteFile(bytes);
  if (failed && !hasReported_) {
    log_.Message(TR("Error creating file {1}, error: {2}"), {path_, failed.text});
    hasReported_ = true;
  }
  document_.Parse(bytes);  // a tree keeps the texts that were replaced; so they go
}

platform::SystemError Settings::WriteFile(const std::string& bytes) {
  if (readFault_) return readFault_;
  if (platform::SystemError failed = platform::CreateFolders(folder_)) return failed;
  if (isFileBroken_) {
    platform::SystemError failed = platform::RenameFile(path_, path_ + BrokenEnding);
    if (failed && failed.kind != platform::ErrorKind::NotFound) return failed;
    isFileBroken_ = false;
  }
  return platform::ReplaceWholeFile(path_, bytes);
}

}  // namespace TCBase
