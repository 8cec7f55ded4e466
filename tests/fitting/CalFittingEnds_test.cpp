// How a fit ends other than by convergence, and the starting values of CurveFit.
#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <string>
#include <vector>

#include "fitting/CalFitting.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

Coefficients Of(std::initializer_list<double> values) {
  Coefficients c;
  int j = 0;
  for (const double value : values) c[++j] = value;
  return c;
}

std::vector<double> Channels(std::size_t n) {
  std::vector<double> x(n);
  for (std::size_t i = 0; i < n; ++i) x[i] = static_cast<double>(i + 1);
  return x;
}

// A Gaussian in the middle of n channels, a ninth of them wide.
std::vector<double> WideGaussian(std::size_t n) {
  std::vector<double> y = Channels(n);
  const double centre = static_cast<double>(n) / 2, half_width = static_cast<double>(n) / 9;
  for (double& value : y) {
    const double u = (value - centre) / half_width;
    value = std::round(1000 * std::exp2(-u * u) + 20);
  }
  return y;
}

Coefficients StartOfWideGaussian(std::size_t n) {
  return Of({900, static_cast<double>(n) / 2 + 3, static_cast<double>(n) / 8, 10});
}

FitSummary Fit(const std::vector<double>& y, std::int16_t mode, Coefficients& c, int m,
               const FitLimits& limits = {}) {
  return CFDQR2(Channels(y.size()), y, mode, c, m, limits);
}

FaultCode FaultOfFit(const std::vector<double>& y, std::int16_t mode, Coefficients& c, int m) {
  try {
    Fit(y, mode, c, m);
  } catch (const Fault& fault) {
    return fault.Code();
  }
  ADD_FAILURE() << "no fault";
  return FaultCode::BadArgument;
}

class EndOfFit : public testing::Test {
 protected:
  void ExpectEnd(int status, const std::string& message) {
    EXPECT_EQ(summary.status, status);
    EXPECT_EQ(summary.message, message);
  }

  FitSummary summary;
};

// ---- refusals

TEST_F(EndOfFit, MoreThan500PointsAreRefused) {
  Coefficients c = StartOfWideGaussian(501);
  const Coefficients start = c;
  summary = Fit(WideGaussian(501), 1, c, 4);
  ExpectEnd(4, "(error) CFDQR2 : Many Data!");
  EXPECT_EQ(c, start);
}

TEST_F(EndOfFit, StartWithoutWidthIsAFaultOfTheStart) {
  Coefficients c = Of({100, 5, 0, 1});
  const Coefficients start = c;
  summary = Fit(WideGaussian(9), 1, c, 4);
  ExpectEnd(11, "(error) CFDQR2 :初期fGaussのエラー");
  EXPECT_EQ(c, start);
}

TEST_F(EndOfFit, StartThatIsNotPositiveIsRefused) {
  Coefficients c = Of({-100, 5, 2, 10});
  const Coefficients start = c;
  summary = Fit(WideGaussian(9), 1, c, 4);
  ExpectEnd(4, "(error) CFDQR2: 係数の初期値が不適切。");
  EXPECT_EQ(c, start);
}

// (60 - 5) / 2 half widths: the exponent is -524, and the driver starts with a constant of 0.
TEST_F(EndOfFit, RegionFarWiderThanTheLineIsRefusedWithoutAConstant) {
  Coefficients c = Of({1000, 5, 2, 0});
  summary = Fit(WideGaussian(60), 1, c, 4);
  ExpectEnd(4, "(error) CFDQR2: 係数の初期値が不適切。");
  c = Of({1000, 5, 2, 1});
  EXPECT_NE(Fit(WideGaussian(60), 1, c, 4).status, 4);
}

TEST_F(EndOfFit, AnotherShapeIsZeroEverywhereAndRefused) {
  for (const std::int16_t mode : {std::int16_t{0}, std::int16_t{4}}) {
    Coefficients c = StartOfWideGaussian(49);
    summary = Fit(WideGaussian(49), mode, c, 4);
    ExpectEnd(4, "(error) CFDQR2: 係数の初期値が不適切。");
  }
}

// One point: derivatives 1/2, 1/2, 1/2 and 1 of a model value of 1, so four equal columns of unit
// length.
TEST_F(EndOfFit, SingularNormalMatrixIsRefused) {
  Coefficients c = Of({1, 0, 1, 0.5});
  const Coefficients start = c;
  summary = Fit({3}, 2, c, 4);
  ExpectEnd(4, "(error) CFDQR2: 行列式の値が０になった。データ入力ミス、または係数が多い。");
  EXPECT_EQ(c, start);
}

// A single channel with counts: the information matrix has rank 1.
TEST_F(EndOfFit, SingularInformationMatrixLeavesTheLastAcceptedValues) {
  Coefficients c = Of({3, 4, 0.5, 0});
  const Coefficients start = c;
  summary = Fit({0, 0, 0, 5, 0, 0, 0}, 2, c, 4);
  ExpectEnd(4, "(error) CFDQR2: 行列式の値が０になった。データ入力ミス、または係数が多い。");
  EXPECT_EQ(c, start);
  EXPECT_EQ(summary.standard_error, Coefficients{});
  EXPECT_EQ(summary.trials, 1);
}

