// One fitted or found peak, and the peak table of a spectrum.
#pragma once

#include <cstdint>

#include "support/Fixed.h"

namespace dorvane {

constexpr int kMaxPeaks = 100;

// Peak shapes: PeakRec::FuncType and the analysis setting of the same name.
constexpr std::int16_t kNoFunc = 0;
constexpr std::int16_t kGauss = 1;
constexpr std::int16_t kLorentz = 2;
constexpr std::int16_t kMix = 3;

// Values of PeakRec::FitEngine.
constexpr std::int16_t kEngineNax = 0;
constexpr std::int16_t kEngineExpress = 1;

// Standard errors (1 sigma) of the fields of the same names, in their units. 0 where a fit has
// none: the field has been found or typed, or the fit has held it fixed, has not converged, or was
// made to counts that do not scatter as counted ones.
struct PeakErrors {
  double Height = 0;
  double GaussRatio = 0;
  double HalfWidth = 0;
  double Center = 0;

  friend bool operator==(const PeakErrors&, const PeakErrors&) = default;
};

struct PeakRec {
  std::int16_t FitDone = 0;  // -1 after a fit
  std::int16_t FuncType = 0;
  double Height = 0;      // counts above the background
  double GaussRatio = 0;  // share of the Gaussian in the height, 0..1
  double HalfWidth = 0;   // half width at half maximum, channels; FWHM is twice this
  double Center = 0;      // channel index from 0, with a fraction
  double BackConst = 0;   // counts
  double BackSlope = 0;   // counts per channel
  std::int16_t RegionStart = 0;
  std::int16_t RegionEnd = 0;
  double Amplitude = 0;  // area: the shape summed over all channels
  std::int32_t Reserved = 0;
  std::int16_t FitEngine = 0;
  PeakErrors Errors;  // not on file

  friend bool operator==(const PeakRec&, const PeakRec&) = default;
};

// Ascending by Center; entries 0..Count-1 are in use.
struct PeakTable {
  std::int16_t Count = 0;
  Fixed<PeakRec, 0, kMaxPeaks - 1> Peaks;

  friend bool operator==(const PeakTable&, const PeakTable&) = default;
};

}  // namespace dorvane
