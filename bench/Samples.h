// SPDX-License-Identifier: MIT
#pragma once

#include "model/Program.h"

/// What is measured: programs that come out the same on every run.
namespace bench {

/// A mode whose channels have `stepsPerChannel` steps each, at random minutes (1440: at every minute), some
/// of them jumps.
TCBase::Mode RandomMode(int stepsPerChannel);

/// A program whose file has about 10 MB.
TCBase::Program TenMegabyteProgram();

}  // namespace bench
