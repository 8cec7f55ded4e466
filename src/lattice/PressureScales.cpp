#include "lattice/PressureScales.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "lattice/PressureTables.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

// base^exponent for exponents that are no integers.
double Power(double base, double exponent) {
  if (base < 0 || (base == 0 && exponent < 0)) throw Fault(FaultCode::BadArgument);
  return Finite(std::pow(base, exponent));
}

double Log(double value) {
  if (!(value > 0)) throw Fault(FaultCode::BadArgument);
  return Finite(std::log(value));
}

double Exp(double value) {
  return Finite(std::exp(value));
}

// Third-order Birch-Murnaghan pressure per 1.5 * bulk modulus; X = V0/V, slope = 0.75 * (4 - K').
double BirchMurnaghan(double X, double slope) {
  return (Power(X, 7.0 / 3.0) - Power(X, 5.0 / 3.0)) * (1 - (Power(X, 2.0 / 3.0) - 1) * slope);
}

double PressureAt(const PtNode& node, double TK) {
  return node.A + node.B * 1e-3 * TK + node.C * 1e-8 * (TK * TK);
}

double PressureAt(const MgONode& node, double TK) {
  const double squared = TK * TK;
  return node.A + node.B * 1e-3 * TK + node.C * 1e-6 * squared + node.D * 1e-9 * (squared * TK) +
         node.E * 1e-13 * (squared * squared);
}

// Four-point Lagrange interpolation at compression c; node i (from 1) lies at (i - 1) * 0.005 +
// first. The nodes are k - 2 .. k + 1 around the first node k at or above c; outside of the grid
// the outermost four.
template <typename Node, std::size_t Count>
double Interpolate(const std::array<Node, Count>& nodes, double first, double c, double TK) {
  constexpr int n = static_cast<int>(Count);
  const auto place = [&](int i) { return (i - 1) * 0.005 + first; };
  int k = 1;
  while (k < n && !(place(k) >= c)) ++k;
  if (k == n) k = n - 1;
  if (k <= 3) k = 3;
  double pressure = 0;
  for (int j = k - 2; j <= k + 1; ++j) {
    double term = PressureAt(nodes[static_cast<std::size_t>(j - 1)], TK);
    for (int m = k - 2; m <= k + 1; ++m) {
      if (m != j) term *= (c - place(m)) / (place(j) - place(m));
    }
    pressure += term;
  }
  return Finite(pressure);
}

// The march of DebyeFunc for 0.07 < x <= 11. g is D at the end of the step and s the integral of
// the series, both carried from step to step.
double MarchDebye(double x) {
  const int n = static_cast<int>(0.5 + x / 0.01);
  const double h = x / n;
  double g = 1 - (0.375 - 0.05 * h) * h;
  double s = (0.375 - 0.025 * h) * h;
  for (int i = 2; i <= n; ++i) {
    const double t = i * h;
    const double m = t - h / 2;
    const double w3 = 3 * (std::log((std::exp(t) - 1) / t) - t);
    const double q = 3 / (std::exp(m) - 1);
    const double L = std::log(t / (m - h / 2));
    const double u = m * L - h / 2;
    const double b = m / (h / 2);
    const double e = (1 - b * L) * (b * 0.5);
    const double f = (2 * e + L) * (m / 3);
    const double r = (u + f) / h;
    const double w = (w3 + 1) / 3 + s;
    g = (L + w - q * f - (r - e) * g) / (0.333333333 - e - r);
    s = g / 3 + s - w;
  }
  return g;
}

}  // namespace

double DebyeFunc(double x) {
  Finite(x);
  if (x <= 0) return 1.0;
  if (x <= 0.07) return 1 - x * (0.375 - 0.05 * x);
  if (x > 11.0) return 19.481818 / (x * x * x);
  return MarchDebye(x);
}

double PressNaCl(double x, double TK) {
  constexpr double r0 = 2.82;         // angstrom, half the cell at x = 1
  constexpr double rho = 1 / 3.2038;  // angstrom
  constexpr double A = 13.336044;
  constexpr double B = 1.137672;
  constexpr double r2 = (2 * rho) * 1.2 / 2.82;
  constexpr double r3 = (2 * rho) * 1.62 / 2.82;
  constexpr double s2 = 1.4142136;

  // KEPT: the exponent is this decimal number, not an exact third.
  const double r = Power(x, 0.33333333333) * r0;
  const double E1 = Exp(-r / rho);
  const double E2 = Exp(-s2 * r / r2);
  const double E3 = Exp(-s2 * r / r3);
  const double r_squared = r * r;
  const double r_7 = std::pow(r, 7);
  const double r_9 = std::pow(r, 9);
  const double S = Divide(-40.3137164788, r_squared) -
                   100 * (Divide(8.399999999999999, r_7) + Divide(14.4, r_9)) +
                   6000 * ((A * s2 / r2) * E2 + (2.1068 / rho) * E1 + (B * s2 / r3) * E3);
  const double static_pressure = S / (6 * r_squared);
  const double grueneisen = 1.59 * Power(x, 0.93);
  const double theta = 279 * Exp((1.59 - grueneisen) / 0.93);  // Debye temperature, K
  const double thermal_energy =
      0.0001380662 * (6 * TK * DebyeFunc(Divide(theta, TK)) + 2.25 * theta);
  return Finite(100 * (static_pressure + grueneisen * thermal_energy / (2 * std::pow(r, 3))));
}

double PressPtTable(double x, double TK) {
  if (x >= 1.061 || x <= 0.819) return 0;
  return Interpolate(kPtNodes, -0.06, 1 - x, TK);
}

double PressAu(double x, double TK) {
  const double y = Divide(1, x);
  return Finite(1.5 * 166.65 * BirchMurnaghan(y, 0.75 * (4 - 5.4823)) +
                (0.00714 - 0.0115 * Log(y)) * (TK - 300));
}

// KEPT: no range check, unlike platinum; far from the grid the outermost cubic gives any number.
double PressMgOTable(double x, double TK) {
  return Interpolate(kMgONodes, -0.1, 1 - x, TK);
}

double PressPtB(double V, double V0, double TK) {
  // Integral of the thermal expansion.
  const auto F = [](double T) { return 0.284e-8 * (T * T) / 2 + 2.4e-5 * T + Divide(0.097, T); };
  const double I = F(TK) - F(300);
  const double VT = V0 * Exp(I);
  const double R = Divide(V0, VT);
  const double KT = 270.28 * Power(R, 5.301);
  const double KpT = Divide(5.29, R);
  const double X = Divide(VT, V);
  return Finite(KT * 1.5 * BirchMurnaghan(X, (4 - KpT) * 0.75));
}

double PressPtH(double r, double TC) {
  // KEPT: the thermal term is proportional to the Celsius number itself, not to a difference from a
  // reference.
  return Finite(Divide(798.31 * (1 - r), r * r) * Exp(7.2119 * (1 - r)) + 1e-4 * 0.261 * 266 * TC);
}

double PressHBN(double c, double TC) {
  const double dT = TC - 26.85;
  const double K = 27.0852 - 0.00701 * dT;   // linear modulus, GPa
  const double c0 = 6.6562 + 0.000274 * dT;  // angstrom
  const double y = Divide(c0, c);
  return Finite(1.5 * K * BirchMurnaghan(y, -0.75 * 9.4984));
}

}  // namespace dorvane
