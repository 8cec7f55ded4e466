#include "fitting/NaxLsq.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <numeric>
#include <vector>

#include "support/Fault.h"

namespace dorvane {
namespace {

// A few hundred operations on numbers near 1.
constexpr double kRounding = 1e-12;
constexpr double kTol = 1e-6;

TEST(ExpSafe, IsZeroFromMinusTwentyDown) {
  EXPECT_EQ(ExpSafe(-20), 0);
  EXPECT_EQ(ExpSafe(-1e300), 0);
  // e^-20 = 2.061153622438558e-9 (tables)
  EXPECT_NEAR(ExpSafe(std::nextafter(-20.0, 0.0)), 2.061153622438558e-9, 1e-22);
}

TEST(ExpSafe, IsALineUpToAMillionth) {
  EXPECT_EQ(ExpSafe(0), 1);
  EXPECT_EQ(ExpSafe(1e-6), 1.000001);
  EXPECT_EQ(ExpSafe(-1e-6), 0.999999);
  // the square term, 0.5 (1e-3)^2, is there beyond
  EXPECT_NEAR(ExpSafe(1e-3), 1.0010005001667084, 1e-15);
}

TEST(ExpSafe, IsTheExponentialElsewhere) {
  EXPECT_NEAR(ExpSafe(1), 2.718281828459045, 1e-15);
  EXPECT_NEAR(ExpSafe(-1), 0.36787944117144233, 1e-16);
}

class LsqTest : public testing::Test {
 protected:
  // Points x = 0, 1, ... with the columns 1, x, x^2, ...
  std::vector<double> SolvePowers(const std::vector<double>& y, std::size_t columns,
                                  LsqStart start = LsqStart::Build, double tol = kTol) {
    for (std::size_t i = 0; i < y.size(); ++i) {
      double power = 1;
      for (std::size_t a = 0; a < columns; ++a) {
        x->Row(i)[a] = power;
        power *= static_cast<double>(i);
      }
    }
    return Solve(y, columns, start, tol);
  }

  std::vector<double> Solve(const std::vector<double>& y, std::size_t columns,
                            LsqStart start = LsqStart::Build, double tol = kTol) {
    std::vector<double> b(columns, -7);
    errors.assign(columns, -7);
    ok = Lsq(*x, y, matrix, start, tol, b, errors);
    return b;
  }

