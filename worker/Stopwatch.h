// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/Clock.h"

namespace TCBase {

/// Elapsed time in seconds that can be paused, resumed and set. A new one runs from zero.
class Stopwatch {
 public:
  /// `clock` outlives the stopwatch.
  explicit Stopwatch(platform::Clock& clock);

  double Elapsed() const;
  bool IsPaused() const { return pausedAt_ >= 0.0; }
  /// Nothing on a running stopwatch.
  void Resume();
  /// Nothing on a paused one.
  void Pause();
  void Restart();
  /// Sets the elapsed time, at least 0; running goes on, or pausing does.
  void Seek(double seconds);

 private:
  static constexpr double Running = -1.0;

  platform::Clock* clock_;
  std::int64_t frequency_;
  std::int64_t start_ = 0;  // the counter when it last began to run
  double offset_ = 0.0;     // seconds gathered before that
  double pausedAt_ = 0.0;   // Running, or the seconds at which it stands
};

}  // namespace TCBase
