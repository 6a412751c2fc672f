// SPDX-License-Identifier: MIT
#include "formats/Localisation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "formats/Settings.h"
#include "platform/Resources.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestLog.h"

namespace {

using namespace TCBase;

const std::string SmallTable =
    "<localisation>\r\n"
    "  <languages>\r\n"
    "    <language id='de' name='Deutsch'/>\r\n"
    "    <language id='sk' name='Slovak' author='A. B.'/>\r\n"
    "  </languages>\r\n"
    "  <strings>\r\n"
    "    <string id='Mode {1}'>\r\n"
    "      <de>Modus {1}</de>\r\n"
    "    </string>\r\n"
    "    <string id='a&lt;b\r\nc&apos;'>\r\n"
    "      <translate/>\r\n"
    "      <de/>\r\n"
    "      <sk>d</sk>\r\n"
    "    </string>\r\n"
    "  </strings>\r\n"
    "</localisation>\r\n";

std::vector<std::string> Texts(const std::vector<qor::Sentence>& sentences) {
  std::vector<std::string> texts;
  for (const qor::Sentence& sentence : sentences) texts.push_back(sentence.In(qor::InEnglish));
  return texts;
}

/// The small table, and files in a folder.
class LocalisationTest : public testing::Test {
 protected:
  TranslationTest TestBytes(const std::string& bytes) {
    test::Write(folder.File("t.xml"), bytes);
    return texts.Test(folder.File("t.xml"));
  }
  /// What is refused about the bytes; checks that nothing else came of them.
  std::vector<std::string> FaultsOf(const std::string& bytes) {
    const TranslationTest result = TestBytes(bytes);
    EXPECT_FALSE(result.isLoaded);
    EXPECT_EQ(result.caption.In(qor::InEnglish), "Invalid Translation File");
    EXPECT_EQ(Exported(), SmallTable);
    return result.faults;
  }
  std::string Exported() {
    EXPECT_TRUE(texts.Export(folder.File("e.xml")).isExported);
    return test::Contents(folder.File("e.xml"));
  }
  static std::string File(const std::string& strings) {
    return "<localisation>\n<strings>\n" + strings + "</strings></localisation>";
  }

  test::TempFolder folder;
  Localisation texts{SmallTable};
};

}  // namespace

TEST_F(LocalisationTest, TranslatesOrLeavesEnglish) {
  EXPECT_EQ(texts.Translate("Mode {1}"), "Mode {1}");
  EXPECT_EQ(Texts(texts.SetLanguage("de")), (std::vector<std::string>{"Language set to Deutsch"}));
  EXPECT_EQ(texts.Translate("Mode {1}"), "Modus {1}");
  EXPECT_EQ(texts.Translate("a<b\r\nc'"), "a<b\r\nc'");
  EXPECT_EQ(Texts(texts.SetLanguage("sk")),
            (std::vector<std::string>{"Language set to Slovak", "translated by A. B.!"}));
  EXPECT_EQ(texts.Translator()("a<b\r\nc'"), "d");
  EXPECT_EQ(texts.CurrentLanguage(), "sk");
  EXPECT_EQ(Texts(texts.SetLanguage("xx")), (std::vector<std::string>{"Language set to English"}));
  EXPECT_EQ(texts.CurrentLanguage(), "en");
}

TEST_F(LocalisationTest, RemembersMissingTextsOnce) {
  for (const char* text : {"new", "Mode {1}", "mode {1}", "new"}) EXPECT_EQ(texts.Translate(text), text);
  EXPECT_EQ(texts.MissingTexts(), (std::vector<std::string>{"new", "mode {1}"}));
  EXPECT_TRUE(TestBytes(File("<string id='mode {1}'><de>modus {1}</de></string>")).isLoaded);
  texts.SetLanguage("de");
  EXPECT_EQ(texts.Translate("mode {1}"), "modus {1}") << "translated once a translator has seen to it";
  texts.SetLanguage("sk");
  EXPECT_NE(Exported().find("<string id='new'>\r\n      <translate/>\r\n      <sk/>\r\n    </string>"),
            std::string::npos);
}

