// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Environment.h"

namespace cli {

/// Asks on the terminal, which must be there, what is answered by yes or no; no is the default.
bool IsConfirmed(const qor::Sentence& question, const Invocation& invocation);

}  // namespace cli
