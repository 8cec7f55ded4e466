#include "fitting/CalWaveSprit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include "support/ScriptedDialogs.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// Finds named "by Python" come from a separate script that follows the definitions with lists
// counted from 1; the spectra are whole numbers there and here.

struct Shape {
  double height;
  double center;
  double half_width;
};

double Gaussian(double x, const Shape& shape) {
  const double u = (x - shape.center) / shape.half_width;
  return shape.height * std::exp(-std::numbers::ln2 * u * u);
}

std::vector<std::int32_t> Spectrum(int n, const std::vector<Shape>& shapes, double background) {
  std::vector<std::int32_t> counts;
  for (int i = 0; i < n; ++i) {
    double sum = background;
    for (const Shape& shape : shapes) sum += Gaussian(i, shape);
    counts.push_back(static_cast<std::int32_t>(std::nearbyint(sum)));
  }
  return counts;
}

std::vector<double> Reals(const std::vector<std::int32_t>& counts) {
  return {counts.begin(), counts.end()};
}

// Centres at index 60 and 140, that is at positions 61 and 141.
std::vector<std::int32_t> TwoPeaks() {
  return Spectrum(200, {{1000, 60, 6}, {400, 140, 8}}, 50);
}

// An unrounded peak whose smoothed height times its width estimate of 2.5 is `strength`. Its
// smoothed height is 0.99963068 of its height (17 + 24 g(1) - 6 g(2)) / 35 by Python.
std::vector<double> PeakOfStrength(double strength) {
  std::vector<double> y;
  for (int i = 0; i < 120; ++i) y.push_back(Gaussian(i, {strength / 2.5 / 0.99963068, 60, 6}));
  return y;
}

bool IsFound(double strength, int sensitivity) {
  return !PeakFind(PeakOfStrength(strength), sensitivity).peaks.empty();
}

void ExpectSubscriptFault(const std::vector<std::int32_t>& counts) {
  try {
    PeakFind(Reals(counts), 20);
    ADD_FAILURE();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.Code(), FaultCode::Subscript);
  }
}

std::vector<std::int32_t> Comb(int period, int teeth) {
  std::vector<std::int32_t> counts;
  for (int i = 0; i < 8192; ++i) counts.push_back(i % period < teeth ? 1000 : 0);
  return counts;
}

// The numerical search.

TEST(PeakFind, PeaksComeWithSmoothedHeightPositionAndWidth) {
  const PeakFindResult found = PeakFind(Reals(TwoPeaks()), 10);
  ASSERT_THAT(found.peaks, SizeIs(2));
  EXPECT_EQ(found.peaks[0].position, 61);
  // (17*1050 + 12*(1031+1031) - 3*(976+976)) / 35 by hand
  EXPECT_NEAR(found.peaks[0].height, 36738.0 / 35, 1e-9);
  EXPECT_EQ(found.peaks[0].width, 2.5);
  EXPECT_EQ(found.peaks[1].position, 141);
  EXPECT_NEAR(found.peaks[1].height, 450.1714285714286, 1e-9);  // by Python
  EXPECT_EQ(found.peaks[1].width, 3.25);                        // by Python
}

TEST(PeakFind, NoiseIsTheSquaredDistanceFromTheSmoothedCounts) {
  EXPECT_NEAR(PeakFind(Reals(TwoPeaks()), 10).noise, 4.196086682095724, 1e-9);  // by Python
}

TEST(PeakFind, TwoPointsAtTheLeftAndThreeAtTheRightAreNotSmoothed) {
  // By hand: two smoothed neighbours are 12 and -3 off, and (144 + 9) * 9 / (9 - 6) = 459.
  EXPECT_NEAR(PeakFind(std::vector<double>{0, 35, 0, 0, 0, 0, 0, 0, 0}, 10).noise, 459, 1e-9);
  EXPECT_NEAR(PeakFind(std::vector<double>{0, 0, 0, 0, 0, 0, 35, 0, 0}, 10).noise, 459, 1e-9);
}

