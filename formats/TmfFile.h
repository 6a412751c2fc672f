// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "formats/ImportResult.h"
#include "model/Mode.h"

/// TMF, the files of the program PLED: one mode as its sample table, all channels at each of its steps. A
/// header of 12 bytes and 56 for each step; the header says nothing that a reader needs.
namespace TCBase {

/// Appends a step for each of the first 48 records to each of the mode's channels and sorts them. A file of
/// the wrong size is refused and leaves the mode untouched.
ImportResult ImportTMF(std::string_view bytes, Mode& mode);

/// The bytes of the file, values clamped to 0 to 100.
std::string ExportTMF(const Mode& mode);

}  // namespace TCBase
