// SPDX-License-Identifier: MIT
// The reader against expat, on generated documents. Left out of these is what the two see apart on purpose:
// Halvex keeps line ends, and tabs in attributes, as they are, and lets control characters and "]]>" pass in
// texts.
#include <expat.h>
#include <gtest/gtest.h>

#include <random>

#include "QorLib/Format.h"
#include "QorLib/xml/reader.h"

namespace {

/// Writes the events down, adjacent stretches of text joined: (name attribute=value|text)
struct Record {
  std::string events;
  bool isInText = false;

  void Add(std::string_view text) { events.append(std::exchange(isInText, false) ? "|" : "").append(text); }
  void AddAttribute(std::string_view name, std::string value) {
    for (char& c : value) c = qor::IsControl(c) ? ' ' : c;
    Add(" " + std::string(name) + "=" + value);
  }
  void AddText(std::string_view text) {
    if (text.empty()) return;
    if (!std::exchange(isInText, true)) events += "|";
    events.append(text);
  }
};

class Recorder : public qor::xml::observer {
 public:
  void StartElement(std::string_view name) override { record.Add("(" + std::string(name)); }
  void Attribute(std::string_view name, std::string_view value) override {
    record.AddAttribute(name, std::string(value));
  }
  void Text(std::string_view text) override { record.AddText(text); }
  void EndElement() override { record.Add(")"); }

  Record record;
};

constexpr const char* Refused = "refused";

std::string Events(const std::string& xml) {
  Recorder recorder;
  return qor::xml::reader(xml, recorder).Read() ? Refused : recorder.record.events;
}

std::string ExpatEvents(const std::string& xml) {
  Record record;
  XML_Parser parser = XML_ParserCreate("UTF-8");
  XML_SetUserData(parser, &record);
  XML_SetElementHandler(
      parser,
      [](void* target, const XML_Char* name, const XML_Char** attributes) {
        auto& to = *static_cast<Record*>(target);
        to.Add("(" + std::string(name));
        for (; *attributes != nullptr; attributes += 2) to.AddAttribute(attributes[0], attributes[1]);
      },
      [](void* target, const XML_Char*) { static_cast<Record*>(target)->Add(")"); });
  XML_SetCharacterDataHandler(parser, [](void* target, const XML_Char* text, int length) {
    static_cast<Record*>(target)->AddText({text, static_cast<std::size_t>(length)});
  });
  const bool isRead = XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), XML_TRUE) == XML_STATUS_OK;
  XML_ParserFree(parser);
  return isRead ? record.events : Refused;
}

/// Makes well-formed documents.
class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  /// A plain one has nothing but elements, attributes, texts and named entities.
  std::string Document(bool isPlain) {
    isPlain_ = isPlain;
    std::string xml =
        isPlain ? "" : OneOf({"", "\xEF\xBB\xBF", "<?xml version='1.0'?>\n", "<!DOCTYPE a>"}) + Misc();
    xml += Element(0) + OneOf({"", "\n"});
    return isPlain ? xml : xml + Misc();
  }

  std::size_t Below(std::size_t limit) { return random_() % limit; }
  std::string OneOf(std::initializer_list<const char*> choices) {
    return choices.begin()[Below(choices.size())];
  }

 private:
  std::string Misc() { return OneOf({"", "<!-- a > b & c -->", "<?pi <x> ?>", " \n", "<!---->"}); }
  std::string Name() { return OneOf({"a", "b", "mode", "_x", "step-1.2", "n:m", "h\xC3\xB6he", "\xC5\x82"}); }
  std::string Blank() { return OneOf({" ", "\n", "\t ", "  "}); }

  std::string Reference() {
    if (isPlain_) return OneOf({"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"});
    return OneOf(
        {"&amp;", "&lt;", "&#65;", "&#x20aC;", "&#10;", "&#13;", "&#x1F41F;", "&quot;", "&gt;", "&apos;"});
  }
  std::string Characters() {
    return OneOf(
        {"8", "abc", ">", " ", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x90\x9F", "=", "/", "a b", "]", "--"});
  }

  std::string Value() {
    const std::string quote = OneOf({"'", "\""});
    std::string value;
    for (std::size_t i = Below(4); i > 0; --i) {
      value += Below(3) == 0 ? Reference() : Below(8) == 0 ? (quote == "'" ? "\"" : "'") : Characters();
    }
    return quote + value + quote;
  }

  std::string Attributes() {
    std::string attributes;
    for (std::size_t i = Below(4); i > 0; --i) {
      attributes += Blank() + Name() + std::to_string(i) + OneOf({"=", " =", "= "}) + Value();
    }
    return attributes;
  }

  std::string Content(int depth) {
    switch (Below(isPlain_ ? 4 : 6)) {
      case 0: return Characters();
      case 1: return Reference();
      case 2: return Element(depth + 1);
      case 3: return OneOf({"\n", "  ", "'", "\""});
      case 4: return "<![CDATA[" + OneOf({"", "<&amp;>", "] ]> ]", "]"}) + "]]>";
      default: return Misc();
    }
  }

  std::string Element(int depth) {
    const std::string name = Name();
    const std::string start = "<" + name + Attributes() + OneOf({"", " "});
    if (depth > 6 || Below(4) == 0) return start + "/>";
    std::string element = start + ">";
    for (std::size_t i = Below(5); i > 0; --i) element += Content(depth);
    return element + "</" + name + OneOf({"", "\n"}) + ">";
  }

  std::mt19937 random_;
  bool isPlain_ = false;
};

}  // namespace

TEST(XmlDifferential, ReadsWhatExpatReads) {
  for (unsigned seed = 0; seed < 5000; ++seed) {
    const std::string xml = Generator(seed).Document(false);
    const std::string events = Events(xml);
    ASSERT_NE(events, Refused) << "seed " << seed << ": " << xml;
    ASSERT_EQ(events, ExpatEvents(xml)) << "seed " << seed << ": " << xml;
  }
}

TEST(XmlDifferential, RefusesWhatExpatRefuses) {
  int refused = 0;
  for (unsigned seed = 0; seed < 5000; ++seed) {
    Generator generator(seed);
    std::string xml = generator.Document(true);
    for (std::size_t changes = 1 + generator.Below(2); changes > 0; --changes) {
      // One after the other: the order of arguments is the compiler's.
      const std::size_t at = generator.Below(xml.size() + 1);
      const std::size_t length = generator.Below(3);
      xml.replace(at, length, generator.OneOf({"", "<", ">", "&", ";", "'", "\"", "=", "/", " ", "a", "!"}));
    }
    const std::string events = Events(xml);
    refused += events == Refused ? 1 : 0;
    ASSERT_EQ(events, ExpatEvents(xml)) << "seed " << seed << ": " << xml;
  }
  EXPECT_GT(refused, 1000);
}
