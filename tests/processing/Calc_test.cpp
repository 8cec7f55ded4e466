#include "processing/Calc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "support/Fault.h"

namespace dorvane {
namespace {

using Counts = std::vector<std::int32_t>;

// A few operations on numbers up to a hundred.
constexpr double kRounding = 1e-12;

constexpr int kDivisionByZero = static_cast<int>(FaultCode::DivisionByZero);
constexpr int kSubscript = static_cast<int>(FaultCode::Subscript);

// `height` counts in the middle of `n` channels that are empty otherwise.
Counts Spike(std::size_t n, std::int32_t height) {
  Counts counts(n, 0);
  counts[n / 2] = height;
  return counts;
}

Counts Smoothed(std::int16_t kind, Counts counts) {
  SmoothData(kind, counts);
  return counts;
}

// ---- smoothing

TEST(SmoothData, SpikeOf16BecomesTheBinomialWeights) {
  EXPECT_EQ(Smoothed(0, Spike(11, 16)), (Counts{0, 0, 0, 1, 4, 6, 4, 1, 0, 0, 0}));
}

TEST(SmoothData, SpikeOf21IsClippedAtZeroWhereTheWeightsAreNegative) {
  EXPECT_EQ(Smoothed(1, Spike(15, 21)), (Counts{0, 0, 0, 0, 0, 3, 6, 7, 6, 3, 0, 0, 0, 0, 0}));
}

TEST(SmoothData, SpikesShowTheWeightsOf9And11Points) {
  EXPECT_EQ(Smoothed(2, Spike(17, 231)),
            (Counts{0, 0, 0, 0, 0, 14, 39, 54, 59, 54, 39, 14, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Smoothed(3, Spike(21, 429)),
            (Counts{0, 0, 0, 0, 0, 0, 9, 44, 69, 84, 89, 84, 69, 44, 9, 0, 0, 0, 0, 0, 0}));
}

TEST(SmoothData, HalvesRoundToTheEvenNeighbour) {
  EXPECT_EQ(Smoothed(0, Spike(11, 10))[4], 2);  // 4 * 10 / 16 = 2.5
  EXPECT_EQ(Smoothed(0, Spike(11, 14))[4], 4);  // 4 * 14 / 16 = 3.5
}

TEST(SmoothData, QuadraticFiltersKeepAParabola) {
  Counts parabola(41);
  for (std::size_t i = 0; i < parabola.size(); ++i) {
    const auto x = static_cast<std::int32_t>(i) - 20;
    parabola[i] = 3 * x * x + 5 * x + 1000;
  }
  for (const std::int16_t kind : {1, 2, 3}) EXPECT_EQ(Smoothed(kind, parabola), parabola) << kind;
}

// The binomial weights have the variance 1: x^2 becomes x^2 + 1.
TEST(SmoothData, FivePointFilterIsNotQuadraticAsMeant) {
  const Counts parabola = {16, 9, 4, 1, 0, 1, 4, 9, 16};
  EXPECT_EQ(Smoothed(0, parabola), (Counts{16, 9, 5, 2, 1, 2, 5, 9, 16}));
}

TEST(SmoothData, CountsAreClippedAtTheUpperLimit) {
  for (const std::int16_t kind : {0, 1, 2, 3}) {
    const Counts smoothed = Smoothed(kind, Counts(31, 20000000));
    EXPECT_EQ(smoothed[15], 9999999);
    EXPECT_EQ(smoothed[0], 20000000) << "the edges are not clipped";
  }
}

TEST(SmoothData, LargestCountsDoNotOverflow) {
  const Counts largest(31, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(Smoothed(3, largest)[15], 9999999);
  const Counts smallest(31, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(Smoothed(3, smallest)[15], 0);
}

TEST(SmoothData, EdgesOfAFullSpectrumStay) {
  Counts counts(8192);
  for (std::size_t i = 0; i < counts.size(); ++i) counts[i] = i % 2 == 0 ? 100 : 0;
  const Counts smoothed = Smoothed(3, counts);
  for (std::size_t i = 0; i <= 4; ++i) EXPECT_EQ(smoothed[i], counts[i]);
  EXPECT_NE(smoothed[5], counts[5]);
  EXPECT_NE(smoothed[8186], counts[8186]);
  for (std::size_t i = 8187; i <= 8191; ++i) EXPECT_EQ(smoothed[i], counts[i]);
}

TEST(SmoothData, SpectrumShorterThanTheFilterStays) {
  for (std::size_t n = 0; n <= 10; ++n) {
    const Counts counts(n, 20000000);
    EXPECT_EQ(Smoothed(3, counts), counts);
  }
}

TEST(SmoothData, UnknownKindIsASubscriptFault) {
  Counts counts(20, 1);
  EXPECT_THROW(SmoothData(-1, counts), Fault);
  EXPECT_THROW(SmoothData(4, counts), Fault);
}

// ---- peak shapes

using Shape = double (*)(double, std::span<const double>, int&);

double At(Shape shape, double x, const std::vector<double>& p) {
  int error = -1;
  const double y = shape(x, p, error);
  EXPECT_EQ(error, 0);
  return y;
}

void ExpectFault(Shape shape, double x, const std::vector<double>& p, int expected) {
  int error = 0;
  EXPECT_EQ(shape(x, p, error), 0);
  EXPECT_EQ(error, expected);
}

TEST(GaussFunc, HasHalfItsHeightAtTheHalfWidth) {
  EXPECT_NEAR(At(GaussFunc, 10, {80, 8, 2}), 40, kRounding);
  EXPECT_NEAR(At(GaussFunc, 12, {80, 8, 2}), 5, kRounding);
}

TEST(GaussFunc, ConstantCountsFromFourParametersAndSlopeForFiveOnly) {
  EXPECT_NEAR(At(GaussFunc, 10, {80, 8, 2, 7}), 47, kRounding);
  EXPECT_NEAR(At(GaussFunc, 10, {80, 8, 2, 7, 0.5}), 52, kRounding);
  EXPECT_NEAR(At(GaussFunc, 10, {80, 8, 2, 7, 0.5, 9}), 47, kRounding);
}

// ln2 * 24^2 = 399.3 and ln2 * 25^2 = 433.2.
TEST(GaussFunc, FarFromThePeakTheConstantAloneRemainsAsMeant) {
  EXPECT_EQ(At(GaussFunc, 24, {80, 0, 1, 7, 0.5}), 19);
  EXPECT_EQ(At(GaussFunc, 25, {80, 0, 1, 7, 0.5}), 7);
  EXPECT_EQ(At(GaussFunc, 25, {80, 0, 1}), 0);
}

TEST(LorentzFunc, HasHalfItsHeightAtTheHalfWidth) {
  EXPECT_NEAR(At(LorentzFunc, 10, {80, 8, 2}), 40, kRounding);
  EXPECT_NEAR(At(LorentzFunc, 14, {80, 8, 2}), 8, kRounding);
}

TEST(LorentzFunc, ConstantAndSlopeCountAtEveryDistance) {
  EXPECT_NEAR(At(LorentzFunc, 10, {80, 8, 2, 7}), 47, kRounding);
  EXPECT_NEAR(At(LorentzFunc, 99, {9802, 0, 1, 7, 0.5}), 57.5, kRounding);
}

TEST(MixFunc, AddsALorentzianOfTheSameCentreAndHalfWidth) {
  EXPECT_NEAR(At(MixFunc, 10, {60, 8, 2, 20}), 40, kRounding);
  EXPECT_NEAR(At(MixFunc, 14, {0, 8, 2, 20}), 2, kRounding);
}

TEST(MixFunc, BackgroundRidesOnTheGaussianHalf) {
  EXPECT_NEAR(At(MixFunc, 10, {60, 8, 2, 20, 7}), 47, kRounding);
  EXPECT_NEAR(At(MixFunc, 10, {60, 8, 2, 20, 7, 0.5}), 52, kRounding);
  EXPECT_NEAR(At(MixFunc, 10, {60, 8, 2, 20, 7, 0.5, 9}), 47, kRounding);
  EXPECT_NEAR(At(MixFunc, 99, {60, 0, 1, 9802, 7, 0.5}), 8, kRounding);
}

TEST(PeakShapes, HalfWidthZeroIsReportedNotRaised) {
  ExpectFault(GaussFunc, 8, {80, 8, 0, 7}, kDivisionByZero);
  ExpectFault(LorentzFunc, 8, {80, 8, 0, 7}, kDivisionByZero);
  ExpectFault(MixFunc, 9, {80, 8, 0, 7}, kDivisionByZero);
}

TEST(PeakShapes, OverflowIsReportedNotRaised) {
  for (const Shape shape : {Shape{GaussFunc}, Shape{LorentzFunc}, Shape{MixFunc}}) {
    int error = 0;
    EXPECT_EQ(shape(1e200, std::vector<double>{80, 8, 2, 7}, error), 0);
    EXPECT_GE(error, 5);
  }
}

TEST(PeakShapes, TooFewParametersAreReported) {
  ExpectFault(GaussFunc, 8, {80, 8}, kSubscript);
  ExpectFault(LorentzFunc, 8, {}, kSubscript);
  ExpectFault(MixFunc, 8, {80, 8, 2}, kSubscript);
}

TEST(PeakShapes, ErrorIsClearedOnEntry) {
  int error = 6;
  MixFunc(8, std::vector<double>{80, 8, 2, 7}, error);
  EXPECT_EQ(error, 0);
}

// ---- straight line and helpers

TEST(LineFunc, IsOffsetPlusSlopeTimesX) {
  EXPECT_EQ(LineFunc(3, {10, 2}), 16);
}

// Through (1, 3), (2, 5), (3, 7) goes y = 1 + 2 x; as returned, y = -1 + 2 x.
TEST(LineFit, TakesTheSlopeOffTheOffsetOnceAsMeant) {
  const LineCoef a = LineFit(std::vector<double>{1, 2, 3}, std::vector<double>{3, 5, 7});
  EXPECT_NEAR(a[0], -1, kRounding);
  EXPECT_NEAR(a[1], 2, kRounding);
  EXPECT_NEAR(LineFunc(3, a), 5, kRounding) << "one step of x beside the points";
}

// Slope (4 * 25 - 6 * 12) / (4 * 14 - 36) = 1.4, offset 3 - 1.4 * 1.5 = 0.9.
TEST(LineFit, IsTheLineOfLeastSquares) {
  const LineCoef a = LineFit(std::vector<double>{0, 1, 2, 3}, std::vector<double>{1, 3, 2, 6});
  EXPECT_NEAR(a[1], 1.4, kRounding);
  EXPECT_NEAR(a[0], 0.9 - 1.4, kRounding);
}

TEST(LineFit, WithoutADeterminantGivesZeros) {
  EXPECT_EQ(LineFit({}, {}), (LineCoef{0, 0}));
  EXPECT_EQ(LineFit(std::vector<double>{4}, std::vector<double>{9}), (LineCoef{0, 0}));
  EXPECT_EQ(LineFit(std::vector<double>{4, 4}, std::vector<double>{9, 7}), (LineCoef{0, 0}));
}

TEST(LineFit, DifferentSizesAreABadArgument) {
  EXPECT_THROW(LineFit(std::vector<double>{1, 2}, std::vector<double>{1}), Fault);
}

TEST(MaxValMinVal, GiveTheLargerAndTheSmaller) {
  EXPECT_EQ(MaxVal(2, 3), 3);
  EXPECT_EQ(MaxVal(3, 2), 3);
  EXPECT_EQ(MinVal(2, 3), 2);
  EXPECT_EQ(MinVal(3, 2), 2);
  EXPECT_EQ(MaxVal(-1, -1), -1);
}

TEST(Log10Safe, IsTheDecimalLogarithm) {
  double x = 1000;
  EXPECT_NEAR(Log10Safe(x), 3, kRounding);
  EXPECT_EQ(x, 1000);
}

TEST(Log10Safe, OfZeroOrLessIsZeroAndLeavesOneInTheArgument) {
  for (double x : {0.0, -5.0}) {
    EXPECT_EQ(Log10Safe(x), 0);
    EXPECT_EQ(x, 1);
  }
}

}  // namespace
}  // namespace dorvane
