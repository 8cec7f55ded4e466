// From a refined marker crystal to its pressure: the inputs, the choice of the scale by the
// sample's name, P and error.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "lattice/CrystalRec.h"
#include "lattice/FitWork.h"
#include "support/Fixed.h"

namespace dorvane {

// Places in PressInput::Vals and Errs. The second is never set.
constexpr int kValA = 1;
constexpr int kValC = 3;
constexpr int kValVolume = 4;
constexpr int kValRatio = 5;  // V/V0

struct PressInput {
  std::string Material;  // sample name up to its first blank
  Fixed<double, 1, 5> Vals;
  Fixed<double, 1, 5> Errs;
  double V0 = 0;    // cell volume of the seeds, angstrom^3
  double AErr = 0;  // the refinement's own error of a
  double C = 0;     // c and its error as the refinement has them, whatever the system
  double CErr = 0;
  std::string TempText = "27.0";
  std::int16_t UnitIndex = 0;  // 0 degrees Celsius, else kelvin
};

// One row of the table of scales. Names are compared as they are spelled.
struct PressureScale {
  using Names = std::span<const std::string_view>;

  const char* Name;     // what the scale is, for reports
  Names Keys;           // sample names that are calculated
  Names LogKeys;        // sample names that get a heading in the log
  bool InCelsius;       // temperature as it is passed: degrees Celsius or kelvin
  const char* Banner;   // first record of the log, nullptr for none
  const char* Heading;  // second record, in front of the temperature; nullptr for none
  struct Values {
    double P, Error;  // GPa
  };
  Values (*Calculate)(const PressInput& input, double temperature);
};

// All scales, in the order in which they are searched.
std::span<const PressureScale> PressureScales();

// The scale whose Keys hold the name; nullptr when there is none.
const PressureScale* FindScale(std::string_view material);
// The scale whose LogKeys hold the name; nullptr when there is none.
const PressureScale* FindLogScale(std::string_view material);

// The text in front of the first blank.
std::string MaterialOf(std::string_view sample_name);

// Fills Vals, Errs and V0 from a refinement and its seeds for the cubic and the hexagonal system;
// for every other system they stay 0. The 32-bit results are taken as they are. Material and
// temperature are the caller's. Faults (DivisionByZero) pass for seeds of a zero volume.
PressInput PreparePressure(std::int16_t lattice_type, const LatticeResult& result,
                           const SeedCell& seed);

struct PressureResult {
  double P = 0;      // GPa
  double Error = 0;  // GPa; signed for the scales with a one-sided error
  std::string Text;  // of txtPressure: P "+-" error
  const PressureScale* Scale = nullptr;
};

// Pressure by the scale that the material selects; nothing for a name that no scale has.
// Faults pass: NotANumber for a temperature that is none, and those of the scales; the text shown
// before stays then.
std::optional<PressureResult> CalcPressure(const PressInput& input);

}  // namespace dorvane
