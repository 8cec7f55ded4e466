#include "processing/QuadFit.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "support/Fault.h"

namespace dorvane {
namespace {

using Values = std::vector<double>;

// Sums of a few products, in units of the value.
constexpr double kRounding = 1e-12;

TEST(QuadFit, AParabolaComesBackConstantFirst) {
  const QuadFitResult fit = QuadFit(Values{0, 1, 2, 3, 4}, Values{1, 6, 17, 34, 57});
  EXPECT_EQ(fit.status, kFitted);
  EXPECT_NEAR(fit.coefficients[0], 1, kRounding);
  EXPECT_NEAR(fit.coefficients[1], 2, kRounding);
  EXPECT_NEAR(fit.coefficients[2], 3, kRounding);
}

// Normal equations solved in fractions.
TEST(QuadFit, MorePointsThanCoefficientsGiveTheLeastSquares) {
  const QuadFitResult fit = QuadFit(Values{0, 1, 2, 3, 4}, Values{1, 0, 2, 1, 5});
  EXPECT_NEAR(fit.coefficients[0], 1, kRounding);
  EXPECT_NEAR(fit.coefficients[1], -1.1, kRounding);
  EXPECT_NEAR(fit.coefficients[2], 0.5, kRounding);
}

// The diagonal of the inverse normal matrix, in fractions.
TEST(QuadFit, ErrorsForUnitVarianceAreThoseOfTheNormalMatrix) {
  const QuadFitResult fit = QuadFit(Values{0, 1, 2, 3, 4}, Values{1, 0, 2, 1, 5});
  EXPECT_NEAR(fit.unit_errors[0] * fit.unit_errors[0], 31.0 / 35, kRounding);
  EXPECT_NEAR(fit.unit_errors[1] * fit.unit_errors[1], 87.0 / 70, kRounding);
  EXPECT_NEAR(fit.unit_errors[2] * fit.unit_errors[2], 1.0 / 14, kRounding);
}

// The same in fractions, for numbers such as channels and energies.
TEST(QuadFit, ChannelsByTheThousandLoseNoDigits) {
  const QuadFitResult fit =
      QuadFit(Values{100, 700, 1300, 2500, 3100, 4000}, Values{7, 46, 84, 161, 199, 258});
  EXPECT_NEAR(fit.coefficients[0], 0.9732441651223377, 1e-12);
  EXPECT_NEAR(fit.coefficients[1], 0.06360912362689013, 1e-14);
  EXPECT_NEAR(fit.coefficients[2], 1.4489834286788603e-07, 1e-18);
}

TEST(QuadFit, ThreePointsAreMetExactly) {
  const QuadFitResult fit = QuadFit(Values{-1, 0, 2}, Values{3, 1, 9});
  EXPECT_NEAR(fit.coefficients[0], 1, kRounding);
  EXPECT_NEAR(fit.coefficients[1], 0, kRounding);
  EXPECT_NEAR(fit.coefficients[2], 2, kRounding);
}

TEST(QuadFit, NoPointsAreStatus1) {
  EXPECT_EQ(QuadFit({}, {}).status, kNoPoints);
  EXPECT_EQ(kNoPoints, 1);
}

TEST(QuadFit, FewerThanThreeDifferentAbscissaeAreSingular) {
  for (const Values& x : {Values{5}, Values{5, 5, 5}, Values{1, 2}, Values{0.1, 0.7, 0.1, 0.7}}) {
    const QuadFitResult fit = QuadFit(x, Values(x.size(), 3));
    EXPECT_EQ(fit.status, kSingular) << x.size();
    EXPECT_EQ(fit.coefficients, (std::array<double, 3>{}));
  }
  EXPECT_EQ(kSingular, 2);
}

TEST(QuadFit, PointsApartByTheirRoundingAloneAreSingular) {
  EXPECT_EQ(QuadFit(Values{1, 1 + 1e-15, 4000}, Values{1, 2, 3}).status, kSingular);
}

TEST(QuadFit, WhatLeavesTheNumbersIsSingular) {
  const double huge = std::numeric_limits<double>::max();
  EXPECT_EQ(QuadFit(Values{0, huge, huge}, Values{1, 2, 3}).status, kSingular);
  EXPECT_EQ(QuadFit(Values{1, 2, 3}, Values{huge, -huge, huge}).status, kSingular);
  EXPECT_EQ(QuadFit(Values{0, 1e-300, 2e-300}, Values{1, 2, 4}).status, kSingular);
}

TEST(QuadFit, ListsOfDifferentSizeFault) {
  EXPECT_THROW(QuadFit(Values{1, 2}, Values{1}), Fault);
}

}  // namespace
}  // namespace dorvane
