// SPDX-License-Identifier: MIT
#include "QorLib/xml/reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "QorLib/Format.h"
#include "QorLib/qor_win_str_utils.h"

namespace qor::xml {
namespace {

enum CharClass : unsigned char { Blank = 1, NameStart = 2, NamePart = 4, PlainValue = 8 };

constexpr std::array<unsigned char, 256> MakeCharClasses() {
  std::array<unsigned char, 256> classes{};
  for (std::size_t c = 0; c < 256; ++c) {
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c >= 0x80;
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') classes[c] |= Blank;
    if (isLetter || c == '_' || c == ':') classes[c] |= NameStart | NamePart;
    if ((c >= '0' && c <= '9') || c == '-' || c == '.') classes[c] |= NamePart;
    if (c != '\'' && c != '"' && c != '<' && c != '&') classes[c] |= PlainValue;
  }
  return classes;
}

constexpr auto CharClasses = MakeCharClasses();

bool Is(char c, CharClass charClass) {
  return (CharClasses[static_cast<unsigned char>(c)] & charClass) != 0;
}

/// The end of the run of characters of that class that begins at `from`.
const char* EndOfRun(CharClass charClass, const char* from, const char* end) {
  while (from != end && Is(*from, charClass)) ++from;
  return from;
}

/// The first `c` from `from` on; `end` when there is none.
const char* Find(char c, const char* from, const char* end) {
  const void* found = std::memchr(from, c, static_cast<std::size_t>(end - from));
  return found != nullptr ? static_cast<const char*>(found) : end;
}

struct Entity {
  std::string_view name;
  char character;
};
constexpr Entity Entities[] = {{"amp", '&'}, {"apos", '\''}, {"quot", '"'}, {"lt", '<'}, {"gt", '>'}};

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t LongestShownName = 40;

/// A name as it stands in a message: a broken file can hold names of any length.
std::string Shown(std::string_view name) {
  if (name.size() <= LongestShownName) return std::string(name);
  std::size_t length = LongestShownName;
  while (length > 0 && (name[length] & 0xC0) == 0x80) --length;
  return std::string(name.substr(0, length)) + "…";
}

}  // namespace

struct reader::failure {
  const char* where;
  Sentence reason;
};

position PositionAt(std::string_view text, std::size_t offset) {
  const std::size_t start = text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
  const std::string_view before = text.substr(0, std::min(offset, text.size()));
  position where;
  where.line += static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
  const std::size_t lineStart = where.line > 1 ? before.rfind('\n') + 1 : std::min(start, before.size());
  for (const char c : before.substr(lineStart)) where.column += (c & 0xC0) != 0x80 ? 1 : 0;
  return where;
}

Sentence error::Told() const {
  return {TR("line {1}, column {2}"), {where.line, where.column}, {reason}};
}

reader::reader(std::string_view text, observer& target)
    : text_(text), target_(target), at_(text.data()), end_(text.data() + text.size()) {}

std::optional<error> reader::Read() {
  try {
    CheckBytes();
    ReadDocument();
    return std::nullopt;
  } catch (const failure& failed) {
    return error{PositionAt(text_, static_cast<std::size_t>(failed.where - text_.data())), failed.reason};
  }
}

void reader::Fail(const char* where, Sentence reason) const {
  throw failure{where, std::move(reason)};
}

void reader::FailAtEnd() const {
  if (open_.empty()) Fail(end_, TR("the file ends before its first element is complete"));
  Fail(end_, {TR("the file ends inside <{1}>; it may have been cut off"), {Shown(open_.back())}});
}

void reader::CheckBytes() const {
  if (text_.empty()) Fail(at_, TR("the file is empty"));
  if (text_.size() > MaxBytes) Fail(at_, {TR("the file is larger than {1} MiB"), {MaxBytes >> 20}});
  const std::size_t broken = win::FindBrokenUtf8(text_);
  if (broken != std::string_view::npos) Fail(at_ + broken, TR("this is not UTF-8 text"));
  if (const void* zero = std::memchr(at_, '\0', text_.size())) {
    Fail(static_cast<const char*>(zero), TR("there is a zero byte, which no text file holds"));
  }
}

void reader::ReadDocument() {
  if (StartsWith(ByteOrderMark)) at_ += ByteOrderMark.size();
  SkipMisc(true);
  if (at_ == end_) Fail(at_, TR("there is no XML element in the file"));
  if (*at_ != '<') Fail(at_, TR("this is not XML: an element was expected here"));
  ReadStartTag();
  ReadContent();
  SkipMisc(false);
  if (at_ != end_) Fail(at_, TR("there is text after the end of the root element"));
}

bool reader::StartsWith(std::string_view word) const {
  return static_cast<std::size_t>(end_ - at_) >= word.size() &&
         std::memcmp(at_, word.data(), word.size()) == 0;
}

bool reader::SkipBlanks() {
  const char* start = at_;
  at_ = EndOfRun(Blank, at_, end_);
  return at_ != start;
}

/// What may stand before and after the root element.
void reader::SkipMisc(bool allowDoctype) {
  while (true) {
    SkipBlanks();
    if (StartsWith("<!--")) {
      SkipThrough("-->", TR("this comment does not end"));
    } else if (StartsWith("<?")) {
      SkipThrough("?>", TR("this processing instruction does not end"));
    } else if (allowDoctype && StartsWith("<!DOCTYPE")) {
      SkipDoctype();
      allowDoctype = false;
    } else {
      return;
    }
  }
}

void reader::SkipDoctype() {
  const char* start = at_;
  char quote = 0;
  for (; at_ != end_; ++at_) {
    if (quote != 0) {
      if (*at_ == quote) quote = 0;
    } else if (*at_ == '"' || *at_ == '\'') {
      quote = *at_;
    } else if (*at_ == '[') {
      Fail(at_, TR("a DOCTYPE with declarations of its own is not accepted"));
    } else if (*at_ == '>') {
      ++at_;
      return;
    }
  }
  Fail(start, TR("this DOCTYPE does not end"));
}

void reader::SkipThrough(std::string_view terminator, English fault) {
  const char* start = at_;
  const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
  // "<!-->" is no whole comment: the end is looked for behind the four or two characters of the beginning.
  const std::size_t found = rest.find(terminator, terminator.size() == 3 ? 4 : 2);
  if (found == std::string_view::npos) Fail(start, fault);
  at_ += found + terminator.size();
}

void reader::ReadContent() {
  while (!open_.empty()) {
    ReadText();
    if (end_ - at_ < 2) FailAtEnd();
    switch (at_[1]) {
      case '/': ReadEndTag(); break;
      case '?': SkipThrough("?>", TR("this processing instruction does not end")); break;
      case '!':
        if (StartsWith("<!--")) {
          SkipThrough("-->", TR("this comment does not end"));
        } else {
          ReadCData();
        }
        break;
      default: ReadStartTag();
    }
  }
}

void reader::FailForName(const char* where, English fault) const {
  if (where == end_) FailAtEnd();
  Fail(where, fault);
}

// ReadName and the other functions that run for every tag are inline.
inline std::string_view reader::ReadName(const char* at, English fault) const {
  if (at == end_ || !Is(*at, NameStart)) FailForName(at, fault);
  return {at, static_cast<std::size_t>(EndOfRun(NamePart, at + 1, end_) - at)};
}

inline void reader::ReadStartTag() {
  const char* start = at_;
  const std::string_view name = ReadName(start + 1, TR("an element's name was expected here"));
  at_ = name.data() + name.size();
  if (open_.size() == MaxDepth) Fail(start, {TR("elements are nested more than {1} deep"), {MaxDepth}});
  open_.push_back(name);
  target_.StartElement(name);
  ReadAttributes();
  if (*at_++ == '/') {
    ++at_;
    target_.EndElement();
    open_.pop_back();
  }
}

/// Reads the attribute at `at`; returns the position behind it.
const char* reader::ReadAttribute(const char* at) {
  const std::string_view name = ReadName(at, TR("an attribute's name was expected here"));
  attributeNames_.push_back(name);
  at = EndOfRun(Blank, at + name.size(), end_);
  if (at == end_) FailAtEnd();
  if (*at != '=') Fail(at, {TR("'=' and a value were expected after '{1}'"), {Shown(name)}});
  at = EndOfRun(Blank, at + 1, end_);
  if (at == end_) FailAtEnd();
  const char quote = *at;
  if (quote != '\'' && quote != '"') Fail(at, {TR("the value of '{1}' must stand in quotes"), {Shown(name)}});

  const char* start = ++at;
  bool hasReference = false;
  while (true) {
    at = EndOfRun(PlainValue, at, end_);
    if (at == end_) FailAtEnd();
    if (*at == quote) break;
    if (*at == '<') {
      Fail(at, {TR("'<' inside the value of '{1}': its closing quote is missing"), {Shown(name)}});
    }
    hasReference |= *at == '&';
    ++at;
  }
  const std::string_view raw(start, static_cast<std::size_t>(at - start));
  target_.Attribute(name, hasReference ? Decode(raw) : raw);
  return at + 1;
}

/// Reads up to the tag's end, ">" or "/>".
inline void reader::ReadAttributes() {
  attributeNames_.clear();
  const char* at = at_;
  while (true) {
    const char* blanks = at;
    at = EndOfRun(Blank, at, end_);
    if (at == end_) FailAtEnd();
    if (*at == '>') break;
    if (*at == '/') {
      if (at + 1 == end_) FailAtEnd();
      if (at[1] == '>') break;
    }
    if (at == blanks) Fail(at, TR("a blank, '>' or '/>' was expected here"));
    at = ReadAttribute(at);
  }
  at_ = at;
  CheckAttributeNames();
}

/// Refuses a name that stands twice in a tag.
inline void reader::CheckAttributeNames() {
  constexpr std::size_t Few = 16;
  if (attributeNames_.size() > Few) {
    CheckManyAttributeNames();
    return;
  }
  for (std::size_t i = 1; i < attributeNames_.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (attributeNames_[i] == attributeNames_[j]) RefuseSecond(attributeNames_[i]);
    }
  }
}

