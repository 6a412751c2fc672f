// SPDX-License-Identifier: MIT
#include "formats/StringTable.h"

#include "tests/fuzz/Fuzz.h"

void Feed(std::string_view input) {
  using TCBase::StringTable;
  StringTable table(
      "<localisation><languages><language id='de'/><language id='pl'/></languages>"
      "<strings><string id='a {1}'><de>b {1}</de></string></strings></localisation>");
  const std::string before = table.Write(0);
  if (table.Merge(std::string(input)).failure) {
    Expect(table.Write(0) == before, "a refused file changes nothing");
    return;
  }
  const std::string written = table.Write({});
  if (written.find("<![CDATA[") != written.npos) return;  // no file that is built in has them
  StringTable reread(written);
  Expect(reread.Size() >= 1 && reread.English(0) == "a {1}", "the entry is still there");
  for (std::size_t language = 0; language < 2; ++language) {
    Expect(reread.Text(0, language) == table.Text(0, language), "what was written reads back the same");
  }
}
