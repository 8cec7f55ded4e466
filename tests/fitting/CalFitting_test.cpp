#include "fitting/CalFitting.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <numbers>
#include <random>
#include <vector>

#include "support/Fault.h"

namespace dorvane {
namespace {

// What mathematical libraries that differ in the last place leave of an iteration that took the
// same path.
constexpr double kSamePath = 1e-9;
// The iteration stops at 1e-6 of a standard error, which is far below the coefficients of these
// fits.
constexpr double kConverged = 1e-6;

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

double Gauss(double x, double centre, double half_width) {
  return std::exp2(-(x - centre) * (x - centre) / (half_width * half_width));
}

double Lorentz(double x, double centre, double half_width) {
  return 1 / (1 + (x - centre) * (x - centre) / (half_width * half_width));
}

// Expected counts in n channels.
template <typename Shape>
std::vector<double> CountsOf(std::size_t n, Shape shape) {
  std::vector<double> y = Channels(n);
  for (double& value : y) value = shape(value);
  return y;
}

std::vector<double> GaussCounts(std::size_t n) {
  return CountsOf(n, [](double x) { return 1000 * Gauss(x, 10.3, 2.5) + 50; });
}

// Whole counts with deviations of the size of their root.
std::vector<double> Measured(std::vector<double> y) {
  std::mt19937 generator(20240229);
  for (double& value : y) {
    double deviation = -6;
    for (int k = 0; k < 12; ++k) deviation += static_cast<double>(generator()) / 4294967296.0;
    value = std::max(0.0, std::round(value + deviation * std::sqrt(value)));
  }
  return y;
}

FitSummary Fit(const std::vector<double>& y, std::int16_t mode, Coefficients& c, int m,
               const FitLimits& limits = {}) {
  return CFDQR2(Channels(y.size()), y, mode, c, m, limits);
}

void ExpectNear(const Coefficients& c, std::initializer_list<double> expected, double relative) {
  int j = 0;
  for (const double value : expected) {
    ++j;
    EXPECT_NEAR(c[j], value, relative * std::abs(value)) << "coefficient " << j;
  }
}

// ---- the likelihood and its parts

TEST(PoissonLogL, IsTheSumOfCountsTimesLogarithmLessValue) {
  const std::vector<double> y = {3, 0, 2}, f = {std::numbers::e, 5, 1};
  bool flag = true;
  EXPECT_NEAR(PoissonLogL(y, f, flag), 3 - std::numbers::e - 5 - 1, 1e-14);
  EXPECT_FALSE(flag);
}

TEST(PoissonLogL, ValueOfZeroOrLessSetsTheFlagAndGivesZero) {
  const std::vector<double> y = {3, 2};
  for (const double bad : {0.0, -1.0}) {
    bool flag = false;
    EXPECT_EQ(PoissonLogL(y, std::vector<double>{1, bad}, flag), 0);
    EXPECT_TRUE(flag);
  }
}

TEST(PoissonLogL, OverflowPasses) {
  bool flag = false;
  EXPECT_THROW(PoissonLogL(std::vector<double>{1, 1}, std::vector<double>{1e308, 1e308}, flag),
               Fault);
}

TEST(LogFactorial, CountOfZeroOrOneAddsNothing) {
  EXPECT_EQ(AddLogFactorial(7, 0), 7);
  EXPECT_EQ(AddLogFactorial(7, 1), 7);
  EXPECT_EQ(AddLogFactorial(7, 0.5), 7);
}

TEST(LogFactorial, CountOf50TakesTheProduct) {
  EXPECT_NEAR(AddLogFactorial(0, 50), std::lgamma(51.0), 1e-12);
  EXPECT_NEAR(AddLogFactorial(0, 4), std::log(24.0), 1e-14);
}

// The next term of Stirling's series is -1 / (360 y^3) = -2.157e-8 at 50.5.
TEST(LogFactorial, CountOf50AndAHalfTakesStirlingsSeries) {
  EXPECT_NEAR(AddLogFactorial(0, 50.5) - std::lgamma(51.5), 2.157e-8, 1e-11);
}

TEST(LogFactorial, CountThatIsNotWholeIsMultipliedDownAsItIsAsMeant) {
  EXPECT_NEAR(AddLogFactorial(0, 2.5), std::log(2.5 * 1.5), 1e-14);
  EXPECT_NEAR(AddLogFactorial(0, 2), std::log(2.0), 1e-14);
}

// ---- results

TEST(CFDQR2, RecoversTheGaussianThatTheCountsWereMadeOf) {
  Coefficients c = Of({900, 11, 3, 0});
  const FitSummary summary = Fit(GaussCounts(21), 1, c, 4);
  EXPECT_EQ(summary.status, 0);
  EXPECT_EQ(summary.message, "");
  EXPECT_FALSE(summary.trace_zero);
  ExpectNear(c, {1000, 10.3, 2.5, 50}, kConverged);
}

TEST(CFDQR2, RecoversTheLorentzian) {
  const auto y = CountsOf(21, [](double x) { return 1000 * Lorentz(x, 10.3, 2.5) + 50; });
  Coefficients c = Of({900, 11, 3, 0});
  EXPECT_EQ(Fit(y, 2, c, 4).status, 0);
  ExpectNear(c, {1000, 10.3, 2.5, 50}, kConverged);
}

TEST(CFDQR2, RecoversTheMixedLine) {
  const auto y = CountsOf(
      31, [](double x) { return 700 * Gauss(x, 15.3, 2.5) + 300 * Lorentz(x, 15.3, 2.5) + 50; });
  Coefficients c = Of({800, 15, 3, 200, 0});
  EXPECT_EQ(Fit(y, 3, c, 5).status, 0);
  ExpectNear(c, {700, 15.3, 2.5, 300, 50}, kConverged);
}

TEST(CFDQR2, RecoversTheSlopeOfTheBackground) {
  const auto y = CountsOf(21, [](double x) { return 1000 * Gauss(x, 10.3, 2.5) + 50 + 2 * x; });
  Coefficients c = Of({900, 11, 3, 20, 0});
  EXPECT_EQ(Fit(y, 1, c, 5).status, 0);
  ExpectNear(c, {1000, 10.3, 2.5, 50, 2}, kConverged);
}

TEST(CFDQR2, RecoversACountedLineWithinItsErrors) {
  Coefficients c = Of({900, 26, 5, 0});
  const auto y = Measured(CountsOf(49, [](double x) { return 1000 * Gauss(x, 25.3, 6) + 80; }));
  const FitSummary summary = Fit(y, 1, c, 4);
  ASSERT_EQ(summary.status, 0);
  const double truth[] = {1000, 25.3, 6, 80};
  for (int j = 1; j <= 4; ++j) {
    EXPECT_LT(std::abs(c[j] - truth[j - 1]), 4 * summary.standard_error[j]) << j;
  }
}

// At the maximum the total of a model with a constant is the total of the counts: the derivative by
// the constant is the sum of y / f - 1, by the height that sum weighted with the line.
TEST(CFDQR2, ResultIsTheMaximumOfTheLikelihoodNotOfLeastSquares) {
  const std::vector<double> y = {34, 42, 90, 389, 1117, 1899, 1761, 903, 276};
  Coefficients c = Of({2000, 7, 2, 0});
  Fit(y, 1, c, 4);
  double by_constant = 0, by_height = 0, total = 0;
  for (std::size_t i = 0; i < y.size(); ++i) {
    const double line = Gauss(static_cast<double>(i + 1), c[2], c[3]);
    const double f = c[1] * line + c[4];
    by_constant += y[i] / f - 1;
    by_height += (y[i] / f - 1) * line;
    total += y[i] - f;
  }
  EXPECT_NEAR(by_constant, 0, 1e-6);
  EXPECT_NEAR(by_height, 0, 1e-6);
  EXPECT_NEAR(total, 0, 1e-2);
}

TEST(CFDQR2, SecondRunIsTheSameToTheLastBit) {
  Coefficients first = Of({2000, 7, 2, 0}), second = first;
  const std::vector<double> y = {34, 42, 90, 389, 1117, 1899, 1761, 903, 276};
  const FitSummary a = Fit(y, 1, first, 4), b = Fit(y, 1, second, 4);
  EXPECT_EQ(first, second);
  EXPECT_EQ(a.standard_error, b.standard_error);
}

TEST(CFDQR2, CoefficientsBeyondTheirNumberStay) {
  Coefficients c = Of({900, 11, 3, 0, 77, 88});
  Fit(GaussCounts(21), 1, c, 4);
  EXPECT_EQ(c[5], 77);
  EXPECT_EQ(c[6], 88);
}

// ---- standard errors. Where the counts equal the model, the estimate is the inverse of Fisher's
// information; the expected numbers are its root diagonal by exact rational elimination, with
// numerical derivatives (Python).

TEST(StandardErrors, AreThoseOfFishersInformationForAPerfectFit) {
  Coefficients c = Of({1000, 10.3, 2.5, 50});
  ExpectNear(Fit(GaussCounts(21), 1, c, 4).standard_error,
             {18.01254780339246, 0.03303887927241023, 0.03514146839589586, 2.4643982753760474},
             1e-8);
  c = Of({1000, 10.3, 2.5, 50});
  const auto lorentz = CountsOf(21, [](double x) { return 1000 * Lorentz(x, 10.3, 2.5) + 50; });
  ExpectNear(Fit(lorentz, 2, c, 4).standard_error,
             {21.07886384271775, 0.042939878508909374, 0.08352127027845327, 6.8221141809010195},
             1e-8);
}

TEST(StandardErrors, OfTheMixedLineAreThoseOfFishersInformation) {
  Coefficients c = Of({700, 10.3, 2.5, 300, 50});
  const auto y = CountsOf(
      21, [](double x) { return 700 * Gauss(x, 10.3, 2.5) + 300 * Lorentz(x, 10.3, 2.5) + 50; });
  ExpectNear(Fit(y, 3, c, 5).standard_error,
             {83.99790568907622, 0.03622742899209854, 0.05355123464194277, 100.80482963032458,
              8.72819093767287},
             1e-7);
}

// Of the same inverse.
TEST(StandardErrors, HeightsOfTheMixedLineHaveTheirCovariance) {
  Coefficients c = Of({700, 10.3, 2.5, 300, 50});
  const auto y = CountsOf(
      21, [](double x) { return 700 * Gauss(x, 10.3, 2.5) + 300 * Lorentz(x, 10.3, 2.5) + 50; });
  EXPECT_NEAR(Fit(y, 3, c, 5).height_covariance, -8269.27787, 1e-4);
  c = Of({1000, 10.3, 2.5, 50});
  EXPECT_EQ(Fit(GaussCounts(21), 1, c, 4).height_covariance, 0);
}

// The sandwich H^-1 (sum of D D' / f) H^-1 with H = sum of y / f^2 D D', by exact rational
// elimination (Python).
TEST(StandardErrors, OfMeasuredCountsAreTheSandwichEstimate) {
  Coefficients c = Of({2000, 7, 2, 0});
  ExpectNear(Fit({34, 42, 90, 389, 1117, 1899, 1761, 903, 276}, 1, c, 4).standard_error,
             {31.644758122563427, 0.01755778705819337, 0.018419384006326044, 4.27756887564932},
             1e-8);
}

TEST(StandardErrors, BeyondTheNumberOfCoefficientsAreZero) {
  Coefficients c = Of({1000, 10.3, 2.5, 50});
  EXPECT_EQ(Fit(GaussCounts(21), 1, c, 4).standard_error[5], 0);
}

// ---- the path. Expected numbers without another source come from a second, independent
// implementation in Python.

struct Path {
  const char* name;
  std::int16_t mode;
  std::vector<double> y;
  std::vector<double> start, end;
  int outer_rounds, trials;
};

class Iteration : public testing::TestWithParam<Path> {};

TEST_P(Iteration, TakesThePathOfTheIndependentComputation) {
  const Path& path = GetParam();
  const int m = static_cast<int>(path.start.size());
  Coefficients c;
  for (int j = 1; j <= m; ++j) c[j] = path.start[static_cast<std::size_t>(j) - 1];
  const FitSummary summary = Fit(path.y, path.mode, c, m);
  EXPECT_EQ(summary.status, 0);
  EXPECT_EQ(summary.outer_rounds, path.outer_rounds);
  EXPECT_EQ(summary.trials, path.trials);
  for (int j = 1; j <= m; ++j) {
    const double expected = path.end[static_cast<std::size_t>(j) - 1];
    EXPECT_NEAR(c[j], expected, kSamePath * std::abs(expected)) << j;
  }
}

const Path kPaths[] = {
    {"PlainSteps",
     1,
     {34, 42, 90, 389, 1117, 1899, 1761, 903, 276},
     {2000, 7, 2, 0},
     {1942.5733967640351, 6.377986349881403, 1.5089901475758776, 34.36311260439565},
     6,
     6},
    {"RejectedSteps",
     1,
     {85, 110, 118, 160, 124, 95, 88, 52, 46},
     {100, 6, 3, 0},
     {103.22513174243174, 3.9029798358841696, 2.657203989950718, 37.24113619570105},
     10,
     14},
    {"SharplyRejectedSteps",
     1,
     {718, 2331, 5350, 8692, 9985, 8110, 4658, 1891, 544},
     {1000, 3, 3, 1},
     {10000.65390690863, 4.899767122650568, 1.9998242219436764, 1.3038970541127555},
     17,
     23},
    {"TrialsNotPositive",
     1,
     {4, 4, 7, 6, 2, 5, 8, 10, 15, 27, 19, 12, 4},
     {20, 12, 0.5, 0},
     {19.67207078379578, 10.096279043854796, 1.4649187115408029, 4.753867677971458},
     26,
     33},
    {"LorentzBothKinds",
     2,
     {25, 58, 90, 84, 52, 23, 14},
     {100, 6, 2, 0},
     {102.98586390242673, 3.426862908243284, 1.7253215925404275, -6.739446232549629},
     22,
     26},
    {"MixTrialNotPositive",
     3,
     {93, 319, 837, 1699, 1901, 1210, 448, 165, 89},
     {1600, 6, 1, 400, 0},
     {1647.455582706433, 4.701797336942805, 1.5212140289479694, 267.8650923538415,
      45.991471585581294},
     18,
     19},
};

INSTANTIATE_TEST_SUITE_P(CFDQR2, Iteration, testing::ValuesIn(kPaths),
                         [](const auto& instance) { return instance.param.name; });

// The normal equations sum D D' / f d = sum D (y - f) / f, solved by exact rational elimination
// (Python).
TEST(CFDQR2, FirstTrialIsAPlainGaussNewtonStep) {
  Coefficients c = Of({2000, 7, 2, 10});
  const FitLimits one_round = {.outer_rounds = 0};
  Fit({34, 42, 90, 389, 1117, 1899, 1761, 903, 276}, 1, c, 4, one_round);
  ExpectNear(c, {1785.732673166346, 6.355604572253489, 1.575938331542182, 34.78774187316569},
             kSamePath);
}

// Four rejected steps in the second round: 0 becomes half the critical damping times the factor,
// which then grows.
TEST(CFDQR2, RejectedStepsRaiseTheDampingUntilOneIsAccepted) {
  Coefficients c = Of({100, 6, 3, 0});
  const FitSummary summary =
      Fit({85, 110, 118, 160, 124, 95, 88, 52, 46}, 1, c, 4, {.outer_rounds = 1});
  EXPECT_EQ(summary.trials, 6);
  ExpectNear(c, {83.1493815511048, 3.5846605658729893, 1.6782828695812573, 51.52117085015477},
             kSamePath);
}

// The first trial loses 13.7 times what it promised: half the critical damping times 10, not 15.7.
TEST(CFDQR2, SharplyRejectedStepMultipliesTheDampingByTenAtMost) {
  Coefficients c = Of({500, 5, 3});
  const FitSummary summary = Fit({137, 373, 699, 959, 906, 666, 337}, 1, c, 3, {.outer_rounds = 0});
  EXPECT_EQ(summary.trials, 2);
  ExpectNear(c, {664.9845834570626, 4.547923042086932, 2.8379580337652577}, kSamePath);
}

// The steps are small enough from the 6th round on; the likelihood changes by 4.8e-6 in the 7th,
// which is within 1e-7 of its value without the factorials (165), but not with them (20).
TEST(CFDQR2, ChangeOfTheLikelihoodIsMeasuredByItsValueWithTheFactorials) {
  Coefficients c = Of({40, 7, 2, 0});
  const FitSummary summary = Fit({0, 2, 12, 9, 23, 22, 14, 13, 4}, 1, c, 4);
  EXPECT_EQ(summary.status, 0);
  EXPECT_EQ(summary.outer_rounds, 8);
  EXPECT_EQ(summary.trials, 16);
}

// A line so wide that its height and the constant can't be told apart: the constant falls out of
// the rank.
TEST(CFDQR2, CoefficientOutsideTheRankKeepsItsValueThroughTheStep) {
  Coefficients c = Of({50, 4, 100000, 5});
  Fit({79, 127, 102, 103, 45, 71, 82}, 1, c, 4, {.outer_rounds = 0});
  EXPECT_EQ(c[4], 5);
  EXPECT_NEAR(c[1], 84.2857, 0.001);
}

// The third trial of the second round moves all three coefficients, the fourth leaves the centre
// out: with the trial's centre the information matrix is singular; with the accepted one the fit
// would reach its limit after 103 trials. A Lorentzian takes no function that libraries round
// apart.
TEST(CFDQR2, CoefficientOutsideTheRankKeepsItsLastTrialAsMeant) {
  Coefficients c = Of({10, 6, 10000});
  const FitSummary summary = Fit({17, 20, 18, 26, 15, 21, 22}, 2, c, 3);
  EXPECT_EQ(summary.status, 4);
  EXPECT_EQ(summary.outer_rounds, 2);
  EXPECT_EQ(summary.trials, 5);
}

// With the step of the round before, the last round would take six more trials.
TEST(CFDQR2, CoefficientOutsideTheRankHasNoStep) {
  Coefficients c = Of({10, 1, 10000, 5});
  const FitSummary summary = Fit({5, 14, 3, 8, 9}, 2, c, 4);
  EXPECT_EQ(summary.status, 0);
  EXPECT_EQ(summary.outer_rounds, 6);
  EXPECT_EQ(summary.trials, 6);
}

// With a floor of its own for every coefficient, or with that of the height, the fit would take an
// 18th round.
TEST(CFDQR2, LastSolvedCoefficientSetsTheFloorForAllAsMeant) {
  Coefficients c = Of({1000, 6, 1.5, 10000});
  const FitSummary summary = Fit({10108, 10315, 10621, 10943, 10970, 10675, 10190}, 1, c, 4);
  EXPECT_EQ(summary.status, 0);
  EXPECT_EQ(summary.outer_rounds, 17);
  EXPECT_EQ(summary.trials, 21);
}

}  // namespace
}  // namespace dorvane
