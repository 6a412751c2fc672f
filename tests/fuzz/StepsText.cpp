// SPDX-License-Identifier: MIT
#include "formats/StepsText.h"

#include "tests/fuzz/Fuzz.h"

void Feed(std::string_view input) {
  std::vector<TCBase::Step> steps, reread;
  TCBase::ParseStepsText(input, steps);
  for (const TCBase::Step& step : steps) {
    Expect(step.value >= 0 && step.value <= 100, "values are clamped");
    Expect(step.MinuteOfDay() >= 0 && step.MinuteOfDay() < TCBase::MinutesPerDay, "times are clamped");
  }
  TCBase::ParseStepsText(TCBase::WriteStepsText(steps), reread);
  Expect(reread == steps, "what was written reads back the same");
}
