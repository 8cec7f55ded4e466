#include "processing/QuadFit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "support/Fault.h"

namespace dorvane {
namespace {

constexpr double kLeastLength = 1e-10;  // of the quadratic column's, below which it counts as 0

double MeanOf(std::span<const double> values) {
  double sum = 0;
  for (const double value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

double FurthestFrom(double centre, std::span<const double> values) {
  double furthest = 0;
  for (const double value : values) furthest = std::max(furthest, std::abs(value - centre));
  return furthest;
}

// P0 = 1, P1 = u and P2 = u^2 - b u - c over the points u = (x - mean) / scale.
struct OrthogonalFit {
  double b = 0, c = 0;
  std::array<double, 3> coefficients{};
  std::array<double, 3> squares{};  // sums of P0^2, P1^2 and P2^2
  double fourth = 0;                // sum of u^4
};

OrthogonalFit FitOrthogonal(std::span<const double> x, std::span<const double> y, double mean,
                            double scale) {
  OrthogonalFit fit;
  const auto u = [&](std::size_t i) { return (x[i] - mean) / scale; };
  double cubes = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    fit.squares[1] += u(i) * u(i);
    cubes += u(i) * u(i) * u(i);
    fit.fourth += u(i) * u(i) * u(i) * u(i);
  }
  fit.squares[0] = static_cast<double>(x.size());
  fit.b = cubes / fit.squares[1];
  fit.c = fit.squares[1] / fit.squares[0];
  std::array<double, 3> products{};
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double p2 = u(i) * u(i) - fit.b * u(i) - fit.c;
    fit.squares[2] += p2 * p2;
    products[0] += y[i];
    products[1] += u(i) * y[i];
    products[2] += p2 * y[i];
  }
  for (std::size_t k = 0; k < 3; ++k) fit.coefficients[k] = products[k] / fit.squares[k];
  return fit;
}

}  // namespace

QuadFitResult QuadFit(std::span<const double> x, std::span<const double> y) {
  if (x.size() != y.size()) throw Fault(FaultCode::BadArgument);
  QuadFitResult result;
  if (x.empty()) return result;
  result.status = kSingular;
  const double mean = MeanOf(x);
  const double scale = FurthestFrom(mean, x);
  const OrthogonalFit fit = FitOrthogonal(x, y, mean, scale);
  if (!(fit.squares[2] > kLeastLength * kLeastLength * fit.fourth)) return result;

  // A, B and C as combinations of the orthogonal coefficients: u = x / scale - shift.
  const double shift = mean / scale;
  const std::array<std::array<double, 3>, 3> combination{
      {{1, -shift, shift * shift + fit.b * shift - fit.c},
       {0, 1 / scale, -(2 * shift + fit.b) / scale},
       {0, 0, 1 / (scale * scale)}}};
  QuadFitResult solved;
  for (std::size_t j = 0; j < 3; ++j) {
    double variance = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      solved.coefficients[j] += combination[j][k] * fit.coefficients[k];
      variance += combination[j][k] * combination[j][k] / fit.squares[k];
    }
    solved.unit_errors[j] = std::sqrt(variance);
    if (!std::isfinite(solved.coefficients[j]) || !std::isfinite(variance)) return result;
  }
  solved.status = kFitted;
  return solved;
}

}  // namespace dorvane