  std::unique_ptr<LsqDesign> x = std::make_unique<LsqDesign>();
  LsqMatrix matrix;
  std::vector<double> errors;
  bool ok = false;
};

// Line through (0,1), (1,2), (2,4), (3,4): slope 5.5 / 5 = 1.1, offset 2.75 - 1.65 = 1.1; residuals
// -0.1, -0.2, 0.7, -0.4, their squares 0.70, s2 = 0.35; errors sqrt(0.35 / 5) and
// sqrt(0.35 * 14 / 20).
TEST_F(LsqTest, FitsALineWithErrorsAsByHand) {
  const std::vector<double> b = SolvePowers({1, 2, 4, 4}, 2);
  EXPECT_TRUE(ok);
  EXPECT_NEAR(b[0], 1.1, kRounding);
  EXPECT_NEAR(b[1], 1.1, kRounding);
  EXPECT_NEAR(errors[0], std::sqrt(0.245), kRounding);
  EXPECT_NEAR(errors[1], std::sqrt(0.07), kRounding);
}

// The inverse of the scaled matrix {{4, 2}, {2, 14/9}}, of determinant 20/9.
TEST_F(LsqTest, LeavesScalesAndTheInverseOfTheScaledMatrix) {
  SolvePowers({1, 2, 4, 4}, 2);
  EXPECT_EQ(matrix.scale[0], 1);
  EXPECT_EQ(matrix.scale[1], 3);
  EXPECT_NEAR(matrix.inverse[0][0], 0.7, kRounding);
  EXPECT_NEAR(matrix.inverse[0][1], -0.9, kRounding);
  EXPECT_NEAR(matrix.inverse[1][0], -0.9, kRounding);
  EXPECT_NEAR(matrix.inverse[1][1], 1.8, kRounding);
  EXPECT_NEAR(matrix.UnitError(1), std::sqrt(1.8) / 3, kRounding);
}

TEST_F(LsqTest, AsManyPointsAsColumnsGiveNoErrors) {
  const std::vector<double> b = SolvePowers({1, 3}, 2);
  EXPECT_NEAR(b[1], 2, kRounding);
  EXPECT_EQ(errors, std::vector<double>({0, 0}));
}

TEST_F(LsqTest, ErrorsCanBeLeftOut) {
  SolvePowers({1, 2, 4, 4}, 2);
  std::vector<double> b(2);
  EXPECT_TRUE(Lsq(*x, std::vector<double>{1, 2, 4, 4}, matrix, LsqStart::Build, kTol, b));
  EXPECT_NEAR(b[1], 1.1, kRounding);
}

TEST_F(LsqTest, EqualColumnsAreRefusedAndNothingIsWritten) {
  for (std::size_t i = 0; i < 4; ++i) x->Row(i)[0] = x->Row(i)[1] = static_cast<double>(i);
  const std::vector<double> b = Solve({1, 2, 4, 4}, 2);
  EXPECT_FALSE(ok);
  EXPECT_EQ(b, std::vector<double>({-7, -7}));
  EXPECT_EQ(errors, std::vector<double>({-7, -7}));
}

TEST_F(LsqTest, AColumnOfZerosIsRefused) {
  for (std::size_t i = 0; i < 4; ++i) x->Row(i)[0] = 1;
  Solve({1, 2, 4, 4}, 2);
  EXPECT_FALSE(ok);
  EXPECT_EQ(matrix.scale[1], 0);
}

TEST_F(LsqTest, NoPointsAreRefused) {
  Solve({}, 1);
  EXPECT_FALSE(ok);
}

// One column of 1/sqrt(n) each has the scaled determinant n.
TEST_F(LsqTest, TheDeterminantMustBeGreaterThanTheLimit) {
  for (std::size_t i = 0; i < 4; ++i) x->Row(i)[0] = 0.5;
  Solve({1, 1, 1, 1}, 1, LsqStart::Build, 4);
  EXPECT_FALSE(ok);
  Solve({1, 1, 1, 1}, 1, LsqStart::Build, 3.999);
  EXPECT_TRUE(ok);
}

// Unscaled, the pivots 1e-52 and 1e-48 lie about the limit of 1e-50.
TEST_F(LsqTest, APivotOfATinyMagnitudeIsNone) {
  matrix.scale[0] = 1;
  x->Row(0)[0] = 1e-26;
  Solve({1}, 1, LsqStart::KeepScale, -1e-60);
  EXPECT_EQ(matrix.inverse[0][0], 1e-26 * 1e-26);
  x->Row(0)[0] = 1e-24;
  Solve({1}, 1, LsqStart::KeepScale, -1e-60);
  EXPECT_NEAR(matrix.inverse[0][0] * 1e-48, 1, kRounding);
}

TEST_F(LsqTest, AScaleThatIsKeptServesInPlaceOfTheGreatestMagnitude) {
  matrix.scale[0] = 1;
  matrix.scale[1] = 2;
  const std::vector<double> b = SolvePowers({1, 2, 4, 4}, 2, LsqStart::KeepScale);
  EXPECT_NEAR(b[0], 1.1, kRounding);
  EXPECT_NEAR(b[1], 1.1, kRounding);
  EXPECT_EQ(matrix.scale[1], 2);
  EXPECT_NEAR(matrix.inverse[1][1], 0.8, kRounding);
}

TEST_F(LsqTest, AKeptScaleOfZeroIsAFault) {
  EXPECT_THROW(SolvePowers({1, 2, 4, 4}, 2, LsqStart::KeepScale), Fault);
}

TEST_F(LsqTest, AKeptInverseServesOtherCountsAtTheSamePlaces) {
  SolvePowers({1, 2, 4, 4}, 2);
  const std::vector<double> kept = Solve({2, 3, 5, 4}, 2, LsqStart::KeepInverse);
  const std::vector<double> anew = Solve({2, 3, 5, 4}, 2);
  EXPECT_EQ(kept, anew);
}

TEST_F(LsqTest, AKeptInverseIsNotTestedAgain) {
  SolvePowers({1, 2, 4, 4}, 2);
  matrix.inverse[0][0] *= 2;  // 1.4
  const std::vector<double> b = Solve({1, 2, 4, 4}, 2, LsqStart::KeepInverse, 1e6);
  EXPECT_TRUE(ok);
  // the right side is (11, 22 / 3): 1.4 * 11 - 0.9 * 22 / 3
  EXPECT_NEAR(b[0], 8.8, kRounding);
}

TEST_F(LsqTest, ThirtyColumnsAndFiveHundredPointsAreTheMost) {
  for (std::size_t i = 0; i < kMaxLsqPoints; ++i) x->Row(i)[i % kMaxLsqColumns] = 1;
  std::vector<double> y(kMaxLsqPoints);
  for (std::size_t i = 0; i < y.size(); ++i) y[i] = static_cast<double>(i % kMaxLsqColumns);
  const std::vector<double> b = Solve(y, kMaxLsqColumns);
  std::vector<double> numbers(kMaxLsqColumns);
  std::iota(numbers.begin(), numbers.end(), 0.0);
  EXPECT_TRUE(ok);
  for (std::size_t a = 0; a < b.size(); ++a) EXPECT_NEAR(b[a], numbers[a], kRounding);
  EXPECT_THROW(Solve(y, kMaxLsqColumns + 1), Fault);
  y.push_back(0);
  EXPECT_THROW(Solve(y, 1), Fault);
}

TEST_F(LsqTest, ErrorsOfAnotherSizeAreAFault) {
  std::vector<double> b(2), other(3);
  EXPECT_THROW(Lsq(*x, std::vector<double>{1, 2, 3}, matrix, LsqStart::Build, kTol, b, other),
               Fault);
}

TEST_F(LsqTest, WhatIsNoFiniteNumberIsAFault) {
  EXPECT_THROW(SolvePowers({1, 2, std::numeric_limits<double>::infinity()}, 2), Fault);
  x->Row(0)[0] = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(Solve({1, 2, 3}, 1), Fault);
}

// More columns than stand side by side, and not a multiple of them. Expected values by exact
// rational arithmetic.
TEST_F(LsqTest, APolynomialOfFiveTermsAgreesWithExactArithmetic) {
  const std::vector<double> b = SolvePowers({3, 1, 4, 1, 5, 9, 2, 6}, 5, LsqStart::Build, 1e-12);
  EXPECT_TRUE(ok);
  const std::vector<double> expected = {829 / 264.0, -50123 / 11088.0, 3217 / 1056.0, -943 / 1584.0,
                                        13 / 352.0};
  const std::vector<double> expected_errors = {3.35358380864131, 7.8271479469858, 5.07323657532402,
                                               1.12706638575559, 0.0798860603021511};
  for (std::size_t a = 0; a < b.size(); ++a) {
    EXPECT_NEAR(b[a], expected[a], 1e-10) << a;
    EXPECT_NEAR(errors[a], expected_errors[a], 1e-10) << a;
  }
}

}  // namespace
}  // namespace dorvane
