// SPDX-License-Identifier: MIT
#include "model/Power.h"

#include <algorithm>
#include <cmath>

namespace TCBase {

float PowerOf(const Channel& channel) {
  const auto most = std::ranges::max_element(channel.steps, {}, &Step::value);
  return most != channel.steps.end() ? most->value : 0;
}

void SetPower(Channel& channel, int percent) {
  const float power = PowerOf(channel);
  if (power <= 0) return;
  const auto wanted = static_cast<float>(std::clamp(percent, 1, 100));
  float divisor = power / wanted;
  // Percentages are cut to whole ones when they are shown and sent: a quotient that a rounding has left just
  // below the number would come out one too low.
  while (power / divisor < wanted) divisor = std::nextafter(divisor, 0.0F);
  channel.Normalize(divisor);
}

}  // namespace TCBase
