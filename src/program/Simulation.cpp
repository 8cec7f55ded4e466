#include "program/Simulation.h"

#include <algorithm>
#include <cmath>

#include "lattice/CalLattice.h"
#include "lattice/Pressure.h"
#include "processing/Units.h"
#include "support/NumberText.h"
#include "support/RandomCounts.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kFewestChannels = 64;
constexpr double kHc = 12.3981;  // keV angstrom, as the unit conversions have it
constexpr double kHexagonalFactor = 0.866025;
constexpr double kLongestFactor = 1.05;  // where the search for a pressure starts
constexpr double kShortestFactor = 0.70;
constexpr double kFactorStep = 0.002;
constexpr int kBisections = 60;
constexpr double kSigmasOfLine = 8;  // a line ends so far from its centre

void Require(bool condition, const char* what) {
  if (!condition) throw Fault(FaultCode::BadArgument, what);
}

bool IsPositive(double value) {
  return value > 0 && std::isfinite(value);
}

// What is written to a file with few digits is what the spectrum is made with.
double AsPrinted(double value, std::string_view picture) {
  return NumberOf(Picture(value, picture));
}

double VolumeOf(const CrystalRec& crystal, double factor) {
  const double a = crystal.Lat[0] * factor;
  const double c = crystal.Lat[2] * factor;
  return crystal.LatticeType == kCubic ? a * a * a : a * a * c * kHexagonalFactor;
}

double PressureAt(const CrystalRec& crystal, double factor, double temperature_c) {
  PressInput input;
  input.Material = MaterialOf(crystal.Name);
  input.Vals[kValA] = crystal.Lat[0] * factor;
  input.Vals[kValC] = crystal.Lat[2] * factor;
  input.Vals[kValVolume] = VolumeOf(crystal, factor);
  input.V0 = VolumeOf(crystal, 1);
  input.Vals[kValRatio] = input.Vals[kValVolume] / input.V0;
  input.C = input.Vals[kValC];
  input.TempText = PlainNumber(temperature_c);
  return CalcPressure(input)->P;
}

bool HasScale(const CrystalRec& crystal) {
  const bool known = crystal.LatticeType == kCubic || crystal.LatticeType == kHexagonal;
  return known && FindScale(MaterialOf(crystal.Name)) != nullptr;
}

using Operation = Hkl (*)(const Hkl&);

Hkl Invert(const Hkl& p) {
  return {ToInt16(-p.h), ToInt16(-p.k), ToInt16(-p.l)};
}
Hkl FlipH(const Hkl& p) {
  return {ToInt16(-p.h), p.k, p.l};
}
Hkl FlipK(const Hkl& p) {
  return {p.h, ToInt16(-p.k), p.l};
}
Hkl FlipL(const Hkl& p) {
  return {p.h, p.k, ToInt16(-p.l)};
}
Hkl SwapHK(const Hkl& p) {
  return {p.k, p.h, p.l};
}
Hkl Rotate(const Hkl& p) {
  return {p.l, p.h, p.k};
}
// A sixth of a turn about c, on hexagonal axes.
Hkl Turn6(const Hkl& p) {
  return {ToInt16(p.h + p.k), ToInt16(-p.h), p.l};
}

// Generators of the classes m-3m, 4/mmm, 6/mmm, mmm, 2/m and -1.
std::vector<Operation> GeneratorsOf(std::int16_t lattice_type) {
  switch (lattice_type) {
    case kCubic:
      return {FlipH, SwapHK, Rotate};
    case kTetragonal:
      return {FlipH, FlipL, SwapHK};
    case kHexagonal:
      return {Turn6, SwapHK, FlipL};
    case kOrthorhombic:
      return {FlipH, FlipK, FlipL};
    case kMonoclinic:
      return {FlipK, Invert};
    case kTriclinic:
      return {Invert};
    default:
      return {};
  }
}

SeedCell Scaled(const CrystalRec& crystal, double factor) {
  SeedCell cell = SeedOf(crystal);
  for (int j = 0; j < 3; ++j) cell[j] *= factor;
  return cell;
}

