#include "display/CalibrationPlot.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <optional>

#include "display/RecordingSurface.h"

namespace dorvane {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

constexpr CalibrationColors kColors{1, 2, 3, 4, 5};
constexpr double kInf = std::numeric_limits<double>::infinity();

// E = 1 + 0.03 x, unless a test says otherwise; 1000 pixels by 600.
class CalibrationPlotTest : public testing::Test {
 protected:
  CalibrationPlotTest() { SetCoefficients(1, 0.03, 0); }
  void SetCoefficients(double a, double b, double c) {
    curve.coefficients[0] = a;
    curve.coefficients[1] = b;
    curve.coefficients[2] = c;
  }
  void Draw() {
    curve.points = points;
    curve.last_channel = 1000;
    surface.Forget();
    DrawCalibrationPlot(surface, curve, kColors);
  }
  std::vector<std::string> Labels() const {
    std::vector<std::string> labels;
    for (const Stroke& text : surface.Texts()) labels.push_back(text.text);
    return labels;
  }
  // The last text of that wording: labels of the channels are drawn last.
  Point PlaceOf(const std::string& label) const {
    std::optional<Point> place;
    for (const Stroke& text : surface.Texts()) {
      if (text.text == label) place = text.from;
    }
    EXPECT_TRUE(place.has_value()) << "no label " << label;
    return place.value_or(Point{});
  }
  void ExpectLabelsApart() const {
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
  std::vector<Stroke> Strokes(Color color) const {
    std::vector<Stroke> found;
    for (const Stroke& line : surface.Lines()) {
      if (line.color == color) found.push_back(line);
    }
    return found;
  }
  // Middles of the points: first those on the curve, then those of the residuals.
  std::vector<Point> Marks() const {
    std::vector<Point> marks;
    for (const Stroke& box : surface.Boxes()) {
      marks.push_back({(box.from.x + box.to.x) / 2, (box.from.y + box.to.y) / 2});
    }
    return marks;
  }
  // Height of the drawn curve at a place across the surface.
  double CurveAt(double x) const {
    for (const Stroke& line : Strokes(kColors.curve)) {
      if (line.from.x <= x && x <= line.to.x) {
        const double share = (x - line.from.x) / (line.to.x - line.from.x);
        return line.from.y + share * (line.to.y - line.from.y);
      }
    }
    ADD_FAILURE() << "no curve at " << x;
    return 0;
  }

  // Of any size.
  class SizedSurface : public RecordingSurface {
   public:
    double width = kWidth;
    double height = kHeight;
    Point PixelSize() const override {
      return {std::abs(right - left) / width, std::abs(bottom - top) / height};
    }
  };
  SizedSurface surface;
  std::vector<Point> points;
  CalibrationCurve curve;
};

TEST_F(CalibrationPlotTest, TitleAndAxesHaveTheirNames) {
  points = {{100, 4}, {200, 7}};
  Draw();
  for (const char* label : {"Energy Calibration Curve", "keV", "Channel", "eV"}) {
    EXPECT_THAT(Labels(), Contains(label));
  }
}

TEST_F(CalibrationPlotTest, MemoStandsBelowTheTitle) {
  curve.memo = "Energy(keV) = ...";
  Draw();
  EXPECT_GT(PlaceOf("Energy(keV) = ...").y, PlaceOf("Energy Calibration Curve").y);
}

// 1 + 0.03 * 100 = 4 keV: 4.025 keV lies 25 eV above the line.
TEST_F(CalibrationPlotTest, ResidualIsPositiveAboveTheCurve) {
  EXPECT_NEAR(ResidualEv(curve, {100, 4.025}), 25, 1e-9);
  EXPECT_NEAR(ResidualEv(curve, {100, 3.99}), -10, 1e-9);
}

// 1 + 0.03 * 100 + 1e-6 * 100^2 = 4.01 keV.
TEST_F(CalibrationPlotTest, ResidualLooksAtTheSquare) {
  SetCoefficients(1, 0.03, 1e-6);
  EXPECT_NEAR(ResidualEv(curve, {100, 4}), -10, 1e-9);
}

TEST_F(CalibrationPlotTest, PointsOnTheCurveAreMarkedUponIt) {
  SetCoefficients(1, 0.03, 1e-6);
  points = {{100, 4.01}, {500, 16.25}};
  Draw();
  ASSERT_EQ(Marks().size(), 4u);
  EXPECT_NEAR(Marks()[0].y, CurveAt(Marks()[0].x), 0.5);
  EXPECT_NEAR(Marks()[1].y, CurveAt(Marks()[1].x), 0.5);
}

TEST_F(CalibrationPlotTest, CurveRunsFromChannelZeroToTheLast) {
  points = {{100, 4}};
  Draw();
  const auto strokes = Strokes(kColors.curve);
  const double zero = PlaceOf("0").x + RecordingSurface::kCharWidth / 2;
  EXPECT_NEAR(strokes.front().from.x, zero, 1);
  // Channel 100 of 1000 is a tenth of the way.
  EXPECT_NEAR(Marks()[0].x - strokes.front().from.x,
              0.1 * (strokes.back().to.x - strokes.front().from.x), 0.5);
}

TEST_F(CalibrationPlotTest, PointBeyondTheLastChannelLengthensTheCurve) {
  points = {{2000, 61}};
  Draw();
  EXPECT_NEAR(Strokes(kColors.curve).back().to.x, Marks()[0].x, 1e-6);
}

TEST_F(CalibrationPlotTest, ResidualsStandBelowTheCurveInTheSamePlacesAcross) {
  points = {{100, 4.01}, {500, 15.98}, {900, 28}};
  Draw();
  const auto marks = Marks();
  ASSERT_EQ(marks.size(), 6u);
  for (int i = 0; i < 3; ++i) {
    const auto at = static_cast<std::size_t>(i);
    EXPECT_EQ(marks[at].x, marks[at + 3].x);
    EXPECT_LT(marks[at].y, marks[at + 3].y);
  }
  // +10 eV above, -20 eV twice as far below, 0 between.
  EXPECT_NEAR(marks[4].y - marks[5].y, 2 * (marks[5].y - marks[3].y), 1e-6);
}

// Residuals of 20 eV and a twentieth of 40 more, 22 eV, in halves, rounded up: 20.
TEST_F(CalibrationPlotTest, AxesAreLabelledAtRoundSteps) {
  points = {{100, 4.01}, {500, 15.98}};
  Draw();
  for (const char* label : {"0", "100", "200", "1000", "20", "-20"}) {
    EXPECT_THAT(Labels(), Contains(label));
  }
}

// Of 25 pixels for the residuals 23 lie between the labels, each 16 high: none fits between.
TEST_F(CalibrationPlotTest, LabelWithoutRoomIsLeftOutAndItsTickIsDrawn) {
  points = {{100, 4.01}, {500, 15.98}};
  surface.height = 220;
  Draw();
  EXPECT_THAT(Labels(), AllOf(Contains("20"), Contains("-20")));
  ExpectLabelsApart();
}

TEST_F(CalibrationPlotTest, SurfaceWithoutRoomStaysEmpty) {
  points = {{100, 4.01}};
  for (const double height : {1.0, 40.0, 100.0, 130.0, 160.0}) {
    surface.height = height;
    Draw();
    EXPECT_EQ(surface.strokes.size(), 1u) << height;
  }
  surface.height = 600;
  surface.width = 60;
  Draw();
  EXPECT_EQ(surface.strokes.size(), 1u);
}

TEST(TickPicture, FollowsTheSizeOfTheStep) {
  EXPECT_EQ(TickPicture(0.001), "#0.000");
  EXPECT_EQ(TickPicture(0.009), "#0.000");
  EXPECT_EQ(TickPicture(0.01), "##0.00");
  EXPECT_EQ(TickPicture(0.09), "##0.00");
  EXPECT_EQ(TickPicture(0.1), "###0.0");
  EXPECT_EQ(TickPicture(0.9), "###0.0");
  EXPECT_EQ(TickPicture(1), "#####0");
  EXPECT_EQ(TickPicture(5000), "#####0");
  EXPECT_EQ(TickPicture(500, true), "###0");
}

// 0 to 0.02 keV with a twentieth more at each end, in eighths, rounded up: 0.003.
TEST_F(CalibrationPlotTest, SmallEnergiesHaveThePlacesOfTheirStep) {
  SetCoefficients(0, 2e-5, 0);
  points = {{500, 0.01}};
  Draw();
  EXPECT_THAT(Labels(), Contains("0.003"));
}

TEST_F(CalibrationPlotTest, ChannelsAreWholeNumbers) {
  curve.points = {};
  curve.last_channel = 3;
  DrawCalibrationPlot(surface, curve, kColors);
  for (const char* label : {"1", "2", "3"}) EXPECT_THAT(Labels(), Contains(label).Times(1));
}

TEST_F(CalibrationPlotTest, ExactFitKeepsAScale) {
  points = {{100, 4}, {200, 7}};
  Draw();
  EXPECT_THAT(Labels(), Not(Contains("NaN")));
  EXPECT_EQ(Marks().size(), 4u);
}

TEST_F(CalibrationPlotTest, LabelsDoNotOverlap) {
  for (const double top : {0.02, 7.0, 160.0, 99999.0}) {
    SetCoefficients(0, top / 1000, 0);
    points = {{100, top / 10 + 0.004}, {900, 0.9 * top - 0.3}};
    Draw();
    ExpectLabelsApart();
  }
}

TEST_F(CalibrationPlotTest, WideLabelsOfChannelsDoNotOverlap) {
  points = {{1e12, 4}};
  Draw();
  ExpectLabelsApart();
}

TEST_F(CalibrationPlotTest, AxisWhoseExtentOverflowsIsNotDrawn) {
  const std::vector<Point> wild[] = {
      {{100, 1e308}, {200, -1e308}}, {{-1e308, 4}, {1e308, 4}}, {{100, 1.5e305}}};
  for (const auto& each : wild) {
    points = each;
    Draw();
    EXPECT_EQ(surface.strokes.size(), 1u) << each.front().x;
  }
}

TEST_F(CalibrationPlotTest, WithoutPointsThereIsTheCurveAlone) {
  Draw();
  EXPECT_THAT(Strokes(kColors.curve), Not(IsEmpty()));
  EXPECT_THAT(Marks(), IsEmpty());
  EXPECT_THAT(Labels(), Not(Contains("eV")));
}

TEST_F(CalibrationPlotTest, PointThatIsNotFiniteIsNotDrawn) {
  points = {{100, 4}, {kInf, 7}, {300, std::nan("")}};
  Draw();
  EXPECT_EQ(Marks().size(), 2u);
}

TEST_F(CalibrationPlotTest, CoefficientsOutOfAllBoundsDrawNothingWild) {
  for (const double wild : {kInf, std::nan(""), 1e308, -1e308, 1e200, 1e17}) {
    SetCoefficients(wild, wild, wild);
    points = {{100, 4}, {1e300, 1e300}};
    Draw();
    for (const Stroke& stroke : surface.strokes) {
      EXPECT_TRUE(std::isfinite(stroke.from.x) && std::isfinite(stroke.from.y)) << wild;
      EXPECT_TRUE(std::isfinite(stroke.to.x) && std::isfinite(stroke.to.y)) << wild;
    }
  }
}

TEST_F(CalibrationPlotTest, ConstantEnergyIsALevelLine) {
  SetCoefficients(5, 0, 0);
  Draw();
  const auto strokes = Strokes(kColors.curve);
  EXPECT_NEAR(strokes.front().from.y, strokes.back().to.y, 1e-9);
  EXPECT_THAT(Labels(), Contains("5.000"));
}

}  // namespace
}  // namespace dorvane
