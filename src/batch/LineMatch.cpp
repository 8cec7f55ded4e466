#include "batch/LineMatch.h"

#include <algorithm>
#include <cmath>

namespace dorvane {
namespace {

struct Pair {
  double distance;
  std::size_t line;
  std::size_t peak;
};

}  // namespace

std::vector<LineMatch> MatchLines(std::span<const double> lines, std::span<const double> peaks,
                                  double within) {
  std::vector<Pair> pairs;
  for (std::size_t line = 0; line < lines.size(); ++line) {
    for (std::size_t peak = 0; peak < peaks.size(); ++peak) {
      const double distance = std::abs(lines[line] - peaks[peak]);
      if (distance <= within) pairs.push_back({distance, line, peak});
    }
  }
  std::stable_sort(pairs.begin(), pairs.end(),
                   [](const Pair& a, const Pair& b) { return a.distance < b.distance; });
  std::vector<LineMatch> matches(lines.size());
  std::vector<bool> taken(peaks.size());
  for (const Pair& pair : pairs) {
    LineMatch& match = matches[pair.line];
    if (match.peak) continue;
    match.lost = taken[pair.peak];
    if (match.lost) continue;
    match.peak = pair.peak;
    taken[pair.peak] = true;
  }
  return matches;
}

}  // namespace dorvane
