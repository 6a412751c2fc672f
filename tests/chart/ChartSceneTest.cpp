// SPDX-License-Identifier: MIT
#include "chart/ChartScene.h"

#include <gtest/gtest.h>

#include "chart/RendererSVG.h"
#include "model/Presets.h"
#include "tests/support/Curves.h"

namespace {

using test::Curve;

class ChartScene : public testing::Test {
 protected:
  ChartScene() { program.modes.resize(1); }

  UX::ChartScene Make() { return UX::MakeChartScene(content, chart); }

  /// A channel's curve as "minute percent" at each corner.
  std::string CurveIn(std::size_t channel) {
    std::string text;
    for (const UX::Line& line : All<UX::Line>(Make().lanes[channel])) {
      for (const UX::Point& point : line.points) {
        text += std::to_string(std::lround(chart.SecondAt(point.x) / 60)) + " " +
                std::to_string(std::lround(chart.PercentAt(channel, point.y))) + ", ";
      }
    }
    return text;
  }

  template <typename Kind>
  static std::vector<Kind> All(const std::vector<UX::Shape>& shapes) {
    std::vector<Kind> all;
    for (const UX::Shape& shape : shapes) {
      if (const auto* one = std::get_if<Kind>(&shape)) all.push_back(*one);
    }
    return all;
  }

  /// Behind the two labels of its lane's scale.
  UX::Label NameOf(std::size_t channel, const UX::ChartScene& scene) {
    return All<UX::Label>(scene.back).at(3 * channel + 2);
  }

  TCBase::Program program = TCBase::NewProgram(qor::InEnglish);
  UX::ChartGeometry chart{744, 520, UX::ViewSpan()};
  UX::ChartContent content{program, 0, {}, {}, {}, {}};
};

}  // namespace

TEST_F(ChartScene, DrawsFadesAcrossMidnightAndHoldsUntilTheNextStep) {
  program.modes[0].channels[0] = Curve({{6, 0, 0}, {12, 0, 100}, {18, 0, 100}});
  EXPECT_EQ(CurveIn(0), "0 50, 360 0, 720 100, 1080 100, 1440 50, ");
  program.modes[0].channels[0] = Curve({{6, 0, 20, true}, {12, 0, 100}, {18, 0, 60, true}});
  EXPECT_EQ(CurveIn(0), "0 60, 360 60, 360 20, 720 20, 720 100, 1080 60, 1440 60, ");
  program.modes[0].channels[0] = Curve({{18, 0, 0}, {6, 0, 100}});
  EXPECT_EQ(CurveIn(0), "0 50, 360 100, 1080 0, 1440 50, ") << "steps out of order";
  program.modes[0].channels[0] = {};
  EXPECT_EQ(CurveIn(0), "0 0, 1440 0, ");
}

TEST_F(ChartScene, MarksNoStepThatIsNotThere) {
  content.selectedStep = UX::StepIndex{1, 99};
  EXPECT_TRUE(All<UX::Label>(Make().lanes[1]).empty());
}

TEST_F(ChartScene, KeepsLongNamesWithinTheirLane) {
  program.channelInfos[0].name = std::string(1000, 'x');
  const std::string name = NameOf(0, Make()).text;
  EXPECT_LT(name.size(), 60u);
  EXPECT_TRUE(name.ends_with("x\xE2\x80\xA6"));
}

TEST_F(ChartScene, BecomesAPictureThatHoldsAnyName) {
  program.channelInfos[0].name = "<a & b>\n\xFF";
  UX::RendererSVG renderer;
  renderer.Draw(Make());
  const std::string& picture = renderer.Picture();
  EXPECT_NE(picture.find(">1 &lt;a &amp; b&gt; \xEF\xBF\xBD</text>"), std::string::npos);
  EXPECT_NE(picture.find("<circle cx=\"285.33\""), std::string::npos) << "the step at eight";
  EXPECT_EQ(picture.substr(picture.size() - 7), "</svg>\n");
}
