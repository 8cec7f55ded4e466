// The parabola by least squares.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace dorvane {

// Values of QuadFitResult::status, and of the straight line where it is fitted beside a parabola.
constexpr std::int16_t kFitted = 0;
constexpr std::int16_t kNoPoints = 1;
constexpr std::int16_t kSingular = 2;

// Coefficients of A + B x + C x^2 in the order A, B, C; zeros where the status is not kFitted.
struct QuadFitResult {
  std::int16_t status = kNoPoints;
  std::array<double, 3> coefficients{};
  std::array<double, 3> unit_errors{};  // standard errors where the points have unit variance
};

// Least squares of y on 1, x and x^2 with unit weights, by polynomials that are orthogonal over the
// points (G. E. Forsythe, J. Soc. Indust. Appl. Math. 5 (1957) 74). Singular with fewer than three
// different x (x^2 has to keep 1e-10 of its length when 1 and x are taken out of it), and where a
// result is no finite number. Throws Fault(BadArgument) when x and y differ in size.
QuadFitResult QuadFit(std::span<const double> x, std::span<const double> y);

}  // namespace dorvane
