// Regions with peaks, fitted with scripted ports.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "fitting/NaxFit.h"

namespace dorvane {

struct NaxLine {
  double position, height, half_width;
};

// Gaussians on a straight line, with a saw tooth in place of noise, which any machine makes alike;
// channels 1..400, rounded, and at least 0.
inline std::vector<std::int32_t> SawToothSpectrum(double background, double slope, double noise,
                                                  const std::vector<NaxLine>& lines) {
  std::vector<std::int32_t> counts;
  for (int channel = 1; channel <= 400; ++channel) {
    double y = background + slope * channel;
    for (const NaxLine& line : lines) {
      const double u = (channel - line.position) / line.half_width;
      y += line.height * std::pow(2.0, -u * u);
    }
    y += noise * (channel * 7919 % 101 - 50) / 50;
    counts.push_back(static_cast<std::int32_t>(std::max(0.0, std::floor(y + 0.5))));
  }
  return counts;
}

inline ManualFitList ListOf(int start, int end, const std::vector<int>& centers,
                            const std::vector<int>& heights) {
  ManualFitList list;
  list.StartCh = static_cast<std::int16_t>(start);
  list.EndCh = static_cast<std::int16_t>(end);
  list.PeakNum = static_cast<std::int16_t>(centers.size());
  for (int k = 0; k < list.PeakNum; ++k) {
    const auto i = static_cast<std::size_t>(k);
    list.CenterCh[k] = static_cast<std::int16_t>(centers[i]);
    list.MaxCount[k] = heights[i];
    list.ChWidth[k] = 10;
  }
  return list;
}

class NaxFitTest : public testing::Test {
 protected:
  struct Log : LogSink {
    std::vector<std::string> lines;
    void PutLog(std::string_view text) override { lines.emplace_back(text); }
  };
  struct Stop : Progress {
    int reports = 0;
    int stop_at = 0;  // the report after which the user stops; 0 never
    void Report(int, int) override { ++reports; }
    bool Cancelled() override { return reports == stop_at && stop_at > 0; }
  };

  // COND and DampedLsq.
  NaxFitSummary Fit(const std::vector<std::int32_t>& counts, const ManualFitList& list) {
    EXPECT_EQ(COND(counts, list, region), 0);
    return DampedLsq(region, limits, log, progress);
  }

  NaxRegion region;
  NaxLimits limits;
  Log log;
  Stop progress;
};

}  // namespace dorvane
