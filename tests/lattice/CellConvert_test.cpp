#include "lattice/CellConvert.h"

#include <gtest/gtest.h>

#include "lattice/CellGeometry.h"

namespace dorvane {
namespace {

// 32-bit arithmetic on values near 10 and near 100 degrees.
constexpr double kLengthTolerance = 2e-5;
constexpr double kAngleTolerance = 2e-4;

using Params = std::array<std::int16_t, 6>;
constexpr Params kCubicMap{1, -1, -1, 0, 0, 0};
constexpr Params kTetragonalMap{1, -1, 2, 0, 0, 0};
constexpr Params kHexagonalMap{1, -1, 2, 0, 0, -1};
constexpr Params kOrthorhombicMap{1, 2, 3, 0, 0, 0};
constexpr Params kMonoclinicMap{1, 2, 3, 0, 4, 0};
constexpr Params kTriclinicMap{1, 2, 3, 4, 5, 6};

class CellConvertTest : public testing::Test {
 protected:
  std::int16_t Convert(const Metric6& values, const Params& params) {
    MetricVector metric;
    ParamSlots map;
    for (int j = 1; j <= 6; ++j) {
      metric[j] = static_cast<float>(values[static_cast<std::size_t>(j - 1)]);
      map[j] = params[static_cast<std::size_t>(j - 1)];
    }
    return CellConvert(metric, map, sigma, direct, direct_err);
  }

  void ExpectRoundTrip(const Cell6& cell, const Params& params) {
    ASSERT_EQ(Convert(MetricOf(cell), params), kCellDone);
    for (int k = 1; k <= 6; ++k) {
      EXPECT_NEAR(direct[k], cell[static_cast<std::size_t>(k - 1)],
                  k <= 3 ? kLengthTolerance : kAngleTolerance)
          << k;
    }
    EXPECT_NEAR(direct[7], VolumeOf(cell), 5e-6 * VolumeOf(cell));
  }

  // Errors of the seven values from central differences of the 64-bit inversion, parameter by
  // parameter.
  std::array<double, 7> NumericErrors(const Metric6& metric, const Params& params) const {
    std::array<double, 7> squares{};
    for (int p = 1; p <= 6; ++p) {
      Metric6 up = metric, down = metric;
      for (std::size_t j = 0; j < 6; ++j) {
        if (std::abs(params[j]) != p) continue;
        up[j] += 1e-6;
        down[j] -= 1e-6;
      }
      const auto high = DirectFromMetric(up), low = DirectFromMetric(down);
      for (std::size_t k = 0; k < 7; ++k) {
        const double part = (high[k] - low[k]) / 2e-6 * static_cast<double>(sigma[p]);
        squares[k] += part * part;
      }
    }
    for (double& value : squares) value = std::sqrt(value);
    return squares;
  }

  void ExpectErrors(const Cell6& cell, const Params& params) {
    for (int p = 1; p <= 6; ++p) sigma[p] = 1e-5f * static_cast<float>(p);
    const Metric6 metric = MetricOf(cell);
    ASSERT_EQ(Convert(metric, params), kCellDone);
    const auto expected = NumericErrors(metric, params);
    for (int k = 1; k <= 7; ++k) {
      const double value = expected[static_cast<std::size_t>(k - 1)];
      EXPECT_NEAR(direct_err[k], value, 2e-4 * value + 1e-9) << k;
    }
  }

