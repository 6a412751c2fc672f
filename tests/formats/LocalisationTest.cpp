// SPDX-License-Identifier: MIT
#include "formats/Localisation.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/Resources.h"
#include "tests/support/TempFolder.h"

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

std::vector<std::string> TextsOf(const std::vector<qor::Sentence>& sentences) {
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
  /// What is said against the bytes.
  std::vector<std::string> FaultsOf(const std::string& bytes) {
    const TranslationTest result = TestBytes(bytes);
    EXPECT_TRUE(result.isLoaded && !result.isWhole);
    EXPECT_EQ(result.caption.In(qor::InEnglish), "Invalid Translation File");
    return TextsOf(result.remarks);
  }
  /// Why nothing was taken of the bytes.
  std::string RefusalOf(const std::string& bytes) {
    const TranslationTest result = TestBytes(bytes);
    EXPECT_FALSE(result.isLoaded || result.isWhole);
    EXPECT_TRUE(Exported().starts_with(SmallTable.substr(0, SmallTable.find("  </strings>"))));
    return result.message.In(qor::InEnglish);
  }
  std::string Exported() {
    EXPECT_TRUE(!texts.Export(folder.File("e.xml")));
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
  EXPECT_EQ(TextsOf(texts.SetLanguage("de")), (std::vector<std::string>{"Language set to Deutsch"}));
  EXPECT_EQ(texts.Translate("Mode {1}"), "Modus {1}");
  EXPECT_EQ(texts.Translate("a<b\r\nc'"), "a<b\r\nc'");
  EXPECT_EQ(TextsOf(texts.SetLanguage("sk")),
            (std::vector<std::string>{"Language set to Slovak", "translated by A. B.!"}));
  EXPECT_EQ(texts.Translator()(TR("a<b\r\nc'")), "d");
  EXPECT_EQ(texts.CurrentLanguage(), "sk");
  EXPECT_EQ(TextsOf(texts.SetLanguage("xx")), (std::vector<std::string>{"Language set to English"}));
  EXPECT_EQ(texts.CurrentLanguage(), "en");
}

TEST_F(LocalisationTest, RemembersMissingTextsOnce) {
  for (const char* text : {"new", "Mode {1}", "mode {1}", "new"}) EXPECT_EQ(texts.Translate(text), text);
  EXPECT_TRUE(TestBytes(File("<string id='mode {1}'><de>modus {1}</de></string>")).isLoaded);
  texts.SetLanguage("de");
  EXPECT_EQ(texts.Translate("mode {1}"), "modus {1}") << "translated once a translator has seen to it";
  texts.SetLanguage("sk");
  const std::string table = Exported();
  const std::size_t found =
      table.find("<string id='new'>\r\n      <translate/>\r\n      <sk/>\r\n    </string>");
  EXPECT_NE(found, std::string::npos);
  EXPECT_EQ(table.find("<string id='new'>", found + 1), std::string::npos);
}

TEST_F(LocalisationTest, ExportsForTheCurrentLanguage) {
  texts.SetLanguage("de");
  EXPECT_EQ(Exported(), SmallTable);
  texts.SetLanguage("sk");
  const std::string table = Exported();
  EXPECT_NE(table.find("<translate/>\r\n      <de>Modus {1}</de>\r\n      <sk/>"), std::string::npos);
  EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 17);

  const std::string nowhere = folder.File("no/folder.xml");
  EXPECT_TRUE(texts.Export(nowhere)
                  .In(qor::InEnglish)
                  .starts_with("Error exporting localization file " + nowhere + "!: "));
}

