// SPDX-License-Identifier: MIT
#include "bench/RatioReporter.h"

#include <algorithm>
#include <cstdio>
#include <ostream>

namespace bench {
namespace {

std::string TimeText(double milliseconds) {
  char text[32];
  const bool isShort = milliseconds < 1;
  std::snprintf(text, sizeof text, "%.4g %s", isShort ? 1000 * milliseconds : milliseconds,
                isShort ? "µs" : "ms");
  return text;
}

std::string RatioText(double ratio, Ratio::Bound bound) {
  char text[32];
  std::snprintf(text, sizeof text, bound == Ratio::Bound::FasterBy ? "%.0f" : "%.3f", ratio);
  return text;
}

std::string NameOf(const benchmark::BenchmarkReporter::Run& run) {
  const benchmark::BenchmarkName& name = run.run_name;
  return name.args.empty() ? name.function_name : name.function_name + "/" + name.args;
}

double SecondsOf(const benchmark::BenchmarkReporter::Run& run) {
  return run.real_accumulated_time / static_cast<double>(run.iterations);
}

}  // namespace

RatioReporter::RatioReporter(std::vector<Ratio> ratios)
    : ConsoleReporter(OO_None), ratios_(std::move(ratios)) {}

void RatioReporter::ReportRuns(const std::vector<Run>& repetitions) {
  const Run* best = nullptr;
  for (const Run& run : repetitions) {
    if (run.run_type != Run::RT_Iteration) return;
    if (run.error_occurred) {
      succeeded_ = false;
      ConsoleReporter::ReportRuns({run});
      return;
    }
    if (best == nullptr || SecondsOf(run) < SecondsOf(*best)) best = &run;
  }
  if (best == nullptr) return;
  milliseconds_[NameOf(*best)] = 1000 * SecondsOf(*best);
  ConsoleReporter::ReportRuns({*best});
}

void RatioReporter::Finalize() {
  GetOutputStream() << "\n| what | time | against | ratio | required |\n|---|---|---|---|---|\n";
  for (const Ratio& ratio : ratios_) PrintRow(ratio);
  GetOutputStream().flush();
}

void RatioReporter::PrintRow(const Ratio& ratio) {
  const bool isAgainstTime = ratio.other.empty();
  if (!milliseconds_.contains(ratio.halvex) || (!isAgainstTime && !milliseconds_.contains(ratio.other)))
    return;
  const double halvex = milliseconds_[ratio.halvex];
  const double other = ratio.otherScale * (isAgainstTime ? 1 : milliseconds_[ratio.other]);
  const bool isFasterBy = ratio.bound == Ratio::Bound::FasterBy;
  const double reached = isFasterBy ? other / halvex : halvex / other;
  GetOutputStream() << "| " << ratio.what << " | " << TimeText(halvex) << " | " << TimeText(other) << " | "
                    << RatioText(reached, ratio.bound) << " | ";
  if (ratio.required) {
    const bool isMet = isFasterBy ? reached >= *ratio.required : reached <= *ratio.required;
    succeeded_ = succeeded_ && isMet;
    GetOutputStream() << (isFasterBy ? "≥ " : "≤ ") << *ratio.required << (isMet ? "" : ", **missed**");
  }
  GetOutputStream() << " |\n";
}

}  // namespace bench