  CellVector sigma, direct, direct_err;
};

const Cell6 kSalt{5.6402, 5.6402, 5.6402, 90, 90, 90};
const Cell6 kRutile{4.594, 4.594, 2.959, 90, 90, 90};
const Cell6 kCorundum{4.7587, 4.7587, 12.9929, 90, 90, 120};
const Cell6 kForsterite{4.7535, 10.1943, 5.9807, 90, 90, 90};
const Cell6 kBaddeleyite{5.1505, 5.2116, 5.3173, 90, 99.23, 90};
const Cell6 kKyanite{7.1262, 7.8520, 5.5724, 89.99, 101.11, 106.03};
const Cell6 kAcute{5.1, 6.3, 7.2, 71, 80, 65};

TEST_F(CellConvertTest, EverySystemComesBackFromItsMetric) {
  ExpectRoundTrip(kSalt, kCubicMap);
  ExpectRoundTrip(kRutile, kTetragonalMap);
  ExpectRoundTrip(kCorundum, kHexagonalMap);
  ExpectRoundTrip(kForsterite, kOrthorhombicMap);
  ExpectRoundTrip(kBaddeleyite, kMonoclinicMap);
  ExpectRoundTrip(kKyanite, kTriclinicMap);
  ExpectRoundTrip(kAcute, kTriclinicMap);
}

TEST_F(CellConvertTest, ErrorsAreThoseOfNumericDifferentiation) {
  ExpectErrors(kSalt, kCubicMap);
  ExpectErrors(kRutile, kTetragonalMap);
  ExpectErrors(kForsterite, kOrthorhombicMap);
  ExpectErrors(kBaddeleyite, kMonoclinicMap);
  ExpectErrors(kKyanite, kTriclinicMap);
  ExpectErrors(kAcute, kTriclinicMap);
}

// The angle of a hexagonal cell does not change with its parameters: its error is rounding noise.
TEST_F(CellConvertTest, ErrorsOfAHexagonalCellAddItsSharedSlotsFirst) {
  for (int p = 1; p <= 6; ++p) sigma[p] = 1e-5f * static_cast<float>(p);
  const Metric6 metric = MetricOf(kCorundum);
  ASSERT_EQ(Convert(metric, kHexagonalMap), kCellDone);
  const auto expected = NumericErrors(metric, kHexagonalMap);
  for (const int k : {1, 2, 3, 7}) {
    const double value = expected[static_cast<std::size_t>(k - 1)];
    EXPECT_NEAR(direct_err[k], value, 2e-4 * value) << k;
  }
  EXPECT_NEAR(direct_err[6], 0, 1e-7);
}

// a = M^-1/2 and V = M^-3/2: da = a sigma / (2 M), dV = 3 V sigma / (2 M).
TEST_F(CellConvertTest, ErrorsOfACubicCellFollowByHand) {
  sigma[1] = 0.001f;
  ASSERT_EQ(Convert({0.0625, 0.0625, 0.0625, 0, 0, 0}, kCubicMap), kCellDone);
  for (int k = 1; k <= 3; ++k) {
    EXPECT_FLOAT_EQ(direct[k], 4);
    EXPECT_NEAR(direct_err[k], 0.032, 1e-7);
  }
  EXPECT_FLOAT_EQ(direct[7], 64);
  EXPECT_NEAR(direct_err[7], 1.536, 1e-6);
  EXPECT_EQ(direct_err[4], 0);
}

TEST_F(CellConvertTest, ACosineOfZeroIsNinetyDegrees) {
  ASSERT_EQ(Convert({0.0625, 0.0625, 0.0625, 0, 0, 0}, kCubicMap), kCellDone);
  EXPECT_EQ(direct[4], 90.0f);
  EXPECT_EQ(direct[5], 90.0f);
  EXPECT_EQ(direct[6], 90.0f);
}

TEST_F(CellConvertTest, HexagonalGammaIsFoundFromTheSharedSlot) {
  ASSERT_EQ(Convert({0.06, 0.06, 0.006, 0, 0, 0.06}, kHexagonalMap), kCellDone);
  EXPECT_NEAR(direct[6], 120, 1e-4);
  EXPECT_EQ(direct[1], direct[2]);
}

TEST_F(CellConvertTest, CoefficientsThatAreNoMetricFailAndWriteNothing) {
  direct[1] = 7;
  direct_err[1] = 8;
  EXPECT_EQ(Convert({-0.06, 0.06, 0.06, 0, 0, 0}, kOrthorhombicMap), kCellFailed);
  EXPECT_EQ(Convert({0.06, 0, 0.06, 0, 0, 0}, kOrthorhombicMap), kCellFailed);
  EXPECT_EQ(Convert({0.06, 0.06, 0.06, 0, 0.2, 0}, kMonoclinicMap), kCellFailed);
  EXPECT_EQ(Convert({0.06, 0.06, 0.06, 0.1, 0.1, -0.1}, kTriclinicMap), kCellFailed);
  EXPECT_EQ(direct[1], 7);
  EXPECT_EQ(direct_err[1], 8);
}

}  // namespace
}  // namespace dorvane