TEST(PeakFind, FewerThanNinePointsHaveNoPeaks) {
  EXPECT_THAT(PeakFind(std::vector<double>{0, 0, 0, 9, 0, 0, 0, 0}, 20).peaks, IsEmpty());
  EXPECT_THAT(PeakFind({}, 20).peaks, IsEmpty());
}

TEST(PeakFind, FlatCountsHaveNoCrossing) {
  EXPECT_THAT(PeakFind(std::vector<double>(100, 7), 20).peaks, IsEmpty());
}

TEST(PeakFind, ThresholdFallsByHundredsBelowSensitivityTen) {
  EXPECT_FALSE(IsFound(1850, 1));  // 1900
  EXPECT_TRUE(IsFound(1850, 2));   // 1800
  EXPECT_FALSE(IsFound(1050, 9));  // 1100
}

TEST(PeakFind, ThresholdFallsByFoursFromSensitivityTen) {
  EXPECT_FALSE(IsFound(43, 10));  // 44
  EXPECT_TRUE(IsFound(45, 10));
  EXPECT_FALSE(IsFound(3.9, 20));  // 4
  EXPECT_TRUE(IsFound(4.1, 20));
}

TEST(PeakFind, ThresholdIsFortyFromSensitivityTwentyOne) {
  for (const int sensitivity : {21, 22, 100}) {
    EXPECT_TRUE(IsFound(42, sensitivity)) << sensitivity;
    EXPECT_FALSE(IsFound(38, sensitivity)) << sensitivity;
  }
}

TEST(PeakFind, RangeThatStartsWithinAPeakHasItsWidthFromTheRightFlank) {
  // By Python: crossings -13, 23, -41, 93.
  const PeakFindResult found = PeakFind(Reals(Spectrum(100, {{1000, 12, 6}}, 50)), 10);
  ASSERT_THAT(found.peaks, SizeIs(1));
  EXPECT_EQ(found.peaks[0].position, 13);
  EXPECT_EQ(found.peaks[0].width, 10);
}

TEST(PeakFind, PeakAtTheStartOfTheRangeMustReachAFifteenthOfTheHighest) {
  const auto found_with = [](double height) {
    return PeakFind(Reals(Spectrum(200, {{height, 12, 6}, {1000, 100, 6}}, 0)), 20).peaks.size();
  };
  EXPECT_EQ(found_with(40), 1u);
  EXPECT_EQ(found_with(80), 2u);
}

TEST(PeakFind, CrossingOnACurvedStretchIsNoPeak) {
  std::vector<std::int32_t> parabola = Spectrum(100, {{40, 50, 4}}, 0);
  const std::vector<std::int32_t> bump = parabola;
  for (int i = 0; i < 100; ++i) parabola[static_cast<std::size_t>(i)] += 2 * i * i;
  EXPECT_THAT(PeakFind(Reals(bump), 20).peaks, SizeIs(1));
  EXPECT_THAT(PeakFind(Reals(parabola), 20).peaks, IsEmpty());
}

TEST(PeakFind, MoreThan2048CrossingsAreARangeFailure) {
  ExpectSubscriptFault(Comb(5, 2));  // 3271 by Python
}

TEST(PeakFind, MoreThan682FindsAreARangeFailure) {
  ExpectSubscriptFault(Comb(8, 1));  // 1020 in 2043 crossings by Python
}

TEST(PeakFind, FindNumber683IsTheFirstThatHasNoRoom) {
  // Every tooth of the comb adds one find.
  const std::vector<double> comb = Reals(Comb(8, 1));
  std::size_t teeth = 600;
  std::size_t most = 0;
  try {
    for (; teeth <= 1024; ++teeth) {
      most = PeakFind(std::span(comb).first(8 * teeth), 20).peaks.size();
    }
  } catch (const Fault&) {
  }
  EXPECT_EQ(most, 682u);
  EXPECT_LT(teeth, 1024u);
}

// The search as start values of a fit.

