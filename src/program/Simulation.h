// Synthetic spectra: the diffraction lines of a crystal, lines of fluorescence and of radioactive
// sources, and background as a germanium detector would count them, with the truth that they were
// made from.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "lattice/CrystalRec.h"
#include "program/LatticeRun.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// A line of known energy, of an element or a source.
struct FluorescenceLine {
  std::string name;
  double energy_kev = 0;
  double share = 0;  // height against that of the strongest diffraction line
};

// Full width at half maximum of a line: FWHM^2 = constant + slope * E, in keV^2. The constant is
// the noise of the electronics; the slope is the spread of the number of charge carriers, 8 ln2 *
// Fano factor * energy per pair, here for germanium with 0.106 and 2.96 eV (G. F. Knoll, Radiation
// Detection and Measurement, 4th ed. 2010, chapter 12).
struct DetectorWidth {
  double constant_kev2 = 0.0625;
  double slope_kev = 8 * 0.69314718055994531 * 0.106 * 2.96e-3;
};

// Counts of a channel at E keV, as shares of the strongest line's height:
// exponential_share * exp(-E / exponential_kev) + hump_share * exp(-((E - hump_kev) /
// hump_width_kev)^2 / 2).
struct BackgroundShape {
  double exponential_share = 0.05;
  double exponential_kev = 30;
  double hump_share = 0.03;
  double hump_kev = 60;
  double hump_width_kev = 25;
};

// Incident intensity (E / peak)^2 exp(2 (1 - E / peak)): rises from 0 to 1 at the peak and falls
// off slowly.
struct BeamShape {
  double peak_kev = 50;
};

struct SimulationRequest {
  CrystalRec crystal;                  // its cell is that at ambient conditions; without name and
                                       // lines there is no crystal, as for a reference spectrum
  std::optional<double> pressure;      // GPa, by the scale that has the crystal's name
  std::optional<double> volume_ratio;  // V/V0, all lengths scaled alike
  std::optional<SeedCell> cell;  // at most one of the three; the ambient cell where there is none
  double temperature = 27;       // degrees Celsius, for the scale and the record
  double two_theta_deg = 6;
  EgcCoef egc = DefaultEgc();  // keV of channel number
  int channels = 2048;         // 64..8192
  DetectorWidth width;
  BackgroundShape background;
  BeamShape beam;
  std::vector<FluorescenceLine> fluorescence;
  std::optional<double> strongest_counts;  // counts in the strongest diffraction line, or, without
                                           // a crystal, in the line of the greatest share
  double counting_time = 100;              // s; decides where strongest_counts is not given
  double rate = 1000;                      // counts per second in that line
  std::uint64_t seed = 1;
  std::string name = "simulated";

  static EgcCoef DefaultEgc();
};

struct SimulatedLine {
  std::string name;  // "1 1 1", or that of a fluorescence line
  bool diffraction = true;
  Hkl hkl;
  int multiplicity = 0;
  double d = 0;  // angstrom
  double energy_kev = 0;
  double index = 0;   // channel index from 0 of the centre; channel number = index + 1
  double height = 0;  // expected counts in the channel at the centre
  double fwhm_kev = 0;
  double fwhm_channels = 0;
  double area = 0;  // expected counts
};

struct SimulatedSpectrum {
  SpectrumRec record;
  ChannelBlock block;
  std::vector<double> expected;  // counts by channel index, of which the spectrum is one draw
  std::vector<SimulatedLine>
      lines;  // diffraction lines by falling d, then fluorescence; those within the channels
  SeedCell cell;
  double volume_ratio = 1;
  std::optional<double> pressure;  // GPa
};

// Draws a spectrum. Equal requests give equal counts. Lines have multiplicity * d^2 * beam as
// relative areas, the multiplicity being that of the highest symmetry of the crystal's system;
// structure factors are not known here. Throws Fault(BadArgument), naming what is wrong, for values
// out of range, a pressure that the scale doesn't reach, a crystal without scale, and where no line
// of the crystal, or none at all, falls into the channels.
SimulatedSpectrum Simulate(const SimulationRequest& request);

// Number of planes with the d of hkl in the crystal class of highest symmetry of a LatticeType, 0
// for other types.
int Multiplicity(std::int16_t lattice_type, const Hkl& hkl);

// Factor of all lengths of the crystal's cell at a pressure: marches down from 1.05, then bisects.
// Throws Fault(BadArgument) as Simulate.
double LengthFactorAt(const CrystalRec& crystal, double pressure_gpa, double temperature_c);

}  // namespace dorvane
