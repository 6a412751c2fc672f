// SPDX-License-Identifier: MIT
#include "formats/LogFile.h"

#include <cerrno>
#include <filesystem>

#include "platform/SystemError.h"

namespace TCBase {

LogFile::LogFile(const std::string& path, qor::Log& log) {
  errno = 0;
  const std::filesystem::path file(std::u8string(path.begin(), path.end()));
  file_.open(file, std::ios::app | std::ios::binary);
  if (!file_) {
    log.Message(TR("Error creating file {1}, error: {2}"), {path, platform::RuntimeErrorText(errno)});
  }
}

void LogFile::Write(const std::string& text) {
  if (file_.is_open()) file_ << text << std::flush;
}

}  // namespace TCBase
