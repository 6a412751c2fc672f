// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "QorLib/Log.h"
#include "model/Program.h"

/// Bringing modes under the number of steps that controllers take, with the least change to the light: the
/// step whose removal shifts its curve least goes first.
namespace TCBase {

/// The step to remove next; -1 in all fields when no channel has 3 steps or more.
struct RemovalCandidate {
  int channel = -1;
  int step = -1;  // index within the channel
  int cost = -1;  // the error that its removal makes at its own time, in whole percent

  explicit operator bool() const { return channel >= 0; }
  bool operator==(const RemovalCandidate&) const = default;
};

/// What removing the step costs: the difference of the curve with and without it at its time, truncated.
int RemovalCost(const Channel& channel, std::size_t step);

/// The candidate of least cost; on equal cost the lower channel, within it the lower index. This is the plain
/// definition, quadratic in the number of steps; `StepThinner` finds the same ones faster.
RemovalCandidate FindRemovalCandidate(const Mode& mode);

/// Brings the mode to at most `most` steps. False, with the steps removed so far gone and a line in the log,
/// when no channel can be thinned any more. n log n in the number of steps for channels in order.
bool OptimiseMode(Mode& mode, qor::Log& log, int most = MaxModeSteps);

/// Optimises the modes in order, up to and with the first that fails.
bool OptimiseProgram(Program& program, qor::Log& log);

/// Removes every step whose removal costs nothing.
void RemoveRedundantSteps(Mode& mode);

/// By how much of the full brightness the light of one differs from the other's at most, in whole percent.
int GreatestDifference(const Mode& mode, const Mode& other);

/// The source's name, description and, in each channel, its value at every half hour, without jumps.
Mode ResampleAt30Minutes(const Mode& source);

}  // namespace TCBase
