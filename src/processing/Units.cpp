#include "processing/Units.h"

#include <cmath>

#include "processing/Calc.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr double kPi = 3.14159265358979;
constexpr double kHc = 12.3981;  // keV*angstrom
// KEPT: Q alone has its own hc; the Q values in use were made with it.
constexpr double kHcOfQ = 12.399;
constexpr double kFourPi = 12.56637061435916;
constexpr double kCopperKAlpha = 1.5418;  // angstrom

struct UnitRow {
  std::string_view label;
  std::string_view name;
  std::string_view pattern;
  int decade;  // of the read-out
  std::string_view read_out;
};

// KEPT: "Enargy" is the system's word; it stands in captions and reports.
constexpr std::array<UnitRow, kUnits> kUnitRows = {{
    {"Ch", "Channel", "####", -1, "####"},
    {"keV", "Enargy", "##0.000", -1, "##0.0"},
    {"eV", "Enargy", "##0.000", -1, "##0.0"},
    {"d:\u212B", "d Value", "0.0000", -4, "0.0000"},
    {"\u212B", "Wavelength", "0.0000", -4, "0.0000"},
    {"Q\u212B", "", "0.0000", -4, "0.0000"},
    {"2\u03B8", "", "0.0000", -4, "0.0000"},
}};
constexpr std::string_view kUnknownPattern = "#####";

const UnitRow* RowOf(int unit) {
  return unit >= 0 && unit < kUnits ? &kUnitRows[static_cast<std::size_t>(unit)] : nullptr;
}

}  // namespace

double DegToRad(double degrees) {
  return degrees * kPi / 180;
}

double ChToEnergy(double n, const EgcCoef& egc) {
  return egc[0] + egc[1] * n + egc[2] * n * n;
}

double EnergyToCh(double energy_kev, const EgcCoef& egc) {
  if (egc[2] == 0) return egc[1] == 0 ? 0 : (energy_kev - egc[0]) / egc[1];
  const double discriminant = egc[1] * egc[1] - (egc[0] - energy_kev) * (egc[2] * 4);
  if (discriminant < 0) return 0;
  return (-egc[1] + std::sqrt(discriminant)) / (2 * egc[2]);
}

double ChToWave(double n, const EgcCoef& egc) {
  const double energy = ChToEnergy(n, egc);
  return energy <= 0 ? 0 : kHc / energy;
}

double WaveToCh(double wavelength, const EgcCoef& egc) {
  return wavelength <= 0 ? 0 : EnergyToCh(kHc / wavelength, egc);
}

double ChToD(double n, const EgcCoef& egc, double two_theta_deg) {
  const double energy = ChToEnergy(n, egc);
  if (two_theta_deg <= 0 || energy <= 0) return 0;
  // Bragg: d = hc / (2 E sin(theta)).
  const double d = kHc / (2 * energy * std::sin(DegToRad(two_theta_deg / 2)));
  return std::isfinite(d) ? d : 0;
}

double DToCh(double d, const EgcCoef& egc, double two_theta_deg) {
  if (d <= 0 || two_theta_deg <= 0) return 0;
  // KEPT: the half angle enters the sine in degrees, unconverted; the callers are used to these
  // channels.
  return EnergyToCh(kHc / ((d + d) * std::sin(two_theta_deg / 2)), egc);
}

double ChToQ(double n, const EgcCoef& egc, double two_theta_deg) {
  const double energy = ChToEnergy(n, egc);
  if (energy <= 0) return 0;
  // Q = 4 pi E sin(theta) / hc.
  return energy * kFourPi * std::sin(((two_theta_deg / 180) * kPi) / 2) / kHcOfQ;
}

DacPoint ChTo2Theta(double n, const DacAngles& dac, double wavelength) {
  const double index = n - 1;
  DacPoint point;
  point.two_theta_deg = dac.DacAngleSlope * index + dac.DacAngleOffset;
  const double sine = std::sin(DegToRad(point.two_theta_deg / 2));
  point.d = sine == 0 ? 0 : wavelength / (2 * sine);
  return point;
}

double ChToUnit(int unit, double index, const MeasProp& source, const DacAngles& dac) {
  const double n = index + 1;
  switch (unit) {
    case kUnitCh:
      return n;
    case kUnitKeV:
      return ChToEnergy(n, source.EGC);
    case kUnitEv:
      return ChToEnergy(n, source.EGC) * 1000;
    case kUnitD:
      return ChToD(n, source.EGC, source.TwoTheta);
    case kUnitWave:
      return ChToWave(n, source.EGC);
    case kUnitQ:
      return ChToQ(n, source.EGC, source.TwoTheta);
    case kUnit2Theta:
      return ChTo2Theta(n, dac).two_theta_deg;
    default:
      return 0;
  }
}

