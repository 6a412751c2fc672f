// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "cli/Environment.h"
#include "cli/ExitStatus.h"
#include "worker/Worker.h"

namespace cli {

/// What devices use of this run. They wait so long for one that another program has.
TCBase::DeviceContext ContextOf(Invocation& invocation, int waitSeconds = 0);

/// A job of the worker over some devices, as a command runs it.
struct DeviceJob {
  std::function<void(TCBase::Worker&)> start;
  int waitSeconds = 0;
  qor::Sentence stopping = {};  // said at Ctrl+C; empty for the usual words
  /// Called again and again while the job runs; true asks for a stop, which is no failure.
  std::function<bool(TCBase::JobControl&)> steer = [](TCBase::JobControl&) { return false; };
};

/// Runs the job until its end, or until Ctrl+C has stopped it in order. The log says what went wrong
/// with a device; for several devices a table says how it went for each.
ExitStatus RunJob(const DeviceJob& job, Invocation& invocation);

/// The same for a job that the worker has no outcomes of: those that `outcomes` gives at its end.
ExitStatus RunJob(const DeviceJob& job, Invocation& invocation,
                  const std::function<std::vector<TCBase::DeviceOutcome>(TCBase::Worker&)>& outcomes);

}  // namespace cli
