#include "fitting/NaxLsq.h"

#include <algorithm>

#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr double kLeastPivot = 1e-50;

// Columns side by side: their sums don't wait for one another.
constexpr std::size_t kBlock = 4;

void TakeScales(const LsqDesign& x, std::size_t points, std::span<double> scale) {
  std::fill(scale.begin(), scale.end(), 0.0);
  for (std::size_t i = 0; i < points; ++i) {
    const double* const row = x.Row(i);
    for (std::size_t a = 0; a < scale.size(); ++a) scale[a] = std::max(scale[a], std::abs(row[a]));
  }
}

// The sums of X(i,a) X(i,b) over the points for four a by four b.
void SumProducts(const LsqDesign& x, std::size_t points, std::size_t a, std::size_t b,
                 LsqMatrix& matrix) {
  double sum[kBlock][kBlock] = {};
  for (std::size_t i = 0; i < points; ++i) {
    const double* const row = x.Row(i);
    for (std::size_t v = 0; v < kBlock; ++v) {
      for (std::size_t w = 0; w < kBlock; ++w) sum[v][w] += row[a + v] * row[b + w];
    }
  }
  for (std::size_t v = 0; v < kBlock; ++v) {
    for (std::size_t w = 0; w < kBlock; ++w) matrix.inverse[a + v][b + w] = sum[v][w];
  }
}

void BuildNormal(const LsqDesign& x, std::size_t points, std::size_t columns, LsqMatrix& matrix) {
  for (std::size_t a = 0; a < columns; a += kBlock) {
    for (std::size_t b = a; b < columns; b += kBlock) SumProducts(x, points, a, b, matrix);
  }
  for (std::size_t a = 0; a < columns; ++a) {
    for (std::size_t b = a; b < columns; ++b) {
      double& element = matrix.inverse[a][b];
      const bool scaled = matrix.scale[a] != 0 && matrix.scale[b] != 0;
      if (scaled) element = Divide(element, matrix.scale[a] * matrix.scale[b]);
      matrix.inverse[b][a] = element;
    }
  }
}

// The scaled sums of X(i,a) Y(i) over the points.
void SumRightSide(const LsqDesign& x, std::span<const double> y, const LsqMatrix& matrix,
                  std::span<double> v) {
  for (std::size_t a = 0; a < v.size(); a += kBlock) {
    double sum[kBlock] = {};
    for (std::size_t i = 0; i < y.size(); ++i) {
      const double* const row = x.Row(i);
      for (std::size_t w = 0; w < kBlock; ++w) sum[w] += row[a + w] * y[i];
    }
    for (std::size_t w = 0; w < kBlock && a + w < v.size(); ++w) {
      v[a + w] = Divide(sum[w], matrix.scale[a + w]);
    }
  }
}

void EstimateErrors(const LsqDesign& x, std::span<const double> y, const LsqMatrix& matrix,
                    std::span<const double> b, std::span<double> errors) {
  if (y.size() <= b.size()) {
    std::fill(errors.begin(), errors.end(), 0.0);
    return;
  }
  double squares = 0;
  for (std::size_t i = 0; i < y.size(); ++i) {
    const double* const row = x.Row(i);
    double model = 0;
    for (std::size_t a = 0; a < b.size(); ++a) model += row[a] * b[a];
    squares += (y[i] - model) * (y[i] - model);
  }
  const double variance = Finite(squares / static_cast<double>(y.size() - b.size()));
  for (std::size_t a = 0; a < b.size(); ++a) {
    errors[a] = Divide(std::sqrt(std::abs(matrix.inverse[a][a] * variance)), matrix.scale[a]);
  }
}

}  // namespace

bool Lsq(const LsqDesign& x, std::span<const double> y, LsqMatrix& matrix, LsqStart start,
         double tol, std::span<double> b, std::span<double> errors) {
  const std::size_t columns = b.size();
  if (y.size() > kMaxLsqPoints || columns > kMaxLsqColumns) throw Fault(FaultCode::Subscript);
  if (!errors.empty() && errors.size() != columns) throw Fault(FaultCode::BadArgument);
  if (start == LsqStart::Build) TakeScales(x, y.size(), std::span(matrix.scale).first(columns));
  if (start != LsqStart::KeepInverse) {
    BuildNormal(x, y.size(), columns, matrix);
    const double det = MatInverse(matrix.inverse, columns, kLeastPivot);
    if (!(std::abs(det) - tol > 0)) return false;
  }
  std::array<double, kMaxLsqColumns> right;
  const std::span v = std::span(right).first(columns);
  SumRightSide(x, y, matrix, v);
  for (std::size_t a = 0; a < columns; ++a) {
    double sum = 0;
    for (std::size_t k = 0; k < columns; ++k) sum += matrix.inverse[a][k] * v[k];
    b[a] = Finite(Divide(sum, matrix.scale[a]));
  }
  if (!errors.empty()) EstimateErrors(x, y, matrix, b, errors);
  return true;
}

}  // namespace dorvane
