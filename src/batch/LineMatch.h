// Which peak belongs to which line of known energy.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace dorvane {

struct LineMatch {
  std::optional<std::size_t> peak;  // index of its peak
  bool lost = false;                // no peak, but there is one near that a nearer line has
};

// One match a line. Of all pairs of a line and a peak that are at most `within` apart the nearest
// is joined first, then the nearest of what is left, and so on: a line that loses a peak to a
// nearer line takes its next choice. Of pairs as near the one of the earlier line, then of the
// earlier peak, comes first. Places and `within` in one unit; NaN is near to nothing.
std::vector<LineMatch> MatchLines(std::span<const double> lines, std::span<const double> peaks,
                                  double within);

}  // namespace dorvane
