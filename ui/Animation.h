// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

namespace UX {

/// A number that glides to where it is to be.
class Animation {
 public:
  /// The seconds that it takes from 0 to 1.
  explicit Animation(float seconds) : seconds_(seconds) {}

  float Value() const { return value_; }
  bool IsMoving() const { return value_ != target_; }
  void GlideTo(float target) { target_ = target; }
  void JumpTo(float target) { value_ = target_ = target; }
  /// Goes on by the time that has passed.
  void Advance(float seconds) {
    const float way = seconds / seconds_;
    value_ = value_ < target_ ? std::min(value_ + way, target_) : std::max(value_ - way, target_);
  }

 private:
  float seconds_;
  float value_ = 0, target_ = 0;
};

}  // namespace UX
