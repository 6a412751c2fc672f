// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "model/ModeSample.h"

/// The work on modes by its plain definition: what the library's fast ways are held against.
namespace test {

/// Removes the cheapest step, found anew each time, until the mode has at most 48.
void OptimisePlainly(TCBase::Mode& mode);

/// Goes through the minutes of the day and searches each channel at each of them.
std::vector<TCBase::ModeSample> SampleTablePlainly(const TCBase::Mode& mode);

}  // namespace test
