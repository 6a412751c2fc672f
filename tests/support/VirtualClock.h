// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <thread>

#include "platform/Clock.h"

namespace test {

/// A clock that stands still until somebody sleeps or `Advance` moves it.
class VirtualClock : public platform::Clock {
 public:
  std::int64_t Counter() override { return milliseconds_; }
  std::int64_t Frequency() override { return 1000; }
  void Sleep(std::uint32_t milliseconds) override {
    if (onSleep) onSleep(milliseconds);
    if (std::this_thread::get_id() != waiting) milliseconds_ += milliseconds;
    std::this_thread::yield();
  }
  platform::SYSTEMTIME LocalTime() override { return {2026, 11, 6, 21, 9, 5, 7, 42}; }

  /// Called by each sleeper first, on its thread; set before other threads sleep.
  std::function<void(std::uint32_t milliseconds)> onSleep;

  /// A thread whose sleeps take no time: it only waits for another, whose time it must not use up.
  std::thread::id waiting;

  void Advance(std::int64_t milliseconds) { milliseconds_ += milliseconds; }
  std::int64_t Milliseconds() const { return milliseconds_; }

 private:
  std::atomic<std::int64_t> milliseconds_ = 1000;
};

}  // namespace test