TEST_F(LocalisationTest, ExportsForTheCurrentLanguage) {
  texts.SetLanguage("de");
  EXPECT_EQ(Exported(), SmallTable);
  texts.SetLanguage("sk");
  const std::string table = Exported();
  EXPECT_NE(table.find("<translate/>\r\n      <de>Modus {1}</de>\r\n      <sk/>"), std::string::npos);
  EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 17);

  const std::string nowhere = folder.File("no/folder.xml");
  const ExportResult failed = texts.Export(nowhere);
  EXPECT_FALSE(failed.isExported);
  EXPECT_EQ(failed.message.In(qor::InEnglish), "Error exporting localization file " + nowhere + "!");
}

TEST_F(LocalisationTest, MergesATranslatorsFile) {
  const std::string_view before = texts.Translate("a<b\r\nc'");
  const TranslationTest result = TestBytes(
      "<localisation><languages><language id='de' author='C. D.'/></languages><strings>"
      "<string id='Mode {1}'><translate/><sk>{1}. mod</sk><de/></string>"
      "<string id=\"a&lt;b\nc'\"><de>e\nf</de></string>"
      "<string id='unknown'><de>g</de></string></strings></localisation>");
  EXPECT_TRUE(result.isLoaded);
  EXPECT_EQ(result.notFound, std::vector<std::string>{"unknown"});
  EXPECT_EQ(result.message.In(qor::InEnglish),
            "Translation file " + folder.File("t.xml") + " loaded successfully!");
  EXPECT_EQ(Texts(texts.SetLanguage("de")).back(), "translated by C. D.!");
  EXPECT_EQ(texts.Translate("Mode {1}"), "Modus {1}") << "an empty text changes nothing";
  EXPECT_EQ(texts.Translate("a<b\r\nc'"), "e\r\nf");
  EXPECT_EQ(texts.Translate("unknown"), "unknown");
  EXPECT_TRUE(TestBytes(File("<string id=\"a&lt;b c'\"><de>blanks</de></string>")).isLoaded);
  EXPECT_EQ(texts.Translate("a<b\r\nc'"), "blanks");
  texts.SetLanguage("sk");
  EXPECT_EQ(texts.Translate("Mode {1}"), "{1}. mod");
  EXPECT_EQ(before, "a<b\r\nc'");
  EXPECT_NE(
      Exported().find("<not_found>\r\n    <string id='unknown'>\r\n      <translate/>\r\n      <de>g</de>"),
      std::string::npos);
}

TEST_F(LocalisationTest, RefusesAFaultyFileByLine) {
  texts.SetLanguage("de");
  using Lines = std::vector<std::string>;
  EXPECT_EQ(FaultsOf(File("<string id='Mode {1}'><de>x &uml; {1}</de></string>")),
            Lines{"line 3, column 29: the entity '&uml;' is not known"});
  EXPECT_EQ(
      FaultsOf("<modelist/>"),
      Lines{
          "line 1, column 1: <localisation> with <strings> was expected here, as an exported file has them"});
  EXPECT_EQ(
      FaultsOf(File("<string id='Mode {1}'>\n<de>Modus</de>\n<es>{1}</es><sk>{1}{1}</sk></string>\n"
                    "<text/><string id='x'><de>{2}</de></string>\n")),
      (Lines{"line 4, column 1: the text lacks the placeholder {1}",
             "line 5, column 1: the program has no language 'es'",
             "line 5, column 13: the placeholder {1} must stand in the text as often as in the English one",
             "line 6, column 1: <string id='…'> with an English text was expected here",
             "line 6, column 23: there is no placeholder {2} in the English text"}));
  EXPECT_EQ(FaultsOf("<localisation><languages><language id='xx'/></languages><strings/></localisation>"),
            Lines{"line 1, column 26: the program has no language 'xx'"});
  EXPECT_EQ(
      FaultsOf(File("<string id='x'>y<translate>z</translate></string>")),
      (Lines{"line 3, column 1: a translation belongs into an element of its language, such as <de>",
             "line 3, column 17: a translation belongs into an element of its language, such as <de>"}));
  EXPECT_EQ(FaultsOf("").size(), 1u);
  EXPECT_EQ(texts.Test(folder.File("missing.xml")).faults.size(), 1u);
}

