#include "display/CurvePainter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "display/DrawSpectFixture.h"

namespace dorvane {
namespace {

class CurveTest : public DrawSpectTest {};

// About 512 segments to a curve

TEST_F(CurveTest, StepIs1Upto512ChannelsAndAt513) {
  for (const std::int16_t width : {1, 512, 513}) {
    Show(0, width);
    EXPECT_EQ(CurveStep(engine->Scale(0)), 1) << width;
  }
}

TEST_F(CurveTest, StepIs2At1024AndHalfOf8192Is8) {
  Show(0, 1024);
  EXPECT_EQ(CurveStep(engine->Scale(0)), 2);
  Show(0, 4096);
  EXPECT_EQ(CurveStep(engine->Scale(0)), 8);
}

TEST_F(CurveTest, StepIs16At8192) {
  Show(0, 8192);
  EXPECT_EQ(CurveStep(engine->Scale(0)), 16);
}

TEST_F(CurveTest, StepIsRoundedToTheNearest) {
  Show(0, 716);  // 716 / 512 + 0.1 = 1.498
  EXPECT_EQ(CurveStep(engine->Scale(0)), 1);
  Show(0, 717);  // 1.5004
  EXPECT_EQ(CurveStep(engine->Scale(0)), 2);
}

TEST_F(CurveTest, TheCurveJoinsTheFirstTwoChannelsAndThenEveryStep) {
  Curve(Flat(8192));
  Show(10, 1024);
  const std::vector<double> joined = JoinedChannels();
  ASSERT_GE(joined.size(), 4u);
  EXPECT_THAT(std::vector<double>(joined.begin(), joined.begin() + 4),
              testing::ElementsAre(10, 11, 13, 15));
  EXPECT_EQ(joined.back(), 1033);  // EndX is 1033 = 11 + 2 * 511
  EXPECT_EQ(joined.size(), 513u);
}

TEST_F(CurveTest, NoPointLiesAboveTheLastChannel) {
  Curve(Flat(8192));
  Show(0, 1025);  // step 2: 0, 1, 3 .. 1023; 1025 would be past 1024
  EXPECT_EQ(JoinedChannels().back(), 1023);
}

TEST_F(CurveTest, ASingleChannelDrawsNothing) {
  Curve(Flat(8192));
  Show(5, 1);
  engine->Redraw(0);
  EXPECT_TRUE(surface.Lines().empty());
  EXPECT_TRUE(surface.Dots().empty());
}

TEST_F(CurveTest, AStretchOfZeroCountsDrawsNoSegments) {
  Curve({5, 0, 0, 0, 7, 0});
  Show(0, 6);
  EXPECT_THAT(JoinedChannels(), testing::ElementsAre(0, 1, 4, 5));
  const auto lines = surface.Lines();
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[1].from, (Point{3, 0}));
  EXPECT_EQ(lines[1].to, (Point{4, 7}));
}

TEST_F(CurveTest, CountsAreHeightsAndAreCutAtTheTop) {
  Curve({10, 500, 501, 900});
  Show(0, 4);
  engine->SetYScale(0, kLinear, 500);
  engine->Redraw(0);
  const auto lines = surface.Lines();
  EXPECT_EQ(lines[0].from, (Point{0, 10}));
  EXPECT_EQ(lines[0].to, (Point{1, 500}));
  EXPECT_EQ(lines[1].to, (Point{2, 500}));
  EXPECT_EQ(lines[2].to, (Point{3, 500}));
}

TEST_F(CurveTest, AValueAboveTheTopHasNoDotAndOneAtTheTopHas) {
  Curve({10, 500, 501, 900});
  Show(0, 4);
  engine->SetYScale(0, kLinear, 500);
  engine->Redraw(0);
  ASSERT_EQ(surface.Dots().size(), 1u);
  EXPECT_EQ(surface.Dots()[0].from, (Point{1, 500}));
}

TEST_F(CurveTest, DotsStandOnEveryChannelButTheFirstAndZeros) {
  Curve({9, 1, 0, 3});
  Show(0, 4);
  engine->Redraw(0);
  const auto dots = surface.Dots();
  ASSERT_EQ(dots.size(), 2u);
  EXPECT_EQ(dots[0].from, (Point{1, 1}));
  EXPECT_EQ(dots[1].from, (Point{3, 3}));
}

TEST_F(CurveTest, DotsKeepTheirOwnStep) {
  Curve(Flat(2048));
  Show(0, 1024);
  engine->SetDotStep(4);
  engine->Redraw(0);
  EXPECT_EQ(surface.Dots().size(), 256u);  // 1, 5 .. 1021
  EXPECT_EQ(surface.Dots()[1].from.x, 5);
}

TEST_F(CurveTest, DotStep0CountsAs1) {
  Curve(Flat(10));
  Show(0, 10);
  engine->SetDotStep(0);
  engine->Redraw(0);
  EXPECT_EQ(surface.Dots().size(), 9u);
}

TEST_F(CurveTest, DotModeDrawsNoSegments) {
  Curve(Flat(10));
  Show(0, 10);
  engine->SetDrawMode(0, kDrawDot);
  EXPECT_TRUE(surface.Lines().empty());
  EXPECT_EQ(surface.Dots().size(), 9u);
}

TEST_F(CurveTest, LinesAre2WideBelow2049ChannelsAndTheOldWidthReturns) {
  Curve(Flat(8192));
  surface.SetLineWidth(5);
  Show(0, 2048);
  engine->Redraw(0);
  EXPECT_EQ(surface.Lines().front().width, 2);
  EXPECT_EQ(surface.Dots().front().width, 2);
  EXPECT_EQ(surface.LineWidth(), 5);
  surface.Forget();
  Show(0, 2049);
  engine->Redraw(0);
  EXPECT_EQ(surface.Lines().front().width, 1);
  EXPECT_EQ(surface.LineWidth(), 5);
}

TEST_F(CurveTest, AnOwnColourBelongsToTheSegmentThatEndsAtThePoint) {
  Curve(Flat(6));
  Show(0, 6);
  engine->SetPointColor(0, 0, 2, 3, kOwn);
  engine->Redraw(0);
  std::vector<Color> colors;
  for (const Stroke& line : surface.Lines()) colors.push_back(line.color);
  EXPECT_THAT(colors, testing::ElementsAre(kInk, kOwn, kOwn, kInk, kInk));
  EXPECT_THAT(surface.line_batches, testing::ElementsAre(1, 2, 2));
  EXPECT_EQ(surface.Dots()[1].color, kOwn);
}

TEST_F(CurveTest, ColourOfAStretchWithEqualEndsIsMeantToChangeNothing) {
  engine->SetPointColor(0, 0, 4, 4, kOwn);
  EXPECT_EQ(engine->CurveOf(0, 0).PointColors[4], 0);
}

TEST_F(CurveTest, ColourWithNegativeBoundsChangesNothing) {
  engine->SetPointColor(0, 0, -1, 4, kOwn);
  engine->SetPointColor(0, 0, 4, -1, kOwn);
  EXPECT_EQ(engine->CurveOf(0, 0).PointColors[0], 0);
  EXPECT_EQ(engine->CurveOf(0, 0).PointColors[4], 0);
}

TEST_F(CurveTest, ColourPastTheLastPointIsCut) {
  engine->SetPointColor(0, 0, 8190, 32767, kOwn);
  EXPECT_EQ(engine->CurveOf(0, 0).PointColors[8192], kOwn);
}

TEST_F(CurveTest, LongRunsReachTheSurfaceWhole) {
  Curve(Flat(8192));
  Show(0, 8192);
  engine->Redraw(0);
  EXPECT_EQ(surface.Lines().size(), 512u);
  EXPECT_EQ(surface.Dots().size(), 8191u);
  EXPECT_EQ(surface.Dots()[1024].from.x, 1025);
}

TEST_F(CurveTest, OnTheLogarithmicScaleHeightsAreDecades) {
  Curve({1, 100, 1000, 0, 100000, 20});
  Show(0, 6);
  engine->SetYScale(0, kLogarithmic, 10000);
  engine->Redraw(0);
  const auto lines = surface.Lines();
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_DOUBLE_EQ(lines[0].from.y, 0);
  EXPECT_DOUBLE_EQ(lines[0].to.y, 2);
  EXPECT_DOUBLE_EQ(lines[1].to.y, 3);
  EXPECT_DOUBLE_EQ(lines[2].to.y, 0);             // a count of 0 stays at 0
  EXPECT_DOUBLE_EQ(lines[3].to.y, 4);             // cut to the top
  EXPECT_NEAR(lines[4].to.y, 1.30103, 0.000005);  // log10 of 20, from a table of logarithms
}

TEST_F(CurveTest, LogarithmsAgreeOnBothSidesOfTheTable) {
  const LogTable logs;
  ViewScale scale;
  scale.YMode = kLogarithmic;
  const HeightMap with_table(scale, {}, &logs);
  const HeightMap without(scale, {});
  for (const std::int32_t count : {-5, 0, 1, 4095, 4096, 1000000}) {
    EXPECT_EQ(with_table.At(count).y, without.At(count).y) << count;
  }
}

TEST_F(CurveTest, NegativeCountsStayBelowTheBottomAndAreZeroOnTheLogarithmicScale) {
  const HeightMap linear({}, {});
  EXPECT_EQ(linear.At(-30).y, -30);
  ViewScale scale;
  scale.YMode = kLogarithmic;
  EXPECT_EQ(HeightMap(scale, {}).At(-30).y, 0);
}

TEST_F(CurveTest, AFailingSurfaceEndsTheCurveSilentlyAndKeepsItsWidth) {
  Curve(Flat(10));
  Show(0, 10);
  surface.SetLineWidth(4);
  surface.fails = true;
  engine->Redraw(0);
  EXPECT_EQ(surface.LineWidth(), 4);
  EXPECT_TRUE(surface.Lines().empty());
}

// Paint mode

TEST_F(CurveTest, PaintModeFillsFromTheBottomWithoutGaps) {
  Curve({3, 4, 0, 6});
  Show(0, 4);
  engine->SetDrawMode(0, kDrawPaint);
  const auto bars = surface.Boxes();
  ASSERT_EQ(bars.size(), 3u);
  EXPECT_EQ(bars[0].from, (Point{-0.5, 0}));
  EXPECT_EQ(bars[0].to, (Point{0.5, 3}));
  EXPECT_EQ(bars[1].from, (Point{0.5, 0}));
  EXPECT_EQ(bars[1].to, (Point{1.5, 4}));
  EXPECT_EQ(bars[2].to, (Point{3.5, 6}));
  EXPECT_EQ(bars[0].color, kInk);
  EXPECT_TRUE(surface.Lines().empty());
  EXPECT_TRUE(surface.Dots().empty());
}

TEST_F(CurveTest, PaintModeHasTheStepAndTheColoursOfTheCurve) {
  Curve(Flat(2048));
  Show(0, 1024);
  engine->SetPointColor(0, 0, 3, 4, kOwn);
  engine->SetDrawMode(0, kDrawPaint);
  const auto bars = surface.Boxes();
  ASSERT_EQ(bars.size(), 513u);  // 0, 1, 3 .. 1023
  EXPECT_EQ(bars[2].from.x, 2);
  EXPECT_EQ(bars[2].to.x, 4);
  EXPECT_EQ(bars[2].color, kOwn);
  EXPECT_EQ(bars[3].color, kInk);
}

// Pages

TEST_F(CurveTest, OnAPageHeightsRunDownwards) {
  Curve({100, 500, 0, 900});
  Show(0, 4);
  engine->SetYScale(0, kLinear, 500);
  engine->SetPrintSettings({kTrue, 3});
  EXPECT_EQ(surface.top, 0);
  EXPECT_EQ(surface.bottom, 500);
  engine->Redraw(0);
  const auto lines = surface.Lines();
  EXPECT_EQ(lines[0].from, (Point{0, 400}));
  EXPECT_EQ(lines[0].to, (Point{1, 0}));
  EXPECT_EQ(lines[1].to, (Point{2, 500}));
  EXPECT_EQ(lines[2].to, (Point{3, 0}));
}

TEST_F(CurveTest, APageIsBlackInThePrintersWidth) {
  Curve(Flat(10));
  Show(0, 10);
  engine->SetPointColor(0, 0, 2, 5, kOwn);
  engine->SetPrintSettings({kTrue, 3});
  engine->AddPeakLine(0, 4);
  engine->AddText(0, 4, 10, "a", kOwn, 0, 0);
  surface.Forget();
  engine->Redraw(0);
  for (const Stroke& stroke : surface.strokes) {
    if (stroke.kind == Stroke::Kind::Clear) continue;
    EXPECT_EQ(stroke.color, Rgb(0, 0, 0));
    if (stroke.kind == Stroke::Kind::Line) {
      EXPECT_EQ(stroke.width, 3);
    }
  }
}

}  // namespace
}  // namespace dorvane