// KEPT: only the channel unit takes the 1 of the forward direction off again; typed values and
// stored settings rely on it.
double UnitToCh(int unit, double value, const MeasProp& source) {
  switch (unit) {
    case kUnitCh:
      return value - 1;
    case kUnitKeV:
      return EnergyToCh(value, source.EGC);
    case kUnitEv:
      return EnergyToCh(value / 1000, source.EGC);
    case kUnitD:
      return DToCh(value, source.EGC, source.TwoTheta);
    case kUnitWave:
      return WaveToCh(value, source.EGC);
    default:
      return 0;
  }
}

double WidthToCh(int unit, double width, const MeasProp& source) {
  const double offset = ChToEnergy(0, source.EGC);
  if (unit == kUnitKeV) return EnergyToCh(offset + width, source.EGC);
  // KEPT: the offset in keV and the width in eV are added before the division; widths have always
  // been read so.
  if (unit == kUnitEv) return EnergyToCh((offset + width) / 1000, source.EGC);
  return width;
}

double ChToWidth(int unit, double n, const MeasProp& source) {
  switch (unit) {
    case kUnitCh:
      return n;
    case kUnitKeV:
      return ChToEnergy(n, source.EGC) - ChToEnergy(0, source.EGC);
    case kUnitEv:
      return (ChToEnergy(n, source.EGC) - ChToEnergy(0, source.EGC)) * 1000;
    case kUnitWave:
      return 0;
    default:
      return 1;
  }
}

double ChToCuTheta(double index, double two_theta_deg, const MeasProp& source) {
  // KEPT: the energy is tested one channel below the one whose d value is taken.
  if (two_theta_deg <= 0 || ChToEnergy(index, source.EGC) <= 0) return 0;
  const double d = ChToD(index + 1, source.EGC, source.TwoTheta);
  if (d == 0) return 0;
  const double sine = kCopperKAlpha / (2 * d);
  const double cosine_squared = 1 - sine * sine;
  if (!(cosine_squared > 0)) return 0;
  return std::atan(sine / std::sqrt(cosine_squared)) * 180 / kPi;
}

std::string_view UnitLabel(int unit) {
  const UnitRow* row = RowOf(unit);
  return row ? row->label : std::string_view();
}

std::string_view UnitName(int unit) {
  const UnitRow* row = RowOf(unit);
  return row ? row->name : std::string_view();
}

std::string_view UnitPattern(int unit) {
  const UnitRow* row = RowOf(unit);
  return row ? row->pattern : kUnknownPattern;
}

const std::array<std::string_view, kUnits>& UnitComboTexts() {
  // KEPT: the box spells the first energies in its own way, "Kev" and "Ev".
  static constexpr std::array<std::string_view, kUnits> kTexts = {"Ch",
                                                                  "Kev",
                                                                  "Ev",
                                                                  kUnitRows[kUnitD].label,
                                                                  kUnitRows[kUnitWave].label,
                                                                  kUnitRows[kUnitQ].label,
                                                                  kUnitRows[kUnit2Theta].label};
  return kTexts;
}

std::string FormatUnitVal(double value, int unit) {
  const UnitRow* row = RowOf(unit);
  if (!row) return Picture(value, kUnknownPattern);
  // KEPT: channels are rounded at a tenth first and then once more by the picture.
  return Picture(RoundToDecade(value, row->decade, 0), row->read_out);
}

// KEPT: the constant stands in front of "Ch^2+", against the formula; users read it as the list
// EGC(0), EGC(1), EGC(2).
std::string EgcLabel(const EgcCoef& egc) {
  constexpr std::string_view kPicture = "0.000000";
  return Picture(egc[0], kPicture) + "Ch^2+" + Picture(egc[1], kPicture) + "Ch+" +
         Picture(egc[2], kPicture);
}

double RoundToDecade(double x, int decade, int mode) {
  constexpr double kUp = 0.999999999;
  constexpr double kNearest = 0.5;
  constexpr double kDown = 1e-8;  // guards whole multiples against their last bit
  const double step = std::pow(10.0, decade);
  const double shift = mode > 0 ? kUp : mode == 0 ? kNearest : kDown;
  return std::floor(x / step + shift) * step;
}

double RoundSig(double x, int digits, int mode) {
  return RoundToDecade(x, Decade(x) - digits + 1, mode);
}

double RoundStep(double x, int divisions) {
  return RoundSig(Divide(x, divisions), 1, 1);
}

std::int16_t Decade(double x) {
  if (x < 1) {
    double shifted = x + 1e-9;
    return RoundToInt16(-std::floor(-Log10Safe(shifted) + 0.999999999));
  }
  return RoundToInt16(std::floor(Log10Safe(x) + 1e-10));
}

}  // namespace dorvane