// Two rounds give standard errors; the trial of the third puts the line out of the region.
TEST_F(EndOfFit, StandardErrorsOfEarlierTrialsAreClearedWhereALaterOneIsSingular) {
  Coefficients c = Of({2000, 5, 3, 0});
  summary = Fit({93, 901, 1970, 1095, 162, 13, 8, 3, 6, 9, 5, 8, 8}, 1, c, 4);
  EXPECT_EQ(summary.status, 4);
  EXPECT_EQ(summary.trials, 3);
  EXPECT_EQ(summary.standard_error, Coefficients{});
}

// Without coefficients the trace is an empty sum.
TEST_F(EndOfFit, TraceOfZeroEndsWithStatus0AndAsksForItsBox) {
  Coefficients c = StartOfWideGaussian(49);
  const Coefficients start = c;
  summary = Fit(WideGaussian(49), 1, c, 0);
  ExpectEnd(0, "");
  EXPECT_TRUE(summary.trace_zero);
  EXPECT_EQ(kTraceZeroText, "trace value =Zero");
  EXPECT_EQ(c, start);
}

// ---- faults in the line shape

// A height of 1e-150 makes the first step of the centre about 1e155 channels, whose square is no
// number.
TEST_F(EndOfFit, TrialOutOfTheRangeOfNumbersIsAFaultOfTheTrial) {
  Coefficients c = Of({1e-150, 5, 2, 1});
  const Coefficients start = c;
  summary = Fit({1e6, 2e6, 4e6, 9e6, 3e6, 2e6, 1e6, 8e6, 1e6}, 1, c, 4);
  EXPECT_GE(summary.status, 5);
  EXPECT_EQ(summary.message, "(error) CFDQR2 :係数アウト！");
  EXPECT_EQ(c, start);
}

// Twice the height is no number any more, and only the derivatives need it.
TEST_F(EndOfFit, FaultInADerivativeHasNoMessage) {
  Coefficients c = Of({1e308, 1, 0.01, 1});
  const Coefficients start = c;
  summary = Fit({5, 6, 7}, 1, c, 4);
  EXPECT_GE(summary.status, 5);
  EXPECT_EQ(summary.message, "");
  EXPECT_EQ(c, start);
}

// ---- limits

TEST_F(EndOfFit, MoreThan100OuterRoundsAreAWarning) {
  Coefficients c = Of({3, 3, 2, 0});
  summary = Fit({5, 8, 4, 5, 3, 8, 2}, 1, c, 4);
  ExpectEnd(2, "(warning) CFDQR2: 外側ループが100回を超えた。計算打ち切り");
  EXPECT_EQ(summary.outer_rounds, 101);
}

TEST_F(EndOfFit, MoreThan100TrialsThatAreNotPositiveAreAWarning) {
  Coefficients c = Of({1, 4, 0.5, 1});
  summary = Fit({0, 1, 0, 1, 1}, 1, c, 4);
  ExpectEnd(2, "(warning) CFDQR2: 内側ループが100回を超えた。計算中止。");
  EXPECT_EQ(summary.trials, 1 + 101);
}

// The steps shrink below the last place of the coefficients long before 500 of them are rejected,
// so the limit is lowered here.
TEST_F(EndOfFit, RejectedTrialsHaveALimitOf500AndATextOf100WithoutFullStopAsMeant) {
  EXPECT_EQ(FitLimits{}.rejected_trials, 500);
  EXPECT_EQ(FitLimits{}.not_positive_trials, 100);
  EXPECT_EQ(FitLimits{}.outer_rounds, 100);
  Coefficients c = Of({100, 6, 3, 0});
  summary = Fit({85, 110, 118, 160, 124, 95, 88, 52, 46}, 1, c, 4, {.rejected_trials = 2});
  ExpectEnd(2, "(warning) CFDQR2: 内側ループが100回を超えた。計算中止");
  EXPECT_EQ(summary.trials, 1 + 3);
}

// ---- faults that pass

TEST_F(EndOfFit, DampingRowsOf500PointsOverrunTheResidualsAsMeant) {
  Coefficients c = StartOfWideGaussian(500);
  const Coefficients start = c;
  EXPECT_EQ(FaultOfFit(WideGaussian(500), 1, c, 4), FaultCode::Subscript);
  EXPECT_EQ(c, start);
  c = StartOfWideGaussian(497);
  EXPECT_EQ(FaultOfFit(WideGaussian(497), 1, c, 4), FaultCode::Subscript);
}

TEST_F(EndOfFit, With496PointsAndFourCoefficientsTheFitWorks) {
  Coefficients c = StartOfWideGaussian(496);
  summary = Fit(WideGaussian(496), 1, c, 4);
  ExpectEnd(0, "");
  EXPECT_NEAR(c[2], 248, 0.01);
}

TEST_F(EndOfFit, LineOutsideOfItsRegionIsADivisionByZeroThatPasses) {
  Coefficients c = Of({100, 1000, 1, 5});
  EXPECT_EQ(FaultOfFit(WideGaussian(9), 1, c, 4), FaultCode::DivisionByZero);
}

