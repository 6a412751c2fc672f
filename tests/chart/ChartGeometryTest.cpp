// SPDX-License-Identifier: MIT
#include "chart/ChartGeometry.h"

#include <gtest/gtest.h>

#include "tests/support/Curves.h"

namespace {

using test::Curve;
using UX::StepIndex;

UX::ChartGeometry Chart(float width = 744, float height = 520) {
  return {width, height, UX::ViewSpan()};
}

}  // namespace

TEST(ChartGeometry, StacksFiveLanes) {
  const UX::ChartGeometry chart = Chart();
  EXPECT_FLOAT_EQ(chart.Lane(1).top, chart.Lane(0).Bottom() + 14);
  EXPECT_FLOAT_EQ(chart.Plot().Bottom(), chart.Lane(4).Bottom());
  EXPECT_GE(Chart(10, 10).Lane(4).height, 1) << "however small the window";
}

TEST(ChartGeometry, MapsThereAndBack) {
  UX::ViewSpan view;
  view.ZoomTo(18);
  view.ScrollTo(7 * 60 + 30);
  const UX::ChartGeometry chart(1000, 700, view);
  EXPECT_FLOAT_EQ(chart.XOf(view.Start()), chart.Plot().left);
  EXPECT_FLOAT_EQ(chart.XOf(view.End()), chart.Plot().Right());
  EXPECT_FLOAT_EQ(chart.YOf(2, 0), chart.Lane(2).Bottom());
  EXPECT_FLOAT_EQ(chart.YOf(2, 100), chart.Lane(2).top);
  for (const int second : {0, 27000, 30123, 86399})
    EXPECT_NEAR(chart.SecondAt(chart.XOf(second)), second, 0.01);
  for (const float percent : {-5.0F, 0.0F, 33.25F, 120.0F}) {
    EXPECT_NEAR(chart.PercentAt(3, chart.YOf(3, percent)), percent, 0.001);
  }
}

TEST(ChartGeometry, TouchesStepsWithinARadiusThatGrowsWithTheChart) {
  EXPECT_EQ(Chart(744, 100).HitRadius(), 5.5F);
  EXPECT_EQ(Chart(744, 749).HitRadius(), 7.5F);
  EXPECT_EQ(Chart(744, 5000).HitRadius(), 10.5F);

  TCBase::Mode mode;
  mode.channels[0] = Curve({{8, 0, 50}, {8, 1, 50}, {12, 0, 0}});
  mode.channels[1] = Curve({{12, 0, 100}});
  const UX::ChartGeometry chart = Chart();
  const UX::Point eight = chart.PointOf(0, mode.channels[0].steps[1]);
  EXPECT_EQ(chart.HitTest(mode, eight), (StepIndex{0, 0}))
      << "the earlier one wins, though the other is nearer";
  EXPECT_EQ(chart.HitTest(mode, {eight.x + 5, eight.y}), (StepIndex{0, 0}));
  EXPECT_EQ(chart.HitTest(mode, {eight.x + 7, eight.y}), std::nullopt);

  // In a tall chart a pointer between two lanes touches both steps at noon: a click takes the upper one,
  // hovering the nearer one.
  const UX::ChartGeometry tall = Chart(744, 1200);
  const UX::Point between = {tall.XOf(12 * 3600), tall.Lane(1).top - 5};
  EXPECT_EQ(tall.HitTest(mode, between), (StepIndex{0, 2}));
  EXPECT_EQ(tall.NearestStep(mode, between), (StepIndex{1, 0}));
  EXPECT_EQ(chart.NearestStep(mode, {chart.XOf(12 * 3600), chart.Lane(1).top - 7}), std::nullopt);
}
