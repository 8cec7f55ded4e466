#include <gmock/gmock.h>

#include <map>
#include <ostream>

#include "fitting/NaxFit.h"
#include "fitting/NaxFixture.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kConverged = "ALL DISTANCE R(I) SMALL ENOUGH CONV";
constexpr const char* kSlightly = "CHI-SQ SLIGHTLY INCREASED WITHIN ACCEPTABLE ERROR";
constexpr const char* kContinue = "RESIDUAL NOT DECREASE CONTINUE";
constexpr const char* kOver = "ITERATION OF DAMP OVER";

struct Outcome {
  double position, height, fwhm, position_error, height_error, fwhm_error;
};

// Expected values come from an independent computation in Python, written from the description of
// the method with the same order of terms. The two agreed to the last bit on 351 fits out of 1200
// random regions, and in the end of all others.
struct Case {
  const char* name;
  int channels;  // from channel 100 on
  double background, slope, noise;
  std::vector<NaxLine> lines;
  std::vector<int> centers, heights;
  int result, iterations;
  double chi;
  std::vector<Outcome> outcomes;
  std::vector<double> coefficients;
  std::map<std::string, int> log;

  friend std::ostream& operator<<(std::ostream& out, const Case& each) { return out << each.name; }
};

// Relative, and absolute where it is larger: the table has twelve digits.
constexpr double kTableDigits = 1e-10;

void ExpectNear(double value, double expected) {
  EXPECT_NEAR(value, expected, kTableDigits * std::max(1.0, std::abs(expected)));
}

class NaxIteration : public NaxFitTest, public testing::WithParamInterface<Case> {};

TEST_P(NaxIteration, TakesThePathOfTheIndependentComputation) {
  const Case& each = GetParam();
  const NaxFitSummary summary =
      Fit(SawToothSpectrum(each.background, each.slope, each.noise, each.lines),
          ListOf(100, 99 + each.channels, each.centers, each.heights));
  EXPECT_TRUE(summary.ok);
  EXPECT_EQ(summary.result, each.result);
  EXPECT_EQ(summary.iterations, each.iterations);
  ExpectNear(summary.chi, each.chi);
  ASSERT_EQ(summary.peaks.size(), each.outcomes.size());
  for (std::size_t k = 0; k < summary.peaks.size(); ++k) {
    const NaxPeak& peak = summary.peaks[k];
    const Outcome& expected = each.outcomes[k];
    ExpectNear(peak.position, expected.position);
    ExpectNear(peak.height, expected.height);
    ExpectNear(peak.fwhm, expected.fwhm);
    ExpectNear(peak.position_error, expected.position_error);
    ExpectNear(peak.height_error, expected.height_error);
    ExpectNear(peak.fwhm_error, expected.fwhm_error);
    const bool converged = each.result == kNaxConverged;
    EXPECT_EQ(peak.errors.Center, converged ? peak.position_error : 0);
    EXPECT_EQ(peak.errors.Height, converged ? peak.height_error : 0);
    EXPECT_EQ(peak.errors.HalfWidth, converged ? peak.fwhm_error / 2 : 0);
    ExpectNear(peak.background.c1, each.coefficients[0]);
    ExpectNear(peak.background.c2, each.coefficients[1]);
    ExpectNear(peak.background.c3, each.coefficients[2]);
  }
  std::map<std::string, int> lines;
  for (const std::string& line : log.lines) ++lines[line];
  EXPECT_EQ(lines, each.log);
}

