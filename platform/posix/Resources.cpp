// SPDX-License-Identifier: MIT
#include "platform/Resources.h"

// The assembler puts the file into the program; HALVEX_STRINGS is its path in quotes.
asm(".pushsection .rodata\n"
    "halvexStrings:\n"
    ".incbin " HALVEX_STRINGS
    "\n"
    "halvexStringsEnd:\n"
    ".popsection\n");

extern const char stringsStart[] asm("halvexStrings");
extern const char stringsEnd[] asm("halvexStringsEnd");

namespace platform {

std::string_view StringTableResource() {
  return {stringsStart, static_cast<std::size_t>(stringsEnd - stringsStart)};
}

}  // namespace platform
