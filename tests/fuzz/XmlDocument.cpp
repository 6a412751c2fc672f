// SPDX-License-Identifier: MIT
#include "QorLib/xml/document.h"

#include <string>

#include "QorLib/xml/tree_builder.h"
#include "tests/fuzz/Fuzz.h"

namespace {

std::size_t CountElements(const qor::xml::element& parent) {
  std::size_t count = 1;
  for (auto child = parent.FirstChild(); child; child = child.NextSibling()) count += CountElements(child);
  return count;
}

}  // namespace

void Feed(std::string_view input) {
  qor::xml::document whole, byChild, reread;
  const auto failed = whole.Parse(std::string(input));
  std::size_t count = 1;
  const auto failedByChild = qor::xml::ParseByChild(
      std::string(input), byChild, [&count](const auto& child) { count += CountElements(child); });
  Expect(failed.has_value() == failedByChild.has_value(), "both ways of parsing agree");
  if (failed) {
    Expect(failed->Text() == failedByChild->Text(), "both ways of parsing complain alike");
    return;
  }
  Expect(CountElements(whole.Root()) == count, "both ways of parsing find the same elements");
  // Not so of texts that are written as CDATA sections.
  if (input.find("<![CDATA[") == input.npos && input.find("&lt;![CDATA[") == input.npos) {
    Expect(!reread.Parse(whole.Write()), "what was written can be read");
    Expect(CountElements(reread.Root()) == count, "what was written reads back the same");
  }
}
