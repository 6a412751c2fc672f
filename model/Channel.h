// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/Step.h"

namespace TCBase {

/// One channel's curve over the day: steps by ascending time, at most one a minute. The curve runs on across
/// midnight from the last step to the first. What a file brings may be unsorted until `Sort` and
/// `RemoveDuplicateTimes` have run; sampling is defined for it all the same.
class Channel {
 public:
  std::vector<Step> steps;

  /// Inserts the step, under a new id, before the first one that is not earlier.
  void Add(Step step);
  /// Sorts by time; steps of equal time keep their order.
  void Sort();
  /// Keeps the first step of each run of equal times.
  void RemoveDuplicateTimes();
  /// Divides all values by `divisor` and clamps the steps.
  void Normalize(float divisor);

  /// The percentage at a second of the day, which may lie outside 0…86399: negative ones count as 0, others
  /// modulo a day. 0 for a channel without steps.
  float ValueAt(std::int64_t second) const;
  /// The same for a second within the day when `next` is known: the index of the first step, in their order
  /// as it stands, that is not earlier; the number of steps when all are. It never goes back as seconds go
  /// on.
  float ValueAt(std::int64_t second, std::size_t next) const;

  bool operator==(const Channel&) const = default;
};

/// The seconds from one time to another, if need be across midnight.
inline std::int64_t ElapsedSeconds(std::int64_t start, std::int64_t end) {
  return end - start + (end < start ? SecondsPerDay : 0);
}

/// How the light goes from a step towards the next one.
class Fade {
 public:
  Fade(const Step& previous, const Step& next)
      : start_(previous.value),
        difference_(next.value - previous.value),
        span_(static_cast<float>(ElapsedSeconds(previous.SecondOfDay(), next.SecondOfDay()))),
        isFlat_(previous.jump || span_ == 0) {}

  /// Whether the light holds the first step's value all the way.
  bool IsFlat() const { return isFlat_; }
  /// The value so many seconds behind the first step. Single precision with this order of roundings: what the
  /// lights get must not depend on the machine.
  float ValueAfter(float elapsed) const {
    const float scaled = elapsed * difference_;
    const float slope = scaled / span_;
    return slope + start_;
  }

 private:
  float start_, difference_, span_;
  bool isFlat_;
};

/// The curve at `second` between two steps that follow each other, if need be across midnight.
float ValueBetween(const Step& previous, const Step& next, std::int64_t second);

}  // namespace TCBase
