#include "lattice/LtcCon.h"

#include <gtest/gtest.h>

#include "lattice/CalLattice.h"
#include "lattice/CellGeometry.h"
#include "lattice/LatticeFixture.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

// 32-bit least squares on exact d values, against 64 bits.
constexpr double kLengthTolerance = 2e-5;
constexpr double kAngleTolerance = 2e-4;

constexpr char kTooFew[] = "計算するための回折線の数が少なすぎます。";
constexpr char kSingular[] = "最小二乗が計算できません";

// The least squares on lines that are put into the line table by hand.
class LatticeLsqTest : public testing::Test, public LatticeFixture {
 protected:
  void AddFitLine(int h, int k, int l, double d, double angle = 10) {
    LineRec& line = state->Lines[workspace->Peaks[kDataNo].Count++];
    line.H = static_cast<std::int16_t>(h);
    line.K = static_cast<std::int16_t>(k);
    line.L = static_cast<std::int16_t>(l);
    line.DObs = d;
    line.Angle = angle;
    line.Matched = -1;
  }

  std::int16_t Fit(std::int16_t lattice_type) {
    state->Match.CurData = kDataNo;
    LoadFitLines(*state, *workspace, lattice_type);
    return LatticeLsq(state->Fit, result, dialogs);
  }

  // Exact d values of all hkl with indices of -1..2 whose first non-zero one is positive.
  void AddExactLines(const Cell6& cell) {
    for (int h = 0; h <= 2; ++h) {
      for (int k = h == 0 ? 0 : -1; k <= 2; ++k) {
        for (int l = h == 0 && k == 0 ? 1 : -1; l <= 2; ++l) {
          AddFitLine(h, k, l, PlaneDistance(cell, h, k, l));
        }
      }
    }
  }

  void ExpectCellComesBack(std::int16_t lattice_type, const Cell6& cell) {
    AddExactLines(cell);
    ASSERT_EQ(Fit(lattice_type), kLsqDone);
    for (int k = 1; k <= 6; ++k) {
      EXPECT_NEAR(result.Direct[k], cell[static_cast<std::size_t>(k - 1)],
                  k <= 3 ? kLengthTolerance : kAngleTolerance)
          << k;
    }
    EXPECT_NEAR(result.Direct[7], VolumeOf(cell), 1e-5 * VolumeOf(cell));
    EXPECT_LT(result.DirectErr[1], 1e-5);
  }

  LatticeResult result;
};

TEST_F(LatticeLsqTest, RefinesCubicFromItsDValues) {
  ExpectCellComesBack(kCubic, {5.6402, 5.6402, 5.6402, 90, 90, 90});
}
TEST_F(LatticeLsqTest, RefinesTetragonalFromItsDValues) {
  ExpectCellComesBack(kTetragonal, {4.594, 4.594, 2.959, 90, 90, 90});
}
TEST_F(LatticeLsqTest, RefinesHexagonalFromItsDValues) {
  ExpectCellComesBack(kHexagonal, {4.7587, 4.7587, 12.9929, 90, 90, 120});
}
TEST_F(LatticeLsqTest, RefinesOrthorhombicFromItsDValues) {
  ExpectCellComesBack(kOrthorhombic, {4.7535, 10.1943, 5.9807, 90, 90, 90});
}
TEST_F(LatticeLsqTest, RefinesMonoclinicFromItsDValues) {
  ExpectCellComesBack(kMonoclinic, {5.1505, 5.2116, 5.3173, 90, 99.23, 90});
}
TEST_F(LatticeLsqTest, RefinesTriclinicFromItsDValues) {
  ExpectCellComesBack(kTriclinic, {7.1262, 7.8520, 5.5724, 89.99, 101.11, 106.03});
}

// 64-bit least squares of the same five lines, an independent computation.
TEST_F(LatticeLsqTest, CubicErrorsAreThoseOfTheResiduals) {
  AddFitLine(1, 1, 1, 2.3391);
  AddFitLine(2, 0, 0, 2.0243);
  AddFitLine(2, 2, 0, 1.4326);
  AddFitLine(3, 1, 1, 1.2207);
  AddFitLine(2, 2, 2, 1.1695);
  ASSERT_EQ(Fit(kCubic), kLsqDone);
  EXPECT_NEAR(result.Recip[1], 0.0609547436, 1e-8);
  EXPECT_NEAR(result.RecipErr[1], 2.21907e-5, 1e-9);
  EXPECT_NEAR(result.Direct[1], 4.05038443, 1e-6);
  EXPECT_NEAR(result.DirectErr[1], 7.372754e-4, 1e-7);
  EXPECT_NEAR(result.Direct[7], 66.4490439, 5e-5);
  EXPECT_NEAR(result.DirectErr[7], 0.03628637, 5e-6);
}

