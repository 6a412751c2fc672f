// SPDX-License-Identifier: MIT
#include <filesystem>
#include <system_error>

#include "platform/Files.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

SystemError ResultOf(const std::error_code& failed) {
  return failed ? ErrorOf(static_cast<std::uint32_t>(failed.value())) : SystemError{};
}

}  // namespace

std::string PathIn(const std::string& folder, const std::string& name) {
  const std::u8string path = (PathOf(folder) / PathOf(name)).u8string();
  return {path.begin(), path.end()};
}

SystemError CreateFolders(const std::string& path) {
  std::error_code failed;
  fs::create_directories(PathOf(path), failed);
  return ResultOf(failed);
}

SystemError RenameFile(const std::string& from, const std::string& to) {
  std::error_code failed;
  fs::rename(PathOf(from), PathOf(to), failed);
  return ResultOf(failed);
}

void RemoveFile(const std::string& path) {
  std::error_code ignored;
  fs::remove(PathOf(path), ignored);
}

bool IsThere(const std::string& path) {
  std::error_code failed;
  return fs::exists(PathOf(path), failed);
}

bool IsFile(const std::string& path) {
  std::error_code failed;
  return fs::is_regular_file(PathOf(path), failed);
}

std::string NearestFolder(const std::string& path) {
  std::error_code failed;
  fs::path folder = PathOf(path);
  while (folder.has_relative_path() && !fs::exists(folder, failed)) folder = folder.parent_path();
  const std::u8string text = folder.empty() ? u8"." : folder.u8string();
  return {text.begin(), text.end()};
}

}  // namespace platform
