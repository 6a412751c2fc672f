// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "bench/RatioReporter.h"

namespace {

using bench::Ratio;

double NLogN(double n) {
  return n * std::log2(n);
}

std::vector<Ratio> Ratios() {
  constexpr auto FasterBy = Ratio::Bound::FasterBy;
  constexpr auto AtMost = Ratio::Bound::AtMost;
  const double growth = NLogN(5 * 1440) / NLogN(5 * 300);
  std::vector<Ratio> ratios = {
      {"5 × 300 steps to the limit of 48, against the plain definition", "Optimise/300",
       "OptimisePlainly/300", 1, FasterBy, 1000},
      {"5 × 1440 steps to the limit, against 5 × 300 grown by n log n", "Optimise/1440", "Optimise/300",
       growth, AtMost, 1},
      {"sample table of 5 × 1440 steps, against the plain definition", "SampleTable/1440",
       "SampleTablePlainly/1440", 1, FasterBy, 200},
      {"upload of two modes to the emulator, against the prescribed waits", "Upload", "", 1000, AtMost, 1.01},
      {"encoding a TC421 step, against encoding it and its log text", "EncodePacket", "EncodePacketAndText",
       1, AtMost, 1},
      {"look-up of a translation, against one in a plain hash map", "Translate", "TranslateByPlainMap", 1,
       AtMost, 3},
  };
  const auto addXml = [&ratios](const std::string& what, const std::string& halvex) {
    const auto row = [&](const std::string& memory, const char* fresh, std::optional<double> required) {
      ratios.push_back({what + memory, halvex + fresh, halvex + "ByPugi" + fresh, 1, AtMost, required});
    };
    row(", fresh memory", "/fresh:1", 1);
    row(", memory at hand", "/fresh:0", std::nullopt);
  };
  addXml("10 MB of XML to a tree, against pugixml", "ParseDocument");
  addXml("tree to 10 MB of XML, against pugixml", "WriteDocument");
  addXml("10 MB of XML to a program, against pugixml", "ReadProgram");
  addXml("program to 10 MB of XML, against pugixml", "WriteProgram");
  return ratios;
}

/// Memory that was freed stays with the process until it is given back on purpose.
void KeepMemory() {
  mallopt(M_MMAP_THRESHOLD, 32 << 20);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

/// The arguments, preceded by what makes ratios fair on a machine that has other work as well: several runs
/// of each benchmark, those of all benchmarks mixed.
std::vector<char*> WithDefaults(int argc, char** argv) {
  static char repetitions[] = "--benchmark_repetitions=5";
  static char interleaving[] = "--benchmark_enable_random_interleaving=true";
  static char minTime[] = "--benchmark_min_time=0.2";
  std::vector<char*> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1, {repetitions, interleaving, minTime});
  return arguments;
}

}  // namespace

int main(int argc, char** argv) {
  KeepMemory();
  std::vector<char*> arguments = WithDefaults(argc, argv);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  bench::RatioReporter reporter(Ratios());
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return reporter.Succeeded() ? 0 : 1;
}