double CellVolume(const SeedCell& cell, std::int16_t lattice_type) {
  const auto at = [&](int j) { return static_cast<float>(cell[j]); };
  return CalcVolume(at(0), at(1), at(2), at(3), at(4), at(5), lattice_type);
}

bool HasCrystal(const SimulationRequest& request) {
  return !request.crystal.Name.empty() || request.crystal.LineCount > 0;
}

void SettleCell(const SimulationRequest& request, SimulatedSpectrum& spectrum) {
  const CrystalRec& crystal = request.crystal;
  const int given =
      request.pressure.has_value() + request.volume_ratio.has_value() + request.cell.has_value();
  Require(given <= 1, "pressure, V/V0 and cell exclude each other");
  double factor = 1;
  if (request.pressure) factor = LengthFactorAt(crystal, *request.pressure, request.temperature);
  if (request.volume_ratio) {
    Require(IsPositive(*request.volume_ratio), "V/V0");
    factor = std::cbrt(*request.volume_ratio);
  }
  spectrum.cell = request.cell.value_or(Scaled(crystal, factor));
  spectrum.volume_ratio = Divide(CellVolume(spectrum.cell, crystal.LatticeType),
                                 CellVolume(SeedOf(crystal), crystal.LatticeType));
  if (!request.cell && HasScale(crystal))
    spectrum.pressure = PressureAt(crystal, factor, request.temperature);
}

void FillRecord(const SimulationRequest& request, double seconds, SimulatedSpectrum& spectrum) {
  SpectrumRec& record = spectrum.record;
  record.MsuName.Set(request.name);
  record.SampName.Set(request.crystal.Name);
  record.OpName.Set("simulated");
  record.OpDate.Set("20000101");
  record.OpTime.Set("000000");
  record.DataType = kNpdData;
  record.Prop.PropHead = 1;  // "Live"
  for (int j = 0; j < 3; ++j) record.Prop.EGC[j] = AsPrinted(request.egc[j], "0.00000E+000");
  record.Prop.TwoTheta = AsPrinted(request.two_theta_deg, "#0.0000");
  record.Prop.Temp = request.temperature;
  record.Prop.LiveTime = seconds;
  record.Prop.RealTime = seconds;
}

double BeamAt(const BeamShape& beam, double energy_kev) {
  const double u = energy_kev / beam.peak_kev;
  return u * u * std::exp(2 * (1 - u));
}

// Places a line of an energy; false where its centre is outside of the channels.
bool PlaceLine(const SimulationRequest& request, const MeasProp& prop, double energy_kev,
               SimulatedLine& line) {
  line.energy_kev = energy_kev;
  line.index = EnergyToCh(energy_kev, prop.EGC) - 1;
  if (!(line.index > 0 && line.index < request.channels - 1)) return false;
  line.fwhm_kev = std::sqrt(request.width.constant_kev2 + request.width.slope_kev * energy_kev);
  const double kev_per_channel = prop.EGC[1] + 2 * prop.EGC[2] * (line.index + 1);
  line.fwhm_channels = Divide(line.fwhm_kev, kev_per_channel);
  return line.fwhm_channels > 0;
}

double SigmaOf(const SimulatedLine& line) {
  return line.fwhm_channels / (2 * std::sqrt(2 * std::log(2.0)));
}

// Share of a line's area that falls into the channel whose index is `channel`.
double ShareInChannel(const SimulatedLine& line, double channel) {
  const double scale = 1 / (SigmaOf(line) * std::sqrt(2.0));
  const double from = (channel - 0.5 - line.index) * scale;
  const double to = (channel + 0.5 - line.index) * scale;
  return 0.5 * (std::erf(to) - std::erf(from));
}

