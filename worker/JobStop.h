// SPDX-License-Identifier: MIT
#pragma once

#include "worker/Worker.h"

namespace TCBase {

/// The wish that the running job end, held until it has. A job that is just beginning drops what was posted
/// before it, so the wish is posted again and again; the jobs behind that one never hear of it.
class JobStop {
 public:
  /// The worker outlives it.
  explicit JobStop(Worker& worker) : worker_(worker) {}

  /// Asks the job that runs, or the next one where none does yet, to end in order.
  void Ask();
  /// To be called every now and then while a job runs.
  void Tick();
  void Forget() { isWanted_ = false; }

 private:
  Worker& worker_;
  bool isWanted_ = false;
  int job_ = 0;  // the number of the one to end; 0 until it runs
};

}  // namespace TCBase
