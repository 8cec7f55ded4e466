#include "fitting/NaxParabola.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "support/Fault.h"

namespace dorvane {
namespace {

// Of sums over a few points.
constexpr double kRounding = 1e-11;
constexpr double kTol = 1e-6;

// ---- a window

TEST(SlidingParabola, FiveCountsAgreeWithTheHandCalculation) {
  // Orthogonal polynomials over u = -2..2: P2 = u^2 - 2 with the sum of squares 14. For the counts
  // 0 0 1 0 0: b3 = -2/14, b1 = 1/5 - 2 b3; residuals 18/35, twice -12/35, twice 3/35, so that
  // s^2 = (630/1225) / 2 and the error of b3 is sqrt(s^2 / 14).
  SlidingParabola parabola(2, kTol);
  const WindowParabola window = parabola.Fit(std::array{0.0, 0.0, 1.0, 0.0, 0.0});
  EXPECT_NEAR(window.b1, 17.0 / 35, kRounding);
  EXPECT_NEAR(window.b2, 0, kRounding);
  EXPECT_NEAR(window.b3, -1.0 / 7, kRounding);
  EXPECT_NEAR(window.b3_error, std::sqrt(9.0 / 490), kRounding);
}

TEST(SlidingParabola, AParabolaComesBackWithoutError) {
  std::vector<double> counts;
  for (int u = -10; u <= 10; ++u) counts.push_back(500 + 3 * u - 2 * u * u);
  const WindowParabola window = SlidingParabola(10, kTol).Fit(counts);
  EXPECT_NEAR(window.b1, 500, 1e-9);
  EXPECT_NEAR(window.b2, 3, 1e-9);
  EXPECT_NEAR(window.b3, -2, 1e-9);
  EXPECT_NEAR(window.b3_error, 0, 1e-9);
}

TEST(SlidingParabola, AsManyPointsAsCoefficientsLeaveNoError) {
  const WindowParabola window = SlidingParabola(1, kTol).Fit(std::array{1.0, 4.0, 1.0});
  EXPECT_NEAR(window.b3, -3, kRounding);
  EXPECT_EQ(window.b3_error, 0);
}

TEST(SlidingParabola, TheKeptInverseGivesWhatAFreshOneGives) {
  const std::array counts{3.0, 9.0, 4.0, 8.0, 1.0};
  SlidingParabola used(2, kTol);
  used.Fit(std::array{7.0, 0.0, 5.0, 2.0, 2.0});
  const WindowParabola again = used.Fit(counts);
  const WindowParabola fresh = SlidingParabola(2, kTol).Fit(counts);
  EXPECT_EQ(again.b1, fresh.b1);
  EXPECT_EQ(again.b2, fresh.b2);
  EXPECT_EQ(again.b3, fresh.b3);
  EXPECT_EQ(again.b3_error, fresh.b3_error);
}

TEST(SlidingParabola, AWindowOfAnotherSizeFaults) {
  EXPECT_THROW(SlidingParabola(2, kTol).Fit(std::array{1.0, 2.0, 3.0}), Fault);
  EXPECT_THROW(SlidingParabola(0, kTol), Fault);
  EXPECT_THROW(SlidingParabola(-1, kTol), Fault);
  EXPECT_THROW(SlidingParabola(250, kTol), Fault);
}

// ---- the test of its curvature; the noise is 0.2 / 2^2 = 0.05

class CurvatureTest : public testing::Test {
 protected:
  static bool Shows(double b3, double b3_error) {
    return ShowsPeak({0, 0, b3, b3_error}, 2, ScanSetup(20, 0.2, 100));
  }
};

TEST_F(CurvatureTest, CurvatureBelowTheNoiseShowsAPeak) {
  EXPECT_TRUE(Shows(-0.0501, 0));
  EXPECT_FALSE(Shows(-0.0499, 0));
  EXPECT_FALSE(Shows(0.1, 0));
}

TEST_F(CurvatureTest, HalfTheErrorIsAllowedFor) {
  EXPECT_TRUE(Shows(-0.1001, 0.1));
  EXPECT_FALSE(Shows(-0.0999, 0.1));
}

TEST_F(CurvatureTest, FlatCountsWithoutNoiseShowNoPeak) {
  EXPECT_FALSE(ShowsPeak({}, 2, ScanSetup(20, 0, 100)));
}

// ---- runs

class PeakRunTest : public testing::Test {
 protected:
  ScanPeak Peak() const { return run.Peak(2, ScanSetup(20, 0.2, 100)); }

  PeakRun run;
};

TEST_F(PeakRunTest, TheFirstWindowIsTheBestSoFar) {
  run.Extend({100, 0, -1, 0}, 50, 90);
  EXPECT_EQ(run.Length(), 1);
  EXPECT_EQ(run.Channel(), 50);
}

TEST_F(PeakRunTest, ASharperWindowTakesTheFirstOnesPlace) {
  run.Extend({100, 0, -1, 0}, 50, 90);
  run.Extend({120, 0, -2, 0}, 51, 95);
  EXPECT_EQ(Peak().channel, 51);
  EXPECT_EQ(Peak().height, 120);
}

TEST_F(PeakRunTest, EveryWindowCountsAlsoOneThatIsNotSharper) {
  run.Extend({120, 0, -2, 0}, 50, 90);
  run.Extend({100, 0, -1, 0}, 51, 95);
  run.Extend({100, 0, -2, 0}, 52, 95);
  EXPECT_EQ(run.Length(), 3);
  EXPECT_EQ(run.Channel(), 50);
}

TEST_F(PeakRunTest, WidthIsTheLengthOfTheRunInChannels) {
  for (int i = 0; i < 7; ++i) run.Extend({100, 0, -1, 0}, 50 + i, 90);
  EXPECT_EQ(Peak().width, 7);  // 1.0 * 0.5 * 7 windows * 2 channels
}

TEST_F(PeakRunTest, PositionIsTheVertexOfTheParabola) {
  run.Extend({100, 3, -2, 0}, 50, 90);
  EXPECT_DOUBLE_EQ(Peak().position, 50.75);  // -0.5 * 3 / -2
  EXPECT_DOUBLE_EQ(Peak().height, 101.125);  // 100 + 0.5 * 3 * 0.75
}

TEST_F(PeakRunTest, AVertexBeyondTheNeighboursIsNotTaken) {
  run.Extend({100, 8.1, -2, 0}, 50, 90);  // at 2.025
  EXPECT_EQ(Peak().position, 50);
  EXPECT_EQ(Peak().height, 100);
}

TEST_F(PeakRunTest, AVertexAtTheSpacingIsTaken) {
  run.Extend({100, 8, -2, 0}, 50, 90);
  EXPECT_EQ(Peak().position, 52);
}

TEST_F(PeakRunTest, HeightIsAtLeastTheGreatestCount) {
  run.Extend({100, 0, -1, 0}, 50, 130);
  EXPECT_EQ(Peak().height, 130);
}

TEST_F(PeakRunTest, AClosedRunBeginsAnew) {
  run.Extend({100, 0, -3, 0}, 50, 90);
  run.Close();
  run.Extend({80, 0, -1, 0}, 70, 60);
  EXPECT_EQ(run.Length(), 1);
  EXPECT_EQ(run.Channel(), 70);
}

TEST_F(PeakRunTest, AStraightLineTakenForAPeakFaults) {
  // As only a negative noise lets it pass.
  run.Extend({100, 1, 0, 0}, 50, 90);
  EXPECT_THROW(Peak(), Fault);
}

}  // namespace
}  // namespace dorvane
