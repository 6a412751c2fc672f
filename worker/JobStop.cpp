// SPDX-License-Identifier: MIT
#include "worker/JobStop.h"

namespace TCBase {

void JobStop::Ask() {
  job_ = 0;
  isWanted_ = true;
  Tick();
}

void JobStop::Tick() {
  if (!isWanted_) return;
  const auto running = worker_.RunningJob();
  if (running && job_ == 0) job_ = running->number;
  if (!worker_.IsBusy() || (running && running->number != job_)) return Forget();
  worker_.Control().Post(JobControl::Stop);
}

}  // namespace TCBase
