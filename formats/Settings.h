// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <string>
#include <string_view>

#include "QorLib/Log.h"
#include "QorLib/xml/document.h"
#include "platform/SystemError.h"

namespace TCBase {

// The settings in use; what their texts mean is a matter of whoever reads them.
inline constexpr std::string_view SettingLastOpenFile = "last_open_file";  // a path
inline constexpr std::string_view SettingLogging = "logging";              // "on", or off
inline constexpr std::string_view SettingLocale = "locale";                // a language's id
inline constexpr std::string_view SettingDemoSpeed = "demo_speed";         // seconds for the whole day

/// The program's few settings, kept in TC420Config.xml: a root element "config" with one child for each
/// setting, whose text is the value. Safe to use from several threads. Each change of a value is written to
/// the disk at once and safely; where that fails, the log says so once, and the settings live on in memory.
class Settings {
 public:
  /// `folder` is in UTF-8 and without a separator at its end; empty for the current folder. It is created
  /// when the first value is written. A file that is missing or broken gives no settings; a broken one is
  /// kept as TC420Config.xml.broken before a new one is written. One that cannot be read is left alone, and
  /// tried again before each write: its values then join those of this run. The log is not owned.
  Settings(const std::string& folder, qor::Log& log);

  /// Where they are kept.
  const std::string& Path() const { return path_; }
  /// Whether there is a file that is no settings file.
  bool IsFileBroken() const { return isFileBroken_; }
  /// Why a file that is there could not be read; no error when it could.
  const platform::SystemError& ReadFault() const { return readFault_; }

  /// The value; empty when it was never set.
  std::string Get(std::string_view key);
  /// The value of the setting of that name and id.
  std::string Get(std::string_view key, std::string_view id, std::string_view defaultText);

  /// Keys are names of XML elements. Values and ids that are no UTF-8 are kept with U+FFFD for their broken
  /// parts, those of more than 32 KiB are cut.
  void Set(std::string_view key, std::string_view text);
  void Set(std::string_view key, std::string_view id, std::string_view text);

 private:
  void ReadFile();
  void JoinFile(qor::xml::document& file);
  void Change(qor::xml::element setting, const std::string& value);
  platform::SystemError WriteFile(const std::string& bytes);

  std::recursive_mutex mutex_;  // guards the members below
  std::string folder_, path_;
  qor::Log& log_;
  qor::xml::document document_{"config"};
  bool isFileBroken_ = false;
  platform::SystemError readFault_;
  bool hasReported_ = false;
};

}  // namespace TCBase
