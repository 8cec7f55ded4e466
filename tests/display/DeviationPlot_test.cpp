#include "display/DeviationPlot.h"

#include <gmock/gmock.h>

#include "display/RecordingSurface.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr DeviationColors kColors{1, 2, 3, 4};
constexpr Color kInk = 7;

class DeviationPlotTest : public testing::Test {
 protected:
  void Draw() {
    const DeviationSeries series[] = {{"first", kInk, points}};
    DrawDeviationPlot(surface, series, kColors, "hint");
  }
  std::vector<std::string> Labels() const {
    std::vector<std::string> labels;
    for (const Stroke& text : surface.Texts()) labels.push_back(text.text);
    return labels;
  }
  // Squares of the points, without that of the legend, which is the first.
  std::vector<Stroke> Points() const {
    auto boxes = surface.Boxes();
    boxes.erase(boxes.begin());
    return boxes;
  }
  static double Middle(const Stroke& box) { return (box.from.y + box.to.y) / 2; }
  double ZeroLine() const {
    for (const Stroke& line : surface.Lines()) {
      if (line.color == kColors.axis && line.from.y == line.to.y) return line.from.y;
    }
    return -1;
  }

  RecordingSurface surface;
  std::vector<DeviationPoint> points;
};

TEST_F(DeviationPlotTest, WithoutPointsItSaysWhatToDo) {
  Draw();
  EXPECT_THAT(Labels(), ElementsAre("hint"));
  EXPECT_THAT(surface.Boxes(), IsEmpty());
}

TEST_F(DeviationPlotTest, PositiveDeviationsStandAboveTheZeroLine) {
  points = {{1, 0.001}, {2, -0.001}, {3, 0}};
  Draw();
  ASSERT_EQ(Points().size(), 3u);
  EXPECT_LT(Middle(Points()[0]), ZeroLine());
  EXPECT_GT(Middle(Points()[1]), ZeroLine());
  EXPECT_NEAR(Middle(Points()[2]), ZeroLine(), 1e-9);
  EXPECT_NEAR(ZeroLine() - Middle(Points()[0]), Middle(Points()[1]) - ZeroLine(), 1e-9);
}

TEST_F(DeviationPlotTest, LargerDStandsFurtherToTheRight) {
  points = {{1, 0}, {3, 0}, {2, 0}};
  Draw();
  EXPECT_LT(Points()[0].from.x, Points()[2].from.x);
  EXPECT_LT(Points()[2].from.x, Points()[1].from.x);
}

// 0.0008 with a seventh of room is 0.00092: steps of a third of it, rounded up to 0.0004.
TEST_F(DeviationPlotTest, DeviationsAreLabelledAtRoundSteps) {
  points = {{1, 0.0008}, {2, -0.0003}};
  Draw();
  for (const char* label : {"0.0000", "0.0004", "0.0008", "-0.0004", "-0.0008"}) {
    EXPECT_THAT(Labels(), Contains(label));
  }
  EXPECT_THAT(Labels(), Contains("d (Å)"));
}

TEST_F(DeviationPlotTest, LabelsDoNotOverlap) {
  for (int i = 0; i < 40; ++i) points.push_back({0.8 + 0.07 * i, 0.0001 * (i % 7)});
  Draw();
  const auto texts = surface.Texts();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (std::size_t j = i + 1; j < texts.size(); ++j) {
      const auto width = [&](std::size_t k) {
        return RecordingSurface::kCharWidth * static_cast<double>(texts[k].text.size());
      };
      const bool apart_x = texts[i].from.x + width(i) <= texts[j].from.x ||
                           texts[j].from.x + width(j) <= texts[i].from.x;
      const bool apart_y =
          std::fabs(texts[i].from.y - texts[j].from.y) >= RecordingSurface::kCharHeight;
      EXPECT_TRUE(apart_x || apart_y) << texts[i].text << " " << texts[j].text;
    }
  }
}

TEST_F(DeviationPlotTest, ExcludedPointsAreGrey) {
  points = {{1, 0.001}, {2, 0.001, true}};
  Draw();
  EXPECT_EQ(Points()[0].color, kInk);
  EXPECT_EQ(Points()[1].color, kColors.excluded);
}

TEST_F(DeviationPlotTest, FarExcludedPointStandsAtTheEdgeAndLeavesTheOthersRoom) {
  points = {{1, 0.001}, {2, 0.5, true}};
  Draw();
  EXPECT_GT(ZeroLine() - Middle(Points()[0]), 0.2 * (ZeroLine() - Middle(Points()[1])));
  EXPECT_GT(Middle(Points()[1]), 0);
}

// 0.002 with a seventh of room, in thirds, rounded up: 0.0008.
TEST_F(DeviationPlotTest, ExcludedPointsAloneSetTheScale) {
  points = {{1, 0.001, true}, {2, -0.002, true}};
  Draw();
  EXPECT_THAT(Labels(), Contains("0.0016"));
}

TEST_F(DeviationPlotTest, OnePointWithoutADeviationIsDrawn) {
  points = {{2, 0}};
  Draw();
  EXPECT_EQ(Points().size(), 1u);
  EXPECT_THAT(Labels(), Not(Contains("NaN")));
}

}  // namespace
}  // namespace dorvane