const Case kCases[] = {
    {"TwoPeaksOnASlope",
     80,
     200,
     .25,
     10,
     {{120.3, 2000, 4.5}, {150.7, 300, 3}},
     {119, 151},
     {1800, 350},
     1,
     4,
     0.12019132200369965,
     {{120.302143441, 2000.07071463, 9.01091845968, 0.0348898610053, 19.9704147248, 0.076039623586},
      {150.711016644, 299.736363071, 6.00429643363, 0.111691422729, 12.8948536286, 0.270194193671}},
     {234.862320295, 0.268124905632, -0.000787066278742},
     {{kConverged, 1}}},
    {"FivePeaks",
     200,
     50,
     0,
     5,
     {{115.2, 900, 4}, {150.6, 400, 5}, {180.4, 2500, 3}, {230.9, 700, 4.5}, {280.1, 1200, 5}},
     {115, 151, 180, 231, 280},
     {900, 400, 2500, 700, 1200},
     1,
     4,
     0.11361376150628491,
     {{115.205079247, 899.917220997, 8.00429052669, 0.0445703678111, 13.5683969725,
       0.0936490393097},
      {150.616767558, 399.990168077, 10.0080539142, 0.0820017833496, 8.52227259914, 0.173892873608},
      {180.401077867, 2500.13361297, 5.99836574834, 0.0215669570868, 25.2177692108,
       0.0402127144825},
      {230.894228696, 701.621617969, 8.98797301321, 0.0547284931351, 11.4521337904, 0.110273353764},
      {280.104303343, 1199.54191897, 9.99409537923, 0.0422123870991, 13.8496993742,
       0.0866846196641}},
     {49.8377452337, 0.00294237374846, 2.49941145181e-05},
     {{kConverged, 1}}},
    {"ListedInAnyOrder",
     120,
     30,
     0,
     5,
     {{190.4, 800, 4}, {130.2, 500, 5}},
     {190, 130},
     {800, 500},
     1,
     3,
     0.2216405409341811,
     {{130.189965559, 501.389905591, 10.0033918087, 0.0672660157854, 9.08713405799, 0.135587251525},
      {190.401798059, 800.644982738, 8.01055675966, 0.0457738019436, 12.5820410861,
       0.0889900209939}},
     {29.6339590855, 0.000996352861949, -0.000115842553366},
     {{kConverged, 1}}},
    {"OddNumberOfChannels",
     61,
     100,
     0,
     5,
     {{130.2, 500, 5}},
     {130},
     {500},
     1,
     2,
     0.07228241159006153,
     {{130.190901058, 501.345257939, 9.99764880033, 0.0795801435638, 10.1781800706,
       0.202657596919}},
     {99.6554532228, 0.015787219057, 0.000192179938024},
     {{kConverged, 1}}},
    {"ChiSquareRisesOnItsWay",
     80,
     0,
     .25,
     0,
     {{116.7, 300, 3}, {130.6, 300, 2}},
     {121, 135},
     {450, 240},
     1,
     13,
     0.001956163066803733,
     {{116.697928545, 300.092161213, 5.99621370624, 0.0711661079548, 9.35763559684, 0.149950051759},
      {130.5994041, 300.04641104, 4.00181318804, 0.0586979866853, 11.5510895349, 0.122861939332}},
     {34.9583550062, 0.251410926036, 1.4773094139e-05},
     {{kSlightly, 1}, {kConverged, 1}}},
    {"DampingOver",
     80,
     10,
     0,
     30,
     {{161.6, 50000, 2}},
     {162},
     {75000},
     -1,
     23,
     2605.216461220174,
     {{161.329278972, 15788.3179183, 0.841061674326, 0.251816013649, 20150.7727523,
       0.619929837769}},
     {8.48302079465, 0.355731847188, 0.00250129625574},
     {{kContinue, 19}, {kOver, 1}}},
    {"ThirtyIterations",
     60,
     10,
     0,
     30,
     {{111.3, 20, 8}},
     {111},
     {30},
     0,
     30,
     16.084026445138136,
     {{111.416519144, 10.6831086421, 5.76049540893, 0.526360248719, 1.81731422927, 0.931842645239}},
     {2.2913863861, -0.0266060901351, -0.000711040233394},
     {}},
};

INSTANTIATE_TEST_SUITE_P(Nax, NaxIteration, testing::ValuesIn(kCases),
                         [](const auto& each) { return each.param.name; });

class DampedLsqTest : public NaxFitTest {};

// Two peaks that are 30 channels apart; the counts are rounded.
TEST_F(DampedLsqTest, FindsThePeaksThatTheCountsAreMadeOf) {
  const NaxFitSummary summary =
      Fit(SawToothSpectrum(500, 0, 0, {{160.25, 20000, 4}, {190.5, 9000, 6}}),
          ListOf(120, 230, {158, 192}, {15000, 10000}));
  EXPECT_NEAR(summary.peaks[0].position, 160.25, 0.001);
  EXPECT_NEAR(summary.peaks[0].fwhm, 8, 0.001);
  EXPECT_NEAR(summary.peaks[1].height, 9000, 1);
  EXPECT_NEAR(summary.peaks[1].background.c1, 500, 0.5);
}

