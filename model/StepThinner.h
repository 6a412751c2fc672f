// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <vector>

#include "model/StepLimit.h"

namespace TCBase {

/// Removes a mode's steps one by one in the order of their cost. Costs are kept in order, and a removal
/// renews those of the two neighbours only: the value at a step's own time is the step's own, and without it
/// the curve there depends on its neighbours alone. That asks for strictly ascending times within the day; a
/// channel without them has all its costs found anew after each removal from it.
class StepThinner {
 public:
  /// The mode's channels are taken out until `PutBack`.
  explicit StepThinner(Mode& mode);

  /// The next step to go, with its cost; the index is the one it had in the beginning.
  RemovalCandidate Cheapest() const;
  void Remove(const RemovalCandidate& candidate);
  /// The number of distinct minutes of the day that still hold a step.
  int StepCount() const { return stepCount_; }
  /// Gives the mode the steps that are left.
  void PutBack();

 private:
  struct Links {
    std::int32_t previous, next;  // neighbours in the ring of steps that are left
    std::int32_t cost;
    bool isLeft;
  };
  struct Lane {
    Channel channel;  // with all its steps
    std::vector<Links> links;
    std::size_t left;
    bool isRegular;
  };
  /// Ordered as the candidates go: by cost, channel, index.
  struct Entry {
    std::int32_t cost;
    std::int32_t channel;
    std::int32_t step;
    auto operator<=>(const Entry&) const = default;
  };

  void Count(const Step& step, int change);
  void EnterCosts(std::int32_t channel);
  void Renew(std::int32_t channel, std::int32_t step);
  void RenewAll(std::int32_t channel);
  std::int32_t CostOf(const Lane& lane, std::int32_t step) const;
  static Channel StepsLeft(const Lane& lane);

  Mode& mode_;
  std::array<Lane, ChannelCount> lanes_;
  std::set<Entry> byCost_;
  std::array<std::int32_t, MinutesPerDay> stepsAtMinute_{};
  int stepCount_ = 0;
};

}  // namespace TCBase
