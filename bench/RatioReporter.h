// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// Two benchmarks and how their times must compare. A benchmark that ran several times counts by its best
/// time: what disturbs a run only ever adds to it.
struct Ratio {
  enum class Bound { FasterBy, AtMost };  // other / halvex, at least; halvex / other, at most

  std::string what;
  std::string halvex;
  std::string other;  // empty: otherScale alone, in milliseconds
  double otherScale;  // multiplies the other's time
  Bound bound;
  std::optional<double> required;
};

/// Prints the best run of each benchmark and then a table, in Markdown, of the ratios.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  explicit RatioReporter(std::vector<Ratio> ratios);

  void ReportRuns(const std::vector<Run>& repetitions) override;
  void Finalize() override;

  /// Whether all benchmarks that ran gave a result, and all ratios of them are as required.
  bool Succeeded() const { return succeeded_; }

 private:
  void PrintRow(const Ratio& ratio);

  std::vector<Ratio> ratios_;
  std::map<std::string, double> milliseconds_;
  bool succeeded_ = true;
};

}  // namespace bench
