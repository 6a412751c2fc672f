// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "model/Mode.h"

namespace TCBase {

/// RAW: the five channels' whole percents, a byte each, at every second of the day; 432000 bytes. Values are
/// clamped to 0 to 100.
std::string ExportRAW(const Mode& mode);

}  // namespace TCBase
