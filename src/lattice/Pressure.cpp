#include "lattice/Pressure.h"

#include <algorithm>
#include <cmath>

#include "lattice/CalLattice.h"
#include "lattice/PressureScales.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

using Values = PressureScale::Values;

constexpr double kZeroCelsius = 273.15;
// KEPT: six digits of sqrt(3)/2, as in the cell volume; it cancels in V/V0.
constexpr double kHexagonalFactor = 0.866025;
constexpr char kPattern[] = "0.00000";

// The calculated names and the logged names differ from each other.
// KEPT: "NaCl" is logged and not calculated, "pt_B" calculated and not logged, "PT_H" never logged;
// users know their libraries by these spellings.
constexpr std::string_view kNaClKeys[] = {"NACL"};
constexpr std::string_view kNaClLogKeys[] = {"NACL", "NaCl", "nacl"};
constexpr std::string_view kPtKeys[] = {"Pt", "PT"};
constexpr std::string_view kPtLogKeys[] = {"PT", "Pt", "pt"};
constexpr std::string_view kAuKeys[] = {"Au", "AU"};
constexpr std::string_view kAuLogKeys[] = {"AU", "Au", "au"};
constexpr std::string_view kMgOKeys[] = {"MgO", "MGO"};
constexpr std::string_view kPtBKeys[] = {"PT_B", "pt_B", "Pt_B"};
constexpr std::string_view kPtBLogKeys[] = {"PT_B", "Pt_B", "pt_b"};
constexpr std::string_view kPtHKeys[] = {"PT_H", "pt_H", "Pt_H", "pt_h"};
constexpr std::string_view kHBNKeys[] = {"hBN"};
constexpr std::string_view kHBNLogKeys[] = {"hBN", "HBN"};

constexpr char kShortBanner[] = "************Caluclate Puressure   **************************";
constexpr char kLongBanner[] = "************Caluclate Puressure   *****************************";

using RatioScale = double (*)(double x, double TK);

Values NaClValues(const PressInput& input, double TK) {
  const double x = input.Vals[kValRatio];
  const double dx = input.Errs[kValRatio];
  const double P = PressNaCl(x, TK);
  const double below = P - PressNaCl(x + dx, TK);
  return {P, (PressNaCl(x - dx, TK) - P + below) / 2};
}

template <RatioScale Scale>
Values CentredValues(const PressInput& input, double TK) {
  const double x = input.Vals[kValRatio];
  const double dx = input.Errs[kValRatio];
  const double P = Scale(x, TK);
  return {P, (Scale(x - dx, TK) - Scale(x + dx, TK)) / 2};
}

Values PtBValues(const PressInput& input, double TK) {
  const double V = input.Vals[kValVolume];
  const double P = PressPtB(V, input.V0, TK);
  return {P, P - PressPtB(V + input.Errs[kValVolume], input.V0, TK)};
}

Values PtHValues(const PressInput& input, double TC) {
  const double a = input.Vals[kValA];
  const double P = PressPtH(a / kPlatinumLength, TC);
  return {P, P - PressPtH((input.AErr + a) / kPlatinumLength, TC)};
}

Values HBNValues(const PressInput& input, double TC) {
  const double P = PressHBN(input.C, TC);
  return {P, std::fabs(P - PressHBN(input.C + input.CErr, TC))};
}

constexpr PressureScale kScales[] = {
    {"NaCl, Born-Mayer with Debye term", kNaClKeys, kNaClLogKeys, false, kShortBanner,
     "******** DECKER PRESSURE AT T=", NaClValues},
    {"Pt, isotherm table", kPtKeys, kPtLogKeys, false, kShortBanner,
     "******** JAMIESON SCALE AT T=", CentredValues<PressPtTable>},
    {"Au, Birch-Murnaghan", kAuKeys, kAuLogKeys, false, kLongBanner,
     "******** ANDERSON SCALE AT T=", CentredValues<PressAu>},
    {"MgO, isotherm table", kMgOKeys, kMgOKeys, false, kShortBanner,
     "******** JAMIESON SCALE AT T=", CentredValues<PressMgOTable>},
    {"Pt, Birch-Murnaghan", kPtBKeys, kPtBLogKeys, false, kLongBanner,
     "******** Burch_m SCALE AT T=", PtBValues},
    {"Pt, Vinet", kPtHKeys, {}, true, nullptr, nullptr, PtHValues},
    {"hBN, Birch-Murnaghan of the c axis", kHBNKeys, kHBNLogKeys, true, kLongBanner,
     "******** Burch_m SCALE AT T=", HBNValues},
};

