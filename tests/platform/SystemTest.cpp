// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/Clock.h"
#include "platform/Computer.h"
#include "platform/DeviceLock.h"
#include "platform/Files.h"
#include "platform/Folders.h"
#include "platform/WindowMessage.h"
#include "tests/support/TempFolder.h"

namespace {

void SetVariable(const char* name, const char* value) {
#ifdef _WIN32
  _putenv_s(name, value);
#else
  setenv(name, value, 1);
#endif
}

}  // namespace

TEST(SystemClock, SleepsAndTellsTheDate) {
  platform::Clock& clock = platform::SystemClock();
  const std::int64_t before = clock.Counter();
  clock.Sleep(5);
  EXPECT_GE((clock.Counter() - before) * 1000, 4 * clock.Frequency());
  const platform::SYSTEMTIME now = clock.LocalTime();
  EXPECT_GE(now.wYear, 2024);
  EXPECT_TRUE(now.wMonth >= 1 && now.wMonth <= 12);
  EXPECT_TRUE(now.wDay >= 1 && now.wDay <= 31 && now.wDayOfWeek <= 6);
  EXPECT_TRUE(now.wHour < 24 && now.wMinute < 60 && now.wSecond <= 60 && now.wMilliseconds < 1000);
}

TEST(DeviceLocks, AreOnesAtATime) {
  platform::DeviceLocks& locks = platform::SystemDeviceLocks();
  auto lock = locks.TryTake("test-of-locks");
  ASSERT_TRUE(lock);
  EXPECT_FALSE(locks.TryTake("test-of-locks"));
  EXPECT_TRUE(locks.TryTake("test-of-locks-2"));
  lock.reset();
  EXPECT_TRUE(locks.TryTake("test-of-locks"));
}

TEST(Computer, IsLookedAt) {
  EXPECT_GT(platform::LookAtComputer("71-halvex.rules", {}).system.size(), 4U);
  const test::TempFolder folder;
  EXPECT_TRUE(platform::IsThere(folder.File(".")));
  EXPECT_FALSE(platform::IsThere(folder.File("none")));
  EXPECT_TRUE(platform::IsSameFile(platform::NearestFolder(folder.File("no/such")), folder.File(".")));
  EXPECT_EQ(platform::NearestFolder("none"), ".");
  EXPECT_TRUE(platform::MayWriteInto(folder.File(".")));
  EXPECT_FALSE(platform::MayWriteInto(folder.File("none")));
}

TEST(SettingsFolder, IsTheUsersUnlessAnotherIsNamed) {
  SetVariable("HALVEX_HOME", "");
#ifdef _WIN32
  EXPECT_NE(platform::SettingsFolder().find("\\Documents"), std::string::npos);
#else
  SetVariable("HOME", "/home/reef");
  SetVariable("XDG_CONFIG_HOME", "/etc/reef");
  EXPECT_EQ(platform::SettingsFolder(), "/etc/reef/halvex");
  SetVariable("XDG_CONFIG_HOME", "not/absolute");
  EXPECT_EQ(platform::SettingsFolder(), "/home/reef/.config/halvex");
#endif
  SetVariable("HALVEX_HOME", "/portable");
  EXPECT_EQ(platform::SettingsFolder(), "/portable");
}

TEST(WindowMessage, GoesToTheHandlerWithoutAWindow) {
  platform::WindowMessage got;
  platform::SetWindowMessageHandler([&got](const platform::WindowMessage& posted) { got = posted; });
  platform::PostWindowMessage(nullptr, 0x401, 7, -1);
  platform::SetWindowMessageHandler(nullptr);
  platform::PostWindowMessage(nullptr, 0x402, 0, 0);
  EXPECT_EQ(got.message, 0x401u);
  EXPECT_EQ(got.wParam, 7u);
  EXPECT_EQ(got.lParam, -1);
}