TEST_F(EndOfFit, SixthCoefficientOfASingleLineIsADivisionByZeroThatPasses) {
  Coefficients c = StartOfWideGaussian(49);
  EXPECT_EQ(FaultOfFit(WideGaussian(49), 1, c, 6), FaultCode::DivisionByZero);
}

TEST_F(EndOfFit, BadSizesAreFaultsThatPass) {
  Coefficients c = StartOfWideGaussian(9);
  EXPECT_EQ(FaultOfFit(WideGaussian(9), 1, c, 11), FaultCode::Subscript);
  EXPECT_EQ(FaultOfFit(WideGaussian(9), 1, c, -1), FaultCode::Subscript);
  EXPECT_THROW(CFDQR2(Channels(8), WideGaussian(9), 1, c, 4), Fault);
}

// ---- CurveFit. 501 points and more are refused, so that the starting values can be seen.

std::vector<double> Refused(std::size_t n) {
  return std::vector<double>(n, 3);
}

FitSummary Curve(const std::vector<double>& y, std::int16_t mode, Coefficients& c, int m = 4) {
  return CurveFit(Channels(y.size()), y, mode, m, c);
}

TEST(CurveFit, MakesStartingValuesFromTheFirstOfTheHighestChannels) {
  std::vector<double> y = Refused(501);
  y[99] = y[199] = 40;
  for (const double height : {0.0, -5.0}) {
    Coefficients c = Of({height, 7, 7, 7, 7, 7});
    EXPECT_EQ(Curve(y, 1, c).status, 4);
    EXPECT_EQ(c, Of({40, 100, 10, 3, 0, 7}));
  }
}

TEST(CurveFit, WithoutCountsTheMiddleRoundedHalfToEvenIsTheCentre) {
  Coefficients c;
  Curve(std::vector<double>(501, 0), 1, c);
  EXPECT_EQ(c[2], 250);
  c = {};
  Curve(std::vector<double>(503, 0), 1, c);
  EXPECT_EQ(c[2], 252);
}

TEST(CurveFit, StartingValuesOfTheMixedLineStandInAnotherOrderAsMeant) {
  std::vector<double> y = Refused(501);
  y[99] = 40;
  Coefficients c;
  Curve(y, 3, c, 6);
  EXPECT_EQ(c, Of({40, 4, 100, 10, 3, 0}));
}

TEST(CurveFit, PositiveHeightKeepsTheStartingValues) {
  Coefficients c = Of({5, 6, 7, 8, 9});
  Curve(Refused(501), 1, c);
  EXPECT_EQ(c, Of({5, 6, 7, 8, 9}));
}

TEST(CurveFit, NegativeHalfWidthBecomes10) {
  Coefficients c = Of({5, 6, -7, 8});
  Curve(Refused(501), 1, c);
  EXPECT_EQ(c, Of({5, 6, 10, 8}));
}

TEST(CurveFit, HalfWidthOfZeroIsLeftToFault) {
  Coefficients c = Of({5, 6, 0, 8});
  EXPECT_EQ(Curve({1, 2, 9, 2, 1, 1, 1}, 1, c).status, 11);
  EXPECT_EQ(c[3], 0);
}

TEST(CurveFit, CentreOutsideOfTheRegionBecomesItsMiddle) {
  for (const double centre : {0.5, 501.5, -3.0}) {
    Coefficients c = Of({5, centre, 7, 8});
    EXPECT_TRUE(Curve(Refused(501), 2, c).held);
    EXPECT_EQ(c, Of({5, 250.5, 7, 8}));
  }
}

TEST(CurveFit, CentreOnTheEndsOfTheRegionStays) {
  for (const double centre : {1.0, 501.0}) {
    Coefficients c = Of({5, centre, 7, 8});
    EXPECT_FALSE(Curve(Refused(501), 1, c).held);
    EXPECT_EQ(c[2], centre);
  }
}

TEST(CurveFit, MixedLineHasItsHalfWidthCheckedInPlaceOfTheCentreAsMeant) {
  Coefficients c = Of({5, -3, 0.5, 8});
  Curve(Refused(501), 3, c, 5);
  EXPECT_EQ(c, Of({5, -3, 250.5, 8}));
}

TEST(CurveFit, FitsFromStartingValuesOfItsOwn) {
  Coefficients c;
  const FitSummary summary = Curve(WideGaussian(90), 1, c);
  EXPECT_EQ(summary.status, 0);
  EXPECT_NEAR(c[1], 1000, 1);
  EXPECT_NEAR(c[2], 45, 0.01);
  EXPECT_NEAR(c[3], 10, 0.05);
  EXPECT_NEAR(c[4], 20, 0.5);
}

TEST(CurveFit, FaultsPass) {
  Coefficients c = StartOfWideGaussian(500);
  EXPECT_THROW(Curve(WideGaussian(500), 1, c), Fault);
  EXPECT_THROW(Curve({}, 1, c), Fault);
}

}  // namespace
}  // namespace dorvane
