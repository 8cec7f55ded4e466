#include "processing/Calc.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kMostPoints = 11;

struct SmoothFilter {
  std::array<double, kMostPoints> weights;
  double divisor;
};

// KEPT: the 5 point row is a binomial filter, not the quadratic least-squares row of the other
// three.
constexpr std::array<SmoothFilter, kSmoothKinds> kSmoothFilters = {{
    {{1, 4, 6, 4, 1}, 16},
    {{-2, 3, 6, 7, 6, 3, -2}, 21},
    {{-21, 14, 39, 54, 59, 54, 39, 14, -21}, 231},
    {{-36, 9, 44, 69, 84, 89, 84, 69, 44, 9, -36}, 429},
}};

template <int Points>
void Smooth(const SmoothFilter& filter, std::span<std::int32_t> counts) {
  constexpr std::size_t kHalf = Points / 2;
  const std::vector<double> raw(counts.begin(), counts.end());
  for (std::size_t i = kHalf; i + kHalf < counts.size(); ++i) {
    double sum = 0;
    for (std::size_t k = 0; k < Points; ++k) sum += filter.weights[k] * raw[i - kHalf + k];
    counts[i] = RoundToInt32(std::clamp(sum / filter.divisor, 0.0, double{kSmoothLimit}));
  }
}

// The number of the fault that an arithmetic result stands for, 0 for a finite one.
int FaultOf(double result) {
  if (std::isfinite(result)) return 0;
  return static_cast<int>(std::isnan(result) ? FaultCode::BadArgument : FaultCode::Overflow);
}

// `value` plus constant and slope of the background, as far as parameters stand for them; 0 and the
// fault otherwise.
double WithBackground(double value, double x, std::span<const double> p, bool with_slope,
                      int& error) {
  if (p.size() >= 4) value += p[3];
  if (p.size() == 5 && with_slope) value += p[4] * x;
  error = FaultOf(value);
  return error == 0 ? value : 0;
}

}  // namespace

void SmoothData(std::int16_t kind, std::span<std::int32_t> counts) {
  if (kind < 0 || kind >= kSmoothKinds) throw Fault(FaultCode::Subscript);
  const SmoothFilter& filter = kSmoothFilters[static_cast<std::size_t>(kind)];
  switch (kind) {
    case 0:
      return Smooth<5>(filter, counts);
    case 1:
      return Smooth<7>(filter, counts);
    case 2:
      return Smooth<9>(filter, counts);
    default:
      return Smooth<11>(filter, counts);
  }
}

double GaussFunc(double x, std::span<const double> p, int& error) {
  constexpr double kLargestExponent = 400;
  error = static_cast<int>(FaultCode::Subscript);
  if (p.size() < 3) return 0;
  const double width_squared = p[2] * p[2];
  error = width_squared == 0 ? static_cast<int>(FaultCode::DivisionByZero) : FaultOf(width_squared);
  if (error != 0) return 0;
  const double d = x - p[1];
  const double e = -std::numbers::ln2 * d * d / width_squared;
  error = FaultOf(e);
  if (error != 0) return 0;
  // KEPT: far from the peak the constant alone remains; the slope ends there, and fits are made
  // with this shape.
  if (std::abs(e) >= kLargestExponent) return WithBackground(0, x, p, false, error);
  return WithBackground(std::exp(e) * p[0], x, p, true, error);
}

double LorentzFunc(double x, std::span<const double> p, int& error) {
  error = static_cast<int>(FaultCode::Subscript);
  if (p.size() < 3) return 0;
  error = static_cast<int>(FaultCode::DivisionByZero);
  if (p[2] == 0) return 0;
  const double d = (x - p[1]) / p[2];
  error = FaultOf(d * d);
  if (error != 0) return 0;
  return WithBackground(p[0] / (d * d + 1), x, p, true, error);
}

double MixFunc(double x, std::span<const double> p, int& error) {
  error = static_cast<int>(FaultCode::Subscript);
  if (p.size() < 4) return 0;
  // Parameters 5 and 6 of the mixed shape are 4 and 5 of its Gaussian; more than these are counted
  // but never read.
  std::array<double, 8> gauss = {p[0], p[1], p[2]};
  const std::size_t in_use = std::min(p.size() - 1, gauss.size());
  for (std::size_t j = 3; j < in_use; ++j) gauss[j] = p[j + 1];
  const double g = GaussFunc(x, std::span(gauss).first(in_use), error);
  if (error != 0) return 0;
  const std::array<double, 3> lorentz = {p[3], p[1], p[2]};
  const double l = LorentzFunc(x, lorentz, error);
  if (error != 0) return 0;
  error = FaultOf(g + l);
  return error == 0 ? g + l : 0;
}

double LineDeterminant(std::span<const double> x) {
  double sx = 0, sxx = 0;
  for (const double value : x) {
    sx += value;
    sxx += value * value;
  }
  return static_cast<double>(x.size()) * sxx - sx * sx;
}

LineCoef LineFit(std::span<const double> x, std::span<const double> y) {
  if (x.size() != y.size()) throw Fault(FaultCode::BadArgument);
  const auto points = static_cast<double>(x.size());
  double sx = 0, sy = 0, sxy = 0, sxx = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    sx += x[i];
    sy += y[i];
    sxy += x[i] * y[i];
    sxx += x[i] * x[i];
  }
  const double det = LineDeterminant(x);
  if (det == 0) return {};
  LineCoef a = {(sy * sxx - sx * sxy) / det, (points * sxy - sx * sy) / det};
  // KEPT: the line passes one step of x beside the points; the background and the calibration are
  // made with it so.
  a[0] -= a[1];
  return a;
}

double Log10Safe(double& x) {
  if (x <= 0) x = 1;
  return std::log(x) / std::numbers::ln10;
}

}  // namespace dorvane
