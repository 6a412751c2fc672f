// SPDX-License-Identifier: MIT
// Whole pictures of the chart, held against those in tests/data/charts. Where one is meant to change, run the
// test with HALVEX_UPDATE_GOLDEN=1 and look at the new picture.
#include <gtest/gtest.h>

#include <cstdlib>

#include "chart/RendererSVG.h"
#include "model/Presets.h"
#include "tests/support/TempFolder.h"

namespace {

void ExpectPicture(const std::string& name, const UX::ChartContent& content,
                   const UX::ChartGeometry& geometry) {
  UX::RendererSVG renderer;
  renderer.Draw(UX::MakeChartScene(content, geometry));
  const std::string path = std::string(HALVEX_TEST_DATA) + "/charts/" + name + ".svg";
  if (std::getenv("HALVEX_UPDATE_GOLDEN") != nullptr) test::Write(path, renderer.Picture());
  EXPECT_TRUE(renderer.Picture() == test::Contents(path)) << name << " is another picture now";
}

}  // namespace

TEST(GoldenScene, ShowsTheWholeDayOfANewProgram) {
  const TCBase::Program program = TCBase::NewProgram(qor::InEnglish);
  ExpectPicture("new-program", {program}, {744, 520, UX::ViewSpan()});
}

TEST(GoldenScene, ShowsSelectionAndDemoInAPartOfTheDay) {
  TCBase::Program program = TCBase::NewProgram(qor::InEnglish);
  program.modes[0].channels[1].steps[2].jump = true;
  UX::ViewSpan view;
  view.ZoomTo(14);
  view.ScrollTo(9 * 60);
  UX::ChartContent content{program};
  content.selectedChannel = 1;
  content.selectedStep = {{1, 2}};
  content.hoveredStep = {{3, 3}};
  content.demoSecond = 12 * 3600;
  content.hasFocus = true;
  ExpectPicture("selection-and-demo", content, {900, 600, view});
}