TEST_F(LocalisationTest, MergesATranslatorsFile) {
  const std::string_view before = texts.Translate("a<b\r\nc'");
  const TranslationTest result = TestBytes(
      "<localisation><languages><language id='de' author='C. D.'/></languages><strings>"
      "<string id='Mode {1}'><translate/><sk>{1}. mod</sk><de/></string>"
      "<string id=\"a&lt;b\nc'\"><de>e\nf</de></string>"
      "<string id='unknown'><de>g</de></string></strings></localisation>");
  EXPECT_TRUE(result.isLoaded);
  EXPECT_EQ(result.remarks.size(), 1u) << "the unknown one";
  EXPECT_EQ(result.message.In(qor::InEnglish),
            "Translation file " + folder.File("t.xml") + " loaded successfully!");
  EXPECT_EQ(TextsOf(texts.SetLanguage("de")).back(), "translated by C. D.!");
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

TEST_F(LocalisationTest, NamesFaultsByLineAndTakesTheRest) {
  texts.SetLanguage("de");
  using Lines = std::vector<std::string>;
  EXPECT_EQ(
      FaultsOf(
          "<localisation><languages><language id='xx'/></languages><strings>\n"
          "<string id='Mode {1}'>\n<de>Modus</de>\n<es>{1}</es><sk>{1}{1}</sk></string>\n"
          "<string id='a&lt;b c&apos;'><de>good</de></string>\n"
          "<text/><string id=''/><string id='Mode {1}'>y<translate>z</translate><de>{2} {1}</de></string>\n"
          "</strings><not_found><string id='old'><de>alt</de></string></not_found></localisation>"),
      (Lines{"line 1, column 26: the program has no language 'xx'",
             "line 3, column 1: the text lacks the placeholder {1}",
             "line 4, column 1: the program has no language 'es'",
             "line 4, column 13: the placeholder {1} must stand in the text as often as in the English one",
             "line 6, column 1: <string id='…'> with an English text was expected here",
             "line 6, column 8: <string id='…'> with an English text was expected here",
             "line 6, column 23: a translation belongs into an element of its language, such as <de>",
             "line 6, column 46: a translation belongs into an element of its language, such as <de>",
             "line 6, column 70: there is no placeholder {2} in the English text",
             "line 7, column 22: the program has no text 'old'"}));
  EXPECT_EQ(texts.Translate("Mode {1}"), "Modus {1}");
  EXPECT_EQ(texts.Translate("a<b\r\nc'"), "good");
  std::string many;
  for (int i = 0; i < 25; ++i) many += "<string/>";
  EXPECT_EQ(FaultsOf(File(many)).back(), "5 more like these");
}

TEST_F(LocalisationTest, BlamesTheXmlOnlyForItself) {
  texts.SetLanguage("de");
  EXPECT_EQ(RefusalOf(File("<string id='Mode {1}'><de>x &uml; {1}</de></string>")).substr(0, 91),
            "Error loading the XML translation file!\r\nline 3, column 29: the entity '&uml;' is not known");
  EXPECT_EQ(RefusalOf("<modelist/>"),
            folder.File("t.xml") +
                " is no file of translations: line 1, column 1: <localisation> with <strings> was "
                "expected here, as an exported file has them");
  EXPECT_EQ(texts.Test(folder.File("missing.xml")).message.english, TR("{1} could not be read"));
}

TEST_F(LocalisationTest, TakesBackWhatItExports) {
  for (const char* text : {"", "new", "Mode {1}"}) texts.Translate(text);
  EXPECT_EQ(Exported().find("<string id=''"), std::string::npos) << "an empty text is none";
  EXPECT_EQ(TextsOf(TestBytes(File("<string id='unknown'><de>g</de></string>")).remarks),
            std::vector<std::string>{"line 3, column 1: the program has no text 'unknown'"});
  const TranslationTest again = TestBytes(Exported());
  EXPECT_TRUE(again.isWhole);
  EXPECT_EQ(again.remarks.size(), 1u) << "what was not found before is spoken of";
}

// The built-in table

TEST(BuiltInTable, HoldsAllTextsInAllLanguages) {
  Localisation texts;
  using Language = StringTable::Language;
  const std::vector<Language> languages = {{"de", "Deutsch", ""}, {"sk", "Slovak", ""}, {"it", "Italian", ""},
                                           {"cz", "Czech", ""},   {"fr", "French", ""}, {"pl", "Polish", ""}};
  EXPECT_EQ(texts.Languages(), languages);
  for (const std::string_view table : platform::StringTableResources()) {
    EXPECT_TRUE(StringTable(table).Write({}) == table)
        << "a text lacks a translation, or a file is not as the program writes it";
  }
  texts.SetLanguage("de");
  EXPECT_EQ(texts.Translate("Normal"), "Tagesablauf");
}

TEST(BuiltInTable, KeepsTheShapeOfTheTexts) {
  const auto [system, own] = platform::StringTableResources();
  StringTable table(system);
  ASSERT_NE(table.Size(), 0u);
  ASSERT_NE(StringTable(own).Size(), 0u);
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
      EXPECT_FALSE(text.starts_with(' ') || text.ends_with(' ')) << text;
      EXPECT_EQ(text.find('&') != text.npos, english.find('&') != english.npos) << text;
    }
  }
}
