// Lines of known cells, with or without errors of measurement, for the refinement under test.
#pragma once

#include <algorithm>

#include "lattice/LatticeFixture.h"
#include "lattice/LeastSquares64.h"
#include "lattice/LtcCon.h"
#include "support/RandomCounts.h"

namespace dorvane {

// A standard normal deviate, by the polar method of G. Marsaglia.
inline double Deviate(RandomCounts& random) {
  for (;;) {
    const double u = 2 * random.Uniform() - 1, v = 2 * random.Uniform() - 1;
    const double s = u * u + v * v;
    if (s > 0 && s < 1) return u * std::sqrt(-2 * std::log(s) / s);
  }
}

// Whether the symmetry of the system makes no earlier line of these: the indices are those of one
// line of each form.
inline bool IsRepresentative(int system, int h, int k, int l) {
  switch (system) {
    case 0:
      return h >= k && k >= l && l >= 0 && h > 0;
    case 1:
    case 2:
      return h >= k && k >= 0 && l >= 0 && h + l > 0;
    case 3:
      return h >= 0 && k >= 0 && l >= 0 && h + k + l > 0;
    case 4:
      return k >= 0 && h >= 0 && (h > 0 || l >= 0) && (h > 0 || k > 0 || l > 0);
    default:
      return h > 0 || (h == 0 && (k > 0 || (k == 0 && l > 0)));
  }
}

// The first `count` lines by falling d, none nearer to the one before than a share of its d.
inline std::vector<PlaneLine> LinesOf(int system, const Cell6& cell, int count,
                                      double separation = 0.004) {
  constexpr int kMost = 6;
  std::vector<PlaneLine> all;
  for (int h = 0; h <= kMost; ++h) {
    for (int k = -kMost; k <= kMost; ++k) {
      for (int l = -kMost; l <= kMost; ++l) {
        if (IsRepresentative(system, h, k, l)) {
          all.push_back({h, k, l, PlaneDistance(cell, h, k, l)});
        }
      }
    }
  }
  std::stable_sort(all.begin(), all.end(),
                   [](const PlaneLine& a, const PlaneLine& b) { return a.d > b.d; });
  std::vector<PlaneLine> lines;
  for (const PlaneLine& line : all) {
    if (!lines.empty() && lines.back().d - line.d < separation * line.d) continue;
    if (static_cast<int>(lines.size()) < count) lines.push_back(line);
  }
  return lines;
}

// The refinement, from the line table on.
class RefinementFixture : public LatticeFixture {
 public:
  std::int16_t Refine(int system, const std::vector<PlaneLine>& lines) {
    workspace->Peaks[kDataNo].Count = static_cast<std::int16_t>(lines.size());
    state->Match.CurData = kDataNo;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      LineRec& line = state->Lines[static_cast<int>(i)];
      line.H = static_cast<std::int16_t>(lines[i].h);
      line.K = static_cast<std::int16_t>(lines[i].k);
      line.L = static_cast<std::int16_t>(lines[i].l);
      line.DObs = lines[i].d;
      line.Angle = 10;
      line.Matched = kTrue;
    }
    LoadFitLines(*state, *workspace, static_cast<std::int16_t>(system));
    return LatticeLsq(state->Fit, result, dialogs);
  }

  LatticeResult result;
};

}  // namespace dorvane
