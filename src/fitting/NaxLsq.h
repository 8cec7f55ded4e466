// The linear least-squares solver and the exponential that both Nax fits share, of a region and of
// a whole spectrum.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <span>

#include "fitting/FitMatrix.h"

namespace dorvane {

// exp(z); 0 for z of -20 or less, 1 + z for |z| of 1e-6 or less. Infinite where exp overflows.
inline double ExpSafe(double z) {
  if (z <= -20) return 0;
  if (std::abs(z) <= 1e-6) return z + 1;
  return std::exp(z);
}

inline constexpr std::size_t kMaxLsqPoints = 500;
inline constexpr std::size_t kMaxLsqColumns = 30;

// The matrix X of a linear problem: a row for each point, contiguous, whose elements are the values
// that the coefficients are multiplied by. Zeros at first. 128 KB.
class LsqDesign {
 public:
  // Element (i, a) is Row(i)[a], i in 0..499, a in 0..29; beyond them a row ends in two elements
  // that no result depends on.
  double* Row(std::size_t i) { return &elements_[i * kStride]; }
  const double* Row(std::size_t i) const { return &elements_[i * kStride]; }

 private:
  static constexpr std::size_t kStride = kMaxLsqColumns + 2;  // whole blocks of four columns
  std::array<double, kMaxLsqPoints * kStride> elements_{};
};

// The matrix of the normal equations, which a solution leaves inverted. The caller keeps it where
// the inverse shall serve again.
struct LsqMatrix {
  std::array<std::array<double, kMaxLsqColumns + 2>, kMaxLsqColumns + 2> inverse{};
  std::array<double, kMaxLsqColumns> scale{};  // greatest magnitude of each column

  // The standard error of coefficient a (from 0) where the residuals have unit variance.
  double UnitError(std::size_t a) const { return std::sqrt(std::abs(inverse[a][a])) / scale[a]; }
};

// What a solution finds in its LsqMatrix. The numbers are the system's own.
enum class LsqStart {
  Build = -1,       // nothing: scales are taken, the matrix is built and inverted
  KeepScale = 1,    // the scales: the matrix is built and inverted
  KeepInverse = 2,  // scales and inverse of an earlier solution with the same X
};

// Solves Y = X B in the least-squares sense by the normal equations, each column scaled to a
// greatest magnitude of 1. Y has an element for each point (0..500), B one for each column (0..30).
// `errors` is empty, or gets the standard error of each coefficient, estimated from the residuals:
// 0 where there are no more points than columns. Sums run over the points in their order.
//
// Answers false, B and `errors` as they were, when the determinant of the scaled matrix is not
// greater than `tol` in magnitude (with KeepInverse that isn't looked at), as for a column of
// zeros. Allocates nothing.
//
// Throws Fault(Subscript) for more points or columns, Fault(BadArgument) for `errors` of another
// size than B, Fault(Overflow or BadArgument) where a result is no finite number, and
// Fault(DivisionByZero) for a scale of 0 that was kept.
bool Lsq(const LsqDesign& x, std::span<const double> y, LsqMatrix& matrix, LsqStart start,
         double tol, std::span<double> b, std::span<double> errors = {});

}  // namespace dorvane