TEST_F(DampedLsqTest, ARegionWithoutCountsEndsWithALineInTheLog) {
  const NaxFitSummary summary = Fit(std::vector<std::int32_t>(50, 1), ListOf(40, 60, {50}, {5}));
  EXPECT_FALSE(summary.ok);
  EXPECT_FALSE(summary.stopped);
  EXPECT_THAT(log.lines, ElementsAre("LSQ FOR BACK GROUND FAILED"));
}

TEST_F(DampedLsqTest, TwoChannelsAreTooFewForTheBackground) {
  EXPECT_FALSE(Fit(std::vector<std::int32_t>(50, 1), ListOf(20, 21, {20}, {5})).ok);
  EXPECT_THAT(log.lines, ElementsAre("LSQ FOR BACK GROUND FAILED"));
}

// The parabola by exact rational arithmetic; of all twelve channels counted once it would have
// c1 = 4.464.
TEST_F(DampedLsqTest, ChannelsInBothEndsOfTheRegionCountTwiceInTheBackground) {
  limits.MaxIter = 0;
  EXPECT_TRUE(Fit({3, 1, 4, 1, 5, 9, 2, 6, 5, 3, 5, 8}, ListOf(1, 12, {}, {})).ok);
  const NaxBackground background = region.Background();
  EXPECT_NEAR(background.c1, 4.614131701631702, 1e-11);
  EXPECT_NEAR(background.c2, 0.2945945945945946, 1e-11);
  EXPECT_NEAR(background.c3, -0.028554778554778556, 1e-11);
}

TEST_F(DampedLsqTest, OnlyTenChannelsAtEachEndMakeTheFirstBackground) {
  limits.MaxIter = 0;
  std::vector<std::int32_t> counts(40, 7);
  for (std::size_t i = 10; i < 30; ++i) counts[i] = 1000;
  Fit(counts, ListOf(1, 40, {20}, {5}));
  EXPECT_NEAR(region.Background().c1, 7, 1e-9);
  EXPECT_NEAR(region.Background().c3, 0, 1e-11);
  counts[9] = 8;
  Fit(counts, ListOf(1, 40, {20}, {5}));
  EXPECT_GT(std::abs(region.Background().c2), 1e-3);
}

TEST_F(DampedLsqTest, ASingularStepEndsWithoutResults) {
  const NaxFitSummary summary =
      Fit(SawToothSpectrum(200, 0, 3, {{131.6, 50000, 2}, {122.6, 50000, 4.5}, {121, 300, 8}}),
          ListOf(100, 139, {136, 127, 119}, {40000, 75000, 300}));
  EXPECT_FALSE(summary.ok);
  EXPECT_THAT(summary.peaks, IsEmpty());
  EXPECT_THAT(log.lines, ElementsAre("LSQ IN PREP UNSUCCESSFUL"));
}

TEST_F(DampedLsqTest, AWidthOfZeroIsAFault) {
  const auto counts = SawToothSpectrum(100, 0, 3, {});
  COND(counts, ListOf(100, 139, {120}, {-1}), region);
  EXPECT_THROW(DampedLsq(region, limits, log, progress), Fault);
}

// No peaks: the background is linear in its parameters, and exact.
TEST_F(DampedLsqTest, ATinyChiSquareEndsTheIteration) {
  const NaxFitSummary summary = Fit(std::vector<std::int32_t>(4, 100), ListOf(1, 4, {}, {}));
  EXPECT_EQ(summary.result, kNaxConverged);
  EXPECT_EQ(summary.iterations, 1);
  EXPECT_THAT(log.lines, ElementsAre("CHI-SQ LESS THAAN 1E-6 CONV"));
}

