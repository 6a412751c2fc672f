// SPDX-License-Identifier: MIT
#include "platform/Resources.h"

// The assembler puts the files into the program; the macros are their paths in quotes.
asm(".pushsection .rodata\n"
    "systemStrings:\n"
    ".incbin " SYSTEM_STRINGS
    "\n"
    "ownStrings:\n"
    ".incbin " OWN_STRINGS
    "\n"
    "ownStringsEnd:\n"
    ".popsection\n");

// Hidden, so that they are addressed directly: on ARM their addresses would come from a table in which the
// assembler, for which they are one place and an offset, gives all three the same entry.
[[gnu::visibility("hidden")]] extern const char systemStrings[] asm("systemStrings");
[[gnu::visibility("hidden")]] extern const char ownStrings[] asm("ownStrings");
[[gnu::visibility("hidden")]] extern const char ownStringsEnd[] asm("ownStringsEnd");

namespace platform {

std::array<std::string_view, 2> StringTableResources() {
  return {std::string_view(systemStrings, static_cast<std::size_t>(ownStrings - systemStrings)),
          std::string_view(ownStrings, static_cast<std::size_t>(ownStringsEnd - ownStrings))};
}

}  // namespace platform
