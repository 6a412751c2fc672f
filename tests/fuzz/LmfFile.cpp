// SPDX-License-Identifier: MIT
#include "formats/LmfFile.h"

#include "tests/fuzz/Fuzz.h"

void Feed(std::string_view input) {
  using namespace TCBase;
  std::string bytes(input);
  bytes.resize(960);  // other sizes are refused at once
  Mode mode, reread;
  Expect(ImportLMF(bytes, mode).isImported, "any bytes of that size are taken");
  for (const Channel& channel : mode.channels) {
    Expect(channel.steps.size() >= 2, "each channel keeps two steps");
    for (const Step& step : channel.steps) Expect(step.value >= 0 && step.value <= 100, "values are clamped");
  }
  Expect(ImportLMF(ExportLMF(mode), reread).isImported, "what was written can be read");
}
