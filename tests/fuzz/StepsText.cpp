// SPDX-License-Identifier: MIT
#include "formats/StepsText.h"

#include "tests/fuzz/Fuzz.h"

void Feed(std::string_view input) {
  const std::vector<TCBase::Step> steps = TCBase::ReadStepsText(input).steps;
  for (const TCBase::Step& step : steps) {
    Expect(step.value >= 0 && step.value <= 100, "values are clamped");
    Expect(step.MinuteOfDay() >= 0 && step.MinuteOfDay() < TCBase::MinutesPerDay, "times are clamped");
  }
  Expect(TCBase::ReadStepsText(TCBase::WriteStepsText(steps)).steps == steps,
         "what was written reads back the same");
}
