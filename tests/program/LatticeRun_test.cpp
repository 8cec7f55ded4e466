#include "program/LatticeRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lattice/CalLattice.h"
#include "lattice/LatticeFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LatticeRunTest : public testing::Test, protected LatticeFixture {
 protected:
  // A cubic crystal with the first five lines of a face-centred lattice.
  CrystalRec& AddCubic(const std::string& name, double a) {
    CrystalRec& crystal = AddCrystal(name, kCubic);
    for (int j = 0; j < 3; ++j) {
      crystal.Lat[j] = a;
      crystal.Ang[j] = 90;
    }
    AddLine(crystal, 1, 1, 1);
    AddLine(crystal, 2, 0, 0);
    AddLine(crystal, 2, 2, 0);
    AddLine(crystal, 3, 1, 1);
    AddLine(crystal, 4, 0, 0);
    return crystal;
  }

  // d of 111, 200, 220, 311 and 400 of a face-centred cell with that edge.
  void AddCubicPeaks(double a) {
    for (const int squares : {3, 4, 8, 11, 16}) AddPeak(a / std::sqrt(squares));
  }

  LatticeReport Run() { return RunLattice(*state, *workspace, kDataNo, request, dialogs); }

  std::vector<bool> Used(const LatticeReport& report) const {
    std::vector<bool> used;
    for (const LatticeLine& line : report.lines) used.push_back(line.used);
    return used;
  }

  LatticeRequest request;
};

TEST_F(LatticeRunTest, FindsTheCellOfItsPeaks) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  const LatticeReport report = Run();
  ASSERT_TRUE(report.cell);
  EXPECT_NEAR(report.cell->Direct[1], 4.2, 2e-6);
  ASSERT_EQ(report.lines.size(), 5u);
  EXPECT_EQ(report.lines[1].hkl, (Hkl{2, 0, 0}));
  EXPECT_NEAR(report.lines[1].d_obs, 2.1, 1e-9);
  EXPECT_NEAR(report.lines[1].d_cal, 2.1, 1e-6);
  EXPECT_NEAR(report.lines[1].d_seed, 2.1056, 1e-6);
}

TEST_F(LatticeRunTest, SampleTakesV0FromTheLibraryWhateverTheSeeds) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  request.seed = SeedCell{};
  (*request.seed)[0] = 4.205;
  const LatticeReport report = Run();
  EXPECT_NEAR(report.V0, 74.6823, 1e-3);             // 4.2112 cubed, by hand
  EXPECT_NEAR(report.ratio->value, 0.992043, 2e-6);  // (4.2 / 4.2112) cubed
}

TEST_F(LatticeRunTest, MarkerTakesV0FromTheSeeds) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  request.mode = LatticeMode::Marker;
  request.seed = SeedCell{};
  (*request.seed)[0] = 4.205;
  const LatticeReport report = Run();
  EXPECT_NEAR(report.V0, 74.352915, 1e-5);           // 4.205 cubed, by hand
  EXPECT_NEAR(report.ratio->value, 0.996437, 2e-6);  // (4.2 / 4.205) cubed
}

TEST_F(LatticeRunTest, MarkerGetsThePressureOfItsScale) {
  AddCubic("NACL", 5.6402);
  AddCubicPeaks(5.6402 * std::cbrt(0.9));
  workspace->Settings.JudgeRange = 0.11;
  request.mode = LatticeMode::Marker;
  request.use_lines = {{2, 2, 0}, {3, 1, 1}};
  request.temperature = "298";
  request.temperature_unit = 1;
  const LatticeReport report = Run();
  ASSERT_TRUE(report.pressure);
  EXPECT_NEAR(report.pressure->P, 3.2355, 2e-3);  // the scale's published value at V/V0 = 0.9
}

TEST_F(LatticeRunTest, NameDecidesAboutThePressure) {
  AddCubic("NaCl", 4.2112);
  AddCubicPeaks(4.2);
  request.mode = LatticeMode::Marker;
  const LatticeReport report = Run();
  EXPECT_TRUE(report.ratio);
  EXPECT_FALSE(report.pressure);
}

TEST_F(LatticeRunTest, SampleHasNoPressure) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  EXPECT_FALSE(Run().pressure);
}

TEST_F(LatticeRunTest, UseLinesExcludeAllOthers) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  request.use_lines = {{2, 0, 0}, {2, 2, 0}};
  EXPECT_THAT(Used(Run()), ElementsAre(false, true, true, false, false));
}

