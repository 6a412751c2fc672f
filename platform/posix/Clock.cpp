// SPDX-License-Identifier: MIT
#include "platform/Clock.h"

#include <cerrno>
#include <ctime>

namespace platform {
namespace {

class MonotonicClock : public Clock {
 public:
  std::int64_t Counter() override {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * NanosecondsPerSecond + now.tv_nsec;
  }

  std::int64_t Frequency() override { return NanosecondsPerSecond; }

  void Sleep(std::uint32_t milliseconds) override {
    timespec rest{static_cast<time_t>(milliseconds / 1000), static_cast<long>(milliseconds % 1000) * 1000000};
    while (nanosleep(&rest, &rest) != 0 && errno == EINTR) continue;
  }

  SYSTEMTIME LocalTime() override {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    const auto field = [](auto number) { return static_cast<std::uint16_t>(number); };
    return {field(local.tm_year + 1900), field(local.tm_mon + 1),     field(local.tm_wday),
            field(local.tm_mday),        field(local.tm_hour),        field(local.tm_min),
            field(local.tm_sec),         field(now.tv_nsec / 1000000)};
  }

 private:
  static constexpr std::int64_t NanosecondsPerSecond = 1000000000;
};

}  // namespace

Clock& SystemClock() {
  static MonotonicClock clock;
  return clock;
}

}  // namespace platform