class CorundumTest : public LatticeLsqTest {
 protected:
  CorundumTest() {
    AddFitLine(0, 1, 2, 3.4801);
    AddFitLine(1, 0, 4, 2.5507);
    AddFitLine(1, 1, 0, 2.3796);
    AddFitLine(1, 1, 3, 2.0854);
    AddFitLine(0, 2, 4, 1.7402);
    AddFitLine(1, 1, 6, 1.6013);
  }
};

// 64-bit least squares of the same six lines, an independent computation.
TEST_F(CorundumTest, ErrorsAreThoseOfTheResiduals) {
  ASSERT_EQ(Fit(kHexagonal), kLsqDone);
  EXPECT_NEAR(result.Recip[1], 0.0588621139, 1e-8);
  EXPECT_NEAR(result.Recip[2], 0.00592723995, 1e-9);
  EXPECT_NEAR(result.RecipErr[1], 5.28055e-6, 2e-8);
  EXPECT_NEAR(result.RecipErr[2], 9.64606e-7, 4e-9);
  EXPECT_NEAR(result.Direct[1], 4.75939161, 2e-6);
  EXPECT_NEAR(result.DirectErr[1], 2.134837e-4, 1e-6);
  EXPECT_NEAR(result.Direct[3], 12.98894104, 5e-6);
  EXPECT_NEAR(result.DirectErr[3], 1.0569176e-3, 4e-6);
  EXPECT_NEAR(result.Direct[7], 254.804597, 2e-4);
  EXPECT_NEAR(result.DirectErr[7], 0.03086098, 1e-4);
}

TEST_F(CorundumTest, EveryLineGetsItsDAndDeviation) {
  ASSERT_EQ(Fit(kHexagonal), kLsqDone);
  EXPECT_NEAR(state->Fit.FitDCalc[1], 3.48005441, 2e-6);
  EXPECT_NEAR(state->Fit.FitDev[1], 1.31e-5, 3e-7);
  EXPECT_NEAR(state->Fit.FitDCalc[6], 1.60134933, 1e-6);
  EXPECT_NEAR(state->Fit.FitDev[6], -3.08e-5, 3e-7);
}

TEST_F(CorundumTest, HexagonalSharesOneParameterAmongThreeSlots) {
  ASSERT_EQ(Fit(kHexagonal), kLsqDone);
  const ParamSlots& map = state->Fit.ParamMap;
  EXPECT_EQ(map[1], 1);
  EXPECT_EQ(map[2], -1);
  EXPECT_EQ(map[3], 2);
  EXPECT_EQ(map[6], -1);
  EXPECT_EQ(state->Fit.ParamCount, 2);
}

TEST_F(CorundumTest, ErrorsPastTheLastParameterAreZero) {
  result.RecipErr.fill(5);
  ASSERT_EQ(Fit(kHexagonal), kLsqDone);
  EXPECT_EQ(result.RecipErr[3], 0);
}

TEST_F(LatticeLsqTest, OneCubicLineRunsWithoutErrors) {
  AddFitLine(1, 1, 1, 4.0 / std::sqrt(3.0));
  ASSERT_EQ(Fit(kCubic), kLsqDone);
  EXPECT_NEAR(result.Direct[1], 4, 1e-6);
  EXPECT_EQ(result.RecipErr, CellVector{});
  EXPECT_EQ(result.DirectErr, CellVector{});
}

TEST_F(LatticeLsqTest, AsManyLinesAsParametersRuns) {
  AddFitLine(1, 0, 0, 4);
  AddFitLine(0, 1, 0, 5);
  AddFitLine(0, 0, 1, 6);
  ASSERT_EQ(Fit(kOrthorhombic), kLsqDone);
  EXPECT_NEAR(result.Direct[2], 5, 2e-6);
}

