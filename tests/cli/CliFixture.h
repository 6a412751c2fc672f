// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <map>
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
  Cli() { clock.waiting = std::this_thread::get_id(); }

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
                                 [this](const std::vector<std::string>&) { return computer; },
                                 folder.File("home"),
                                 [] {},
                                 [this] {
                                   ++interruptQuestions;
                                   return isInterrupted.load();
                                 },
                                 terminal,
                                 edit,
                                 [this](const char* name) { return variables[name]; }};
    const int status = cli::Run(arguments, environment);
    out = outStream.str();
    err = errStream.str();
    return status;
  }

  /// The same with the words of a line; ./ is the test's folder.
  int Halvex(const std::string& line) {
    std::vector<std::string> words;
    std::istringstream stream(line);
    for (std::string word; stream >> word;)
      words.push_back(word.starts_with("./") ? folder.File(word.substr(2)) : word);
    return Run(words);
  }

  std::string NewProgram() {
    EXPECT_EQ(Halvex("new ./a.xml"), cli::Done) << err;
    return folder.File("a.xml");
  }
  std::string Contents(const std::string& name) const { return test::Contents(folder.File(name)); }
  void Write(const std::string& name, const std::string& bytes) { test::Write(folder.File(name), bytes); }

  test::FakeHid hid;
  test::VirtualClock clock;
  test::FakeNetwork network{clock};
  test::FakeLocks locks;
  platform::Computer computer;
  cli::Terminal terminal;
  test::TempFolder folder;
  std::atomic<bool> isInterrupted = false;
  std::atomic<int> interruptQuestions = 0;
  std::function<bool(const std::string&)> edit = [](const std::string&) { return false; };
  std::map<std::string, std::string> variables;
  std::string in, out, err;
};

inline std::size_t LineCount(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

inline std::size_t LongestLine(const std::string& text) {
  std::istringstream lines(text);
  std::size_t longest = 0;
  for (std::string line; std::getline(lines, line);) longest = std::max(longest, line.size());
  return longest;
}

}  // namespace test
