// SPDX-License-Identifier: MIT
#pragma once

#include "model/Step.h"

namespace UX {

/// What a user does to a scroll bar or a zoom bar.
enum class BarMove { LineBack, LineOn, PageBack, PageOn, Track, First, Last };

/// The part of the day that the chart shows, in seconds of the day, and how a scroll bar and a zoom bar move
/// it. It never leaves the day: 0 ≤ start < end ≤ 86400.
class ViewSpan {
 public:
  static constexpr int MinutesPerLine = 15;   // of the scroll bar
  static constexpr int MaxZoomPosition = 22;  // of the zoom bar, which begins at 0 with the whole day

  int Start() const { return start_; }
  int End() const { return end_; }
  int Seconds() const { return end_ - start_; }

  // The scroll bar, in minutes from 0 to 1440; its page is the span.
  int ScrollPosition() const { return start_ / 60; }
  int ScrollPage() const { return Seconds() / 60; }
  /// Puts the start there, or as near as the day allows; the span stays as it is.
  void ScrollTo(int minute);

  /// 0 for 24 hours, 22 for 2 hours.
  int ZoomPosition() const { return TCBase::SecondsPerDay / 3600 - Seconds() / 3600; }
  /// Keeps the start where the day allows it. Positions beyond the bar's ends count as its ends.
  void ZoomTo(int position);

  /// `tracked` is where the thumb was dragged to, for Track.
  void Scroll(BarMove move, int tracked = 0);
  void Zoom(BarMove move, int tracked = 0);

  // The keys
  /// Shows so many hours more, from the same start; from 2 to 24.
  void ZoomBy(int hours) { ZoomTo(ZoomPosition() - hours); }
  /// The same, but what stands at `second` stays in its place on the screen where the day allows it.
  void ZoomAround(int second, int hours);
  void MoveBy(int seconds) { Set(std::int64_t{start_} + seconds, Seconds()); }

  bool operator==(const ViewSpan&) const = default;

 private:
  void Set(std::int64_t start, int seconds);

  int start_ = 0;
  int end_ = TCBase::SecondsPerDay;
};

}  // namespace UX