TEST_F(LatticeLsqTest, FewerLinesThanParametersSayToo) {
  AddFitLine(1, 0, 0, 4);
  AddFitLine(0, 1, 0, 5);
  result.Direct[1] = 7;
  dialogs.ExpectMessage(kTooFew);
  EXPECT_EQ(Fit(kOrthorhombic), kLsqTooFewLines);
  EXPECT_EQ(result.Direct[1], 7);
}

TEST_F(LatticeLsqTest, NoLinesAreTooFew) {
  dialogs.ExpectMessage(kTooFew);
  EXPECT_EQ(Fit(kCubic), kLsqTooFewLines);
}

TEST_F(LatticeLsqTest, HexagonalLinesWithoutLAreSingular) {
  AddFitLine(1, 0, 0, 4);
  AddFitLine(1, 1, 0, 2.3);
  dialogs.ExpectMessage(kSingular);
  EXPECT_EQ(Fit(kHexagonal), kLsqSingular);
  EXPECT_EQ(state->Fit.Status, 1);
  EXPECT_EQ(state->Fit.RowCount, 0);
  EXPECT_EQ(result, LatticeResult{});
}

// The pivot of l^2 is the fourth power of d: 0.00015 at 0.11, 0.00004 at 0.08.
TEST_F(LatticeLsqTest, PivotsUpToATenThousandthAreSingular) {
  AddFitLine(1, 0, 0, 4);
  AddFitLine(0, 0, 1, 0.11);
  EXPECT_EQ(Fit(kTetragonal), kLsqDone);
  state->Lines[1].DObs = 0.08;
  dialogs.ExpectMessage(kSingular);
  EXPECT_EQ(Fit(kTetragonal), kLsqSingular);
}

// 1/d^2 of (0 0 1) from these two would have to be negative.
TEST_F(LatticeLsqTest, CoefficientsThatAreNoMetricHaveNoMessage) {
  AddFitLine(1, 0, 0, 2);
  AddFitLine(1, 0, 1, 3);
  EXPECT_EQ(Fit(kTetragonal), kLsqNoCell);
  EXPECT_EQ(result, LatticeResult{});
}

TEST_F(LatticeLsqTest, ALineWithoutAnAngleIsLeftOutAndStillListed) {
  AddFitLine(1, 0, 0, 4);
  AddFitLine(2, 0, 0, 2.02, 0);
  ASSERT_EQ(Fit(kCubic), kLsqDone);
  EXPECT_NEAR(result.Direct[1], 4, 1e-6);
  EXPECT_EQ(state->Fit.FitFlag[2], 2);
  EXPECT_EQ(state->Fit.FitWeight[2], 0);
  EXPECT_EQ(state->Fit.RowCount, 1);
  EXPECT_NEAR(state->Fit.FitDCalc[2], 2, 1e-6);
  EXPECT_NEAR(state->Fit.FitDev[2], 0.01, 1e-6);
}

TEST_F(LatticeLsqTest, AWeightOfZeroOrLessBecomesOne) {
  AddFitLine(1, 0, 0, 4);
  AddFitLine(1, 1, 0, 2.83);
  state->Match.CurData = kDataNo;
  LoadFitLines(*state, *workspace, kCubic);
  state->Fit.FitWeight[1] = 0;
  state->Fit.FitWeight[2] = -3;
  ASSERT_EQ(LatticeLsq(state->Fit, result, dialogs), kLsqDone);
  EXPECT_EQ(state->Fit.FitWeight[1], 1);
  EXPECT_EQ(state->Fit.FitWeight[2], 1);
}

TEST_F(LatticeLsqTest, ALineWithoutADValueIsMeantToHaveNoDeviation) {
  AddFitLine(1, 0, 0, 4);
  AddFitLine(2, 0, 0, 0, 0);
  ASSERT_EQ(Fit(kCubic), kLsqDone);
  EXPECT_EQ(state->Fit.FitDev[2], 0);
}

TEST_F(LatticeLsqTest, NinetyNineLinesRun) {
  for (int i = 0; i < 99; ++i) AddFitLine(1, 0, 0, 4);
  EXPECT_EQ(Fit(kCubic), kLsqDone);
  EXPECT_EQ(state->Fit.LineCount, 99);
}

