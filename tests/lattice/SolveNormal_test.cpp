#include "lattice/SolveNormal.h"

#include <gtest/gtest.h>

#include "support/Fault.h"

namespace dorvane {
namespace {

class SolveNormalTest : public testing::Test {
 protected:
  void AddRow(float value, std::initializer_list<float> factors) {
    ++rows;
    y[rows] = value;
    int k = 0;
    for (const float factor : factors) A[rows][++k] = factor;
  }
  bool Solve(int params) { return SolveNormal(0.0001f, params, rows, y, A, x, sigma); }

  LineVector y;
  LineMatrix A;
  CellVector x, sigma;
  int rows = 0;
};

TEST_F(SolveNormalTest, OneRowAndOneParameterHasNoError) {
  AddRow(1, {4});
  sigma[1] = 9;
  ASSERT_TRUE(Solve(1));
  EXPECT_EQ(x[1], 0.25f);
  EXPECT_EQ(sigma[1], 0);
}

// The mean of 1 and 3 is 2, its standard error sqrt(((1-2)^2 + (3-2)^2) / 1 / 2) = 1.
TEST_F(SolveNormalTest, TheMeanOfTwoValuesHasItsStandardError) {
  AddRow(1, {1});
  AddRow(3, {1});
  ASSERT_TRUE(Solve(1));
  EXPECT_EQ(x[1], 2);
  EXPECT_EQ(sigma[1], 1);
}

// Line through (0,1) (1,3) (2,4) (3,4): slope 1, intercept 1.5, residual sum 1, variance 0.5,
// inverse diagonal (0.7, 0.2); worked out by hand.
TEST_F(SolveNormalTest, AStraightLineHasItsStandardErrors) {
  AddRow(1, {1, 0});
  AddRow(3, {1, 1});
  AddRow(4, {1, 2});
  AddRow(4, {1, 3});
  ASSERT_TRUE(Solve(2));
  EXPECT_NEAR(x[1], 1.5, 1e-6);
  EXPECT_NEAR(x[2], 1.0, 1e-6);
  EXPECT_NEAR(sigma[1], 0.59160798, 1e-6);
  EXPECT_NEAR(sigma[2], 0.31622777, 1e-6);
}

TEST_F(SolveNormalTest, AsManyRowsAsParametersIsSolvedWithoutErrors) {
  AddRow(3, {1, 1, 1});
  AddRow(1, {1, -1, 0});
  AddRow(0, {0, 1, -1});
  ASSERT_TRUE(Solve(3));
  EXPECT_NEAR(x[1], 5.0 / 3, 1e-6);
  EXPECT_NEAR(x[2], 2.0 / 3, 1e-6);
  EXPECT_NEAR(x[3], 2.0 / 3, 1e-6);
  EXPECT_EQ(sigma[2], 0);
}

// N = ((1, 3), (3, 10)): the larger element stands in the second row.
TEST_F(SolveNormalTest, RowsAreSwappedForTheLargestPivot) {
  AddRow(0, {1, 3});
  AddRow(1, {0, 1});
  ASSERT_TRUE(Solve(2));
  EXPECT_NEAR(x[1], -3, 1e-5);
  EXPECT_NEAR(x[2], 1, 1e-5);
}

TEST_F(SolveNormalTest, AnEmptyColumnFailsAndWritesNothing) {
  AddRow(1, {2, 0});
  AddRow(1, {3, 0});
  x[1] = 7;
  EXPECT_FALSE(Solve(2));
  EXPECT_EQ(x[1], 7);
}

TEST_F(SolveNormalTest, APivotMustBeAboveTheLimit) {
  AddRow(1, {0.01f, 0});
  AddRow(1, {0, 1});
  EXPECT_FALSE(Solve(2));  // 0.01 squared in 32 bits is just below 0.0001
  A[1][1] = 0.0101f;
  EXPECT_TRUE(Solve(2));
}

TEST_F(SolveNormalTest, TheLastPivotIsTestedToo) {
  AddRow(1, {1, 0});
  AddRow(1, {0, 0.005f});
  EXPECT_FALSE(Solve(2));
}

// N = ((0.25, 0), (0, 0.25)) exactly.
TEST_F(SolveNormalTest, APivotOfTheLimitItselfFails) {
  AddRow(1, {0.5f, 0});
  AddRow(1, {0, 0.5f});
  EXPECT_FALSE(SolveNormal(0.25f, 2, rows, y, A, x, sigma));
  AddRow(1, {0.5f, 0});
  EXPECT_FALSE(SolveNormal(0.25f, 2, rows, y, A, x, sigma));  // the last one too
  EXPECT_TRUE(SolveNormal(0.2499f, 2, rows, y, A, x, sigma));
}

// N = ((2, 2), (2, 13.52)); x by the same steps in single precision (Python). With the rows swapped
// x(1) would be 6.2500005.
TEST_F(SolveNormalTest, TheFirstOfEqualPivotsIsTaken) {
  AddRow(2, {1, 3.4f});
  AddRow(8, {1, -1.4f});
  ASSERT_TRUE(Solve(2));
  EXPECT_EQ(x[1], 6.25f);
  EXPECT_EQ(x[2], -0x1.3ffffep+0f);
}

TEST_F(SolveNormalTest, ASingleParameterIsMeantToHaveNoPivotTest) {
  AddRow(1, {0.001f});
  ASSERT_TRUE(Solve(1));
  EXPECT_NEAR(x[1], 1000, 1e-2);
}

TEST_F(SolveNormalTest, ASingleEmptyColumnFaults) {
  AddRow(1, {0});
  EXPECT_THROW(Solve(1), Fault);
}

// 1 + 2^-24 is 1 in 32 bits, so that ten thousandths of a large sum vanish; 64 bits would keep
// them.
TEST_F(SolveNormalTest, SumsAreMeantToRunInThirtyTwoBits) {
  AddRow(1, {4096});
  for (int i = 0; i < 8; ++i) AddRow(1, {0.5f});
  ASSERT_TRUE(Solve(1));
  // b = 4096 + 8 * 0.5 = 4100; N = 4096^2 + 8 * 0.25 stays 2^24, each quarter being below half a
  // unit.
  EXPECT_EQ(x[1], 4100.0f / 16777216.0f);
}

TEST_F(SolveNormalTest, ValuesOutsideTheRangeFault) {
  AddRow(1, {1e30f, 0});
  AddRow(1, {0, 1});
  EXPECT_THROW(Solve(2), Fault);
}

}  // namespace
}  // namespace dorvane
