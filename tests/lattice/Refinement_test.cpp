// The refinement of the six systems in 32 bits against one in wide arithmetic, and its errors
// against computations from elsewhere.
#include <gtest/gtest.h>

#include "lattice/CalLattice.h"
#include "lattice/RefinementFixture.h"

namespace dorvane {
namespace {

// What 32 bits are held to: angstrom as well as relative, and degrees.
constexpr double kLengthTolerance = 2e-5;
constexpr double kAngleTolerance = 2e-4;
// Errors come from residuals that 32 bits round to some 1e-7 of a row.
constexpr double kErrorShare = 1e-3;

struct KnownCell {
  int system;
  Cell6 cell;
};

class RefinementTest : public testing::Test, public RefinementFixture {
 protected:
  // d values with errors of 3e-4 of themselves.
  static std::vector<PlaneLine> Measured(std::vector<PlaneLine> lines, std::uint64_t seed) {
    RandomCounts random(seed);
    for (PlaneLine& line : lines) line.d *= 1 + 3e-4 * Deviate(random);
    return lines;
  }

  // The largest deviations from the wide least squares, in tolerances.
  void ExpectAgrees(int system, const std::vector<PlaneLine>& lines) {
    ASSERT_EQ(Refine(system, lines), kLsqDone);
    const WideFit wide_fit = FitWide(system, lines);
    const auto cell = DirectFromMetric(MetricOf(system, wide_fit.parameter));
    for (int k = 0; k < 3; ++k) {
      const double length = cell[static_cast<std::size_t>(k)];
      EXPECT_NEAR(result.Direct[k + 1], length, kLengthTolerance * std::min(1.0, length)) << k;
      EXPECT_NEAR(result.Direct[k + 4], cell[static_cast<std::size_t>(k + 3)], kAngleTolerance)
          << k;
    }
    EXPECT_NEAR(result.Direct[7], cell[6], 3 * kLengthTolerance * cell[6]);
  }

  void ExpectErrorsAgree(int system, const std::vector<PlaneLine>& lines) {
    ASSERT_EQ(Refine(system, lines), kLsqDone);
    const WideFit wide_fit = FitWide(system, lines);
    for (std::size_t p = 0; p < wide_fit.error.size(); ++p) {
      EXPECT_NEAR(result.RecipErr[static_cast<int>(p) + 1], wide_fit.error[p],
                  kErrorShare * wide_fit.error[p])
          << p;
    }
  }

