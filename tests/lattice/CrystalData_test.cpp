#include "lattice/CrystalData.h"

#include <gtest/gtest.h>

#include "lattice/LatticeFixture.h"

namespace dorvane {
namespace {

SeedCell Seed() {
  SeedCell seed;
  for (int i = 0; i < 6; ++i) seed[i] = i + 1;
  return seed;
}

class MatchPeaksTest : public testing::Test, public LatticeFixture {
 protected:
  MatchPeaksTest() { AddCrystal("X", 0); }

  CrystalRec& Crystal() { return state->Library.CrystalTable[0]; }
  LineRec& Line(int i) { return state->Lines[i]; }
  void Match(int data_no = kDataNo) { MatchPeaks(*state, *workspace, data_no, 0, Seed()); }
};

TEST_F(MatchPeaksTest, APeakTakesTheLineInItsRange) {
  AddLine(Crystal(), 1, 1, 1, 3.0);
  AddLine(Crystal(), 2, -1, 3, 2.01);
  AddPeak(2.0);
  Match();
  EXPECT_EQ(Line(0).Matched, -1);
  EXPECT_EQ(Line(0).H, 2);
  EXPECT_EQ(Line(0).K, -1);
  EXPECT_EQ(Line(0).L, 3);
  EXPECT_EQ(Line(0).DCalc, 2.01);
  EXPECT_NEAR(Line(0).DObs, 2.0, 1e-12);
  EXPECT_EQ(state->Match.LineCountUsed, 1);
}

TEST_F(MatchPeaksTest, APeakKeepsChannelEnergyAndCopperTheta) {
  AddLine(Crystal(), 1, 1, 1, 2.0);
  AddPeak(2.0);
  Match();
  EXPECT_DOUBLE_EQ(Line(0).Ch, ChannelAt(2.0));
  // 12.3981 / (2 * 2 * sin 3 deg) and asin(1.5418 / 4), worked out by hand.
  EXPECT_NEAR(Line(0).Energy, 59.223624, 1e-5);
  EXPECT_NEAR(Line(0).Angle, 22.671680, 1e-5);
}

TEST_F(MatchPeaksTest, TheStateTellsWhatWasMatched) {
  Match();
  EXPECT_EQ(state->Match.CurData, kDataNo);
  EXPECT_EQ(state->Match.CurName, "X");
  EXPECT_EQ(state->Match.CurLat[2], 3);
  EXPECT_EQ(state->Match.CurAng[0], 4);
}

TEST_F(MatchPeaksTest, TheRangeExcludesBothItsEnds) {
  AddPeak(2.0);
  Match();
  workspace->Settings.JudgeRange = 0.25;  // exact in binary, as are the two sums
  MeasProp& prop = workspace->Spectra[kDataNo].Prop;
  const double d =
      12.3981 / (2 * (prop.EGC[1] * (ChannelAt(2.0) + 1)) * std::sin(3 * 3.14159265358979 / 180));
  AddLine(Crystal(), 1, 0, 0, d + 0.25);
  AddLine(Crystal(), 2, 0, 0, d - 0.25);
  Match();
  EXPECT_EQ(Line(0).Matched, 0);
  Crystal().DCalc[1] = std::nextafter(d - 0.25, 10.0);
  Match();
  EXPECT_EQ(Line(0).H, 2);
}

TEST_F(MatchPeaksTest, TheFirstLineInRangeIsMeantToWinOverANearerOne) {
  AddLine(Crystal(), 1, 0, 0, 2.02);
  AddLine(Crystal(), 2, 0, 0, 2.0);
  AddPeak(2.0);
  Match();
  EXPECT_EQ(Line(0).H, 1);
}

TEST_F(MatchPeaksTest, TwoPeaksMayTakeTheSameLine) {
  AddLine(Crystal(), 1, 0, 0, 2.0);
  AddPeak(2.01);
  AddPeak(1.99);
  Match();
  EXPECT_EQ(Line(0).H, 1);
  EXPECT_EQ(Line(1).H, 1);
  EXPECT_EQ(state->Match.LineCountUsed, 2);
}

TEST_F(MatchPeaksTest, APeakWithoutALineLosesOnlyItsMark) {
  AddLine(Crystal(), 1, 0, 0, 2.0);
  AddPeak(2.0);
  Match();
  const LineRec matched = Line(0);
  Crystal().DCalc[0] = 3.0;
  Match();
  LineRec expected = matched;
  expected.Matched = 0;
  EXPECT_EQ(Line(0), expected);
  EXPECT_EQ(state->Match.LineCountUsed, 0);
}

TEST_F(MatchPeaksTest, AnExcludedPeakKeepsItsEntry) {
  AddLine(Crystal(), 1, 0, 0, 2.0);
  AddPeak(2.0);
  Match();
  Line(0).Unused = -1;
  const LineRec before = Line(0);
  Crystal().DCalc[0] = 3.0;
  Match();
  EXPECT_EQ(Line(0), before);
}

TEST_F(MatchPeaksTest, ACrystalWithoutLinesMatchesNothing) {
  AddPeak(2.0);
  Match();
  EXPECT_EQ(Line(0).Matched, 0);
}

TEST_F(MatchPeaksTest, ASpectrumWithoutAnAngleMatchesOnlyLinesBelowTheRange) {
  workspace->Spectra[kDataNo].Prop.TwoTheta = 0;
  AddLine(Crystal(), 1, 0, 0, 2.0);
  AddPeak(2.0);
  Match();
  EXPECT_EQ(Line(0).Matched, 0);
  AddLine(Crystal(), 9, 9, 9, 0.029);
  Match();
  EXPECT_EQ(Line(0).H, 9);
  EXPECT_EQ(Line(0).Angle, 0);
}

TEST_F(MatchPeaksTest, LinesBelowTheReachOfCopperGetAngleZero) {
  AddLine(Crystal(), 1, 0, 0, 0.78);
  AddLine(Crystal(), 2, 0, 0, 0.72);
  AddPeak(0.78);
  AddPeak(0.72);
  Match();
  EXPECT_GT(Line(0).Angle, 80);
  EXPECT_EQ(Line(1).Matched, -1);
  EXPECT_EQ(Line(1).Angle, 0);
}

TEST_F(MatchPeaksTest, AnAngleDispersivePeakTakesItsTwoTheta) {
  workspace->Spectra[kDataNo].DataType = kDacData;
  workspace->Dac = {0.01, 5.0};
  AddLine(Crystal(), 1, 0, 0, 2.0);
  AddPeak(2.0);
  Match();
  EXPECT_NEAR(Line(0).Angle, 5.0 + 0.01 * ChannelAt(2.0), 1e-9);
}

TEST_F(MatchPeaksTest, TheDefaultCalibrationCountsWhenItIsSelected) {
  AddLine(Crystal(), 1, 0, 0, 4.0);
  AddPeak(2.0);
  workspace->UseFileEgc = 0;
  workspace->DefaultProp.EGC[1] = 0.01;  // half the energy, twice the d
  workspace->DefaultProp.TwoTheta = 6;
  Match();
  EXPECT_NEAR(Line(0).DObs, 4.0, 1e-12);
}

TEST_F(MatchPeaksTest, ASpectrumOutsideTheListChangesNothing) {
  AddPeak(2.0);
  Match(-1);
  Match(10);
  EXPECT_EQ(state->Match, MatchState{});
}

TEST_F(MatchPeaksTest, AHundredPeaksAreMatched) {
  AddLine(Crystal(), 1, 0, 0, 2.0);
  for (int i = 0; i < 100; ++i) AddPeak(2.0);
  Match();
  EXPECT_EQ(state->Match.LineCountUsed, 100);
}

class ClearCrystalDataTest : public testing::Test, public LatticeFixture {
 protected:
  ClearCrystalDataTest() {
    AddLine(AddCrystal("X", 0), 1, 2, 3, 2.0);
    state->Match.CurName = "X";
    state->Match.CurLat[0] = 4;
    state->Match.CurAng[2] = 90;
    state->Lines[7].Matched = -1;
  }
};

TEST_F(ClearCrystalDataTest, ScopeZeroClearsMatchesAndLines) {
  ClearCrystalData(*state, 0);
  EXPECT_EQ(state->Match, MatchState{});
  EXPECT_EQ(state->Lines[7], LineRec{});
  EXPECT_EQ(state->Library.CrystalTable[0].DCalc[0], 0);
}

TEST_F(ClearCrystalDataTest, ScopeOneClearsOnlyTheSeedCopy) {
  ClearCrystalData(*state, 1);
  EXPECT_EQ(state->Match.CurLat[0], 0);
  EXPECT_EQ(state->Match.CurAng[2], 0);
  EXPECT_EQ(state->Match.CurName, "X");
  EXPECT_EQ(state->Lines[7].Matched, -1);
  EXPECT_EQ(state->Library.CrystalTable[0].DCalc[0], 0);
}

TEST_F(ClearCrystalDataTest, IndicesAndCountsStay) {
  ClearCrystalData(*state, 0);
  EXPECT_EQ(state->Library.CrystalTable[0].K[0], 2);
  EXPECT_EQ(state->Library.CrystalTable[0].LineCount, 1);
}

TEST(CrystalNames, ElevenCrystalsShowTenNames) {
  CrystalLibrary library;
  for (int i = 0; i < 11; ++i)
    library.CrystalTable[i].Name = std::string(1, static_cast<char>('a' + i));
  const auto names = CrystalNames(library);
  ASSERT_EQ(names.size(), 10u);
  EXPECT_EQ(names[9], "j");
  EXPECT_EQ(library.CrystalTable[10].Name, "k");
}

TEST(CrystalNames, TheListStopsAtABlankName) {
  CrystalLibrary library;
  library.CrystalTable[0].Name = "a";
  library.CrystalTable[1].Name = "  ";
  library.CrystalTable[2].Name = "b";
  EXPECT_EQ(CrystalNames(library), std::vector<std::string>{"a"});
}

}  // namespace
}  // namespace dorvane