class PeakSearchTest : public testing::Test {
 protected:
  std::vector<PeakRec> Search(const std::vector<std::int32_t>& counts, int start, int n,
                              int sensitivity = 10) {
    return PeakSearch(counts, start, n, sensitivity, kLorentz, dialogs_);
  }
  ScriptedDialogs dialogs_;
};

TEST_F(PeakSearchTest, FindsBecomePeaksInChannels) {
  const std::vector<PeakRec> peaks = Search(TwoPeaks(), 0, 200);
  ASSERT_THAT(peaks, SizeIs(2));
  PeakRec expected;
  expected.FuncType = kLorentz;
  expected.Height = peaks[0].Height;
  expected.GaussRatio = 1;
  expected.HalfWidth = 2.5;
  expected.Center = 60;
  expected.RegionStart = 51;  // 2.5 * 1.8 * 2 = 9 channels to both sides
  expected.RegionEnd = 69;
  EXPECT_EQ(peaks[0], expected);
  EXPECT_NEAR(peaks[0].Height, 36738.0 / 35, 1e-9);
  EXPECT_EQ(peaks[1].RegionStart, 128);  // 11.7 is 12
  EXPECT_EQ(peaks[1].RegionEnd, 152);
}

TEST_F(PeakSearchTest, CentresDoNotDependOnTheStartOfTheRange) {
  const std::vector<PeakRec> peaks = Search(TwoPeaks(), 20, 180);
  ASSERT_THAT(peaks, SizeIs(2));
  EXPECT_EQ(peaks[0].Center, 60);
  EXPECT_EQ(peaks[1].Center, 140);
}

TEST_F(PeakSearchTest, RegionCutAtTheLeftStartsTwoChannelsInAsIsMeant) {
  // The range starts within the peak: width 10, region 60 +- 36.
  const std::vector<PeakRec> peaks = Search(TwoPeaks(), 45, 60);
  ASSERT_THAT(peaks, SizeIs(1));
  EXPECT_EQ(peaks[0].HalfWidth, 10);
  EXPECT_EQ(peaks[0].RegionStart, 47);
  EXPECT_EQ(peaks[0].RegionEnd, 96);
}

TEST_F(PeakSearchTest, RegionMayStartOneChannelInButNotOnTheStartOfTheRange) {
  // A steep right flank: width 7 and region start 75 by Python.
  std::vector<std::int32_t> counts = Spectrum(200, {{1000, 100, 20}}, 50);
  const std::vector<std::int32_t> steep = Spectrum(200, {{1000, 100, 3}}, 50);
  std::copy(steep.begin() + 100, steep.end(), counts.begin() + 100);
  ASSERT_EQ(Search(counts, 74, 100).at(0).HalfWidth, 7);
  EXPECT_EQ(Search(counts, 74, 100).at(0).RegionStart, 75);
  EXPECT_EQ(Search(counts, 75, 100).at(0).RegionStart, 77);
}

TEST_F(PeakSearchTest, RangeThatEndsWithinAPeakCountsItsLastPlaceAsFlank) {
  // Position 16 of 30, and the place 30 - 7 behind it.
  const std::vector<PeakRec> peaks = Search(TwoPeaks(), 45, 30);
  ASSERT_THAT(peaks, SizeIs(1));
  EXPECT_EQ(peaks[0].HalfWidth, 7);
}

TEST_F(PeakSearchTest, LowSensitivityLeavesTheSmallPeakOut) {
  EXPECT_THAT(Search(TwoPeaks(), 0, 200, 1), SizeIs(1));  // 400 counts * 3.25 is below 1900
}

TEST_F(PeakSearchTest, RegionCutAtTheRightEndsWithTheRange) {
  const std::vector<PeakRec> peaks = Search(TwoPeaks(), 45, 50);
  ASSERT_THAT(peaks, SizeIs(1));
  EXPECT_EQ(peaks[0].RegionEnd, 94);
}

TEST_F(PeakSearchTest, RegionMayEndOneChannelBehindTheRangeAsIsMeant) {
  const std::vector<PeakRec> peaks = Search(TwoPeaks(), 45, 51);  // 60 + 36 = 45 + 51
  ASSERT_THAT(peaks, SizeIs(1));
  EXPECT_EQ(peaks[0].RegionEnd, 96);
}

TEST_F(PeakSearchTest, MoreThanHundredPeaksAreToldAndCut) {
  std::vector<Shape> shapes;
  for (int center = 50; center < 3200; center += 30) shapes.push_back({1000, center * 1.0, 3});
  ASSERT_GT(shapes.size(), 100u);
  dialogs_.ExpectMessage("No of Peak > 100 !");
  EXPECT_THAT(Search(Spectrum(3300, shapes, 50), 0, 3300), SizeIs(100));
}

TEST_F(PeakSearchTest, ExactlyHundredPeaksAreNotTold) {
  std::vector<Shape> shapes;
  for (int k = 0; k < 100; ++k) shapes.push_back({1000, 50.0 + 30 * k, 3});
  EXPECT_THAT(Search(Spectrum(3300, shapes, 50), 0, 3300), SizeIs(100));
}

TEST_F(PeakSearchTest, NegativeStartOrLessThanTwoChannelsFindNothing) {
  EXPECT_THAT(Search(TwoPeaks(), -1, 100), IsEmpty());
  EXPECT_THAT(Search(TwoPeaks(), 10, 1), IsEmpty());
  EXPECT_THAT(Search(TwoPeaks(), 10, 0), IsEmpty());
  EXPECT_THAT(Search(TwoPeaks(), 10, -5), IsEmpty());
}

TEST_F(PeakSearchTest, RangePastTheLastChannelEndsThere) {
  EXPECT_EQ(Search(TwoPeaks(), 100, 1000), Search(TwoPeaks(), 100, 100));
  EXPECT_THAT(Search(TwoPeaks(), 199, 20), IsEmpty());
  EXPECT_THAT(Search(TwoPeaks(), 5000, 20), IsEmpty());
}

TEST_F(PeakSearchTest, FewerThanNineChannelsAreOnePeakAsAWhole) {
  const std::vector<PeakRec> peaks = Search({9, 9, 1, 2, 8, 3, 8, 1, 0, 9}, 2, 6);
  ASSERT_THAT(peaks, SizeIs(1));
  PeakRec expected;
  expected.FuncType = kLorentz;
  expected.Height = 8;
  expected.GaussRatio = 1;
  expected.HalfWidth = 1;  // 6 / 6
  expected.Center = 4;     // the first of the equals
  expected.RegionStart = 2;
  expected.RegionEnd = 7;
  EXPECT_EQ(peaks[0], expected);
}

TEST_F(PeakSearchTest, RangeWithoutACrossingIsOnePeakAsAWhole) {
  const std::vector<PeakRec> peaks = Search(std::vector<std::int32_t>(499, 7), 0, 499);
  ASSERT_THAT(peaks, SizeIs(1));
  EXPECT_EQ(peaks[0].Center, 0);
  EXPECT_NEAR(peaks[0].HalfWidth, 499 / 6.0, 1e-12);
  EXPECT_EQ(peaks[0].RegionEnd, 498);
}

TEST_F(PeakSearchTest, WideRangeBeginsAtFiveHundredChannels) {
  EXPECT_EQ(Search(std::vector<std::int32_t>(499, 7), 0, 499).at(0).RegionEnd, 498);
  EXPECT_EQ(Search(std::vector<std::int32_t>(500, 7), 0, 500).at(0).RegionEnd, 0);
}

TEST_F(PeakSearchTest, WideRangeAsAWholeShrinksToTheFootOfTheRightFlank) {
  std::vector<std::int32_t> counts(700, 0);
  const std::int32_t bump[] = {2, 6, 10, 6, 2};
  std::copy(std::begin(bump), std::end(bump), counts.begin() + 398);
  const std::vector<PeakRec> peaks = Search(counts, 100, 600, 1);
  ASSERT_THAT(peaks, SizeIs(1));
  EXPECT_EQ(peaks[0].Height, 10);
  EXPECT_EQ(peaks[0].Center, 400);
  EXPECT_EQ(peaks[0].RegionStart, 397);
  EXPECT_EQ(peaks[0].RegionEnd, 403);  // the first channel of the lowest counts
  EXPECT_EQ(peaks[0].HalfWidth, 1);
}

TEST_F(PeakSearchTest, WideRangeWithoutAFallingFlankTakesChannelZeroAsFootAsIsMeant) {
  const std::vector<PeakRec> peaks = Search(std::vector<std::int32_t>(800, 5), 100, 600);
  ASSERT_THAT(peaks, SizeIs(1));
  EXPECT_EQ(peaks[0].Center, 100);
  EXPECT_EQ(peaks[0].RegionStart, 200);
  EXPECT_EQ(peaks[0].RegionEnd, 0);
  EXPECT_NEAR(peaks[0].HalfWidth, -100 / 3.0, 1e-12);
}

// The iteration of the split.

std::vector<double> Sum(int n, const std::vector<Shape>& shapes) {
  std::vector<double> y;
  for (int i = 1; i <= n; ++i) {
    double sum = 0;
    for (const Shape& shape : shapes) sum += Gaussian(i, shape);
    y.push_back(sum);
  }
  return y;
}

TEST(GaussSumFit, OverlappingPeaksComeBackFromTheirSum) {
  const std::vector<double> y = Sum(80, {{1000, 30, 6}, {600, 42, 5}});
  std::vector<double> p = {900, 31, 5.5, 650, 41, 5.5};
  const SplitSummary summary = GaussSumFit(y, p, 1e-15);
  EXPECT_EQ(summary.status, SplitStatus::Converged);
  const double expected[] = {1000, 30, 6, 600, 42, 5};
  for (std::size_t i = 0; i < 6; ++i) EXPECT_NEAR(p[i], expected[i], 1e-5);
}

TEST(GaussSumFit, StartBelowTheLimitIsLeftAsItIs) {
  std::vector<double> p = {999, 30, 6};
  const SplitSummary summary = GaussSumFit(Sum(60, {{1000, 30, 6}}), p, 100);
  EXPECT_EQ(summary.steps, 0);
  EXPECT_EQ(summary.status, SplitStatus::Converged);
  EXPECT_THAT(p, ElementsAre(999, 30, 6));
}

TEST(GaussSumFit, SumEqualToTheLimitGoesOn) {
  // 9 + 16 = 25; the step without a height is a fault.
  const std::vector<double> y = {3, 4};
  std::vector<double> p = {0, 1, 5};
  EXPECT_EQ(GaussSumFit(y, p, 25.5).status, SplitStatus::Converged);
  EXPECT_EQ(GaussSumFit(y, p, 25).status, SplitStatus::Faulted);
}

TEST(GaussSumFit, StepLimitIsTwentyAndKeepsTheLastParameters) {
  std::vector<double> p = {900, 31, 5.5};
  const SplitSummary summary = GaussSumFit(Sum(60, {{1000, 30, 6}}), p, 0);
  EXPECT_EQ(summary.status, SplitStatus::IterationLimit);
  EXPECT_EQ(summary.steps, 20);
  EXPECT_NEAR(p[1], 30, 1e-9);
}

TEST(GaussSumFit, FaultKeepsTheParametersOfTheStart) {
  const std::vector<double> y = Sum(60, {{1000, 30, 6}});
  std::vector<double> zero_width = {900, 31, 0};
  EXPECT_EQ(GaussSumFit(y, zero_width, 0).fault, FaultCode::DivisionByZero);
  EXPECT_THAT(zero_width, ElementsAre(900, 31, 0));
  std::vector<double> zero_pivot = {0, 31, 5};  // without a height the centre has no slope
  EXPECT_EQ(GaussSumFit(y, zero_pivot, 0).fault, FaultCode::DivisionByZero);
  EXPECT_THAT(zero_pivot, ElementsAre(0, 31, 5));
  std::vector<double> overflow = {900, 31, 1e-200};
  EXPECT_EQ(GaussSumFit(y, overflow, 0).status, SplitStatus::Faulted);
  EXPECT_THAT(overflow, ElementsAre(900, 31, 1e-200));
}

TEST(GaussSumFit, WithoutPeaksNothingHappens) {
  EXPECT_EQ(GaussSumFit(Sum(60, {{1000, 30, 6}}), {}, 0).steps, 0);
}

// The split.

class Log : public LogSink {
 public:
  std::vector<std::string> lines;
  void PutLog(std::string_view text) override { lines.emplace_back(text); }
};

class WaveSplitTest : public testing::Test {
 protected:
  static PeakRec Peak(double height, double center, double half_width) {
    PeakRec peak;
    peak.FuncType = kMix;
    peak.Height = height;
    peak.GaussRatio = 0.5;
    peak.Center = center;
    peak.HalfWidth = half_width;
    peak.BackConst = 3;
    peak.BackSlope = 4;
    return peak;
  }
  static void ExpectPlainGaussian(const PeakRec& peak) {
    EXPECT_EQ(peak.FuncType, kGauss);
    EXPECT_EQ(peak.GaussRatio, 1);
    EXPECT_EQ(peak.BackConst, 0);
    EXPECT_EQ(peak.BackSlope, 0);
  }
  int Split(const std::vector<std::int32_t>& counts, int start, int n,
            std::vector<PeakRec>& peaks) {
    return WaveSplit(counts, start, n, peaks, dialogs_, log_);
  }
  ScriptedDialogs dialogs_;
  Log log_;
};

TEST_F(WaveSplitTest, OverlappingPeaksComeBackFromTheirSpectrum) {
  // Counts of 10^6 make the limit of 200000 a fine one: a channel is off by less than 100 counts.
  const auto counts = Spectrum(300, {{1e6, 130, 6}, {6e5, 142, 5}}, 5000);
  std::vector<PeakRec> peaks = {Peak(9e5, 131, 5.5), Peak(6.5e5, 141, 5.5)};
  EXPECT_EQ(Split(counts, 100, 80, peaks), 2);
  EXPECT_NEAR(peaks[0].Center, 130, 0.01);
  EXPECT_NEAR(peaks[0].HalfWidth, 6, 0.01);
  EXPECT_NEAR(peaks[0].Height, 1e6, 1000);
  EXPECT_NEAR(peaks[1].Center, 142, 0.01);
  EXPECT_NEAR(peaks[1].HalfWidth, 5, 0.01);
  EXPECT_NEAR(peaks[1].Height, 6e5, 1000);
  for (const PeakRec& peak : peaks) {
    EXPECT_EQ(peak.FitDone, -1);
    ExpectPlainGaussian(peak);
  }
}

TEST_F(WaveSplitTest, GroupThatStartsBelowTheLimitIsMarkedAsFittedWithItsStartValues) {
  const auto counts = Spectrum(100, {{1000, 50, 6}}, 0);
  std::vector<PeakRec> peaks = {Peak(990, 50, 6)};
  EXPECT_EQ(Split(counts, 20, 60, peaks), 1);
  EXPECT_EQ(peaks[0].Height, 990);
  EXPECT_EQ(peaks[0].FitDone, -1);
}

TEST_F(WaveSplitTest, PeakWhoseCentreLeavesTheRangeKeepsItsValues) {
  const std::vector<std::int32_t> counts(100, 0);
  std::vector<PeakRec> peaks = {Peak(1, 78, 6), Peak(1, 79, 6)};  // places 59 and 60 of 60
  EXPECT_EQ(Split(counts, 20, 60, peaks), 2);
  EXPECT_EQ(peaks[0].FitDone, -1);
  EXPECT_EQ(peaks[1].FitDone, 0);
  EXPECT_EQ(peaks[1].Center, 79);
  ExpectPlainGaussian(peaks[1]);
}

TEST_F(WaveSplitTest, CountsBelowTheBackgroundAreCutToZero) {
  // Uncut, 58 channels of -1000 would exceed the limit, and a height of 0 would be a fault.
  std::vector<std::int32_t> counts(60, 0);
  counts.front() = counts.back() = 1000;
  std::vector<PeakRec> peaks = {Peak(0, 30, 6)};
  EXPECT_EQ(Split(counts, 0, 60, peaks), 1);
  EXPECT_THAT(log_.lines, IsEmpty());
}

TEST_F(WaveSplitTest, BackgroundLineLiesOneSlopeBelowTheEndsAsIsMeant) {
  // A ramp leaves its slope s in each of 21 channels: 21 s^2 is below the limit for s = 97 and
  // above it for s = 98.
  const auto split_ramp = [&](int slope) {
    std::vector<std::int32_t> counts;
    for (int i = 0; i < 21; ++i) counts.push_back(slope * i);
    std::vector<PeakRec> peaks = {Peak(0, 10, 6)};
    Split(counts, 0, 21, peaks);
  };
  split_ramp(97);
  EXPECT_THAT(log_.lines, IsEmpty());
  dialogs_.ExpectMessage("計算限界超えました。処理を終了します。");
  split_ramp(98);
  EXPECT_THAT(log_.lines, SizeIs(1));
}

TEST_F(WaveSplitTest, FaultIsToldAndThePeaksCountAsFittedWithTheirOldValuesAsIsMeant) {
  const auto counts = Spectrum(100, {{1000, 50, 6}}, 0);
  std::vector<PeakRec> peaks = {Peak(900, 51, 0)};
  dialogs_.ExpectMessage("計算限界超えました。処理を終了します。");
  EXPECT_EQ(Split(counts, 20, 60, peaks), 1);
  EXPECT_THAT(log_.lines, ElementsAre("CalWaveSprit : (Error)  code=11"));
  EXPECT_EQ(peaks[0].Height, 900);
  EXPECT_EQ(peaks[0].Center, 51);
  EXPECT_EQ(peaks[0].HalfWidth, 0);
  EXPECT_EQ(peaks[0].FitDone, -1);
  ExpectPlainGaussian(peaks[0]);
}

TEST_F(WaveSplitTest, RegionOfMoreThan4096ChannelsIsRefused) {
  const std::vector<std::int32_t> counts(8192, 0);
  std::vector<PeakRec> peaks = {Peak(1, 50, 6)};
  const std::vector<PeakRec> before = peaks;
  dialogs_.ExpectMessage("too large region");
  EXPECT_EQ(Split(counts, 0, 4097, peaks), 0);
  EXPECT_EQ(peaks, before);
  EXPECT_EQ(Split(counts, 0, 4096, peaks), 1);
}

TEST_F(WaveSplitTest, RegionWithoutChannelsIsNothing) {
  std::vector<PeakRec> peaks = {Peak(1, 50, 6)};
  EXPECT_EQ(Split(std::vector<std::int32_t>(100, 0), 10, 0, peaks), 0);
  EXPECT_EQ(Split(std::vector<std::int32_t>(100, 0), 10, -3, peaks), 0);
  EXPECT_EQ(Split(std::vector<std::int32_t>(100, 0), 100, 5, peaks), 0);
  EXPECT_EQ(peaks[0].FuncType, kMix);
}

TEST_F(WaveSplitTest, RangePastTheLastChannelEndsThere) {
  const std::vector<std::int32_t> counts(100, 0);
  std::vector<PeakRec> peaks = {Peak(1, 98, 6), Peak(1, 99, 6)};  // places 19 and 20 of 20
  EXPECT_EQ(Split(counts, 80, 50, peaks), 2);
  EXPECT_EQ(peaks[0].FitDone, -1);
  EXPECT_EQ(peaks[1].FitDone, 0);
}

TEST_F(WaveSplitTest, NegativeStartIsARangeFailure) {
  std::vector<PeakRec> peaks = {Peak(1, 50, 6)};
  EXPECT_THROW(Split(std::vector<std::int32_t>(100, 0), -1, 50, peaks), Fault);
}

}  // namespace
}  // namespace dorvane
