// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace test {

/// A folder of the running test's own, gone when the test ends.
class TempFolder {
 public:
  TempFolder() : path_(std::filesystem::temp_directory_path() / Name()) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  /// The path of a file in the folder, in UTF-8.
  std::string File(const std::string& name) const {
    const std::u8string file = (path_ / std::u8string(name.begin(), name.end())).u8string();
    return {file.begin(), file.end()};
  }

  std::vector<std::string> FileNames() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

 private:
  static std::string Name() {
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    return std::string("halvex-") + info->test_suite_name() + "-" + info->name();
  }

  std::filesystem::path path_;
};

inline std::filesystem::path PathOf(const std::string& utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

inline std::string Contents(const std::string& path) {
  std::ifstream file(PathOf(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void Write(const std::string& path, const std::string& bytes) {
  std::ofstream(PathOf(path), std::ios::binary) << bytes;
}

}  // namespace test
