// SPDX-License-Identifier: MIT
#include "chart/ViewSpan.h"

#include <algorithm>
#include <cmath>

namespace UX {

void ViewSpan::ScrollTo(int minute) {
  Set(std::int64_t{minute} * 60, Seconds());
}

void ViewSpan::ZoomTo(int position) {
  constexpr int MostHours = TCBase::SecondsPerDay / 3600;
  Set(start_, (MostHours - std::clamp(position, 0, MaxZoomPosition)) * 3600);
}

void ViewSpan::Scroll(BarMove move, int tracked) {
  constexpr int LastMinute = TCBase::SecondsPerDay / 60;
  switch (move) {
    case BarMove::LineBack: return ScrollTo(ScrollPosition() - MinutesPerLine);
    case BarMove::LineOn: return ScrollTo(ScrollPosition() + MinutesPerLine);
    case BarMove::PageBack: return ScrollTo(ScrollPosition() - ScrollPage());
    case BarMove::PageOn: return ScrollTo(ScrollPosition() + ScrollPage());
    case BarMove::Track: return ScrollTo(tracked);
    case BarMove::First: return ScrollTo(0);
    case BarMove::Last: return ScrollTo(LastMinute);
  }
}

void ViewSpan::Zoom(BarMove move, int tracked) {
  switch (move) {
    case BarMove::LineBack:
    case BarMove::PageBack: return ZoomTo(ZoomPosition() - 1);
    case BarMove::LineOn:
    case BarMove::PageOn: return ZoomTo(ZoomPosition() + 1);
    case BarMove::Track: return ZoomTo(tracked);
    case BarMove::First: return ZoomTo(0);
    case BarMove::Last: return ZoomTo(MaxZoomPosition);
  }
}

void ViewSpan::ZoomAround(int second, int hours) {
  const double share = static_cast<double>(second - start_) / Seconds();
  ZoomBy(hours);
  Set(second - std::lround(share * Seconds()), Seconds());
}

void ViewSpan::Set(std::int64_t start, int seconds) {
  start_ = static_cast<int>(std::clamp<std::int64_t>(start, 0, TCBase::SecondsPerDay - seconds));
  end_ = start_ + seconds;
}

}  // namespace UX
