// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include "QorLib/Log.h"
#include "bench/Samples.h"
#include "model/StepLimit.h"
#include "tests/support/PlainMode.h"

namespace bench {
namespace {

void Optimise(benchmark::State& state) {
  const TCBase::Mode mode = RandomMode(static_cast<int>(state.range(0)));
  TCBase::Mode optimised;
  for (auto _ : state) {
    qor::Log log({});
    optimised = mode;
    TCBase::OptimiseMode(optimised, log);
  }
  if (TCBase::StepCount(optimised) != TCBase::MaxModeSteps) state.SkipWithError("the limit was missed");
}

void OptimisePlain(benchmark::State& state) {
  const TCBase::Mode mode = RandomMode(static_cast<int>(state.range(0)));
  TCBase::Mode plain;
  for (auto _ : state) {
    plain = mode;
    test::OptimisePlainly(plain);
  }
  qor::Log log({});
  TCBase::Mode optimised = mode;
  TCBase::OptimiseMode(optimised, log);
  if (optimised != plain) state.SkipWithError("the two results differ");
}

void SampleTable(benchmark::State& state) {
  const TCBase::Mode mode = RandomMode(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(TCBase::SampleTable(mode));
}

void SamplePlain(benchmark::State& state) {
  const TCBase::Mode mode = RandomMode(static_cast<int>(state.range(0)));
  std::vector<TCBase::ModeSample> table;
  for (auto _ : state) table = test::SampleTablePlainly(mode);
  if (table != TCBase::SampleTable(mode)) state.SkipWithError("the two tables differ");
}

BENCHMARK(Optimise)->Arg(300)->Arg(1440)->Unit(benchmark::kMicrosecond);
BENCHMARK(OptimisePlain)->Name("OptimisePlainly")->Arg(300)->Unit(benchmark::kMillisecond);
BENCHMARK(SampleTable)->Arg(1440)->Unit(benchmark::kMicrosecond);
BENCHMARK(SamplePlain)->Name("SampleTablePlainly")->Arg(1440)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench
