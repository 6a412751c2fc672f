// SPDX-License-Identifier: MIT
#include "QorLib/xml/reader.h"

#include <gtest/gtest.h>

namespace {

/// Writes the events down: (name attribute=value|text)
class Recorder : public qor::xml::observer {
 public:
  void StartElement(std::string_view name) override { events.append("(").append(name); }
  void Attribute(std::string_view name, std::string_view value) override {
    events.append(" ").append(name).append("=").append(value);
  }
  void Text(std::string_view text) override { events.append("|").append(text); }
  void EndElement() override { events += ")"; }

  std::string events;
};

std::string Events(std::string_view xml) {
  Recorder recorder;
  const auto failed = qor::xml::reader(xml, recorder).Read();
  return failed ? failed->Text() : recorder.events;
}

}  // namespace

TEST(XmlReader, ReportsWhatADocumentHolds) {
  EXPECT_EQ(Events("<a/>"), "(a)");
  EXPECT_EQ(Events("<a x='1' y = \"2'\"\r\n z=''/>"), "(a x=1 y=2' z=)");
  EXPECT_EQ(Events("<a> t <b>u</b></a >"), "(a| t (b|u))");
  EXPECT_EQ(
      Events(
          "\xEF\xBB\xBF<?xml version='1.0'?>\n<!DOCTYPE a SYSTEM \"x>y\">\n<!-- <b> --><a/><!--c--> <?p?>\n"),
      "(a)");
  EXPECT_EQ(Events("<a>1<!-- - -- -->2<?pi ?>3<![CDATA[<&amp;]]></a>"), "(a|1|2|3|<&amp;)");
  EXPECT_EQ(Events("<l\xC3\xA4mp-1.x:y _z='\xE2\x82\xAC'/>"), "(l\xC3\xA4mp-1.x:y _z=\xE2\x82\xAC)");
}

TEST(XmlReader, TurnsReferencesIntoCharacters) {
  EXPECT_EQ(Events("<a b='&amp;&apos;&quot;&lt;&gt;'>x&amp;lt;y</a>"), "(a b=&'\"<>|x&lt;y)");
  EXPECT_EQ(Events("<a>&#65;&#x20AC;&#x1F4A1;</a>"), "(a|A\xE2\x82\xAC\xF0\x9F\x92\xA1)");
}

TEST(XmlReader, KeepsWhiteSpace) {
  EXPECT_EQ(Events("<a b=' 1\r\n\t'>\r\n </a>"), "(a b= 1\r\n\t|\r\n )");
}

TEST(XmlReader, SaysWhatIsWrongAndWhere) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "line 1, column 1: the file is empty"},
      {" \n", "line 2, column 1: there is no XML element in the file"},
      {"halvex", "line 1, column 1: this is not XML: an element was expected here"},
      {"<a>\n  <b>\n</a>", "line 3, column 1: </a> does not close <b>"},
      {"<a></b>", "line 1, column 4: </b> does not close <a>"},
      {"<a><b>", "line 1, column 7: the file ends inside <b>; it may have been cut off"},
      {"<a", "line 1, column 3: the file ends inside <a>; it may have been cut off"},
      {"<a b='1", "line 1, column 8: the file ends inside <a>; it may have been cut off"},
      {"<a/", "line 1, column 4: the file ends inside <a>; it may have been cut off"},
      {"<a b='1' b='2'/>", "line 1, column 10: the attribute 'b' stands here for the second time"},
      {"<a b='1'c='2'/>", "line 1, column 9: a blank, '>' or '/>' was expected here"},
      {"<a b=1/>", "line 1, column 6: the value of 'b' must stand in quotes"},
      {"<a b/>", "line 1, column 5: '=' and a value were expected after 'b'"},
      {"<a b='<'/>", "line 1, column 7: '<' inside the value of 'b': its closing quote is missing"},
      {"<a>\xC3\xA4\xC3\xA4&nbsp;</a>", "line 1, column 6: the entity '&nbsp;' is not known"},
      {"<a>R&D</a>", "line 1, column 5: '&' begins no entity here; a plain one is written '&amp;'"},
      {"<a>&#xD800;</a>", "line 1, column 4: this reference stands for no character"},
      {"<a>&#0;</a>", "line 1, column 4: this reference stands for no character"},
      {"<a/>\nmore", "line 2, column 1: there is text after the end of the root element"},
      {"<a/><b/>", "line 1, column 5: there is text after the end of the root element"},
      {"<a><!-- </a>", "line 1, column 4: this comment does not end"},
      {"<a><![CDATA[ </a>", "line 1, column 4: this CDATA section does not end"},
      {"<!DOCTYPE a [<!ENTITY b 'c'>]><a/>",
       "line 1, column 13: a DOCTYPE with declarations of its own is not accepted"},
      {"<a>\n\xFF</a>", "line 2, column 1: this is not UTF-8 text"},
      {"\xEF\xBB\xBF<1/>", "line 1, column 2: an element's name was expected here"},
  };
  for (const auto& [xml, message] : cases) EXPECT_EQ(Events(xml), message) << xml;
  EXPECT_EQ(Events({"<a>\0</a>", 8}), "line 1, column 4: there is a zero byte, which no text file holds");
}

TEST(XmlReader, BoundsDepthAndSize) {
  const auto nested = [](std::size_t depth) {
    std::string xml;
    for (std::size_t i = 0; i < depth; ++i) xml += "<a>";
    for (std::size_t i = 0; i < depth; ++i) xml += "</a>";
    return xml;
  };
  EXPECT_EQ(Events(nested(256)).size(), 3u * 256);
  EXPECT_EQ(Events(nested(100000)), "line 1, column 769: elements are nested more than 256 deep");
  EXPECT_EQ(Events(std::string((64u << 20) + 1, ' ')), "line 1, column 1: the file is larger than 64 MiB");
}

TEST(XmlReader, FindsASecondAttributeAmongMany) {
  std::string xml = "<a";
  for (int i = 0; i < 100000; ++i) xml += " b" + std::to_string(i) + "=''";
  EXPECT_EQ(Events(xml + "/>").substr(0, 10), "(a b0= b1=");
  EXPECT_EQ(Events(xml + " b5=''/>"), "line 1, column " + std::to_string(xml.size() + 2) +
                                          ": the attribute 'b5' stands here for the second time");
}

TEST(XmlReader, RefusesEveryBeginningOfADocument) {
  const std::string xml = "<!DOCTYPE a><?p ?><a b='&amp;'><!--c--><c>t</c><![CDATA[d]]></a>";
  for (std::size_t length = 0; length < xml.size(); ++length) {
    EXPECT_EQ(Events(xml.substr(0, length)).substr(0, 5), "line ") << length;
  }
}
