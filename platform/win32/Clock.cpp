// SPDX-License-Identifier: MIT
#include "platform/Clock.h"

#include <windows.h>

namespace platform {
namespace {

class PerformanceClock : public Clock {
 public:
  std::int64_t Counter() override {
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    return counter.QuadPart;
  }

  std::int64_t Frequency() override {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart;
  }

  void Sleep(std::uint32_t milliseconds) override { ::Sleep(milliseconds); }

  SYSTEMTIME LocalTime() override {
    ::SYSTEMTIME now;
    GetLocalTime(&now);
    return {now.wYear, now.wMonth,  now.wDayOfWeek, now.wDay,
            now.wHour, now.wMinute, now.wSecond,    now.wMilliseconds};
  }
};

}  // namespace

Clock& SystemClock() {
  static PerformanceClock clock;
  return clock;
}

}  // namespace platform