TEST_F(LatticeRunTest, ExcludeLinesTakeOutThoseAlone) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  request.exclude_lines = {{1, 1, 1}};
  EXPECT_THAT(Used(Run()), ElementsAre(false, true, true, true, true));
}

TEST_F(LatticeRunTest, ExcludedLineStillGetsItsCalculatedD) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  request.exclude_lines = {{1, 1, 1}};
  const LatticeReport report = Run();
  EXPECT_TRUE(report.lines[0].excluded);
  EXPECT_NEAR(report.lines[0].d_cal, 2.424871, 2e-6);  // 4.2 / sqrt 3
}

TEST_F(LatticeRunTest, LineOutsideTheJudgmentRangeIsNotIndexed) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  AddPeak(1.9);
  EXPECT_EQ(Run().lines.size(), 5u);
}

TEST_F(LatticeRunTest, OutlierLeavesTheFit) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  AddPeak(4.2 / std::sqrt(8) + 0.02);
  request.reject_beyond = 0.002;
  const LatticeReport report = Run();
  EXPECT_THAT(report.rejected, ElementsAre(5));
  EXPECT_NEAR(report.cell->Direct[1], 4.2, 2e-6);
}

TEST_F(LatticeRunTest, OutlierStaysUnlessAsked) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  AddPeak(4.2 / std::sqrt(8) + 0.02);
  const LatticeReport report = Run();
  EXPECT_THAT(report.rejected, IsEmpty());
  EXPECT_GT(report.cell->Direct[1], 4.205);
}

TEST_F(LatticeRunTest, TwoLinesForAParameterAlwaysStay) {
  AddCubic("MgO", 4.2112);
  AddPeak(4.2 / std::sqrt(3));
  AddPeak(4.24 / std::sqrt(4));
  request.reject_beyond = 0.0001;
  EXPECT_THAT(Run().rejected, IsEmpty());
}

TEST_F(LatticeRunTest, LinesWithoutAnAngleAreListedAndNotUsed) {
  CrystalRec& crystal = AddCubic("MgO", 4.2112);
  AddLine(crystal, 6, 0, 0);
  AddCubicPeaks(4.2);
  AddPeak(0.7);
  const LatticeReport report = Run();
  ASSERT_EQ(report.lines.size(), 6u);
  EXPECT_FALSE(report.lines[5].used);
  EXPECT_FALSE(report.lines[5].excluded);
}

TEST_F(LatticeRunTest, NothingIndexedLeavesNoCellAndAMessage) {
  AddCubic("MgO", 4.2112);
  AddPeak(3.0);
  dialogs.ExpectMessage("計算するための回折線の数が少なすぎます。");
  const LatticeReport report = Run();
  EXPECT_FALSE(report.cell);
  EXPECT_FALSE(report.ratio);
  EXPECT_EQ(report.crystal, "MgO");
}

// Lines of no system are calculated at d = 0: a range that is wider than d reaches them.
TEST_F(LatticeRunTest, SystemThatIsNoneIsToldWhereLinesWereFound) {
  AddCubic("Odd", 4.2112).LatticeType = -1;
  AddPeak(2);
  workspace->Settings.JudgeRange = 3;
  dialogs.ExpectMessage("Lattice Type Error");
  EXPECT_FALSE(Run().ratio);
}

TEST_F(LatticeRunTest, TemperatureThatIsNoNumberStopsSamplesToo) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  request.temperature = "warm";
  dialogs.ExpectMessage("Temp Error");
  EXPECT_FALSE(Run().cell);
}

TEST_F(LatticeRunTest, CrystalOutsideTheLibraryEndsInAMessage) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  request.crystal_index = 31;
  dialogs.ExpectMessage("Subscript out of range");
  EXPECT_FALSE(Run().cell);
}

TEST_F(LatticeRunTest, SecondRunGivesTheSame) {
  AddCubic("MgO", 4.2112);
  AddCubicPeaks(4.2);
  request.use_lines = {{2, 0, 0}};
  Run();
  request.use_lines.clear();
  EXPECT_THAT(Used(Run()), ElementsAre(true, true, true, true, true));
}

TEST_F(LatticeRunTest, CrystalsAreFoundByTheirWholeName) {
  AddCubic("NACL", 5.6402);
  AddCubic("Au", 4.0786);
  EXPECT_EQ(FindCrystal(state->Library, "Au"), 1);
  EXPECT_EQ(FindCrystal(state->Library, "au"), -1);
  EXPECT_EQ(FindCrystal(state->Library, ""), -1);
}

}  // namespace
}  // namespace dorvane