  // Lines without errors, and ten measurements of them, with so many lines beyond the parameters.
  void ExpectAgreesWith(const KnownCell& known, int surplus) {
    const auto [system, cell] = known;
    SCOPED_TRACE(testing::Message() << LatticeName(static_cast<std::int16_t>(system)) << ", a "
                                    << cell[0] << ", surplus " << surplus);
    const auto lines = LinesOf(system, cell, kParameters[system] + surplus);
    ExpectAgrees(system, lines);
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
      ExpectAgrees(system, Measured(lines, seed));
      ExpectErrorsAgree(system, Measured(lines, seed));
    }
  }
};

// Five of each system, the usual and the awkward: long and flat cells, lengths and angles that are
// nearly those of a higher symmetry, acute and very oblique ones.
const KnownCell kCubicCells[] = {{0, {4.0786, 4.0786, 4.0786, 90, 90, 90}},
                                 {0, {2.8665, 2.8665, 2.8665, 90, 90, 90}},
                                 {0, {5.6402, 5.6402, 5.6402, 90, 90, 90}},
                                 {0, {12.25, 12.25, 12.25, 90, 90, 90}},
                                 {0, {24.6, 24.6, 24.6, 90, 90, 90}}};
const KnownCell kTetragonalCells[] = {{1, {4.594, 4.594, 2.959, 90, 90, 90}},
                                      {1, {5.8316, 5.8316, 3.1815, 90, 90, 90}},
                                      {1, {3.785, 3.785, 9.514, 90, 90, 90}},
                                      {1, {12.1, 12.1, 5.1, 90, 90, 90}},
                                      {1, {4.0, 4.0, 4.001, 90, 90, 90}}};
const KnownCell kHexagonalCells[] = {{2, {4.7587, 4.7587, 12.9929, 90, 90, 120}},
                                     {2, {2.95, 2.95, 4.686, 90, 90, 120}},
                                     {2, {9.42, 9.42, 6.88, 90, 90, 120}},
                                     {2, {4.913, 4.913, 5.405, 90, 90, 120}},
                                     {2, {15.9, 15.9, 7.2, 90, 90, 120}}};
const KnownCell kOrthorhombicCells[] = {{3, {4.7535, 10.1943, 5.9807, 90, 90, 90}},
                                        {3, {4.96, 7.97, 5.74, 90, 90, 90}},
                                        {3, {18.2, 8.8, 5.2, 90, 90, 90}},
                                        {3, {5.0, 5.03, 5.06, 90, 90, 90}},
                                        {3, {5.0, 5.001, 5.002, 90, 90, 90}}};
const KnownCell kMonoclinicCells[] = {{4, {5.1505, 5.2116, 5.3173, 90, 99.23, 90}},
                                      {4, {5.4024, 5.5959, 7.7564, 90, 90.278, 90}},
                                      {4, {9.746, 8.899, 5.251, 90, 105.63, 90}},
                                      {4, {5.0, 6.0, 7.0, 90, 135, 90}},
                                      {4, {5.0, 6.0, 7.0, 90, 90.01, 90}}};
const KnownCell kTriclinicCells[] = {{5, {7.1262, 7.852, 5.5724, 89.99, 101.11, 106.03}},
                                     {5, {8.144, 12.787, 7.160, 94.26, 116.6, 87.67}},
                                     {5, {5.1, 6.3, 7.2, 71, 80, 65}},
                                     {5, {6, 7, 8, 60, 70, 80}},
                                     {5, {12, 13, 14, 100, 95, 110}}};

TEST_F(RefinementTest, CubicCellIsThatOfTheWideLeastSquares) {
  for (const KnownCell& known : kCubicCells) {
    for (const int surplus : {3, 8, 20, 40}) ExpectAgreesWith(known, surplus);
  }
}
TEST_F(RefinementTest, TetragonalCellIsThatOfTheWideLeastSquares) {
  for (const KnownCell& known : kTetragonalCells) {
    for (const int surplus : {3, 8, 20, 40}) ExpectAgreesWith(known, surplus);
  }
}
TEST_F(RefinementTest, HexagonalCellIsThatOfTheWideLeastSquares) {
  for (const KnownCell& known : kHexagonalCells) {
    for (const int surplus : {3, 8, 20, 40}) ExpectAgreesWith(known, surplus);
  }
}
TEST_F(RefinementTest, OrthorhombicCellIsThatOfTheWideLeastSquares) {
  for (const KnownCell& known : kOrthorhombicCells) {
    for (const int surplus : {4, 8, 20, 40}) ExpectAgreesWith(known, surplus);
  }
}
TEST_F(RefinementTest, MonoclinicCellIsThatOfTheWideLeastSquares) {
  for (const KnownCell& known : kMonoclinicCells) {
    for (const int surplus : {6, 8, 20, 40}) ExpectAgreesWith(known, surplus);
  }
}
TEST_F(RefinementTest, TriclinicCellIsThatOfTheWideLeastSquares) {
  for (const KnownCell& known : kTriclinicCells) {
    for (const int surplus : {4, 8, 20, 40}) ExpectAgreesWith(known, surplus);
  }
}

// The unit planes and what the angles need: no line too many.
TEST_F(RefinementTest, AsManyLinesAsParametersGiveTheCellOfTheWideLeastSquares) {
  const std::vector<std::array<int, 3>> planes[6] = {
      {{1, 1, 1}},
      {{1, 0, 0}, {0, 0, 1}},
      {{1, 0, 0}, {0, 0, 1}},
      {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
      {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}},
      {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 1, 1}, {1, 0, 1}, {1, 1, 0}}};
  for (const KnownCell* cells : {kCubicCells, kTetragonalCells, kHexagonalCells, kOrthorhombicCells,
                                 kMonoclinicCells, kTriclinicCells}) {
    for (int i = 0; i < 5; ++i) {
      const auto [system, cell] = cells[i];
      SCOPED_TRACE(testing::Message() << system << ", a " << cell[0]);
      std::vector<PlaneLine> lines;
      for (const auto& [h, k, l] : planes[system]) {
        lines.push_back({h, k, l, PlaneDistance(cell, h, k, l)});
      }
      ExpectAgrees(system, lines);
      ExpectAgrees(system, Measured(lines, 1));
    }
  }
}

// Nearly cubic, but with its lines told apart: nothing is lost by the nearness.
TEST_F(RefinementTest, NearlyCubicTriclinicCellIsFoundFromAllOfItsLines) {
  const Cell6 cell{5, 5.001, 4.999, 90.02, 89.98, 90.01};
  for (const int count : {20, 40, 90}) {
    SCOPED_TRACE(count);
    ExpectAgrees(5, LinesOf(5, cell, count, 0));
    ExpectAgrees(5, Measured(LinesOf(5, cell, count, 0), 1));
  }
}

// One line of each group of a nearly cubic cell, or the first lines of a very flat one, hardly tell
// the parameters apart. 32 bits then lose digits, but none that the measurement has.
TEST_F(RefinementTest, RoundingOfIllConditionedFitsStaysFarBelowTheirErrors) {
  const KnownCell cells[] = {{5, {5, 5, 5, 90.02, 89.98, 90.01}}, {2, {3, 3, 30, 90, 90, 120}}};
  for (const auto& [system, cell] : cells) {
    const auto lines = Measured(LinesOf(system, cell, kParameters[system] + 8), 1);
    ASSERT_EQ(Refine(system, lines), kLsqDone);
    const auto wide_cell = DirectFromMetric(MetricOf(system, FitWide(system, lines).parameter));
    for (int k = 1; k <= 6; ++k) {
      const double deviation = result.Direct[k] - wide_cell[static_cast<std::size_t>(k - 1)];
      EXPECT_LE(std::fabs(deviation), 0.05 * result.DirectErr[k] + 1e-9) << system << ", " << k;
    }
  }
}

}  // namespace
}  // namespace dorvane
