#include "support/RandomCounts.h"

#include <bit>
#include <cmath>
#include <numbers>

#include "support/Fault.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr double kRejectionFrom = 10;
constexpr double kLargestMean = 1e9;

// ln k! by Stirling's series (M. Abramowitz, I. Stegun, 6.1.41), exact products below 10. The
// library's lgamma is not the same everywhere.
double LogFactorial(double k) {
  if (k < 10) {
    double product = 1;
    for (double i = 2; i <= k; ++i) product *= i;
    return std::log(product);
  }
  const double x = k + 1;
  const double x2 = x * x;
  return (x - 0.5) * std::log(x) - x + 0.5 * std::log(2 * std::numbers::pi) +
         (1.0 / 12 - (1.0 / 360 - 1.0 / (1260 * x2)) / x2) / x;
}

}  // namespace

RandomCounts::RandomCounts(std::uint64_t seed) : state_{} {
  for (std::uint64_t& word : state_) {
    seed += 0x9E3779B97F4A7C15u;
    std::uint64_t z = seed;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    word = z ^ (z >> 31);
  }
}

std::uint64_t RandomCounts::Next() {
  auto& s = state_;
  const std::uint64_t result = std::rotl(s[1] * 5, 7) * 9;
  const std::uint64_t t = s[1] << 17;
  s[2] ^= s[0];
  s[3] ^= s[1];
  s[1] ^= s[2];
  s[0] ^= s[3];
  s[2] ^= t;
  s[3] = std::rotl(s[3], 45);
  return result;
}

double RandomCounts::Uniform() {
  return static_cast<double>(Next() >> 11) * 0x1p-53;
}

std::int32_t RandomCounts::Poisson(double mean) {
  if (std::isnan(mean) || mean > kLargestMean) throw Fault(FaultCode::Overflow);
  if (mean <= 0) return 0;
  return mean < kRejectionFrom ? ByInversion(mean) : ByRejection(mean);
}

std::int32_t RandomCounts::ByInversion(double mean) {
  constexpr std::int32_t kFarTail = 200;  // beyond all chance for means below 10
  const double u = Uniform();
  double probability = std::exp(-mean);
  double sum = probability;
  std::int32_t k = 0;
  while (u >= sum && k < kFarTail) {
    ++k;
    probability *= mean / k;
    sum += probability;
  }
  return k;
}

std::int32_t RandomCounts::ByRejection(double mean) {
  const double b = 0.931 + 2.53 * std::sqrt(mean);
  const double a = -0.059 + 0.02483 * b;
  const double inverse_alpha = 1.1239 + 1.1328 / (b - 3.4);
  const double v_r = 0.9277 - 3.6224 / (b - 2);
  const double log_mean = std::log(mean);
  for (;;) {
    const double u = Uniform() - 0.5;
    const double v = Uniform();
    const double us = 0.5 - std::fabs(u);
    const double k = std::floor((2 * a / us + b) * u + mean + 0.43);
    if (us >= 0.07 && v <= v_r) return RoundToInt32(k);
    if (k < 0 || (us < 0.013 && v > us)) continue;
    if (std::log(v) + std::log(inverse_alpha) - std::log(a / (us * us) + b) <=
        k * log_mean - mean - LogFactorial(k)) {
      return RoundToInt32(k);
    }
  }
}

}  // namespace dorvane
