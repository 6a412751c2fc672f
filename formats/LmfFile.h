// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "formats/ImportResult.h"
#include "model/Mode.h"

/// LMF, the files of the program LEDControl: one mode as the channels' values at each half hour, without
/// jumps. 48 slots of five 32-bit fields, each the value with its two hexadecimal digits swapped.
namespace TCBase {

/// Appends a step for each half hour to each of the mode's channels, puts them on the half-hour grid and
/// removes those that change nothing. A file of the wrong size is refused and leaves the mode untouched.
ImportResult ImportLMF(std::string_view bytes, Mode& mode);

/// The 960 bytes of the file, values clamped to 0 to 100.
std::string ExportLMF(const Mode& mode);

}  // namespace TCBase