void AddDiffraction(const SimulationRequest& request, SimulatedSpectrum& spectrum) {
  const CrystalRec& crystal = request.crystal;
  const MeasProp& prop = spectrum.record.Prop;
  const SeedCell& cell = spectrum.cell;
  const auto at = [&](int j) { return static_cast<float>(cell[j]); };
  const double sine = std::sin(DegToRad(prop.TwoTheta / 2));
  for (int i = 0; i < crystal.LineCount; ++i) {
    SimulatedLine line;
    line.hkl = {crystal.H[i], crystal.K[i], crystal.L[i]};
    line.name = std::to_string(line.hkl.h) + " " + std::to_string(line.hkl.k) + " " +
                std::to_string(line.hkl.l);
    line.d = CalcDSpacing(crystal.LatticeType, line.hkl.h, line.hkl.k, line.hkl.l, at(0), at(1),
                          at(2), at(3), at(4), at(5));
    if (!PlaceLine(request, prop, Divide(kHc, 2 * line.d * sine), line)) continue;
    line.multiplicity = Multiplicity(crystal.LatticeType, line.hkl);
    line.area = line.multiplicity * line.d * line.d * BeamAt(request.beam, line.energy_kev);
    spectrum.lines.push_back(line);
  }
  Require(!spectrum.lines.empty(), "no line of the crystal falls into the channels");
}

// Without a crystal: the height to which the shares refer, with the counts in the line of the
// greatest share.
double HeightOfShares(const SimulationRequest& request, const MeasProp& prop, double counts) {
  SimulatedLine greatest;
  double share = 0;
  for (const FluorescenceLine& wanted : request.fluorescence) {
    SimulatedLine line;
    if (wanted.share <= share || !PlaceLine(request, prop, wanted.energy_kev, line)) continue;
    greatest = line;
    share = wanted.share;
  }
  Require(share > 0, "no line falls into the channels");
  return counts * ShareInChannel(greatest, greatest.index) / share;
}

// Brings the areas to counts; the height of the strongest line, to which the shares refer.
double ScaleAreas(double strongest_counts, std::vector<SimulatedLine>& lines) {
  const auto strongest = std::max_element(
      lines.begin(), lines.end(),
      [](const SimulatedLine& a, const SimulatedLine& b) { return a.area < b.area; });
  const double factor = Divide(strongest_counts, strongest->area);
  for (SimulatedLine& line : lines) {
    line.area *= factor;
    line.height = line.area * ShareInChannel(line, line.index);
  }
  return strongest->height;
}

void AddFluorescence(const SimulationRequest& request, double reference_height,
                     SimulatedSpectrum& spectrum) {
  for (const FluorescenceLine& wanted : request.fluorescence) {
    Require(wanted.share >= 0 && std::isfinite(wanted.share), "share of a fluorescence line");
    SimulatedLine line;
    line.name = wanted.name;
    line.diffraction = false;
    if (!PlaceLine(request, spectrum.record.Prop, wanted.energy_kev, line)) continue;
    line.height = wanted.share * reference_height;
    line.area = line.height / ShareInChannel(line, line.index);
    spectrum.lines.push_back(line);
  }
}

void AddBackground(const SimulationRequest& request, double reference_height,
                   SimulatedSpectrum& spectrum) {
  const BackgroundShape& shape = request.background;
  for (int i = 0; i < request.channels; ++i) {
    const double energy = ChToEnergy(i + 1, spectrum.record.Prop.EGC);
    if (energy <= 0) continue;
    const double hump = (energy - shape.hump_kev) / shape.hump_width_kev;
    spectrum.expected[static_cast<std::size_t>(i)] +=
        reference_height * (shape.exponential_share * std::exp(-energy / shape.exponential_kev) +
                            shape.hump_share * std::exp(-0.5 * hump * hump));
  }
}

void AddLines(int channels, SimulatedSpectrum& spectrum) {
  for (const SimulatedLine& line : spectrum.lines) {
    const double reach = kSigmasOfLine * SigmaOf(line);
    const int first = std::max(0, static_cast<int>(std::floor(line.index - reach)));
    const int last = std::min(channels - 1, static_cast<int>(std::ceil(line.index + reach)));
    for (int i = first; i <= last; ++i) {
      spectrum.expected[static_cast<std::size_t>(i)] += line.area * ShareInChannel(line, i);
    }
  }
}