TEST_F(LocalisationTest, ServesSeveralThreads) {
  std::atomic<bool> isRunning = true;
  std::thread reader([&] {
    while (isRunning) {
      const std::string_view text = texts.Translate("Mode {1}");
      EXPECT_TRUE(text == "Mode {1}" || text == "Modus {1}" || text == "{1}. mod") << text;
    }
  });
  for (int i = 0; i < 50; ++i) {
    texts.SetLanguage(i % 2 == 0 ? "de" : "sk");
    TestBytes(File("<string id='Mode {1}'><sk>{1}. mod</sk></string>"));
  }
  isRunning = false;
  reader.join();
}

TEST_F(LocalisationTest, KeepsTheUsersChoice) {
  test::TestLog log;
  Settings settings(folder.File("home"), log);
  ChooseLanguage("sk", texts, settings, log);
  EXPECT_EQ(log.Texts(), (std::vector<std::string>{"Language set to Slovak", "translated by A. B.!"}));
  EXPECT_EQ(settings.Get(SettingLocale), "sk");
  ChooseLanguage("", texts, settings, log);
  EXPECT_EQ(settings.Get(SettingLocale), "en");
}

// The built-in table

TEST(BuiltInTable, HoldsAllTextsInAllLanguages) {
  Localisation texts;
  using Language = StringTable::Language;
  const std::vector<Language> languages = {{"de", "Deutsch", ""}, {"sk", "Slovak", ""}, {"it", "Italian", ""},
                                           {"cz", "Czech", ""},   {"fr", "French", ""}, {"pl", "Polish", ""}};
  EXPECT_EQ(texts.Languages(), languages);
  const test::TempFolder folder;
  ASSERT_TRUE(texts.Export(folder.File("t.xml")).isExported);
  for (const std::string_view table : platform::StringTableResources()) {
    EXPECT_TRUE(StringTable(table).Write({}) == table)
        << "a text lacks a translation, or a file is not as the program writes it";
  }
  EXPECT_EQ(texts.Test(folder.File("t.xml")).faults, std::vector<std::string>()) << "placeholders";
  texts.SetLanguage("de");
  EXPECT_EQ(texts.Translate("Normal"), "Tagesablauf");
}

TEST(BuiltInTable, KeepsTheShapeOfTheTexts) {
  const auto [system, own] = platform::StringTableResources();
  StringTable table(system);
  table.Add(own);
  const auto lineEnds = [](std::string_view text) { return std::count(text.begin(), text.end(), '\r'); };
  for (std::size_t entry = 0; entry < table.Size(); ++entry) {
    const std::string_view english = table.English(entry);
    EXPECT_EQ(table.Find(english), entry) << english << " stands there twice";
    for (std::size_t language = 0; language < table.Languages().size(); ++language) {
      const std::string_view text = table.Text(entry, language);
      EXPECT_EQ(lineEnds(text), lineEnds(english)) << english << ": " << text;
      EXPECT_EQ(text.ends_with("..."), english.ends_with("...")) << english << ": " << text;
      EXPECT_EQ(text.ends_with('.'), english.ends_with('.')) << english << ": " << text;
      EXPECT_FALSE(text.starts_with(' ') || text.ends_with(' ') || text.find('&') != std::string_view::npos)
          << text;
    }
  }
}
