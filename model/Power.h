// SPDX-License-Identifier: MIT
#pragma once

#include "model/Channel.h"

namespace TCBase {

/// A channel's power: the most that its curve gives, in percent.
float PowerOf(const Channel& channel);

/// Scales the curve so that this whole number of percent, 1 to 100, is shown and sent as its power. A dark
/// channel stays dark.
void SetPower(Channel& channel, int percent);

}  // namespace TCBase
