// SPDX-License-Identifier: MIT
#include "formats/TmfFile.h"

#include "model/ModeSample.h"
#include "model/Program.h"
#include "tests/fuzz/Fuzz.h"

void Feed(std::string_view input) {
  using namespace TCBase;
  Mode mode, reread;
  if (!ImportTMF(input, mode).isImported) {
    Expect(mode == Mode(), "a refused file changes nothing");
    return;
  }
  Expect(StepCount(mode) >= 1 && StepCount(mode) <= MaxModeSteps, "the number of steps is limited");
  const std::string bytes = ExportTMF(mode);
  Expect(ImportTMF(bytes, reread).isImported, "what was written can be read");
  Expect(ExportTMF(reread) == bytes, "what was written reads back the same");
}
