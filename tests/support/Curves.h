// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <random>

#include "model/Mode.h"

namespace test {

struct Point {
  int hour, minute;
  float value;
  bool jump = false;
};

inline TCBase::Channel Curve(std::initializer_list<Point> points) {
  TCBase::Channel channel;
  for (const Point& point : points) {
    channel.steps.push_back(TCBase::MakeStep(point.hour, point.minute, point.value, point.jump));
  }
  return channel;
}

/// A channel of up to `maxSteps` steps; not in order and with equal times when `isOrderly` is not set.
inline TCBase::Channel RandomCurve(std::mt19937& random, std::size_t maxSteps, bool isOrderly) {
  const auto below = [&random](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  TCBase::Channel channel;
  const std::size_t count = random() % (maxSteps + 1);
  for (std::size_t i = 0; i < count; ++i) {
    const float value = static_cast<float>(below(401)) / 4;
    channel.steps.push_back(TCBase::MakeStep(below(24), below(60), value, below(4) == 0));
  }
  if (isOrderly) {
    channel.Sort();
    channel.RemoveDuplicateTimes();
  }
  return channel;
}

}  // namespace test