TEST_F(DampedLsqTest, AnEqualChiSquareIsAcceptedAsASlightIncrease) {
  const NaxFitSummary summary = Fit(std::vector<std::int32_t>(5, 100), ListOf(1, 5, {}, {}));
  EXPECT_EQ(summary.chi, 0);
  EXPECT_THAT(log.lines, ElementsAre(kSlightly, "CHI-SQ LESS THAAN 1E-6 CONV"));
}

// From the independent computation: the first step of a peak that drowns in the counts raises
// chi-square, and no smaller one is tried.
TEST_F(DampedLsqTest, ATinyChiSquareEndsTheIterationWhereNoStepHelps) {
  limits.DampBits = 0;
  const NaxFitSummary summary =
      Fit(SawToothSpectrum(1e7, 0, 2, {{115, 2, 2}}), ListOf(100, 129, {115}, {2}));
  EXPECT_TRUE(summary.ok);
  EXPECT_EQ(summary.result, kNaxLowChi);
  ExpectNear(summary.chi, 2.4188764938864196e-07);
  EXPECT_NEAR(summary.peaks[0].position, 115, 1e-9);
  EXPECT_THAT(log.lines, ElementsAre(kContinue, "CHI-SQ LESS THAN 1E-6 STOP"));
}

TEST_F(DampedLsqTest, ResultsAreThereAfterTheFirstFailureOfTheDamping) {
  limits.MaxDampFail = 1;
  const NaxFitSummary summary =
      Fit(SawToothSpectrum(10, 0, 30, {{161.6, 50000, 2}}), ListOf(100, 179, {162}, {75000}));
  EXPECT_TRUE(summary.ok);
  EXPECT_EQ(summary.result, kNaxDampingOver);
  ASSERT_EQ(summary.peaks.size(), 1u);
  EXPECT_EQ(summary.peaks[0].errors, PeakErrors{});
  EXPECT_THAT(log.lines, ElementsAre(kOver));
}

// With the limit as it is, thirty iterations are not enough; the other number comes from the
// independent computation, too.
TEST_F(DampedLsqTest, StepsAreMeasuredByTheErrorsOfTheirParameters) {
  limits.TolDist = 1e9;
  const auto counts = SawToothSpectrum(10, 0, 30, {{111.3, 20, 8}});
  EXPECT_EQ(Fit(counts, ListOf(100, 159, {111}, {30})).iterations, 6);
}

TEST_F(DampedLsqTest, TheSameRegionGivesTheSameBits) {
  const auto counts = SawToothSpectrum(200, .25, 10, {{120.3, 2000, 4.5}});
  const NaxFitSummary first = Fit(counts, ListOf(100, 179, {119}, {1800}));
  const NaxFitSummary again = Fit(counts, ListOf(100, 179, {119}, {1800}));
  EXPECT_EQ(first.peaks[0].position, again.peaks[0].position);
  EXPECT_EQ(first.chi, again.chi);
}

TEST_F(DampedLsqTest, TheUserStopsItAfterAnAcceptedStep) {
  progress.stop_at = 2;
  const NaxFitSummary summary =
      Fit(SawToothSpectrum(200, .25, 10, {{120.3, 2000, 4.5}}), ListOf(100, 179, {119}, {1800}));
  EXPECT_FALSE(summary.ok);
  EXPECT_TRUE(summary.stopped);
  EXPECT_EQ(summary.iterations, 2);
  EXPECT_THAT(log.lines, IsEmpty());
}

// The damping of this region halves the first accepted step and gives out later.
TEST_F(DampedLsqTest, TheUserStopsItBetweenTheTrialsOfAStep) {
  const auto counts = SawToothSpectrum(10, 0, 30, {{161.6, 50000, 2}});
  Fit(counts, ListOf(100, 179, {162}, {75000}));
  const int reports = progress.reports;
  EXPECT_GT(reports, limits.MaxIter);
  for (int stop = 1; stop < reports; ++stop) {
    progress.reports = 0;
    progress.stop_at = stop;
    const NaxFitSummary summary = Fit(counts, ListOf(100, 179, {162}, {75000}));
    EXPECT_TRUE(summary.stopped) << stop;
    EXPECT_EQ(progress.reports, stop);
  }
}

}  // namespace
}  // namespace dorvane
