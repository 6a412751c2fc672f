// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "QorLib/Sentence.h"

namespace TCBase {

/// What came of importing another program's file.
struct ImportResult {
  bool isImported = false;
  qor::Sentence message;  // why not, or what was left out; empty when all went well
  std::string detail;     // more about the message, in English; may be empty
};

}  // namespace TCBase