void CheckRequest(const SimulationRequest& request) {
  Require(request.channels >= kFewestChannels && request.channels <= kMaxChannels,
          "number of channels: 64 to 8192");
  Require(request.two_theta_deg > 0 && request.two_theta_deg < 180,
          "2-theta: above 0 and below 180 degrees");
  Require(IsPositive(request.egc[1]), "EGC: the second coefficient has to be positive");
  Require(IsPositive(request.rate) && IsPositive(request.counting_time),
          "rate and counting time: above 0");
  Require(IsPositive(request.strongest_counts.value_or(1)),
          "counts of the strongest line: above 0");
  Require(request.width.constant_kev2 >= 0 && request.width.slope_kev >= 0,
          "width of the detector: not below 0");
  const BackgroundShape& shape = request.background;
  Require(shape.exponential_share >= 0 && shape.hump_share >= 0,
          "shares of the background: not below 0");
  Require(IsPositive(shape.exponential_kev) && IsPositive(shape.hump_width_kev),
          "extents of the background: above 0");
  Require(IsPositive(request.beam.peak_kev), "peak of the beam: above 0");
}

}  // namespace

EgcCoef SimulationRequest::DefaultEgc() {
  EgcCoef egc;
  egc[0] = 0.02;
  egc[1] = 0.065;
  return egc;
}

int Multiplicity(std::int16_t lattice_type, const Hkl& hkl) {
  const std::vector<Operation> generators = GeneratorsOf(lattice_type);
  if (generators.empty()) return 0;
  std::vector<Hkl> planes{hkl};
  for (std::size_t i = 0; i < planes.size(); ++i) {
    for (const Operation operation : generators) {
      const Hkl image = operation(planes[i]);
      if (std::find(planes.begin(), planes.end(), image) == planes.end()) planes.push_back(image);
    }
  }
  return static_cast<int>(planes.size());
}

double LengthFactorAt(const CrystalRec& crystal, double pressure_gpa, double temperature_c) {
  if (!HasScale(crystal))
    throw Fault(FaultCode::BadArgument, "no pressure scale for " + crystal.Name);
  const auto pressure_at = [&](double factor) {
    return PressureAt(crystal, factor, temperature_c);
  };
  double low_pressure = kLongestFactor;  // the factor of the lower pressure
  double previous = pressure_at(low_pressure);
  Require(previous <= pressure_gpa, "pressure: too low for the scale");
  double factor = low_pressure - kFactorStep;
  for (;; factor -= kFactorStep) {
    Require(factor >= kShortestFactor, "pressure: too high for the scale");
    const double pressure = pressure_at(factor);
    if (pressure >= pressure_gpa && pressure > previous) break;
    previous = pressure;
    low_pressure = factor;
  }
  double high_pressure = factor;
  for (int i = 0; i < kBisections; ++i) {
    const double middle = (low_pressure + high_pressure) / 2;
    (pressure_at(middle) < pressure_gpa ? low_pressure : high_pressure) = middle;
  }
  return (low_pressure + high_pressure) / 2;
}

SimulatedSpectrum Simulate(const SimulationRequest& request) {
  CheckRequest(request);
  SimulatedSpectrum spectrum;
  if (HasCrystal(request)) SettleCell(request, spectrum);
  const double counts = request.strongest_counts.value_or(request.counting_time * request.rate);
  FillRecord(request, counts / request.rate, spectrum);
  if (HasCrystal(request)) AddDiffraction(request, spectrum);
  const double reference_height = HasCrystal(request)
                                      ? ScaleAreas(counts, spectrum.lines)
                                      : HeightOfShares(request, spectrum.record.Prop, counts);
  AddFluorescence(request, reference_height, spectrum);

  spectrum.expected.assign(static_cast<std::size_t>(request.channels), 0.0);
  AddBackground(request, reference_height, spectrum);
  AddLines(request.channels, spectrum);
  RandomCounts random(request.seed);
  spectrum.block.Count = ToInt16(request.channels);
  for (int i = 0; i < request.channels; ++i) {
    spectrum.block.Counts[i] = random.Poisson(spectrum.expected[static_cast<std::size_t>(i)]);
  }
  return spectrum;
}

}  // namespace dorvane
