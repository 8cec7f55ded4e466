#include "batch/SourceLines.h"

#include <array>

#include "batch/BatchError.h"

namespace dorvane {
namespace {

struct SourceLine {
  std::string_view source;
  std::string_view name;
  double energy_kev;
  double share;  // of the source's strongest gamma line
};

// Energies: Update of X Ray and Gamma Ray Decay Data Standards for Detector Calibration, vol. 1,
// IAEA, Vienna 2007. Shares follow its emission probabilities, rounded to two digits.
constexpr std::array kSourceLines{
    SourceLine{"Am-241", "Am-241 59.5", 59.5409, 1},
    SourceLine{"Am-241", "Am-241 26.3", 26.3446, 0.065},
    SourceLine{"Cd-109", "Cd-109 88.0", 88.0336, 1},
    SourceLine{"Co-57", "Co-57 122.1", 122.06065, 1},
    SourceLine{"Co-57", "Co-57 136.5", 136.47356, 0.13},
    SourceLine{"Co-57", "Co-57 14.4", 14.41295, 0.11},
};

}  // namespace

std::vector<FluorescenceLine> SourceLinesOf(std::string_view source, double share) {
  std::vector<FluorescenceLine> lines;
  for (const SourceLine& line : kSourceLines) {
    if (line.source == source)
      lines.push_back({std::string(line.name), line.energy_kev, share * line.share});
  }
  if (lines.empty()) {
    throw UsageError("no source \"" + std::string(source) + "\"; there are " + SourceNames());
  }
  return lines;
}

std::string SourceNames() {
  std::string names;
  std::string_view last;
  for (const SourceLine& line : kSourceLines) {
    if (line.source == last) continue;
    names.append(names.empty() ? "" : ", ").append(line.source);
    last = line.source;
  }
  return names;
}

}  // namespace dorvane
