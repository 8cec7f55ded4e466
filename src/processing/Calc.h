// Basic calculations on spectra: the smoothing filter, the peak shapes with which every fit and
// every calculated spectrum is made, the straight line by least squares, and a few scalar helpers.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace dorvane {

// Kinds of the smoothing filter 0..3: 5, 7, 9 and 11 points.
inline constexpr int kSmoothKinds = 4;

// Results of the smoothing filter are clipped to 0..kSmoothLimit counts.
inline constexpr std::int32_t kSmoothLimit = 9999999;

// Smooths the counts of all channels in place, rounding half to even. Kind 0 is the binomial filter
// 1 4 6 4 1, kinds 1 to 3 are the quadratic least-squares filters of 7, 9 and 11 points (A.
// Savitzky, M. J. E. Golay, Anal. Chem. 36 (1964) 1627). The first and the last 2 + kind channels
// are not filtered and not clipped; a spectrum of fewer than 5 + 2 kind channels stays as it is.
// Throws Fault(Subscript) for a kind outside 0..3.
void SmoothData(std::int16_t kind, std::span<std::int32_t> counts);

// The peak shapes. Parameter 1 is element 0 of `p`, and the number of parameters in use is the size
// of `p`:
//
//   GaussFunc and LorentzFunc: height, centre, half width at half maximum, constant background,
//   slope of the background;
//
//   MixFunc: Gaussian height, centre, half width, Lorentzian height, constant background, slope.
//
// The constant counts from 4 parameters on (MixFunc: 5), the slope for exactly 5 (MixFunc: exactly
// 6). Centre and half width are in the unit of `x`, heights and backgrounds in counts, the slope in
// counts per unit of x.
//
// They never throw: an arithmetic fault, a half width of 0 in particular, gives 0 and its FaultCode
// number in `error`, fewer than 3 parameters (MixFunc: 4) give Subscript; otherwise `error` is 0.

// p1 exp(-ln2 (x - p2)^2 / p3^2) + p4 + p5 x. Where the exponent reaches -400, p4 alone: the slope
// is left out there.
double GaussFunc(double x, std::span<const double> p, int& error);

// p1 / (((x - p2) / p3)^2 + 1) + p4 + p5 x.
double LorentzFunc(double x, std::span<const double> p, int& error);

// GaussFunc of height p1 with background p5 + p6 x, plus LorentzFunc of height p4; one centre p2
// and half width p3.
double MixFunc(double x, std::span<const double> p, int& error);

// Coefficients of a straight line: [0] the offset, [1] the slope.
using LineCoef = std::array<double, 2>;

inline double LineFunc(double x, const LineCoef& c) {
  return c[0] + c[1] * x;
}

// m sum(x^2) - sum(x)^2 of m abscissae: exactly 0 where they determine no straight line.
double LineDeterminant(std::span<const double> x);

// The straight line by least squares through the points (x, y), with the slope taken off the offset
// once: the line as returned lies one slope below the fitted one, so that channel numbers, which
// count from 1, give the fitted line. Zeros where LineDeterminant is 0 (no points, one point, all
// at one x). Throws Fault(BadArgument) when x and y differ in size.
LineCoef LineFit(std::span<const double> x, std::span<const double> y);

// The larger and the smaller of two numbers.
inline double MaxVal(double a, double b) {
  return a <= b ? b : a;
}
inline double MinVal(double a, double b) {
  return a >= b ? b : a;
}

// log10(x); an x of 0 or less is first set to 1 in the caller's variable.
double Log10Safe(double& x);

}  // namespace dorvane
