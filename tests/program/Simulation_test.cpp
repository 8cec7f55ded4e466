#include "program/Simulation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "lattice/CalLattice.h"
#include "lattice/CrystalFile.h"
#include "support/Fault.h"
#include "support/FileLayer.h"

namespace dorvane {
namespace {

const CrystalRec& Crystal(const std::string& name) {
  static const CrystalLibrary library = [] {
    SystemFileLayer files;
    return ReadCrystalFile(files, DORVANE_SOURCE_DIR "/data/crystal.dat");
  }();
  return library.CrystalTable[FindCrystal(library, name)];
}

SimulationRequest RequestFor(const std::string& name) {
  SimulationRequest request;
  request.crystal = Crystal(name);
  request.strongest_counts = 1e5;
  return request;
}

const SimulatedLine& LineOf(const SimulatedSpectrum& spectrum, const Hkl& hkl) {
  for (const SimulatedLine& line : spectrum.lines) {
    if (line.diffraction && line.hkl == hkl) return line;
  }
  throw Fault(FaultCode::BadArgument, "no such line");
}

SimulationRequest WithoutBackground(SimulationRequest request) {
  request.background.exponential_share = 0;
  request.background.hump_share = 0;
  return request;
}

TEST(Simulation, EqualSeedsGiveEqualCounts) {
  const SimulationRequest request = RequestFor("NACL");
  EXPECT_EQ(Simulate(request).block, Simulate(request).block);
}

TEST(Simulation, OtherSeedsGiveOtherCounts) {
  SimulationRequest request = RequestFor("NACL");
  const SimulatedSpectrum first = Simulate(request);
  request.seed = 2;
  EXPECT_NE(Simulate(request).block, first.block);
}

TEST(Simulation, SumOfTheCountsIsTheExpectedOne) {
  const SimulatedSpectrum spectrum = Simulate(RequestFor("Al2O3"));
  const auto counts = spectrum.block.Used();
  const double sum = std::accumulate(counts.begin(), counts.end(), 0.0);
  const double expected = std::accumulate(spectrum.expected.begin(), spectrum.expected.end(), 0.0);
  EXPECT_NEAR(sum, expected, 5 * std::sqrt(expected));
}

// d = 5.431 / sqrt 3 = 3.135589, E = 12.3981 / (2 d sin 3 degrees) = 37.775115 keV, channel number
// (E - 0.02) / 0.065.
TEST(Simulation, LineLiesOneBelowItsChannelNumber) {
  const SimulatedLine line = LineOf(Simulate(RequestFor("Si")), {1, 1, 1});
  EXPECT_NEAR(line.d, 3.135589, 1e-6);
  EXPECT_NEAR(line.energy_kev, 37.775115, 2e-5);
  EXPECT_NEAR(line.index, 579.84793, 3e-4);
}

TEST(Simulation, ExpectedCountsHaveAreaAndCentreOfTheirLine) {
  const SimulatedSpectrum spectrum = Simulate(WithoutBackground(RequestFor("Si")));
  const SimulatedLine line = LineOf(spectrum, {1, 1, 1});
  double area = 0, moment = 0;
  for (int i = 550; i < 610; ++i) {
    area += spectrum.expected[static_cast<std::size_t>(i)];
    moment += i * spectrum.expected[static_cast<std::size_t>(i)];
  }
  EXPECT_NEAR(area, line.area, 1e-6 * area);
  EXPECT_NEAR(moment / area, line.index, 1e-6);
  EXPECT_NEAR(spectrum.expected[580], line.height, 0.01 * line.height);
}

TEST(Simulation, StrongestLineHasTheCountsAskedFor) {
  const SimulatedSpectrum spectrum = Simulate(RequestFor("MgO"));
  double largest = 0;
  for (const SimulatedLine& line : spectrum.lines) largest = std::max(largest, line.area);
  EXPECT_DOUBLE_EQ(largest, 1e5);
  EXPECT_DOUBLE_EQ(spectrum.record.Prop.LiveTime, 100);  // at 1000 counts a second
}

TEST(Simulation, CountingTimeDecidesWithoutCounts) {
  SimulationRequest request = RequestFor("MgO");
  request.strongest_counts.reset();
  request.counting_time = 5;
  request.rate = 300;
  const SimulatedSpectrum spectrum = Simulate(request);
  double largest = 0;
  for (const SimulatedLine& line : spectrum.lines) largest = std::max(largest, line.area);
  EXPECT_DOUBLE_EQ(largest, 1500);
}

// 0.25^2 + 8 ln2 * 0.106 * 2.96 eV * 100 keV, its root by a pocket calculator.
TEST(Simulation, WidthIsThatOfAGermaniumDetector) {
  SimulationRequest request = RequestFor("Si");
  request.fluorescence = {{"line", 100, 0.5}};
  EXPECT_NEAR(Simulate(request).lines.back().fwhm_kev, 0.4862977, 1e-6);
}

TEST(Simulation, FluorescenceHasItsShareOfTheStrongestHeight) {
  SimulationRequest request = RequestFor("Si");
  request.fluorescence = {{"line", 70, 0.25}};
  const SimulatedSpectrum spectrum = Simulate(request);
  double strongest = 0;
  for (const SimulatedLine& line : spectrum.lines) {
    if (line.diffraction) strongest = std::max(strongest, line.height);
  }
  EXPECT_FALSE(spectrum.lines.back().diffraction);
  EXPECT_NEAR(spectrum.lines.back().height / strongest, 0.25, 1e-9);
}

TEST(Simulation, CalibrationIsTheOneThatTheFileShows) {
  SimulationRequest request = RequestFor("Si");
  request.egc[1] = 0.0647732123;
  request.two_theta_deg = 6.51163;
  const MeasProp prop = Simulate(request).record.Prop;
  EXPECT_DOUBLE_EQ(prop.EGC[1], 0.0647732);
  EXPECT_DOUBLE_EQ(prop.TwoTheta, 6.5116);
}

// Numbers of planes of a form: International Tables for Crystallography, volume A, point groups.
TEST(Simulation, MultiplicitiesAreThoseOfTheHolohedry) {
  struct Row {
    std::int16_t lattice_type;
    Hkl hkl;
    int planes;
  };
  for (const Row& row : {Row{kCubic, {2, 0, 0}, 6},
                         Row{kCubic, {1, 1, 1}, 8},
                         Row{kCubic, {2, 2, 0}, 12},
                         Row{kCubic, {3, 1, 1}, 24},
                         Row{kCubic, {2, 1, 0}, 24},
                         Row{kCubic, {3, 2, 1}, 48},
                         Row{kTetragonal, {0, 0, 1}, 2},
                         Row{kTetragonal, {1, 0, 0}, 4},
                         Row{kTetragonal, {1, 1, 0}, 4},
                         Row{kTetragonal, {1, 0, 1}, 8},
                         Row{kTetragonal, {2, 1, 1}, 16},
                         Row{kHexagonal, {0, 0, 2}, 2},
                         Row{kHexagonal, {1, 0, 0}, 6},
                         Row{kHexagonal, {1, 1, 0}, 6},
                         Row{kHexagonal, {1, 0, 1}, 12},
                         Row{kHexagonal, {2, 1, 0}, 12},
                         Row{kHexagonal, {2, 1, 3}, 24},
                         Row{kOrthorhombic, {1, 0, 0}, 2},
                         Row{kOrthorhombic, {1, 1, 0}, 4},
                         Row{kOrthorhombic, {1, 1, 1}, 8},
                         Row{kMonoclinic, {0, 1, 0}, 2},
                         Row{kMonoclinic, {1, 0, 1}, 2},
                         Row{kMonoclinic, {1, 1, 1}, 4},
                         Row{kTriclinic, {1, 2, 3}, 2},
                         Row{6, {1, 0, 0}, 0}}) {
    EXPECT_EQ(Multiplicity(row.lattice_type, row.hkl), row.planes)
        << row.lattice_type << ": " << row.hkl.h << row.hkl.k << row.hkl.l;
  }
}

// The salt scale gives 3.2355 GPa at V/V0 = 0.9 and 9.1279 GPa at 0.8, both at 298 K.
TEST(Simulation, PressureInvertsTheScale) {
  EXPECT_NEAR(std::pow(LengthFactorAt(Crystal("NACL"), 3.2355, 24.85), 3), 0.9, 1e-5);
  EXPECT_NEAR(std::pow(LengthFactorAt(Crystal("NACL"), 9.1279, 24.85), 3), 0.8, 1e-5);
}

TEST(Simulation, TruthTellsThePressureAskedFor) {
  for (const char* name : {"NACL", "Au", "Pt", "MgO", "hBN", "PT_B", "PT_H"}) {
    SimulationRequest request = RequestFor(name);
    request.pressure = 5;
    const SimulatedSpectrum spectrum = Simulate(request);
    ASSERT_TRUE(spectrum.pressure) << name;
    EXPECT_NEAR(*spectrum.pressure, 5, 1e-6) << name;
    EXPECT_LT(spectrum.volume_ratio, 1) << name;
  }
}

TEST(Simulation, PressureBeyondTheScaleIsRefused) {
  SimulationRequest request = RequestFor("Pt");
  request.pressure = 500;
  EXPECT_THROW(Simulate(request), Fault);
  request.pressure = -50;
  EXPECT_THROW(Simulate(request), Fault);
}

TEST(Simulation, PressureOfACrystalWithoutScaleIsRefused) {
  SimulationRequest request = RequestFor("Si");
  request.pressure = 5;
  EXPECT_THROW(Simulate(request), Fault);
}

TEST(Simulation, VolumeRatioScalesAllLengthsAlike) {
  SimulationRequest request = RequestFor("Al2O3");
  request.volume_ratio = 0.729;
  const SimulatedSpectrum spectrum = Simulate(request);
  EXPECT_NEAR(spectrum.cell[0], 4.7587 * 0.9, 1e-9);
  EXPECT_NEAR(spectrum.cell[2], 12.9929 * 0.9, 1e-9);
  EXPECT_NEAR(spectrum.volume_ratio, 0.729, 1e-6);
}

TEST(Simulation, CellIsTakenAsGiven) {
  SimulationRequest request = RequestFor("Si");
  request.cell = SeedOf(request.crystal);
  (*request.cell)[0] = 5.5;
  EXPECT_NEAR(LineOf(Simulate(request), {1, 1, 1}).d, 3.175426, 1e-6);  // 5.5 / sqrt 3
}

TEST(Simulation, SpectrumIsReadyForItsFile) {
  SimulationRequest request = RequestFor("Si");
  request.name = "sim";
  const SimulatedSpectrum spectrum = Simulate(request);
  EXPECT_EQ(spectrum.record.SampName.Text(), "Si");
  EXPECT_EQ(spectrum.record.MsuName.Text(), "sim");
  EXPECT_EQ(spectrum.block.Count, 2048);
}

TEST(Simulation, ValuesOutOfRangeAreRefused) {
  using Break = void (*)(SimulationRequest&);
  for (const Break broken : {Break([](SimulationRequest& r) { r.channels = 63; }),
                             Break([](SimulationRequest& r) { r.channels = 8193; }),
                             Break([](SimulationRequest& r) { r.two_theta_deg = 0; }),
                             Break([](SimulationRequest& r) { r.two_theta_deg = 180; }),
                             Break([](SimulationRequest& r) { r.egc[1] = 0; }),
                             Break([](SimulationRequest& r) { r.rate = 0; }),
                             Break([](SimulationRequest& r) { r.strongest_counts = -1; }),
                             Break([](SimulationRequest& r) { r.volume_ratio = 0; }),
                             Break([](SimulationRequest& r) { r.volume_ratio = r.pressure = 1; }),
                             Break([](SimulationRequest& r) { r.background.hump_width_kev = 0; }),
                             Break([](SimulationRequest& r) { r.beam.peak_kev = 0; }),
                             Break([](SimulationRequest& r) { r.width.slope_kev = -1; }),
                             Break([](SimulationRequest& r) {
                               r.fluorescence = {{"x", 50, -1}};
                             }),
                             Break([](SimulationRequest& r) { r.egc[0] = 500; }),
                             Break([](SimulationRequest& r) { r.strongest_counts = 1e15; })}) {
    SimulationRequest request = RequestFor("NACL");
    broken(request);
    EXPECT_THROW(Simulate(request), Fault);
  }
}

TEST(Simulation, LineOutsideTheChannelsIsLeftOut) {
  SimulationRequest request = RequestFor("Si");
  request.fluorescence = {{"far", 900, 0.2}};
  for (const SimulatedLine& line : Simulate(request).lines) EXPECT_TRUE(line.diffraction);
}

SimulationRequest Reference() {
  SimulationRequest request;
  request.fluorescence = {{"weak", 30, 0.1}, {"strong", 60, 0.4}};
  request.strongest_counts = 1e5;
  return request;
}

TEST(Simulation, WithoutACrystalTheLineOfTheGreatestShareHasTheCounts) {
  const SimulatedSpectrum spectrum = Simulate(Reference());
  ASSERT_EQ(spectrum.lines.size(), 2u);
  EXPECT_NEAR(spectrum.lines[1].area, 1e5, 1e-6);
  EXPECT_NEAR(spectrum.lines[0].height / spectrum.lines[1].height, 0.25, 1e-9);
  EXPECT_EQ(spectrum.record.SampName.Text(), "");
  EXPECT_FALSE(spectrum.pressure);
}

TEST(Simulation, WithoutACrystalThereHasToBeALineWithinTheChannels) {
  SimulationRequest request = Reference();
  request.fluorescence = {{"far", 900, 0.2}};
  EXPECT_THROW(Simulate(request), Fault);
  request.fluorescence.clear();
  EXPECT_THROW(Simulate(request), Fault);
}

}  // namespace
}  // namespace dorvane
