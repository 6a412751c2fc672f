// SPDX-License-Identifier: MIT
#include "bench/window/Report.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace bench {
namespace {

// The first frames of a turn find the processor's caches full of what the other side drew.
constexpr int FramesIgnored = 5, FramesATurn = 12;

double MillisecondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void TakeTurn(const Side& side, std::vector<double>& times) {
  side.window.Raise();
  for (int i = 0; i < FramesIgnored; ++i) side.draw();
  for (int i = 0; i < FramesATurn; ++i) times.push_back(MillisecondsOf(side.draw));
}

double Median(std::vector<double>& times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

}  // namespace

Report::Report() {
  std::puts("| what | time | against | ratio | required |\n|---|---|---|---|---|");
}

void Report::Compare(const std::string& what, const Side& side, const Side& other, double mostRatio,
                     int turns) {
  std::vector<double> times, otherTimes;
  for (int i = 0; i < turns; ++i) {
    TakeTurn(side, times);
    TakeTurn(other, otherTimes);
  }
  const double time = Median(times), otherTime = Median(otherTimes), ratio = time / otherTime;
  std::printf("| %s | %.3g ms | %.3g ms | %.3f | ≤ %g |\n", what.c_str(), time, otherTime, ratio, mostRatio);
  std::fflush(stdout);
  succeeded_ = succeeded_ && ratio <= mostRatio;
}

void Report::Check(const std::string& what, double share, double most) {
  std::printf("| %s |  |  | %.2f %% | ≤ %g %% |\n", what.c_str(), 100 * share, 100 * most);
  std::fflush(stdout);
  succeeded_ = succeeded_ && share <= most;
}

}  // namespace bench
