// SPDX-License-Identifier: MIT
#include "platform/Files.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace fs = std::filesystem;

using platform::ReadWholeFile;
using platform::ReplaceWholeFile;

TEST(Files, ReplacesAndReadsUnderAnyName) {
  const test::TempFolder folder;
  const std::string path = folder.File("Licht \xC3\xA4\xE4\xB8\xAD.xml");
  const std::string bytes("a\0b\r\n\xFF", 6);
  for (const std::string& content : {bytes, std::string("shorter"), std::string()}) {
    ASSERT_FALSE(ReplaceWholeFile(path, content));
    std::string read = "before";
    EXPECT_FALSE(ReadWholeFile(path, 100, read));
    EXPECT_EQ(read, content);
  }
  EXPECT_EQ(folder.FileNames().size(), 1u) << "a temporary file was left";
}

TEST(Files, ReplacesUnderALongPath) {
  const test::TempFolder folder;
  // Longer than Windows' own function for temporary files takes, and short enough to be removed again.
  constexpr std::size_t Length = 248;
  const std::string deep = folder.File(std::string(Length - folder.File("").size(), 'a'));
  ASSERT_FALSE(platform::CreateFolders(deep));
  ASSERT_FALSE(ReplaceWholeFile(platform::PathIn(deep, "a.xml"), "x"));
  std::string read;
  EXPECT_FALSE(ReadWholeFile(platform::PathIn(deep, "a.xml"), 10, read));
  EXPECT_EQ(read, "x");
}

TEST(Files, ReadsOneByteMoreThanTheLimitAtMost) {
  const test::TempFolder folder;
  const std::string path = folder.File("large");
  test::Write(path, std::string(10000, 'x'));
  std::string read;
  EXPECT_FALSE(ReadWholeFile(path, 9999, read));
  EXPECT_EQ(read.size(), 10000u);
  EXPECT_FALSE(ReadWholeFile(path, 5000, read));
  EXPECT_EQ(read.size(), 5001u);
}

TEST(Files, SaysWhyAFileCannotBeReadOrWritten) {
  const test::TempFolder folder;
  std::string read = "before";
  const platform::SystemError missing = ReadWholeFile(folder.File("missing"), 10, read);
  EXPECT_EQ(missing.text, platform::ErrorText(2));
  EXPECT_EQ(read, "");
  EXPECT_TRUE(ReadWholeFile(folder.File(""), 10, read)) << "a folder is no file";
  EXPECT_TRUE(ReplaceWholeFile(folder.File("no/such/folder"), "x"));
  EXPECT_TRUE(ReplaceWholeFile(folder.File(""), "x"));
  EXPECT_TRUE(folder.FileNames().empty());
}

#ifndef _WIN32

TEST(Files, KeepsPermissionsAndLinks) {
  const test::TempFolder folder;
  const std::string path = folder.File("program.xml");
  test::Write(path, "old");
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("program.xml", folder.File("link.xml"));
  ASSERT_FALSE(ReplaceWholeFile(folder.File("link.xml"), "new"));
  EXPECT_TRUE(fs::is_symlink(folder.File("link.xml")));
  fs::create_symlink("link2.xml", folder.File("link1.xml"));
  fs::create_symlink("later.xml", folder.File("link2.xml"));
  ASSERT_FALSE(ReplaceWholeFile(folder.File("link1.xml"), "later"));
  EXPECT_EQ(test::Contents(folder.File("later.xml")), "later");
  EXPECT_TRUE(fs::is_symlink(folder.File("link2.xml")));
  EXPECT_EQ(test::Contents(path), "new");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(Files, WritesToADeviceInsteadOfReplacingIt) {
  EXPECT_FALSE(ReplaceWholeFile("/dev/null", "x"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_EQ(ReplaceWholeFile("/dev/full", "x").kind, platform::ErrorKind::DiskFull);
}

#endif
