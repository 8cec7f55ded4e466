#include "fitting/FitMatrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <vector>

#include "support/Fault.h"

namespace dorvane {
namespace {

// A handful of operations on numbers near 1.
constexpr double kRounding = 1e-13;

using Rows = std::initializer_list<std::initializer_list<double>>;

SquareMatrix Square(Rows rows) {
  SquareMatrix a{};
  std::size_t i = 0;
  for (const auto& row : rows) std::copy(row.begin(), row.end(), a[i++].begin());
  return a;
}

void ExpectLeadingPart(const SquareMatrix& a, Rows rows) {
  const SquareMatrix expected = Square(rows);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t j = 0; j < rows.size(); ++j) {
      EXPECT_NEAR(a[i][j], expected[i][j], kRounding) << i << ", " << j;
    }
  }
}

TEST(MatInverse, InvertsAndAnswersTheDeterminant) {
  SquareMatrix a = Square({{4, 7}, {2, 6}});
  EXPECT_NEAR(MatInverse(a, 2), 10, kRounding);
  ExpectLeadingPart(a, {{0.6, -0.7}, {-0.2, 0.4}});
}

TEST(MatInverse, DeterminantKeepsItsSignThroughInterchanges) {
  SquareMatrix a = Square({{0, 1}, {1, 0}});
  EXPECT_EQ(MatInverse(a, 2), -1);
  ExpectLeadingPart(a, {{0, 1}, {1, 0}});
}

// Determinant and adjugate by hand: det = 2 (0 - 3) - 0 + 1 (1 - 0) = -5.
TEST(MatInverse, ThreeByThreeByHand) {
  SquareMatrix a = Square({{2, 0, 1}, {1, 0, 3}, {0, 1, 1}});
  const double det = MatInverse(a, 3);
  EXPECT_NEAR(det, -5, kRounding);
  ExpectLeadingPart(a, {{0.6, -0.2, 0}, {0.2, -0.4, 1}, {-0.2, 0.4, 0}});
}

TEST(MatInverse, LeavesWhatIsBeyondMAlone) {
  SquareMatrix a = Square({{2, 5, 5}, {5, 5, 5}, {5, 5, 5}});
  EXPECT_EQ(MatInverse(a, 1), 2);
  ExpectLeadingPart(a, {{0.5, 5, 5}, {5, 5, 5}, {5, 5, 5}});
}

// Half-worked by hand after the pivot (2, 2); with the pivot (1, 1) it would be {1, 1}, {-1, 0}.
TEST(MatInverse, SingularAnswersZeroAndTheLastOfEqualPivotsIsTaken) {
  SquareMatrix a = Square({{1, 1}, {1, 1}});
  EXPECT_EQ(MatInverse(a, 2), 0);
  ExpectLeadingPart(a, {{1, -1}, {1, 0}});
}

TEST(MatInverse, ZeroMatrixIsSingular) {
  SquareMatrix a{};
  EXPECT_EQ(MatInverse(a, 3), 0);
}

TEST(MatInverse, APivotUpToTheLeastOneCountsAsZero) {
  SquareMatrix a = Square({{2, 0}, {0, -0.5}});
  EXPECT_EQ(MatInverse(a, 2, 0.5), 0);
  a = Square({{2, 0}, {0, -0.5}});
  EXPECT_EQ(MatInverse(a, 2, 0.4999), -1);
}

TEST(MatInverse, MatricesOfOtherSizesAreInverted) {
  std::array<std::array<double, 2>, 2> a = {{{4, 7}, {2, 6}}};
  EXPECT_NEAR(MatInverse(a, 2), 10, kRounding);
  EXPECT_NEAR(a[1][0], -0.2, kRounding);
}

TEST(MatInverse, NotANumberAndOverflowAreFaults) {
  SquareMatrix a = Square({{1, std::numeric_limits<double>::quiet_NaN()}, {1, 2}});
  EXPECT_THROW(MatInverse(a, 2), Fault);
  a = Square({{1e-310}});
  EXPECT_THROW(MatInverse(a, 1), Fault);
  a = Square({{1e200, 0}, {0, 1e200}});
  EXPECT_THROW(MatInverse(a, 2), Fault);
}

// Columns of a matrix and their factorisation.
struct Factorisation {
  explicit Factorisation(const std::vector<std::vector<double>>& columns)
      : given(columns), rows(columns[0].size()), m(columns.size()) {
    for (std::size_t j = 0; j < m; ++j) std::copy(given[j].begin(), given[j].end(), q.Column(j));
    rank = GramSchmidtQR(q, rows, m, r, pivots);
  }

  double Product(std::size_t a, std::size_t b) const {
    double sum = 0;
    for (std::size_t i = 0; i < rows; ++i) sum += q.Column(a)[i] * q.Column(b)[i];
    return sum;
  }

  std::vector<std::vector<double>> given;
  std::size_t rows, m, rank = 0;
  FitMatrix q;
  SquareMatrix r;
  Pivots pivots;
};