TEST_F(LatticeLsqTest, TheHundredthLineIsMeantToFault) {
  for (int i = 0; i < 100; ++i) AddFitLine(1, 0, 0, 4);
  try {
    Fit(kCubic);
    FAIL() << "no fault";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.Code(), FaultCode::Subscript);
  }
  EXPECT_EQ(result, LatticeResult{});
}

TEST_F(LatticeLsqTest, ALineOfZerosEndsTheList) {
  AddFitLine(1, 0, 0, 4);
  AddFitLine(0, 0, 0, 1);
  AddFitLine(1, 0, 0, 5);
  ASSERT_EQ(Fit(kCubic), kLsqDone);
  EXPECT_EQ(state->Fit.LineCount, 1);
}

TEST_F(LatticeLsqTest, OnlyMatchedLinesThatAreNotExcludedAreLoaded) {
  for (int i = 1; i <= 3; ++i) AddFitLine(i, 0, 0, 4.0 / i);
  state->Lines[0].Matched = 0;
  state->Lines[1].Unused = -1;
  ASSERT_EQ(Fit(kCubic), kLsqDone);
  EXPECT_EQ(state->Fit.LineCount, 1);
  EXPECT_EQ(state->Fit.FitHkl[1][1], 3);
}

TEST_F(LatticeLsqTest, LinesPastThePeakCountAreNotLoaded) {
  AddFitLine(1, 0, 0, 4);
  AddFitLine(2, 0, 0, 3);
  workspace->Peaks[kDataNo].Count = 1;
  ASSERT_EQ(Fit(kCubic), kLsqDone);
  EXPECT_EQ(state->Fit.LineCount, 1);
}

// The whole pass, on peaks of the spectrum.
class RefineLatticeTest : public testing::Test, public LatticeFixture {
 protected:
  RefineLatticeTest() {
    CrystalRec& crystal = AddCrystal("Au", kTriclinic);
    for (const auto& [h, k, l] : kLines) AddLine(crystal, h, k, l);
    input.data_no = kDataNo;
    input.lattice_type = kCubic;
    input.seed[0] = 4.0786;
  }

  void AddPeaks(double a) {
    for (const auto& [h, k, l] : kLines) AddPeak(a / std::sqrt(h * h + k * k + l * l));
  }
  std::int16_t Refine() { return RefineLattice(*state, *workspace, input, result, dialogs); }
  void Exclude(int i) { state->Lines[i].Unused = -1; }

  static constexpr int kLines[5][3] = {{1, 1, 1}, {2, 0, 0}, {2, 2, 0}, {3, 1, 1}, {2, 2, 2}};
  RefineInput input;
  LatticeResult result;
};

TEST_F(RefineLatticeTest, FindsTheCellOfItsPeaks) {
  AddPeaks(4.07);
  ASSERT_EQ(Refine(), 0);
  EXPECT_NEAR(result.Direct[1], 4.07, 2e-6);
  EXPECT_EQ(state->Match.LineCountUsed, 5);
  EXPECT_EQ(state->Match.CurName, "Au");
}

TEST_F(RefineLatticeTest, TheCrystalTakesTheChosenSystemAndSeeds) {
  AddPeaks(4.0786);
  ASSERT_EQ(Refine(), 0);
  EXPECT_EQ(state->Library.CrystalTable[0].LatticeType, kCubic);
  EXPECT_NEAR(state->Library.CrystalTable[0].DCalc[1], 2.0393, 1e-6);
}

TEST_F(RefineLatticeTest, TheSameInputGivesTheSameResult) {
  AddPeaks(4.07);
  ASSERT_EQ(Refine(), 0);
  const LatticeResult first = result;
  ASSERT_EQ(Refine(), 0);
  EXPECT_EQ(result, first);
}

TEST_F(RefineLatticeTest, TwoPeaksOnOneLineBothEnterTheFit) {
  AddPeaks(4.0786);
  AddPeak(2.0393 + 0.01);
  ASSERT_EQ(Refine(), 0);
  EXPECT_EQ(state->Fit.RowCount, 6);
}

TEST_F(RefineLatticeTest, AnExcludedLineStaysOutOfTheFit) {
  AddPeaks(4.07);
  ASSERT_EQ(Refine(), 0);
  Exclude(2);
  ASSERT_EQ(Refine(), 0);
  EXPECT_EQ(state->Fit.RowCount, 4);
}

