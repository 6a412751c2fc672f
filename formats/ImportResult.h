// SPDX-License-Identifier: MIT
#pragma once

#include "QorLib/Sentence.h"

namespace TCBase {

/// What came of importing another program's file.
struct ImportResult {
  bool isImported = false;
  qor::Sentence message;  // why not, or what was left out; empty when all went well
};

}  // namespace TCBase