const std::vector<std::vector<double>> kFiveColumns = {{1, 2, 2, 0, 1, 0},
                                                       {3, 0, 4, 1, 0, 1},
                                                       {0, 1, 0, 2, 2, 5},
                                                       {1, 1, 1, 1, 1, 1},
                                                       {2, -1, 0.5, 0, 3, 1}};

TEST(GramSchmidtQR, ColumnsAreOrthonormal) {
  const Factorisation f(kFiveColumns);
  ASSERT_EQ(f.rank, 5u);
  for (std::size_t a = 0; a < 5; ++a) {
    for (std::size_t b = 0; b < 5; ++b) EXPECT_NEAR(f.Product(a, b), a == b, kRounding);
  }
}

TEST(GramSchmidtQR, ProductOfTheFactorsIsTheMatrix) {
  const Factorisation f(kFiveColumns);
  for (std::size_t j = 0; j < f.m; ++j) {
    for (std::size_t i = 0; i < f.rows; ++i) {
      double sum = 0;
      for (std::size_t k = 0; k < f.rank; ++k) sum += f.q.Column(f.pivots[k])[i] * f.r[k][j];
      EXPECT_NEAR(sum, f.given[j][i], kRounding);
    }
  }
}

TEST(GramSchmidtQR, FirstPivotIsTheLongestColumn) {
  const Factorisation f({{1, 0, 0}, {0, 0, 3}, {0, 2, 0}});
  EXPECT_EQ(f.pivots[0], 1u);
  EXPECT_EQ(f.r[0][1], 3);
}

// Column 1 is the longest. Of column 0 then 0.5 out of 0.51 is left, of column 2, which is longer,
// 1 out of 3.2.
TEST(GramSchmidtQR, LaterPivotsGoByTheShareOfTheirLengthThatIsLeft) {
  const Factorisation f({{0.5, 0.1, 0}, {0, 4, 0}, {1, 3, 0}});
  EXPECT_EQ(f.pivots[0], 1u);
  EXPECT_EQ(f.pivots[1], 0u);
}

TEST(GramSchmidtQR, FirstOfEqualColumnsIsThePivot) {
  const Factorisation f({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}});
  EXPECT_EQ(f.pivots[0], 0u);
  EXPECT_EQ(f.pivots[1], 1u);
}

TEST(GramSchmidtQR, DependentColumnEndsTheRankAndIsClearedInR) {
  const Factorisation f({{2, 0, 0}, {0, 1, 0}, {4, 3, 0}});
  EXPECT_EQ(f.rank, 2u);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(f.r[i][f.pivots[2]], 0);
}

TEST(GramSchmidtQR, ColumnIsDependentWhenOnePartInTenBillionIsLeft) {
  EXPECT_EQ(Factorisation({{1, 0}, {1, 0.5e-10}}).rank, 1u);
  EXPECT_EQ(Factorisation({{1, 0}, {1, 2e-10}}).rank, 2u);
}

TEST(GramSchmidtQR, AllColumnsTooShortIsRankZero) {
  EXPECT_EQ(Factorisation({{1e-11, 0}, {0, 1e-11}}).rank, 0u);
  EXPECT_EQ(Factorisation({{0, 0}}).rank, 0u);
}

TEST(GramSchmidtQR, ColumnOfZerosBesideAnotherIsADivisionByZero) {
  EXPECT_THROW(Factorisation({{1, 1}, {0, 0}}), Fault);
}

TEST(InnerProducts, GivesEveryPairItsSum) {
  const std::vector<double> a = {1, 2, 3}, b = {4, 5, 6};
  for (std::size_t count = 0; count <= 9; ++count) {
    std::vector<ColumnPair> pairs(count, {a.data(), a.data()});
    std::vector<double> sums(count + 1, -1.0);
    if (count > 0) pairs[count - 1].b = b.data();
    InnerProducts(pairs, 3, sums);
    for (std::size_t w = 0; w + 1 < count; ++w) EXPECT_EQ(sums[w], 14);
    if (count > 0) {
      EXPECT_EQ(sums[count - 1], 32);
    }
    EXPECT_EQ(sums[count], -1);
  }
}

TEST(Columns, AreFilledAndCombinedRowByRow) {
  FitMatrix matrix;
  for (std::size_t j = 0; j < 5; ++j) {
    FillColumn(matrix.Column(j), 3, [=](std::size_t i) { return static_cast<double>(10 * i + j); });
  }
  const double factors[] = {1, 2, 0, 1, -1};
  double out[] = {9, 9, 9, 9};
  CombineColumns(matrix, 5, factors, 3, out);
  EXPECT_EQ(out[0], 1);
  EXPECT_EQ(out[1], 31);
  EXPECT_EQ(out[2], 61);
  EXPECT_EQ(out[3], 9);
}

}  // namespace
}  // namespace dorvane
