#include "lattice/CalLattice.h"

#include <cmath>

#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr double kPi = 3.14159265358979;
// KEPT: six digits of sqrt(3)/2, so that volumes agree with those of earlier results.
constexpr double kHexagonalFactor = 0.866025;

double Radians(double degrees) {
  return degrees * kPi / 180;
}

double Root(double value) {
  if (value < 0) throw Fault(FaultCode::BadArgument);
  return std::sqrt(Finite(value));
}

struct Cell {
  double a, b, c;             // angstrom
  double alpha, beta, gamma;  // radians
};

Cell CellOf(float a, float b, float c, float alpha, float beta, float gamma) {
  return {a, b, c, Radians(alpha), Radians(beta), Radians(gamma)};
}

// V / (a b c) = sqrt(1 - ca^2 - cb^2 - cg^2 + 2 ca cb cg)
double VolumeFactor(const Cell& cell) {
  const double ca = std::cos(cell.alpha);
  const double cb = std::cos(cell.beta);
  const double cg = std::cos(cell.gamma);
  return Root(1 - ca * ca - cb * cb - cg * cg + 2 * ca * cb * cg);
}

// KEPT: the leading factor uses gamma, not beta, and the cross term is divided by a*b, not a*c.
// Every d of a monoclinic crystal that is shown uses this form, so that matched and listed values
// never disagree.
double MonoclinicD(double h, double k, double l, const Cell& cell) {
  const double sin_beta = std::sin(cell.beta);
  const double sin_gamma = std::sin(cell.gamma);
  const double form =
      Divide(h * h, cell.a * cell.a) + Divide(k * k * (sin_beta * sin_beta), cell.b * cell.b) +
      Divide(l * l, cell.c * cell.c) - Divide(2 * h * l * std::cos(cell.beta), cell.a * cell.b);
  return Divide(1, Root(Divide(1, sin_gamma * sin_gamma) * form));
}

// 1/d^2 = (S11 h^2 + S22 k^2 + S33 l^2 + 2 S12 hk + 2 S23 kl + 2 S13 hl) / V^2
double TriclinicD(double h, double k, double l, const Cell& cell) {
  const double a = cell.a, b = cell.b, c = cell.c;
  const double ca = std::cos(cell.alpha), cb = std::cos(cell.beta), cg = std::cos(cell.gamma);
  const double sa = std::sin(cell.alpha), sb = std::sin(cell.beta), sg = std::sin(cell.gamma);
  const double volume = VolumeFactor(cell) * a * b * c;
  const double s11 = b * b * c * c * sa * sa;
  const double s22 = a * a * c * c * sb * sb;
  const double s33 = a * a * b * b * sg * sg;
  const double s12 = a * b * c * c * (ca * cb - cg);
  const double s23 = a * a * b * c * (cb * cg - ca);
  const double s13 = a * b * b * c * (cg * ca - cb);
  const double form =
      s11 * h * h + s22 * k * k + s33 * l * l + 2 * s12 * h * k + 2 * s23 * k * l + 2 * s13 * h * l;
  return Divide(1, Root(Divide(form, volume * volume)));
}

}  // namespace

const char* LatticeName(std::int16_t lattice_type) {
  switch (lattice_type) {
    case kCubic:
      return "Cubic";
    case kTetragonal:
      return "Tetragonal";
    case kHexagonal:
      return "Hexagonal";
    case kOrthorhombic:
      return "Orthorhombic";
    case kMonoclinic:
      return "Monoclinic";
    case kTriclinic:
      return "Triclinic";
    default:
      return "";
  }
}

const char* LatticeTag(std::int16_t lattice_type) {
  switch (lattice_type) {
    case kCubic:
      return "CUB";
    // KEPT: tetragonal shares the tag of triclinic; readers of old logs know no other.
    case kTetragonal:
      return "TRI";
    case kHexagonal:
      return "HEX";
    case kOrthorhombic:
      return "ORT";
    case kMonoclinic:
      return "MON";
    case kTriclinic:
      return "TRI";
    default:
      return "UNK";
  }
}

double CalcDSpacing(std::int16_t lattice_type, std::int16_t h_index, std::int16_t k_index,
                    std::int16_t l_index, float a_length, float b_length, float c_length,
                    float alpha, float beta, float gamma) {
  const Cell cell = CellOf(a_length, b_length, c_length, alpha, beta, gamma);
  const double a = cell.a, b = cell.b, c = cell.c;
  const double h = h_index, k = k_index, l = l_index;
  switch (lattice_type) {
    case kCubic:
      return Root(Divide(a * a, h * h + k * k + l * l));
    case kTetragonal: {
      const double ratio = Divide(a, c);
      return Root(Divide(a * a, h * h + k * k + ratio * ratio * (l * l)));
    }
    case kHexagonal: {
      const double ratio = Divide(a, c);
      return Divide(a, Root(4.0 / 3.0 * (h * h + h * k + k * k) + ratio * ratio * (l * l)));
    }
    case kOrthorhombic:
      return Divide(1, Root(Divide(h * h, a * a) + Divide(k * k, b * b) + Divide(l * l, c * c)));
    case kMonoclinic:
      return MonoclinicD(h, k, l, cell);
    case kTriclinic:
      return TriclinicD(h, k, l, cell);
    default:
      return 0;
  }
}

float CalcVolume(float a_length, float b_length, float c_length, float alpha, float beta,
                 float gamma, std::int16_t lattice_type) {
  const Cell cell = CellOf(a_length, b_length, c_length, alpha, beta, gamma);
  const double a = cell.a, b = cell.b, c = cell.c;
  const auto volume = [&]() -> double {
    switch (lattice_type) {
      case kCubic:
        return a * a * a;
      case kTetragonal:
        return a * a * c;
      case kHexagonal:
        return a * a * kHexagonalFactor * c;
      case kOrthorhombic:
        return a * b * c;
      case kMonoclinic:
        return a * b * c * std::sin(cell.beta);
      case kTriclinic:
        return a * b * c * VolumeFactor(cell);
      default:
        return 0;
    }
  };
  return static_cast<float>(volume());
}

void CalcCrystalD(CrystalRec& crystal, const SeedCell& seed) {
  const auto value = [&](int i) { return static_cast<float>(seed[i]); };
  for (int i = 0; i < crystal.LineCount; ++i) {
    crystal.DCalc[i] = CalcDSpacing(crystal.LatticeType, crystal.H[i], crystal.K[i], crystal.L[i],
                                    value(0), value(1), value(2), value(3), value(4), value(5));
  }
}

}  // namespace dorvane
