// SPDX-License-Identifier: MIT
#include "formats/Settings.h"

#include <gtest/gtest.h>

#include <thread>

#include "platform/Files.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestLog.h"

namespace {

using TCBase::Settings;

class SettingsTest : public testing::Test {
 protected:
  std::string Path() const { return platform::PathIn(folder.File("home"), "TC420Config.xml"); }
  std::string Contents() const { return test::Contents(Path()); }
  void Store(const std::string& bytes) {
    std::filesystem::create_directories(test::PathOf(folder.File("home")));
    test::Write(Path(), bytes);
  }
  /// The value as the next run of the program finds it.
  std::string Reopened(std::string_view key) {
    test::TestLog ignored;
    return Settings(folder.File("home"), ignored).Get(key);
  }

  test::TempFolder folder;
  test::TestLog log;
};

}  // namespace

TEST_F(SettingsTest, KeepsValuesFromRunToRun) {
  Settings settings(folder.File("home"), log);
  EXPECT_EQ(settings.Get(TCBase::SettingLogging), "");
  EXPECT_FALSE(std::filesystem::exists(test::PathOf(Path()))) << "asking writes nothing";
  settings.Set(TCBase::SettingLocale, "de");
  settings.Set(TCBase::SettingLastOpenFile, "C:\\Aquarien & <L\xC3\xB6sung>\\a.xml");
  EXPECT_EQ(
      Contents(),
      "<config>\r\n  <logging/>\r\n  <locale>de</locale>\r\n"
      "  <last_open_file>C:\\Aquarien &amp; &lt;L\xC3\xB6sung&gt;\\a.xml</last_open_file>\r\n</config>\r\n");
  EXPECT_EQ(Reopened(TCBase::SettingLastOpenFile), "C:\\Aquarien & <L\xC3\xB6sung>\\a.xml");
  EXPECT_EQ(log.Texts(), std::vector<std::string>());

  test::Write(Path(), "gone");
  settings.Set(TCBase::SettingLocale, "de");
  EXPECT_EQ(Contents(), "gone") << "a value that stays is not written";
}

TEST_F(SettingsTest, TellsElementsOfOneNameApartById) {
  Settings settings(folder.File("home"), log);
  EXPECT_EQ(settings.Get("place", "main", "none"), "none");
  settings.Set("place", "main", "1");
  settings.Set("place", "log", "2");
  settings.Set("place", "main", "3");
  EXPECT_EQ(settings.Get("place", "main", "none"), "3");
  EXPECT_EQ(Contents(),
            "<config>\r\n  <place id='main'>3</place>\r\n  <place id='log'>2</place>\r\n</config>\r\n");
}

TEST_F(SettingsTest, KeepsWhateverTextItIsGiven) {
  Settings settings(folder.File("home"), log);
  for (const std::string text : {"<![CDATA[", "<![CDATA[a]]>b]]]]>", " \r\n\t ", "<![CDATA[]]>&amp;", ""}) {
    settings.Set("key", text);
    EXPECT_EQ(settings.Get("key"), text);
    EXPECT_EQ(Reopened("key"), text);
    settings.Set("other", "after '" + text + "'");
    EXPECT_EQ(Reopened("key"), text) << "written again";
  }
  settings.Set("key", std::string_view("a\xFF\0b", 4));
  settings.Set("place", "\xFF", "1");
  EXPECT_EQ(settings.Get("place", "\xFF", ""), "1");
  EXPECT_EQ(Reopened("key"),
            "a\xEF\xBF\xBD"
            "b");
}

TEST_F(SettingsTest, PutsABrokenFileAside) {
  Store("<config><locale>de</locale");
  Settings settings(folder.File("home"), log);
  EXPECT_EQ(settings.Get(TCBase::SettingLocale), "");
  EXPECT_EQ(folder.FileNames(), std::vector<std::string>{"home"});
  settings.Set(TCBase::SettingLogging, "on");
  EXPECT_EQ(test::Contents(Path() + ".broken"), "<config><locale>de</locale");
  EXPECT_EQ(Contents(), "<config>\r\n  <locale/>\r\n  <logging>on</logging>\r\n</config>\r\n");
  settings.Set(TCBase::SettingLogging, "off");
  EXPECT_EQ(test::Contents(Path() + ".broken"), "<config><locale>de</locale");
}

TEST_F(SettingsTest, TriesAFileAgainThatCouldNotBeRead) {
  std::filesystem::create_directories(test::PathOf(Path()));  // cannot be read, as a file that is locked
  Settings settings(folder.File("home"), log);
  settings.Set(TCBase::SettingLogging, "on");
  EXPECT_TRUE(std::filesystem::is_directory(test::PathOf(Path()))) << "left alone";
  EXPECT_EQ(log.Texts().size(), 1u);
  std::filesystem::remove(test::PathOf(Path()));
  Store("<config><locale>de</locale><logging>off</logging><place id='main'>1</place></config>");
  settings.Set("place", "main", "2");
  EXPECT_EQ(Contents(),
            "<config>\r\n  <locale>de</locale>\r\n  <logging>on</logging>\r\n  <place id='main'>2</place>\r\n"
            "</config>\r\n");
  EXPECT_FALSE(std::filesystem::exists(test::PathOf(Path() + ".broken")));
}

TEST_F(SettingsTest, ReportsOnceThatNothingCanBeKept) {
  test::Write(folder.File("home"), "a file where the folder should be");
  Settings settings(folder.File("home"), log);
  settings.Set(TCBase::SettingLocale, "fr");
  settings.Set(TCBase::SettingLocale, "it");
  EXPECT_EQ(settings.Get(TCBase::SettingLocale), "it");
  const std::vector<std::string> lines = log.Texts();
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].substr(0, lines[0].find(", error: ")), "Error creating file " + Path());
}

TEST_F(SettingsTest, ServesSeveralThreads) {
  Settings settings(folder.File("home"), log);
  std::thread other([&] {
    for (int i = 0; i < 20; ++i) settings.Set("other", std::to_string(i));
  });
  for (int i = 0; i < 20; ++i) settings.Set("own", settings.Get("own") + "x");
  other.join();
  EXPECT_EQ(Reopened("own"), std::string(20, 'x'));
  EXPECT_EQ(Reopened("other"), "19");
}
