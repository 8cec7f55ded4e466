// The analysis settings that live as long as the program.
#pragma once

#include <array>
#include <cstdint>

#include "workspace/PeakRec.h"

namespace dorvane {

// Kept in the parameter file; only the first five fields have a meaning here.
struct FitParamSet {
  std::int16_t FuncType = kGauss;
  std::int16_t SmoothKind = 0;     // 0..3: 5, 7, 9, 11 points
  std::int16_t PeakThres = 10;     // sensitivity of the peak search, 1..20
  std::int16_t BackInterval = 20;  // grid of the background, channels
  std::int16_t BackTimes = 20;     // clipping passes
  std::array<char, 290> Tail{};    // carried from the parameter file and back

  friend bool operator==(const FitParamSet&, const FitParamSet&) = default;
};

// Kept in the ini file.
struct AnalysisSettings {
  double BgCoef = 0.2;
  double PeakWidthCh = 20.0;
  double DacWavelength = 0.49576;  // angstrom
  double JudgeRange = 0.03;        // angstrom: a line within it indexes a peak

  friend bool operator==(const AnalysisSettings&, const AnalysisSettings&) = default;
};

// The defaults of AnalysisSettings.
inline void SetDefaultParams(AnalysisSettings& settings) {
  settings = AnalysisSettings{};
}

}  // namespace dorvane
