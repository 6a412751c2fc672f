// SPDX-License-Identifier: MIT
#include "formats/Settings.h"

#include <filesystem>
#include <fstream>

#include "tests/fuzz/Fuzz.h"

namespace {

/// A folder of this run's own.
struct Folder {
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "halvex-fuzz-XXXXXX").string();
    path = mkdtemp(name.data());
  }
  ~Folder() { std::filesystem::remove_all(path); }

  std::filesystem::path path;
};

}  // namespace

// The input is the file, and what follows its last zero byte is a value.
void Feed(std::string_view input) {
  static const Folder own;
  const std::filesystem::path& folder = own.path;
  const std::size_t end = std::min(input.rfind('\0'), input.size());
  const std::string_view value = input.substr(std::min(end + 1, input.size()));
  std::ofstream(folder / "TC420Config.xml", std::ios::binary) << input.substr(0, end);

  qor::Log log([] { return qor::TimeOfDay{}; });
  TCBase::Settings settings(folder.string(), log);
  settings.Get(TCBase::SettingLogging);
  settings.Set(TCBase::SettingLocale, value);
  settings.Set(TCBase::SettingLastOpenFile, value, value);
  TCBase::Settings reopened(folder.string(), log);
  Expect(reopened.Get(TCBase::SettingLocale) == settings.Get(TCBase::SettingLocale), "values are kept");
  Expect(reopened.Get(TCBase::SettingLastOpenFile, value, "") == settings.Get(TCBase::SettingLocale),
         "values with an id are kept");
  for (const auto& file : std::filesystem::directory_iterator(folder)) std::filesystem::remove(file);
}
