// The line shapes of the peak fit and their derivatives by each coefficient, for one abscissa and
// for a whole region.
#pragma once

#include <cstdint>
#include <span>

#include "fitting/FitMatrix.h"
#include "support/Fixed.h"

namespace dorvane {

inline constexpr int kMaxCoefficients = 10;

// Coefficients 1..10 of a line shape, m of them in use. Centre and half width are in the unit of
// the abscissa, heights and backgrounds in counts.
//
//   Gauss and Lorentz: 1 height, 2 centre, 3 half width at half maximum, 4 constant background
//   (m >= 4), 5 slope of the background (m = 5);
//
//   GaussLorentz: 1 Gaussian height, 2 centre, 3 half width, 4 Lorentzian height, 5 constant
//   background (m >= 5), 6 slope of the background (m = 6).
using Coefficients = Fixed<double, 1, kMaxCoefficients>;

enum class LineShape : std::int16_t { Gauss = 1, Lorentz = 2, GaussLorentz = 3 };

// Values at x. An arithmetic fault gives 0 and its FaultCode number in `err`; otherwise `err` is 0.
//
//   fGauss: c1 exp(-ln2 (x - c2)^2 / c3^2) + c4 + c5 x; where the exponent reaches -400, c4 alone,
//   without the slope;
//
//   fLorentz: c1 / (((x - c2) / c3)^2 + 1) + c4 + c5 x;
//
//   fGaussLorentz: fGauss of c1, c2, c3 with the background c5 + c6 x, plus fLorentz of c4, c2, c3.
double fGauss(double x, const Coefficients& c, int m, int& err);
double fLorentz(double x, const Coefficients& c, int m, int& err);
double fGaussLorentz(double x, const Coefficients& c, int m, int& err);

// Derivatives at x by the coefficients, into D. Elements that belong to no coefficient of the shape
// are 0. An arithmetic fault leaves all of D at 0 and gives its number in `err`; otherwise `err` is
// 0.
void dGauss(double x, const Coefficients& c, Coefficients& D, int m, int& err);
void dLorentz(double x, const Coefficients& c, Coefficients& D, int m, int& err);
void dGaussLorentz(double x, const Coefficients& c, Coefficients& D, int m, int& err);

// The same for a region of n = x.size() <= FitMatrix::kRows abscissae, with the exponentials
// computed once: ShapeValues keeps them in `exponentials`, from where ShapeDerivatives, for the
// same coefficients, takes them. `values` and `exponentials` have n elements; row i of
// `derivatives` belongs to x[i], its column j - 1 to coefficient j. Both answer the number of the
// first fault, at which they stop, or 0.
int ShapeValues(LineShape shape, std::span<const double> x, const Coefficients& c, int m,
                std::span<double> exponentials, std::span<double> values);
int ShapeDerivatives(LineShape shape, std::span<const double> x, const Coefficients& c, int m,
                     std::span<const double> exponentials, FitMatrix& derivatives);

}  // namespace dorvane
