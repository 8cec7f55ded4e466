#include "fitting/LineShapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "support/Fault.h"

namespace dorvane {
namespace {

constexpr double kLargestExponent = 400;
constexpr int kNoFault = 0;
constexpr int kDivisionByZero = static_cast<int>(FaultCode::DivisionByZero);

// The number of the fault that an arithmetic result stands for, 0 for a finite one.
int FaultOf(double result) {
  if (std::isfinite(result)) return kNoFault;
  return static_cast<int>(std::isnan(result) ? FaultCode::BadArgument : FaultCode::Overflow);
}

// Derivatives by the coefficients of the peaks.
struct Slopes {
  double height = 0;
  double centre = 0;
  double half_width = 0;
  double second_height = 0;
};

struct GaussPeak {
  GaussPeak(double c1, double c2, double c3)
      : height(c1),
        centre(c2),
        width_squared(c3 * c3),
        inverse_width(1 / c3),
        centre_factor(2 * c1 * std::numbers::ln2 * (inverse_width * inverse_width)) {}

  int Fault() const { return width_squared == 0 ? kDivisionByZero : FaultOf(width_squared); }

  // exp(e) of the exponent e = -ln2 (x - c2)^2 / c3^2, or 0 where |e| is 400 or more; exp(e) itself
  // is never 0.
  double Exponential(double x, int& err) const {
    const double u = x - centre;
    const double e = -std::numbers::ln2 * (u * u) / width_squared;
    if (std::abs(e) < kLargestExponent) return std::exp(e);
    err = FaultOf(e);
    return 0;
  }

  // By the centre: 2 c1 ln2 u / c3^2 exp(e); by the half width: u / c3 times that.
  Slopes SlopesAt(double x, double exponential) const {
    if (exponential == 0) return {};
    const double u = x - centre;
    const double by_centre = centre_factor * u * exponential;
    return {exponential, by_centre, u * inverse_width * by_centre, 0};
  }

  double height, centre, width_squared, inverse_width, centre_factor;
};

struct LorentzPeak {
  LorentzPeak(double c1, double c2, double c3)
      : height(c1), centre(c2), half_width(c3), centre_factor(2 * c1 / c3) {}

  int Fault() const { return half_width == 0 ? kDivisionByZero : kNoFault; }

  double Value(double x, int& err) const {
    const double v = (x - centre) / half_width;
    const double v_squared = v * v;
    if (!std::isfinite(v_squared)) err = FaultOf(v_squared);
    return height / (v_squared + 1);
  }

  // By the centre: 2 c1 / c3 v / (v^2 + 1)^2; by the half width: v times that.
  Slopes SlopesAt(double x) const {
    const double v = (x - centre) / half_width;
    const double t = 1 / (v * v + 1);
    const double by_centre = centre_factor * v * (t * t);
    return {t, by_centre, v * by_centre, 0};
  }

  double height, centre, half_width, centre_factor;
};

// Constant and slope under a peak that has `count` coefficients together with them; what is not in
// use is 0.
struct Background {
  Background(double c4, double c5, int count)
      : by_constant(count >= 4 ? 1 : 0),
        by_slope(count == 5 ? 1 : 0),
        constant(count >= 4 ? c4 : 0),
        slope(count == 5 ? c5 : 0) {}

  double by_constant, by_slope;
  double constant, slope;
};

// A line shape at fixed coefficients. Of the two peaks the shape says which count.
class Line {
 public:
  Line(LineShape shape, const Coefficients& c, int m)
      : shape_(shape),
        gauss_(c[1], c[2], c[3]),
        lorentz_(shape == LineShape::GaussLorentz ? c[4] : c[1], c[2], c[3]),
        background_(shape == LineShape::GaussLorentz ? Background(c[5], c[6], m - 1)
                                                     : Background(c[4], c[5], m)) {}

  // Of the coefficients alone.
  int Fault() const {
    const int fault = HasGauss() ? gauss_.Fault() : kNoFault;
    return fault == kNoFault && shape_ != LineShape::Gauss ? lorentz_.Fault() : fault;
  }

  double Exponential(double x, int& err) const {
    return HasGauss() ? gauss_.Exponential(x, err) : 0;
  }

  double Value(double x, double exponential, int& err) const {
    double value = HasGauss() ? gauss_.height * exponential : lorentz_.Value(x, err);
    value += background_.constant;
    // KEPT: where the Gaussian ends, the slope ends with it while its derivative goes on; fits are
    // made with this shape.
    if (!HasGauss() || exponential != 0) value += background_.slope * x;
    if (shape_ == LineShape::GaussLorentz) value += lorentz_.Value(x, err);
    if (!std::isfinite(value)) err = FaultOf(value);
    return value;
  }

