// Spectra made of Gaussian lines, and peaks entered by hand.
#pragma once

#include <cmath>
#include <vector>

#include "program/ProgramFixture.h"

namespace dorvane {

class PeakFitTest : public ProgramTest {
 protected:
  struct Line {
    double height, center, half_width;
  };

  // Gaussians on a constant background, rounded.
  static std::vector<std::int32_t> Spectrum(int channels, double background,
                                            const std::vector<Line>& lines) {
    std::vector<std::int32_t> counts;
    for (int i = 0; i < channels; ++i) {
      double y = background;
      for (const Line& line : lines) {
        const double u = (i - line.center) / line.half_width;
        y += line.height * std::pow(2.0, -u * u);
      }
      counts.push_back(static_cast<std::int32_t>(std::lround(y)));
    }
    return counts;
  }

  PeakRec& Enter(int data_no, const Line& line, int start, int end) {
    PeakTable& table = workspace.Peaks[data_no];
    PeakRec& peak = table.Peaks[table.Count++];
    peak.Height = line.height;
    peak.Center = line.center;
    peak.HalfWidth = line.half_width;
    peak.RegionStart = ToInt16(start);
    peak.RegionEnd = ToInt16(end);
    return peak;
  }
};

}  // namespace dorvane
