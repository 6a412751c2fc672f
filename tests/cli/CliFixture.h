// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <sstream>

#include "cli/ExitStatus.h"
#include "cli/Run.h"
#include "tests/support/FakeHid.h"
#include "tests/support/FakeLocks.h"
#include "tests/support/FakeNetwork.h"
#include "tests/support/TempFolder.h"
#include "tests/support/VirtualClock.h"

namespace test {

/// Runs the program with a fake USB, a virtual clock and settings of its own.
class Cli : public testing::Test {
 protected:
  /// Runs the program; what it wrote is in `out` and `err`.
  int Run(std::vector<std::string> arguments) {
    std::istringstream inStream(in);
    std::ostringstream outStream, errStream;
    cli::Environment environment{inStream,
                                 outStream,
                                 errStream,
                                 clock,
                                 network,
                                 locks,
                                 [this] { return computer; },
                                 folder.File("home"),
                                 [] {},
                                 [this] {
                                   ++interruptQuestions;
                                   return isInterrupted.load();
                                 },
                                 terminal};
    const int status = cli::Run(arguments, environment);
    out = outStream.str();
    err = errStream.str();
    return status;
  }

  std::string NewProgram() {
    const std::string path = folder.File("a.xml");
    EXPECT_EQ(Run({"new", path}), cli::Done) << err;
    return path;
  }

  test::FakeHid hid;
  test::VirtualClock clock;
  test::FakeNetwork network{clock};
  test::FakeLocks locks;
  platform::Computer computer;
  cli::Terminal terminal;
  test::TempFolder folder;
  std::atomic<bool> isInterrupted = false;
  std::atomic<int> interruptQuestions = 0;
  std::string in, out, err;
};

inline std::size_t LineCount(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace test
