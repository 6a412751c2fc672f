// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "QorLib/Log.h"

namespace test {

/// A log at 9:05:07:042 that gives its lines as texts.
class TestLog : public qor::Log {
 public:
  TestLog() : Log([] { return qor::TimeOfDay{9, 5, 7, 42}; }) {}

  /// The lines since the last call.
  std::vector<std::string> Texts() {
    std::vector<std::string> texts;
    for (const Line& line : TakeLines()) texts.push_back(line.text);
    return texts;
  }
};

}  // namespace test
