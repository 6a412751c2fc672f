// SPDX-License-Identifier: MIT
#include "ui/ViewSpan.h"

#include <algorithm>

namespace UX {

void ViewSpan::ScrollTo(int minute) {
  Place(std::int64_t{minute} * 60, Seconds());
}

void ViewSpan::ZoomTo(int position) {
  constexpr int MostHours = TCBase::SecondsPerDay / 3600;
  Place(start_, (MostHours - std::clamp(position, 0, MaxZoomPosition)) * 3600);
}

void ViewSpan::Place(std::int64_t start, int seconds) {
  start_ = static_cast<int>(std::clamp<std::int64_t>(start, 0, TCBase::SecondsPerDay - seconds));
  end_ = start_ + seconds;
}

}  // namespace UX
