// SPDX-License-Identifier: MIT
#include "QorLib/Log.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/support/TestLog.h"

using Texts = std::vector<std::string>;

TEST(Log, TranslatesThenFormatsMessages) {
  test::TestLog log;
  log.SetTranslation([](std::string_view english) { return "(" + std::string(english) + ")"; });
  log.Message(TR("{1} of {2}"), {"{2}", 3});
  EXPECT_EQ(log.Texts(), Texts{"({2} of 3)"});
}

TEST(Log, KeepsATraceOnlyWhileTracing) {
  test::TestLog log;
  log.Trace("lost");
  log.Trace("lost", "lost");
  log.SetTracing(true);
  int notices = 0;
  log.OnLine([&notices] { ++notices; });
  log.Trace("hid_write:", "A");
  EXPECT_EQ(notices, 1) << "the rows come with their line";
  log.Message(TR("done"));
  const std::string row = "0000  41                                                  A\n";
  const std::vector<qor::Log::Line> lines = log.TakeLines();
  EXPECT_EQ(lines, (std::vector<qor::Log::Line>{{qor::Log::Kind::Trace, "9:05:07:042 hid_write:"},
                                                {qor::Log::Kind::TraceDump, row},
                                                {qor::Log::Kind::Message, "done"}}));
  EXPECT_EQ(qor::TextOf(lines), "9:05:07:042 hid_write:\r\n" + row + "done\r\n");
}

TEST(Log, LosesNoLineOfSeveralThreads) {
  test::TestLog log;
  std::atomic<int> notices = 0;
  log.OnLine([&] { ++notices; });
  const auto write = [&log] {
    for (int i = 0; i < 500; ++i) log.Message(TR("line {1}"), {i});
  };
  std::thread other(write);
  write();
  other.join();
  EXPECT_EQ(log.Texts().size(), 1000u);
  EXPECT_EQ(notices, 1000);
}