void reader::CheckManyAttributeNames() {
  // In place, since a broken file can hold millions of them; equal ones stay in the order of the text.
  const auto isBefore = [](std::string_view a, std::string_view b) {
    const int order = a.compare(b);
    return order != 0 ? order < 0 : a.data() < b.data();
  };
  std::sort(attributeNames_.begin(), attributeNames_.end(), isBefore);
  const auto twice = std::adjacent_find(attributeNames_.begin(), attributeNames_.end());
  if (twice != attributeNames_.end()) RefuseSecond(*std::next(twice));
}

void reader::RefuseSecond(std::string_view name) const {
  Fail(name.data(), {TR("the attribute '{1}' stands here for the second time"), {Shown(name)}});
}

inline void reader::ReadEndTag() {
  const std::string_view expected = open_.back();
  const std::size_t behind = 2 + expected.size();
  // Nearly always it is the right one, without blanks.
  const bool isUsual = static_cast<std::size_t>(end_ - at_) > behind && at_[behind] == '>' &&
                       std::memcmp(at_ + 2, expected.data(), expected.size()) == 0;
  if (isUsual) {
    at_ += behind + 1;
  } else {
    ReadUnusualEndTag();
  }
  target_.EndElement();
  open_.pop_back();
}

void reader::ReadUnusualEndTag() {
  const char* start = at_;
  at_ += 2;
  if (at_ == end_) FailAtEnd();
  const std::string_view name = ReadName(at_, TR("an element's name was expected here"));
  at_ += name.size();
  SkipBlanks();
  if (at_ == end_) FailAtEnd();
  if (*at_ != '>') Fail(at_, {TR("'>' was expected after '</{1}'"), {Shown(name)}});
  if (name != open_.back()) {
    Fail(start, {TR("</{1}> does not close <{2}>"), {Shown(name), Shown(open_.back())}});
  }
  ++at_;
}

