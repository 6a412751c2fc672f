// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>
#include <string>

#include "QorLib/Log.h"

namespace TCBase {

/// Its name, in the folder of the settings.
inline constexpr const char* LogFileName = "TC42xLog.txt";

/// The log's lines in a file, which is only ever added to.
class LogFile {
 public:
  /// Opens the file of a path in UTF-8; the log is told when that fails, and nothing is written then.
  LogFile(const std::string& path, qor::Log& log);
  /// Lines as TextOf gives them.
  void Write(const std::string& text);

 private:
  std::ofstream file_;
};

}  // namespace TCBase
