// SPDX-License-Identifier: MIT
#include "formats/ProgramFile.h"

#include "model/ModeSample.h"
#include "tests/fuzz/Fuzz.h"

void Feed(std::string_view input) {
  using namespace TCBase;
  Program program, reread;
  if (ReadProgram(std::string(input), program)) {
    Expect(program == Program(), "a failed load changes nothing");
    return;
  }
  for (const Mode& mode : program.modes) {
    Expect(SampleTable(mode).size() == static_cast<std::size_t>(StepCount(mode)), "a sample for each step");
  }
  Expect(!ReadProgram(WriteProgram(program), reread), "what was written can be read");
  Expect(reread == program, "what was written reads back the same");
}