void reader::ReadCData() {
  constexpr std::string_view Open = "<![CDATA[";
  if (!StartsWith(Open)) Fail(at_, TR("'<!' is followed by neither a comment nor a CDATA section"));
  const char* start = at_ + Open.size();
  SkipThrough("]]>", TR("this CDATA section does not end"));
  target_.Text(std::string_view(start, static_cast<std::size_t>(at_ - 3 - start)));
}

/// Reads up to the next markup or the end of the bytes.
inline void reader::ReadText() {
  const char* start = at_;
  at_ = EndOfRun(Blank, at_, end_);  // nearly all text is there for the layout only
  bool hasReference = false;
  if (at_ != end_ && *at_ != '<') {
    at_ = Find('<', at_, end_);
    hasReference = Find('&', start, at_) != at_;
  }
  const std::string_view raw(start, static_cast<std::size_t>(at_ - start));
  if (!raw.empty()) target_.Text(hasReference ? Decode(raw) : raw);
}

std::string_view reader::Decode(std::string_view raw) {
  decoded_.clear();
  const char* from = raw.data();
  const char* rawEnd = from + raw.size();
  while (from != rawEnd) {
    const char* ampersand = Find('&', from, rawEnd);
    decoded_.append(from, ampersand);
    from = ampersand == rawEnd ? rawEnd : DecodeReference(ampersand, rawEnd);
  }
  return decoded_;
}

/// Appends the character that the reference at `ampersand` stands for; returns the position behind it.
const char* reader::DecodeReference(const char* ampersand, const char* rawEnd) {
  constexpr std::ptrdiff_t Longest = 16;
  const char* limit = ampersand + std::min(rawEnd - ampersand, Longest);
  const char* semicolon = std::find(ampersand, limit, ';');
  if (semicolon == limit) Fail(ampersand, TR("'&' begins no entity here; a plain one is written '&amp;'"));
  const std::string_view name(ampersand + 1, static_cast<std::size_t>(semicolon - ampersand - 1));
  if (name.starts_with('#')) {
    win::AppendUtf8(CharacterReference(name.substr(1), ampersand), decoded_);
    return semicolon + 1;
  }
  const auto entity = std::find_if(std::begin(Entities), std::end(Entities),
                                   [&](const Entity& candidate) { return candidate.name == name; });
  if (entity == std::end(Entities)) Fail(ampersand, {TR("the entity '&{1};' is not known"), {name}});
  decoded_ += entity->character;
  return semicolon + 1;
}

char32_t reader::CharacterReference(std::string_view digits, const char* ampersand) const {
  const bool isHex = digits.starts_with('x');
  if (isHex) digits.remove_prefix(1);
  std::uint32_t number = 0;
  const char* digitsEnd = digits.data() + digits.size();
  const auto [next, failed] = std::from_chars(digits.data(), digitsEnd, number, isHex ? 16 : 10);
  const bool isSurrogate = number >= 0xD800 && number <= 0xDFFF;
  if (failed != std::errc{} || next != digitsEnd || number == 0 || number > 0x10FFFF || isSurrogate) {
    Fail(ampersand, TR("this reference stands for no character"));
  }
  return number;
}

}  // namespace qor::xml
