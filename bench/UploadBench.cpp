// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include "QorLib/Log.h"
#include "model/Presets.h"
#include "worker/UploadJob.h"

namespace bench {
namespace {

/// The two built-in modes, traced, by the real clock.
void Upload(benchmark::State& state) {
  using namespace TCBase;
  const Program::ModeListView modes(NewProgram(qor::InEnglish));
  const DeviceInfo emulator = DeviceOfKind(DeviceKind::Emulator);
  for (auto _ : state) {
    qor::Log log([] { return qor::TimeOfDay{}; });
    log.SetTracing(true);
    JobControl control;
    const JobContext job{{platform::SystemClock(), log, platform::SystemNetwork()}, control};
    if (!UploadDevice(emulator, modes, job).IsDone()) state.SkipWithError("the upload failed");
  }
}

BENCHMARK(Upload)->Iterations(1)->Repetitions(1)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench
