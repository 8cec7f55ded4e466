#include "fitting/NaxFit.h"

#include <gmock/gmock.h>

#include <memory>

#include "fitting/NaxFixture.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

// Some operations on numbers near 1.
constexpr double kRounding = 1e-13;

// u = 5, v = 5 / 25, E = 1/e.
TEST(PeakModel, ValueAndDerivativesAsByHand) {
  const PeakValue peak = PeakModel(100, 10, 5, 5);
  EXPECT_NEAR(peak.y, 36.787944117144233, kRounding * 100);
  EXPECT_NEAR(peak.dA, 0.36787944117144233, kRounding);
  EXPECT_NEAR(peak.dQ, -14.715177646857693, kRounding * 100);
  EXPECT_NEAR(peak.dW, 14.715177646857693, kRounding * 100);
}

TEST(PeakModel, DerivativesAreTheSlopesOfTheValue) {
  constexpr double kStep = 1e-5;
  for (const double x : {-7.0, -1.5, 0.25, 2.0, 9.0}) {
    const auto value = [&](double a, double q, double w) { return PeakModel(a, q, w, x).y; };
    const PeakValue peak = PeakModel(80, 0.5, 4, x);
    EXPECT_NEAR(peak.dA, (value(80 + kStep, 0.5, 4) - value(80 - kStep, 0.5, 4)) / 2e-5, 1e-7);
    EXPECT_NEAR(peak.dQ, (value(80, 0.5 + kStep, 4) - value(80, 0.5 - kStep, 4)) / 2e-5, 1e-7);
    EXPECT_NEAR(peak.dW, (value(80, 0.5, 4 + kStep) - value(80, 0.5, 4 - kStep)) / 2e-5, 1e-7);
  }
}

// sqrt(20) = 4.472...
TEST(PeakModel, IsExactlyZeroFarFromThePeak) {
  const PeakValue far = PeakModel(1000, 0, 1, 4.48);
  EXPECT_EQ(far.y, 0);
  EXPECT_EQ(far.dA, 0);
  EXPECT_EQ(far.dQ, 0);
  EXPECT_EQ(far.dW, 0);
  EXPECT_GT(PeakModel(1000, 0, 1, 4.47).y, 0);
}

TEST(PeakModel, AWidthWithoutASquareIsAFault) {
  EXPECT_THROW(PeakModel(1, 0, 0, 1), Fault);
  EXPECT_THROW(PeakModel(1, 0, 1e-200, 1), Fault);
  EXPECT_THROW(PeakModel(1, 0, 1e-160, 1), Fault);
}

class CondTest : public testing::Test {
 protected:
  std::int16_t Cond(const ManualFitList& list) { return COND(counts, list, region); }

  std::vector<std::int32_t> counts = SawToothSpectrum(100, 1, 0, {});
  NaxRegion region;
};

TEST_F(CondTest, StartValuesAreRelativeToTheMiddleOfTheRegion) {
  EXPECT_EQ(Cond(ListOf(11, 40, {20, 31}, {500, 600})), 0);
  EXPECT_EQ(region.mid, 25.5);
  EXPECT_EQ(region.first_x, -14.5);
  EXPECT_EQ(region.P[1], 500);
  EXPECT_EQ(region.P[2], -5.5);
  EXPECT_EQ(region.P[4], 600);
  EXPECT_EQ(region.P[5], 5.5);
  EXPECT_EQ(region.ParamCount(), 9);
}

TEST_F(CondTest, CountsAreThoseOfTheChannelNumbersFromOne) {
  Cond(ListOf(11, 40, {20}, {500}));
  EXPECT_EQ(region.counts.size(), 30u);
  EXPECT_EQ(region.counts.front(), 111);
  EXPECT_EQ(region.counts.back(), 140);
}

TEST_F(CondTest, EveryWidthStartsAtTenChannelsWhateverIsTypedAsMeant) {
  ManualFitList list = ListOf(11, 40, {20, 31}, {500, 600});
  list.ChWidth[0] = 3;
  list.ChWidth[1] = 0;
  Cond(list);
  EXPECT_NEAR(region.P[3] * 1.6651092, 10, kRounding * 10);
  EXPECT_EQ(region.P[3], region.P[6]);
}

TEST_F(CondTest, APositionOutsideOfTheRegionIsRefused) {
  EXPECT_EQ(Cond(ListOf(11, 40, {20, 41}, {5, 5})), -1);
  EXPECT_EQ(Cond(ListOf(11, 40, {10, 20}, {5, 5})), -1);
}

TEST_F(CondTest, ThePositionCanLieAtEitherEndOfTheRegion) {
  EXPECT_EQ(Cond(ListOf(11, 40, {11, 40}, {5, 5})), 0);
}

TEST_F(CondTest, PeaksBehindTheirNumberAreNotLookedAt) {
  ManualFitList list = ListOf(11, 40, {20}, {5});
  list.CenterCh[1] = 41;
  EXPECT_EQ(Cond(list), 0);
}

TEST_F(CondTest, ANegativeHeightLeavesAllThatFollowsAtZeroAsMeant) {
  EXPECT_EQ(Cond(ListOf(11, 40, {20, 500, 31}, {500, -1, 600})), 0);
  EXPECT_EQ(region.P[1], 500);
  EXPECT_GT(region.P[3], 0);
  for (int i = 4; i <= 20; ++i) EXPECT_EQ(region.P[i], 0) << i;
  EXPECT_EQ(region.counts.size(), 30u);
}

TEST_F(CondTest, ANegativePositionEndsTheListBeforeItIsRefusedAsMeant) {
  EXPECT_EQ(Cond(ListOf(11, 40, {-1, 31}, {500, 600})), 0);
  EXPECT_EQ(region.P[1], 500);
  for (int i = 2; i <= 20; ++i) EXPECT_EQ(region.P[i], 0) << i;
}

TEST_F(CondTest, ANegativeWidthLeavesItselfAndAllThatFollowsAtZeroAsMeant) {
  ManualFitList list = ListOf(11, 40, {20, 31}, {500, 600});
  list.ChWidth[0] = -1;
  EXPECT_EQ(Cond(list), 0);
  EXPECT_EQ(region.P[2], -5.5);
  for (int i = 3; i <= 20; ++i) EXPECT_EQ(region.P[i], 0) << i;
}

TEST_F(CondTest, ARegionOutsideOfTheSpectrumPassesWithoutCounts) {
  for (const auto& [start, end] : {std::pair{0, 30}, {-5, 30}, {390, 401}, {401, 420}}) {
    EXPECT_EQ(Cond(ListOf(start, end, {9999}, {5})), 0);
    EXPECT_TRUE(region.counts.empty()) << start;
  }
  EXPECT_EQ(Cond(ListOf(1, 400, {20}, {5})), 0);
  EXPECT_EQ(region.counts.size(), 400u);
}

TEST_F(CondTest, ARegionOfMoreThanFiveHundredChannelsPassesWithoutCounts) {
  counts.assign(600, 5);
  EXPECT_EQ(Cond(ListOf(1, 501, {20}, {5})), 0);
  EXPECT_TRUE(region.counts.empty());
  EXPECT_EQ(Cond(ListOf(1, 500, {20}, {5})), 0);
  EXPECT_EQ(region.counts.size(), 500u);
}

TEST_F(CondTest, ARegionThatEndsBeforeItStartsHasNoCounts) {
  EXPECT_EQ(Cond(ListOf(40, 39, {40}, {5})), 0);
  EXPECT_TRUE(region.counts.empty());
  EXPECT_EQ(Cond(ListOf(32767, -32768, {40}, {5})), 0);
  EXPECT_TRUE(region.counts.empty());
}

TEST_F(CondTest, ChannelsBehind4096CannotBeFitted) {
  counts.assign(8192, 5);
  EXPECT_EQ(Cond(ListOf(4000, 4097, {4050}, {5})), 0);
  EXPECT_TRUE(region.counts.empty());
  EXPECT_EQ(Cond(ListOf(4000, 4096, {4050}, {5})), 0);
  EXPECT_EQ(region.counts.size(), 97u);
}

TEST_F(CondTest, MorePeaksThanTheListHoldsAreAFault) {
  ManualFitList list = ListOf(11, 40, {20, 20, 20, 20, 20}, {1, 1, 1, 1, 1});
  list.PeakNum = 6;
  EXPECT_THROW(Cond(list), Fault);
  list.PeakNum = -1;
  EXPECT_THROW(Cond(list), Fault);
}

class PrepLsqTest : public NaxFitTest {
 protected:
  bool Prepare() { return PrepLsq(region, limits, *arrays, step, log); }

  std::unique_ptr<NaxArrays> arrays = std::make_unique<NaxArrays>();
  NaxStep step;
};

// Five counts x^2 about a background of 0, no peak. Weights 1/4, 1, 1, 1, 1/4: chi-square is the
// sum of the counts, 10, over 5 - 3. The normal equations of c1 and c3 are {3.5, 4, 4, 10} with the
// right side {4, 10}: 0 and 1; their inverse has the diagonal 10/19 and 3.5/19, that of c2 is 1/4.
TEST_F(PrepLsqTest, BackgroundAloneAsByHand) {
  const std::vector<std::int32_t> counts = {4, 1, 0, 1, 4};
  COND(counts, ListOf(1, 5, {}, {}), region);
  EXPECT_TRUE(Prepare());
  EXPECT_NEAR(step.chi, 5, kRounding);
  EXPECT_NEAR(step.Step[1], 0, kRounding);
  EXPECT_NEAR(step.Step[2], 0, kRounding);
  EXPECT_NEAR(step.Step[3], 1, kRounding);
  EXPECT_NEAR(step.Err[1], std::sqrt(10.0 / 19), kRounding);
  EXPECT_NEAR(step.Err[2], 0.5, kRounding);
  EXPECT_NEAR(step.Err[3], std::sqrt(3.5 / 19), kRounding);
}

// Row of the first count, 16, at x = -3 with P = 4, -3 + 2, 2: u = 2, v = 1/2, E = 1/e. The
// background 1 + x + x^2 is 7 there.
TEST_F(PrepLsqTest, ARowHoldsDerivativesAndBackgroundOverTheWeight) {
  const std::vector<std::int32_t> counts = {16, 1, 2, 5, 3, 8, 9};
  COND(counts, ListOf(1, 7, {4}, {4}), region);
  region.P[2] = -1;
  region.P[3] = 2;
  region.P[4] = region.P[5] = region.P[6] = 1;
  Prepare();
  const double* const row = arrays->X.Row(0);
  const double y = 4 * std::exp(-1.0);
  EXPECT_NEAR(row[0], std::exp(-1.0) / 4, kRounding);
  EXPECT_NEAR(row[1], -y / 4, kRounding);
  EXPECT_NEAR(row[2], y / 4, kRounding);
  EXPECT_EQ(row[3], 0.25);
  EXPECT_EQ(row[4], -0.75);
  EXPECT_EQ(row[5], 2.25);
  EXPECT_NEAR(arrays->DataY[0], (16 - 7 - y) / 4, kRounding);
}

TEST_F(PrepLsqTest, ACountBelowOneHasTheWeightOne) {
  const std::vector<std::int32_t> counts = {0, 1, -7, 1, 1};
  COND(counts, ListOf(1, 5, {}, {}), region);
  Prepare();
  EXPECT_EQ(arrays->X.Row(0)[0], 1);
  EXPECT_EQ(arrays->X.Row(2)[0], 1);
  EXPECT_EQ(arrays->DataY[2], -7);
}

TEST_F(PrepLsqTest, AsManyPointsAsParametersAreAFault) {
  const std::vector<std::int32_t> counts = {4, 1, 2, 1, 4, 3};
  COND(counts, ListOf(1, 6, {3}, {4}), region);
  EXPECT_THROW(Prepare(), Fault);
}

TEST_F(PrepLsqTest, AStepThatIsNotDeterminedFailsWithALineInTheLog) {
  const std::vector<std::int32_t> counts(30, 100);
  COND(counts, ListOf(1, 30, {15, 15}, {40, 40}), region);
  EXPECT_FALSE(Prepare());
  EXPECT_THAT(log.lines, ElementsAre("LSQ IN PREP UNSUCCESSFUL"));
}

class FitResultTest : public NaxFitTest {
 protected:
  // A region about channel 1000 with peaks at these distances from it.
  std::vector<double> PositionsOf(const std::vector<double>& distances) {
    region.mid = 1000;
    region.peak_num = static_cast<int>(distances.size());
    for (int k = 1; k <= region.peak_num; ++k) {
      region.P[3 * k - 1] = distances[static_cast<std::size_t>(k - 1)];
    }
    std::vector<double> positions;
    for (const NaxPeak& peak : FitResult(region, {})) positions.push_back(peak.position);
    return positions;
  }
};

TEST_F(FitResultTest, PeaksAreSortedByPosition) {
  EXPECT_THAT(PositionsOf({5, -3, 8, 0}), ElementsAre(997, 1000, 1005, 1008));
}

TEST_F(FitResultTest, PositionsFromFiveThousandOnAreNeverTheNextAsMeant) {
  EXPECT_THAT(PositionsOf({6000, 5000, 8}), ElementsAre(1008, 6000, 7000));
  EXPECT_THAT(PositionsOf({4001, 4000}), ElementsAre(5001, 5000));
}

TEST_F(FitResultTest, PeaksAtOnePositionKeepTheirOrder) {
  region.P[1] = 10;
  region.P[4] = 20;
  PositionsOf({3, 3});
  const std::vector<NaxPeak> peaks = FitResult(region, {});
  EXPECT_EQ(peaks[0].height, 10);
  EXPECT_EQ(peaks[1].height, 20);
}

TEST_F(FitResultTest, WidthsAreFullWidthsAndErrorsGoWithTheirPeak) {
  region.mid = 10.5;
  region.peak_num = 2;
  NaxParams errors;
  for (int i = 1; i <= 9; ++i) {
    region.P[i] = 10 * i;
    errors[i] = i;
  }
  region.P[2] = 99;
  const std::vector<NaxPeak> peaks = FitResult(region, errors);
  EXPECT_EQ(peaks[0].position, 60.5);
  EXPECT_EQ(peaks[0].height, 40);
  EXPECT_EQ(peaks[0].fwhm, 60 * 1.6651092);
  EXPECT_EQ(peaks[0].position_error, 5);
  EXPECT_EQ(peaks[0].height_error, 4);
  EXPECT_EQ(peaks[0].fwhm_error, 6 * 1.6651092);
  EXPECT_EQ(peaks[1].position, 109.5);
  EXPECT_EQ(peaks[1].background.c1, 70);
  EXPECT_EQ(peaks[1].background.c3, 90);
}

}  // namespace
}  // namespace dorvane
