// The energy model: conversions between channels and the seven display units, and the rounding and
// number pictures that belong to each unit.
//
// A channel index i counts from 0, a channel number n from 1: n = i + 1. Channels may have a
// fraction. Nothing here keeps a state; the caller picks the calibration source (CalibrationOf in
// workspace/Workspace.h).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "workspace/SpectrumRec.h"
#include "workspace/Workspace.h"

namespace dorvane {

// Unit codes.
constexpr std::int16_t kUnitCh = 0;      // channel number
constexpr std::int16_t kUnitKeV = 1;     // energy, keV
constexpr std::int16_t kUnitEv = 2;      // energy, eV
constexpr std::int16_t kUnitD = 3;       // d value, angstrom
constexpr std::int16_t kUnitWave = 4;    // wavelength, angstrom
constexpr std::int16_t kUnitQ = 5;       // Q = 4 pi sin(theta) / lambda, 1/angstrom
constexpr std::int16_t kUnit2Theta = 6;  // 2-theta of the angle-dispersive model, degrees
constexpr int kUnits = 7;

double DegToRad(double degrees);

// Energy in keV of channel number n.
double ChToEnergy(double n, const EgcCoef& egc);
// Channel number of an energy in keV, by the positive root of the quadratic form. 0 for EGC(1) =
// EGC(2) = 0 and where no channel has that energy.
double EnergyToCh(double energy_kev, const EgcCoef& egc);
// Wavelength in angstrom; 0 where the energy is not positive.
double ChToWave(double n, const EgcCoef& egc);
// Channel number of a wavelength in angstrom; 0 where the wavelength is not positive, else as
// EnergyToCh.
double WaveToCh(double wavelength, const EgcCoef& egc);
// d value in angstrom by Bragg's law; 0 where the angle or the energy is not positive, or the
// result is not finite.
double ChToD(double n, const EgcCoef& egc, double two_theta_deg);
// Channel number of a d value in angstrom; 0 where d or the angle is not positive. Not the inverse
// of ChToD.
double DToCh(double d, const EgcCoef& egc, double two_theta_deg);
// Q in 1/angstrom; 0 where the energy is not positive.
double ChToQ(double n, const EgcCoef& egc, double two_theta_deg);

// A channel of an angle-dispersive spectrum.
struct DacPoint {
  double two_theta_deg = 0;
  double d = 0;  // angstrom
};
// The angle of channel number n, and its d value for the wavelength in angstrom: 0 where the sine
// of theta is 0.
DacPoint ChTo2Theta(double n, const DacAngles& dac, double wavelength = 0);

// Value in a unit of channel INDEX i. 0 for an unknown unit, else as the conversion of the unit.
double ChToUnit(int unit, double index, const MeasProp& source, const DacAngles& dac);
// Channel of a value in a unit: an index for kUnitCh, but a channel number, one more than the
// index, for keV, eV, d and wavelength. 0 for the other units.
double UnitToCh(int unit, double value, const MeasProp& source);
// Number of channels of a width in Ch, keV or eV. The width itself for the other units.
double WidthToCh(int unit, double width, const MeasProp& source);
// Width of n channels in Ch, keV or eV. 0 for the wavelength and 1 for the other units.
double ChToWidth(int unit, double n, const MeasProp& source);

// Bragg angle theta, in degrees, under which a copper tube (K-alpha) shows the d value of channel
// index i. 0 where the angle or the energy of channel NUMBER i is not positive, or d is too small
// to be reached.
double ChToCuTheta(double index, double two_theta_deg, const MeasProp& source);

// Texts of a unit; empty ("#####" for the picture) for an unknown one.
std::string_view UnitLabel(int unit);
std::string_view UnitName(int unit);
std::string_view UnitPattern(int unit);
// The item texts of cboUnitX, in the order of the unit codes.
const std::array<std::string_view, kUnits>& UnitComboTexts();
// The value rounded to the nearest at the unit's decade, printed with the unit's read-out picture.
// A value that rounds to channel 0 gives an empty text.
std::string FormatUnitVal(double value, int unit);
// The three coefficients as lblEGC shows them.
std::string EgcLabel(const EgcCoef& egc);

// x to a multiple of 10^decade: up for mode > 0, to the nearest (halves up) for mode = 0, down for
// mode < 0.
double RoundToDecade(double x, int decade, int mode);
// x to a number of significant digits, mode as above.
double RoundSig(double x, int digits, int mode);
// x / divisions, rounded up to one significant digit: the step of an axis. Faults (DivisionByZero)
// for 0 divisions.
double RoundStep(double x, int divisions);
// Exponent of 10 of the leading digit of x, not below -9; 0 for x below -1E-9. Faults (Overflow)
// for NaN and infinity.
std::int16_t Decade(double x);

}  // namespace dorvane
