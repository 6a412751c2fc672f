// SPDX-License-Identifier: MIT
#include "worker/Stopwatch.h"

#include <algorithm>

namespace TCBase {

Stopwatch::Stopwatch(platform::Clock& clock) : clock_(&clock), frequency_(clock.Frequency()) {
  Resume();
}

double Stopwatch::Elapsed() const {
  if (IsPaused()) return pausedAt_;
  return static_cast<double>(clock_->Counter() - start_) / static_cast<double>(frequency_) + offset_;
}

void Stopwatch::Resume() {
  if (!IsPaused()) return;
  offset_ = std::max(0.0, pausedAt_);
  pausedAt_ = Running;
  start_ = clock_->Counter();
}

void Stopwatch::Pause() {
  if (!IsPaused()) pausedAt_ = Elapsed();
}

void Stopwatch::Restart() {
  pausedAt_ = 0.0;
  Resume();
}

void Stopwatch::Seek(double seconds) {
  seconds = std::max(0.0, seconds);
  if (IsPaused()) {
    pausedAt_ = seconds;
  } else {
    offset_ = seconds;
    start_ = clock_->Counter();
  }
}

}  // namespace TCBase