  Slopes SlopesAt(double x, double exponential, int& err) const {
    Slopes slopes = HasGauss() ? gauss_.SlopesAt(x, exponential) : lorentz_.SlopesAt(x);
    if (shape_ == LineShape::GaussLorentz) {
      const Slopes second = lorentz_.SlopesAt(x);
      slopes.centre += second.centre;
      slopes.half_width += second.half_width;
      slopes.second_height = second.height;
    }
    if (!std::isfinite(slopes.centre)) err = FaultOf(slopes.centre);
    if (!std::isfinite(slopes.half_width)) err = FaultOf(slopes.half_width);
    return slopes;
  }

  // The coefficients of the peaks come first, then constant and slope of the background.
  int PeakCoefficients() const { return shape_ == LineShape::GaussLorentz ? 4 : 3; }
  const Background& Under() const { return background_; }

 private:
  bool HasGauss() const { return shape_ != LineShape::Lorentz; }

  LineShape shape_;
  GaussPeak gauss_;
  LorentzPeak lorentz_;
  Background background_;
};

double ValueAt(LineShape shape, double x, const Coefficients& c, int m, int& err) {
  const Line line(shape, c, m);
  err = line.Fault();
  if (err != kNoFault) return 0;
  const double value = line.Value(x, line.Exponential(x, err), err);
  return err == kNoFault ? value : 0;
}

void DerivativesAt(LineShape shape, double x, const Coefficients& c, Coefficients& D, int m,
                   int& err) {
  const Line line(shape, c, m);
  D.fill(0);
  err = line.Fault();
  if (err != kNoFault) return;
  const double exponential = line.Exponential(x, err);
  const Slopes slopes = line.SlopesAt(x, exponential, err);
  if (err != kNoFault) return;
  D[1] = slopes.height;
  D[2] = slopes.centre;
  D[3] = slopes.half_width;
  D[4] = slopes.second_height;
  D[line.PeakCoefficients() + 1] = line.Under().by_constant;
  D[line.PeakCoefficients() + 2] = line.Under().by_slope * x;
}

}  // namespace

double fGauss(double x, const Coefficients& c, int m, int& err) {
  return ValueAt(LineShape::Gauss, x, c, m, err);
}

double fLorentz(double x, const Coefficients& c, int m, int& err) {
  return ValueAt(LineShape::Lorentz, x, c, m, err);
}

double fGaussLorentz(double x, const Coefficients& c, int m, int& err) {
  return ValueAt(LineShape::GaussLorentz, x, c, m, err);
}

void dGauss(double x, const Coefficients& c, Coefficients& D, int m, int& err) {
  DerivativesAt(LineShape::Gauss, x, c, D, m, err);
}

void dLorentz(double x, const Coefficients& c, Coefficients& D, int m, int& err) {
  DerivativesAt(LineShape::Lorentz, x, c, D, m, err);
}

void dGaussLorentz(double x, const Coefficients& c, Coefficients& D, int m, int& err) {
  DerivativesAt(LineShape::GaussLorentz, x, c, D, m, err);
}

int ShapeValues(LineShape shape, std::span<const double> x, const Coefficients& c, int m,
                std::span<double> exponentials, std::span<double> values) {
  const Line line(shape, c, m);
  int err = line.Fault();
  for (std::size_t i = 0; i < x.size() && err == kNoFault; ++i) {
    exponentials[i] = line.Exponential(x[i], err);
    values[i] = line.Value(x[i], exponentials[i], err);
  }
  return err;
}

int ShapeDerivatives(LineShape shape, std::span<const double> x, const Coefficients& c, int m,
                     std::span<const double> exponentials, FitMatrix& derivatives) {
  const Line line(shape, c, m);
  int err = line.Fault();
  for (std::size_t i = 0; i < x.size() && err == kNoFault; ++i) {
    const Slopes slopes = line.SlopesAt(x[i], exponentials[i], err);
    derivatives.Column(0)[i] = slopes.height;
    derivatives.Column(1)[i] = slopes.centre;
    derivatives.Column(2)[i] = slopes.half_width;
    derivatives.Column(3)[i] = slopes.second_height;
  }
  const auto constant = static_cast<std::size_t>(line.PeakCoefficients());
  std::fill_n(derivatives.Column(constant), x.size(), line.Under().by_constant);
  const double by_slope = line.Under().by_slope;
  FillColumn(derivatives.Column(constant + 1), x.size(),
             [=](std::size_t i) { return by_slope * x[i]; });
  for (std::size_t j = constant + 2; j < static_cast<std::size_t>(m); ++j) {
    std::fill_n(derivatives.Column(j), x.size(), 0.0);
  }
  return err;
}

}  // namespace dorvane
