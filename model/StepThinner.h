// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "model/CostTree.h"
#include "model/StepLimit.h"

namespace TCBase {

/// Removes a mode's steps one by one in the order of their cost. Costs are kept in order, and a removal
/// renews those of the two neighbours only: the value at a step's own time is the step's own, and without it
/// the curve there depends on its neighbours alone. That asks for strictly ascending times within the day; a
/// channel without them has all its costs found anew after each removal from it, and one with more steps than
/// the day has minutes, or with steps outside the day, is sorted and rid of equal times first.
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
  /// A step's neighbours in the ring of steps that are left; Removed when it is none of them.
  struct Links {
    std::int32_t previous, next;
  };
  static constexpr std::int32_t Removed = -1;
  struct Lane {
    Channel channel;  // with all its steps
    std::vector<Links> links;
    std::size_t left;
    std::size_t firstCost;  // where its steps' costs begin in the tree
    bool isRegular;
  };

  void Enter(Channel channel, Lane& lane);
  void Count(const Step& step, int change);
  void RenewAll(const Lane& lane);
  std::int32_t CostOf(const Lane& lane, std::int32_t step) const;
  static Channel StepsLeft(const Lane& lane);

  Mode& mode_;
  std::array<Lane, ChannelCount> lanes_;
  CostTree costs_;  // of all lanes' steps, lane by lane: ties go to the lower channel, then the lower index
  std::array<std::int32_t, MinutesPerDay> stepsAtMinute_{};
  int stepCount_ = 0;
};

}  // namespace TCBase
