#include "fitting/LineShapes.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <initializer_list>
#include <limits>

#include "support/Fault.h"

namespace dorvane {
namespace {

// Hand calculations with few operations: what is left is the last place.
constexpr double kRounding = 1e-12;
// Central differences with a step of 1e-5 on values up to a few hundred.
constexpr double kDifference = 1e-4;

constexpr int kDivisionByZero = static_cast<int>(FaultCode::DivisionByZero);

Coefficients Of(std::initializer_list<double> values) {
  Coefficients c;
  int j = 0;
  for (const double value : values) c[++j] = value;
  return c;
}

using Value = double (*)(double, const Coefficients&, int, int&);
using Derivative = void (*)(double, const Coefficients&, Coefficients&, int, int&);

double At(Value f, double x, const Coefficients& c, int m) {
  int err = -1;
  const double value = f(x, c, m, err);
  EXPECT_EQ(err, 0);
  return value;
}

Coefficients SlopesAt(Derivative d, double x, const Coefficients& c, int m) {
  int err = -1;
  Coefficients D;
  d(x, c, D, m, err);
  EXPECT_EQ(err, 0);
  return D;
}

void ExpectSlopesOfValue(Value f, Derivative d, const Coefficients& c, int m) {
  for (const double x : {3.0, 7.25, 8.0, 12.5}) {
    const Coefficients D = SlopesAt(d, x, c, m);
    for (int j = 1; j <= m; ++j) {
      Coefficients above = c, below = c;
      above[j] += 1e-5;
      below[j] -= 1e-5;
      EXPECT_NEAR(D[j], (At(f, x, above, m) - At(f, x, below, m)) / 2e-5, kDifference)
          << "coefficient " << j << " at " << x;
    }
  }
}

TEST(LineShapes, GaussianHasHalfItsHeightAtTheHalfWidth) {
  EXPECT_NEAR(At(fGauss, 10, Of({80, 8, 2}), 3), 40, kRounding);
  EXPECT_NEAR(At(fGauss, 12, Of({80, 8, 2}), 3), 5, kRounding);
}

TEST(LineShapes, LorentzianHasHalfItsHeightAtTheHalfWidth) {
  EXPECT_NEAR(At(fLorentz, 10, Of({80, 8, 2}), 3), 40, kRounding);
  EXPECT_NEAR(At(fLorentz, 14, Of({80, 8, 2}), 3), 8, kRounding);
}

TEST(LineShapes, ConstantCountsFromFourCoefficientsAndSlopeForFiveOnly) {
  const Coefficients c = Of({80, 8, 2, 7, 0.5});
  for (const Value f : {Value{fGauss}, Value{fLorentz}}) {
    EXPECT_NEAR(At(f, 10, c, 3), 40, kRounding);
    EXPECT_NEAR(At(f, 10, c, 4), 47, kRounding);
    EXPECT_NEAR(At(f, 10, c, 5), 52, kRounding);
    EXPECT_NEAR(At(f, 10, c, 6), 47, kRounding);
  }
}

// ln2 * 24^2 = 399.3 and ln2 * 25^2 = 433.2, half widths of 1.
TEST(LineShapes, GaussianTailBeyondExponent400DropsTheSlopeAsMeant) {
  const Coefficients c = Of({80, 0, 1, 7, 0.5});
  EXPECT_EQ(At(fGauss, 24, c, 5), 19);
  EXPECT_EQ(At(fGauss, 25, c, 5), 7);
  EXPECT_EQ(At(fGauss, -25, c, 5), 7);
}

TEST(LineShapes, GaussianTailKeepsTheDerivativesOfTheBackgroundAsMeant) {
  const Coefficients D = SlopesAt(dGauss, 25, Of({80, 0, 1, 7, 0.5}), 5);
  EXPECT_EQ(D, Of({0, 0, 0, 1, 25}));
}

TEST(LineShapes, GaussianTailCalculatesNoSlopesThatCouldOverflow) {
  EXPECT_EQ(SlopesAt(dGauss, 25, Of({1e308, 0, 1, 7}), 4), Of({0, 0, 0, 1}));
}

TEST(LineShapes, LorentzianHasNoTail) {
  EXPECT_NEAR(At(fLorentz, 99, Of({80, 0, 1, 7, 0.5}), 5), 80.0 / 9802 + 56.5, kRounding);
}

TEST(LineShapes, MixedLineAddsALorentzianOfTheSameCentreAndWidth) {
  const Coefficients c = Of({60, 8, 2, 20, 7, 0.5});
  EXPECT_NEAR(At(fGaussLorentz, 10, c, 4), 40, kRounding);
  EXPECT_NEAR(At(fGaussLorentz, 10, c, 5), 47, kRounding);
  EXPECT_NEAR(At(fGaussLorentz, 10, c, 6), 52, kRounding);
}

TEST(LineShapes, MixedLineDropsItsSlopeInTheTailOfTheGaussianAsMeant) {
  EXPECT_NEAR(At(fGaussLorentz, 99, Of({60, 0, 1, 9802, 7, 0.5}), 6), 8, kRounding);
}

TEST(LineShapes, DerivativesAreThoseOfTheValue) {
  ExpectSlopesOfValue(fGauss, dGauss, Of({80, 8.3, 2.5, 7, 0.5}), 5);
  ExpectSlopesOfValue(fLorentz, dLorentz, Of({80, 8.3, 2.5, 7, 0.5}), 5);
  ExpectSlopesOfValue(fGaussLorentz, dGaussLorentz, Of({60, 8.3, 2.5, 20, 7, 0.5}), 6);
}

TEST(LineShapes, ElementsWithoutACoefficientAreZero) {
  EXPECT_EQ(SlopesAt(dGauss, 8, Of({80, 8, 2}), 3), Of({1, 0, 0}));
  EXPECT_EQ(SlopesAt(dGauss, 8, Of({80, 8, 2}), 7), Of({1, 0, 0, 1}));
  EXPECT_EQ(SlopesAt(dLorentz, 8, Of({80, 8, 2}), 5), Of({1, 0, 0, 1, 8}));
  EXPECT_EQ(SlopesAt(dGaussLorentz, 8, Of({60, 8, 2, 20}), 5), Of({1, 0, 0, 1, 1}));
  EXPECT_EQ(SlopesAt(dGaussLorentz, 8, Of({60, 8, 2, 20}), 6), Of({1, 0, 0, 1, 1, 8}));
}

TEST(LineShapes, HalfWidthZeroIsADivisionByZero) {
  for (const Value f : {Value{fGauss}, Value{fLorentz}, Value{fGaussLorentz}}) {
    int err = 0;
    EXPECT_EQ(f(8, Of({80, 8, 0, 7}), 4, err), 0);
    EXPECT_EQ(err, kDivisionByZero);
  }
  for (const Derivative d : {Derivative{dGauss}, Derivative{dLorentz}, Derivative{dGaussLorentz}}) {
    int err = 0;
    Coefficients D = Of({9, 9, 9});
    d(8, Of({80, 8, 0, 7}), D, 4, err);
    EXPECT_EQ(D, Coefficients{});
    EXPECT_EQ(err, kDivisionByZero);
  }
}

TEST(LineShapes, WidthWhoseSquareVanishesIsADivisionByZeroForTheGaussian) {
  int err = 0;
  EXPECT_EQ(fGauss(8, Of({80, 8, 1e-170, 7}), 4, err), 0);
  EXPECT_EQ(err, kDivisionByZero);
}

TEST(LineShapes, OverflowIsAFaultNotAnInfinity) {
  int err = 0;
  EXPECT_EQ(fGauss(8, Of({80, 1e200, 1, 7}), 4, err), 0);
  EXPECT_GE(err, 5);
  EXPECT_EQ(fLorentz(8, Of({80, 1e200, 1, 7}), 4, err), 0);
  EXPECT_GE(err, 5);
  EXPECT_EQ(fGauss(8, Of({80, 8, 1e200, 7}), 4, err), 0);
  EXPECT_GE(err, 5);
  Coefficients D;
  dGauss(9, Of({1e308, 8, 1, 7}), D, 4, err);
  EXPECT_GE(err, 5);
}

TEST(LineShapes, NotANumberIsAFault) {
  int err = 0;
  EXPECT_EQ(fGauss(std::numeric_limits<double>::quiet_NaN(), Of({80, 8, 2}), 3, err), 0);
  EXPECT_GE(err, 5);
}

TEST(LineShapes, ErrorIsClearedOnEntry) {
  int err = 6;
  fGauss(8, Of({80, 8, 2}), 3, err);
  EXPECT_EQ(err, 0);
}

class Region : public testing::TestWithParam<LineShape> {
 protected:
  static Value ValueOf(LineShape shape) {
    return std::array<Value, 3>{fGauss, fLorentz, fGaussLorentz}[Index(shape)];
  }
  static Derivative DerivativeOf(LineShape shape) {
    return std::array<Derivative, 3>{dGauss, dLorentz, dGaussLorentz}[Index(shape)];
  }
  static std::size_t Index(LineShape shape) { return static_cast<std::size_t>(shape) - 1; }
};

TEST_P(Region, GivesWhatTheSingleAbscissaGives) {
  const std::array<double, 4> x = {1, 8, 11.5, 400};
  const Coefficients c = Of({60, 8.5, 2.5, 20, 7, 0.5});
  std::array<double, 4> exponentials, values;
  FitMatrix derivatives;
  ASSERT_EQ(ShapeValues(GetParam(), x, c, 6, exponentials, values), 0);
  ASSERT_EQ(ShapeDerivatives(GetParam(), x, c, 6, exponentials, derivatives), 0);
  for (std::size_t i = 0; i < x.size(); ++i) {
    EXPECT_EQ(values[i], At(ValueOf(GetParam()), x[i], c, 6));
    const Coefficients D = SlopesAt(DerivativeOf(GetParam()), x[i], c, 6);
    for (int j = 1; j <= 6; ++j) {
      EXPECT_EQ(derivatives.Column(static_cast<std::size_t>(j) - 1)[i], D[j]);
    }
  }
}

TEST_P(Region, AnswersTheFault) {
  const std::array<double, 2> x = {1, 2};
  std::array<double, 2> exponentials{}, values;
  FitMatrix derivatives;
  const Coefficients c = Of({60, 8.5, 0, 20});
  EXPECT_EQ(ShapeValues(GetParam(), x, c, 4, exponentials, values), kDivisionByZero);
  EXPECT_EQ(ShapeDerivatives(GetParam(), x, c, 4, exponentials, derivatives), kDivisionByZero);
}

INSTANTIATE_TEST_SUITE_P(LineShapes, Region,
                         testing::Values(LineShape::Gauss, LineShape::Lorentz,
                                         LineShape::GaussLorentz));

}  // namespace
}  // namespace dorvane
