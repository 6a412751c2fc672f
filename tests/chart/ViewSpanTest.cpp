// SPDX-License-Identifier: MIT
#include "chart/ViewSpan.h"

#include <gtest/gtest.h>

namespace {

/// "08:00-14:00"
std::string TextOf(const UX::ViewSpan& view) {
  char text[24];
  std::snprintf(text, sizeof text, "%02d:%02d-%02d:%02d", view.Start() / 3600, view.Start() / 60 % 60,
                view.End() / 3600, view.End() / 60 % 60);
  return text;
}

}  // namespace

TEST(ViewSpan, ZoomsFromItsStartAndStaysInTheDay) {
  UX::ViewSpan view;
  EXPECT_EQ(view.ZoomPosition(), 0);
  view.ZoomTo(22);
  EXPECT_EQ(TextOf(view), "00:00-02:00");
  view.ScrollTo(8 * 60);
  view.ZoomTo(18);
  EXPECT_EQ(TextOf(view), "08:00-14:00");
  EXPECT_EQ(view.ZoomPosition(), 18);
  view.ZoomTo(4);
  EXPECT_EQ(TextOf(view), "04:00-24:00") << "the end does not leave the day";
  view.ZoomTo(-3);
  EXPECT_EQ(TextOf(view), "00:00-24:00");
  view.ZoomTo(99);
  EXPECT_EQ(TextOf(view), "00:00-02:00");
  view = {};
  view.ZoomAround(12 * 3600, -12);
  EXPECT_EQ(TextOf(view), "06:00-18:00") << "noon stays in the middle";
}

TEST(ViewSpan, ScrollsWithinTheDay) {
  UX::ViewSpan view;
  view.ScrollTo(60);
  EXPECT_EQ(TextOf(view), "00:00-24:00") << "there is nowhere to go";
  view.ZoomTo(20);
  EXPECT_EQ(view.ScrollPage(), 240);
  view.ScrollTo(view.ScrollPosition() + UX::ViewSpan::MinutesPerLine);
  EXPECT_EQ(TextOf(view), "00:15-04:15");
  view.ScrollTo(1400);
  EXPECT_EQ(TextOf(view), "20:00-24:00");
  view.ScrollTo(-15);
  EXPECT_EQ(TextOf(view), "00:00-04:00");
}