TEST_F(RefineLatticeTest, ACarriedChoiceKeepsAnExclusion) {
  AddPeaks(4.07);
  ASSERT_EQ(Refine(), 0);
  Exclude(2);
  ASSERT_EQ(Refine(), 0);
  state->UseCarry = kTrue;
  ASSERT_EQ(Refine(), 0);
  EXPECT_EQ(state->Lines[2].Unused, -1);
  EXPECT_EQ(state->Lines[1].Unused, 0);
  EXPECT_EQ(state->Fit.RowCount, 4);
  EXPECT_EQ(state->UseCarry, 0);
}

TEST_F(RefineLatticeTest, ACarriedChoiceTakesALineBackThatWasInTheLastFit) {
  AddPeaks(4.07);
  ASSERT_EQ(Refine(), 0);
  Exclude(2);
  state->UseCarry = kTrue;
  ASSERT_EQ(Refine(), 0);
  EXPECT_EQ(state->Lines[2].Unused, 0);
  EXPECT_EQ(state->Fit.RowCount, 5);
}

TEST_F(RefineLatticeTest, ACarriedChoiceLeavesOutALineThatHasMoved) {
  AddPeaks(4.07);
  ASSERT_EQ(Refine(), 0);
  workspace->Peaks[kDataNo].Peaks[3].Center += 0.5;
  state->UseCarry = kTrue;
  ASSERT_EQ(Refine(), 0);
  EXPECT_EQ(state->Lines[3].Unused, -1);
  EXPECT_EQ(state->Fit.RowCount, 4);
}

TEST_F(RefineLatticeTest, AFreeChoiceClearsTheCarriedLines) {
  AddPeaks(4.07);
  ASSERT_EQ(Refine(), 0);
  Exclude(0);
  ASSERT_EQ(Refine(), 0);
  EXPECT_EQ(state->Carried[0].H, 2);
  EXPECT_EQ(state->Carried[3].Ch, ChannelAt(4.07 / std::sqrt(12.0)));
  EXPECT_EQ(state->Carried[4], CarriedLine{});
}

TEST_F(RefineLatticeTest, ASpectrumWithoutPeaksHasTooFewLines) {
  dialogs.ExpectMessage(kTooFew);
  EXPECT_EQ(Refine(), -1);
}

TEST_F(RefineLatticeTest, ExcludingAllLinesLeavesTooFew) {
  AddPeaks(4.07);
  ASSERT_EQ(Refine(), 0);
  const LatticeResult before = result;
  for (int i = 0; i < 5; ++i) Exclude(i);
  dialogs.ExpectMessage(kTooFew);
  EXPECT_EQ(Refine(), -1);
  EXPECT_EQ(result, before);
}

TEST_F(RefineLatticeTest, NoLineOfAnEarlierSampleEntersTheFit) {
  AddPeaks(4.07);
  ASSERT_EQ(Refine(), 0);
  AddLine(AddCrystal("Other", kCubic), 1, 0, 0);
  input.crystal_index = 1;
  input.seed[0] = 2.035;
  ASSERT_EQ(Refine(), 0);
  EXPECT_EQ(state->Fit.LineCount, 1);
}

TEST_F(RefineLatticeTest, EveryKindOfFailureAnswersMinusOne) {
  AddPeaks(4.07);
  input.lattice_type = kHexagonal;  // only lines with l = 0 match
  input.seed[2] = 1000;
  dialogs.ExpectMessage(kTooFew);
  EXPECT_EQ(Refine(), -1);
  input.lattice_type = kTetragonal;
  input.seed[2] = 0;  // no d-spacing can be calculated
  EXPECT_EQ(Refine(), -1);
}

TEST_F(RefineLatticeTest, AHundredLinesFaultWithASubscript) {
  for (int i = 0; i < 20; ++i) AddPeaks(4.07);
  EXPECT_THROW(Refine(), Fault);
  workspace->Peaks[kDataNo].Count = 99;
  EXPECT_EQ(Refine(), 0);
}

TEST_F(RefineLatticeTest, ACrystalOutsideTheTableFaults) {
  input.crystal_index = 31;
  EXPECT_THROW(Refine(), Fault);
}

}  // namespace
}  // namespace dorvane
