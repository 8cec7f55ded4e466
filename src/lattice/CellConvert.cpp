#include "lattice/CellConvert.h"

#include <cmath>
#include <cstdlib>

#include "lattice/Float32.h"

namespace dorvane {
namespace {

constexpr float kDegreesPerRadian = 57.29578f;

// Axes 0 a, 1 b, 2 c. The angle i lies between the two other axes.
constexpr int kNext[3] = {1, 2, 0};
constexpr int kLast[3] = {2, 0, 1};

// Axes of each metric slot: h^2, k^2, l^2, kl, hl, hk.
struct AxisPair {
  int r, s;
};
constexpr AxisPair kSlotAxes[kMetricSlots] = {{0, 0}, {1, 1}, {2, 2}, {1, 2}, {0, 2}, {0, 1}};

// One value per axis.
using Axes = Fixed<float, 0, 2>;

struct Lattice {
  Axes length;
  Axes cosine;
  Axes sine;
};

// R = V / (product of the lengths)
float VolumeFactor(const Lattice& lattice) {
  const float ca = lattice.cosine[0], cb = lattice.cosine[1], cg = lattice.cosine[2];
  return Root32(1.0f + 2.0f * ca * cb * cg - ca * ca - cb * cb - cg * cg);
}

void SetSines(Lattice& lattice) {
  for (int i = 0; i < 3; ++i) {
    lattice.sine[i] = Root32(1.0f - lattice.cosine[i] * lattice.cosine[i]);
  }
}

Lattice ReciprocalLattice(const MetricVector& metric) {
  Lattice lattice;
  for (int i = 0; i < 3; ++i) lattice.length[i] = Root32(metric[i + 1]);
  for (int i = 0; i < 3; ++i) {
    lattice.cosine[i] =
        Divide32(0.5f * metric[i + 4], lattice.length[kNext[i]] * lattice.length[kLast[i]]);
  }
  SetSines(lattice);
  return lattice;
}

// cos(alpha) = (cos(beta*) cos(gamma*) - cos(alpha*)) / (sin(beta*) sin(gamma*))
// a = sin(alpha*) / (a* R)
Lattice DirectLattice(const Lattice& reciprocal, float volume_factor) {
  Lattice lattice;
  for (int i = 0; i < 3; ++i) {
    const int j = kNext[i], k = kLast[i];
    lattice.cosine[i] = Divide32(reciprocal.cosine[j] * reciprocal.cosine[k] - reciprocal.cosine[i],
                                 reciprocal.sine[j] * reciprocal.sine[k]);
    lattice.length[i] = Divide32(reciprocal.sine[i], reciprocal.length[i] * volume_factor);
  }
  SetSines(lattice);
  return lattice;
}

// The angle of a cosine: atan(sqrt(1 - cos^2) / cos), taken into 0..180; a cosine of 0 is 90
// degrees.
float AngleDegrees(float cosine, float sine) {
  if (cosine == 0.0f) return 90.0f;
  const float angle = kDegreesPerRadian * std::atan(sine / cosine);
  return angle < 0.0f ? angle + 180.0f : angle;
}

// Change of a, b, c, alpha, beta, gamma (radians) and V per unit of one metric slot. With the
// direct metric tensor g, the inverse of the reciprocal one G: dg = -g dG g and dV = -V/2 tr(g dG);
// dG is 1 at (r, r) or 1/2 at (r, s), (s, r).
CellVector SlotDerivative(const Lattice& cell, float volume, AxisPair slot) {
  const auto g = [&](int p, int q) {
    const float cosine = p == q ? 1.0f : cell.cosine[3 - p - q];
    return cell.length[p] * cell.length[q] * cosine;
  };
  const auto dg = [&](int p, int q) {
    return -0.5f * (g(p, slot.r) * g(slot.s, q) + g(p, slot.s) * g(slot.r, q));
  };
  CellVector change;
  Axes relative;  // dlength / length
  for (int p = 0; p < 3; ++p) {
    change[p + 1] = Divide32(dg(p, p), 2.0f * cell.length[p]);
    relative[p] = Divide32(change[p + 1], cell.length[p]);
  }
  for (int i = 0; i < 3; ++i) {
    const int p = kNext[i], q = kLast[i];
    const float dcosine = Divide32(dg(p, q), cell.length[p] * cell.length[q]) -
                          cell.cosine[i] * (relative[p] + relative[q]);
    change[i + 4] = -Divide32(dcosine, cell.sine[i]);
  }
  change[7] = -0.5f * volume * g(slot.r, slot.s);
  return change;
}

CellVector DirectErrors(const Lattice& cell, float volume, const ParamSlots& param_map,
                        const CellVector& sigma) {
  Fixed<CellVector, 1, kMetricSlots> by_param;
  for (int j = 1; j <= kMetricSlots; ++j) {
    if (param_map[j] == 0) continue;
    const CellVector change = SlotDerivative(cell, volume, kSlotAxes[j - 1]);
    CellVector& sum = by_param[std::abs(param_map[j])];
    for (int k = 1; k <= 7; ++k) sum[k] += change[k];
  }
  CellVector errors;
  for (int k = 1; k <= 7; ++k) {
    float squares = 0.0f;
    for (int p = 1; p <= kMetricSlots; ++p) {
      const float part = by_param[p][k] * sigma[p];
      squares += part * part;
    }
    errors[k] = Root32(squares);
  }
  for (int k = 4; k <= 6; ++k) errors[k] *= kDegreesPerRadian;
  return errors;
}

}  // namespace

std::int16_t CellConvert(const MetricVector& metric, const ParamSlots& param_map,
                         const CellVector& sigma, CellVector& direct, CellVector& direct_err) {
  try {
    const Lattice reciprocal = ReciprocalLattice(metric);
    const float factor = VolumeFactor(reciprocal);
    const Lattice cell = DirectLattice(reciprocal, factor);
    const Axes& star = reciprocal.length;
    const float volume = Divide32(1.0f, star[0] * star[1] * star[2] * factor);
    const CellVector errors = DirectErrors(cell, volume, param_map, sigma);
    for (int i = 0; i < 3; ++i) {
      direct[i + 1] = cell.length[i];
      direct[i + 4] = AngleDegrees(cell.cosine[i], cell.sine[i]);
    }
    direct[7] = volume;
    direct_err = errors;
    return kCellDone;
  } catch (const Fault&) {
    return kCellFailed;
  }
}

}  // namespace dorvane
