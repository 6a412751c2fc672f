// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "QorLib/xml/document.h"
#include "QorLib/xml/tree_builder.h"

using qor::xml::document;
using qor::xml::element;

TEST(XmlDocument, WritesElementsOnLinesOfTheirOwn) {
  document written("settings");
  element root = written.Root();
  element entry = root.CreateChild("entry");
  entry.SetAttribute("id", "a<b>&\"c\"'");
  entry.SetAttribute("n", "1");
  entry.SetText("x & y");
  element group = root.CreateChild("group");
  group.SetText("mixed");
  group.CreateChild("empty");
  root.CreateChild("raw").SetText("<![CDATA[1 < 2]]>");
  EXPECT_EQ(written.Write(),
            "<settings>\r\n"
            "  <entry id='a&lt;b&gt;&amp;&quot;c&quot;&apos;' n='1'>x &amp; y</entry>\r\n"
            "  <group>\r\n"
            "mixed    <empty/>\r\n"
            "  </group>\r\n"
            "  <raw><![CDATA[1 < 2]]></raw>\r\n"
            "</settings>\r\n");
}

TEST(XmlDocument, DropsTheLayoutOfChildren) {
  document read;
  ASSERT_FALSE(read.Parse("<r>\n <!-- c -->\n <a> </a>\n <!-- c -->\n</r>"));
  EXPECT_EQ(read.Root().Text(), "");
  EXPECT_EQ(read.Root().FirstChild().Text(), " ");
}

TEST(XmlDocument, FindsChildrenAndAttributes) {
  document read;
  ASSERT_FALSE(read.Parse("<r><a id='1'/><b id='1' n='-12x'/><b id='2'>t<i/>u</b></r>"));
  const element root = read.Root();
  EXPECT_EQ(root.ChildCount(), 3u);
  EXPECT_EQ(root.FindChild("b").Attribute("id"), "1");
  EXPECT_EQ(root.FindChild("b", "2").Text(), "tu");
  EXPECT_EQ(root.FindChild("b").IntAttribute("n"), -12);
  EXPECT_EQ(root.FindChild("b").IntAttribute("missing"), 0);
  EXPECT_FALSE(root.FindChild("c"));
  EXPECT_FALSE(root.FindChild("b", "3"));
  EXPECT_FALSE(root.NextSibling());
  EXPECT_FALSE(root.FindChild("b", "2").NextSibling());
}

TEST(XmlDocument, ChangesAParsedTree) {
  document read;
  ASSERT_FALSE(read.Parse("<r a='1'><c>old</c></r>"));
  element root = read.Root();
  root.SetAttribute("a", root.FirstChild().Text());
  root.FirstChild().SetText("");
  root.CreateChild("d").SetAttribute("x", root.Attribute("a"));
  EXPECT_EQ(read.Write(), "<r a='old'>\r\n  <c/>\r\n  <d x='old'/>\r\n</r>\r\n");
}

TEST(XmlDocument, HandsOverTheRootsChildrenOneByOne) {
  document target;
  std::string seen;
  const auto failed =
      qor::xml::ParseByChild("<r>\n <a x='&lt;'><i/></a>\n <b>t</b>\n</r>", target, [&](element child) {
        seen += std::string(child.Name()) + std::string(child.Attribute("x")) + std::string(child.Text()) +
                std::to_string(child.ChildCount()) + std::to_string(target.PositionOf(child).line) + " ";
      });
  EXPECT_FALSE(failed);
  EXPECT_EQ(seen, "a<12 bt03 ");
  EXPECT_EQ(target.Root().ChildCount(), 0u);
}

TEST(XmlDocument, ReadsIntegersAsTheyAreWritten) {
  constexpr int Least = -2147483647 - 1, Most = 2147483647;
  for (const auto& [text, number] : {std::pair{"12", 12},
                                     {"-5", -5},
                                     {"12abc", 12},
                                     {"", 0},
                                     {"-", 0},
                                     {"+5", 0},
                                     {" 5", 0},
                                     {"007", 7},
                                     {"2147483647", Most},
                                     {"99999999999", Most},
                                     {"99999999999999999999999999", Most},
                                     {"-2147483648", Least},
                                     {"-99999999999", Least}}) {
    EXPECT_EQ(qor::ParseInteger(text), number) << text;
  }
}