const PressureScale* ScaleWith(PressureScale::Names PressureScale::*keys,
                               std::string_view material) {
  for (const PressureScale& scale : kScales) {
    const PressureScale::Names& names = scale.*keys;
    if (std::find(names.begin(), names.end(), material) != names.end()) return &scale;
  }
  return nullptr;
}

double TemperatureFor(const PressureScale& scale, const PressInput& input) {
  const double t = NumberOf(input.TempText);
  const bool given_in_celsius = input.UnitIndex == 0;
  if (scale.InCelsius) return given_in_celsius ? t : t - kZeroCelsius;
  return given_in_celsius ? t + kZeroCelsius : t;
}

double Cube(double value) {
  return value * value * value;
}

void PrepareCubic(PressInput& input, const LatticeResult& result, const SeedCell& seed) {
  auto& vals = input.Vals;
  auto& errs = input.Errs;
  vals[kValA] = result.Direct[1];
  vals[kValVolume] = Cube(vals[kValA]);
  errs[kValA] = result.RecipErr[1] * 0.5 * vals[kValVolume];
  errs[kValVolume] = 3.0 * errs[kValA] * (vals[kValA] * vals[kValA]);
  input.V0 = Cube(seed[0]);
}

void PrepareHexagonal(PressInput& input, const LatticeResult& result, const SeedCell& seed) {
  auto& vals = input.Vals;
  auto& errs = input.Errs;
  vals[kValA] = result.Direct[1];
  errs[kValA] = result.RecipErr[1] * 0.5 * Cube(vals[kValA]);
  vals[kValC] = result.Direct[3];
  // KEPT: the error of c reads the third parameter, which a hexagonal cell does not have: it is
  // always 0.
  errs[kValC] = result.RecipErr[3] * 0.5 * Cube(vals[kValC]);
  vals[kValVolume] = vals[kValA] * vals[kValA] * vals[kValC];
  errs[kValVolume] = (vals[kValA] * errs[kValC] + 2.0 * vals[kValC] * errs[kValA]) * vals[kValA];
  input.V0 = seed[0] * seed[0] * seed[2];
  vals[kValVolume] *= kHexagonalFactor;
  errs[kValVolume] *= kHexagonalFactor;
  input.V0 *= kHexagonalFactor;
}

}  // namespace

std::span<const PressureScale> PressureScales() {
  return kScales;
}

const PressureScale* FindScale(std::string_view material) {
  return ScaleWith(&PressureScale::Keys, material);
}

const PressureScale* FindLogScale(std::string_view material) {
  return ScaleWith(&PressureScale::LogKeys, material);
}

std::string MaterialOf(std::string_view sample_name) {
  return std::string(sample_name.substr(0, sample_name.find(' ')));
}

PressInput PreparePressure(std::int16_t lattice_type, const LatticeResult& result,
                           const SeedCell& seed) {
  PressInput input;
  input.AErr = result.DirectErr[1];
  input.C = result.Direct[3];
  input.CErr = result.DirectErr[3];
  if (lattice_type == kCubic) {
    PrepareCubic(input, result, seed);
  } else if (lattice_type == kHexagonal) {
    PrepareHexagonal(input, result, seed);
  } else {
    return input;
  }
  input.Vals[kValRatio] = Divide(input.Vals[kValVolume], input.V0);
  input.Errs[kValRatio] = Divide(input.Errs[kValVolume], input.V0);
  return input;
}

std::optional<PressureResult> CalcPressure(const PressInput& input) {
  const PressureScale* scale = FindScale(input.Material);
  if (scale == nullptr) return std::nullopt;
  const auto [P, error] = scale->Calculate(input, TemperatureFor(*scale, input));
  return PressureResult{P, error, Picture(P, kPattern) + "+-" + Picture(error, kPattern), scale};
}

}  // namespace dorvane
