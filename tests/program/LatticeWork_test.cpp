#include "program/LatticeWork.h"

#include <gmock/gmock.h>

#include <cmath>

#include "lattice/CalLattice.h"
#include "processing/Units.h"
#include "program/ProgramFixture.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// A cubic crystal of 4.2112 angstrom with two lines, worked on at E = 0.02 keV * number and 6
// degrees.
class LatticeWorkTest : public ProgramTest {
 protected:
  LatticeWorkTest() {
    data_no = Show(std::vector<std::int32_t>(4000, 5));
    workspace.UseFileEgc = 1;
    MeasProp& prop = workspace.Spectra[data_no].Prop;
    prop.EGC[1] = 0.02;
    prop.TwoTheta = 6;
    workspace.DefaultProp.TwoTheta = 5.5;
    CrystalRec& crystal = state->Library.CrystalTable[0];
    AddLine(crystal, 1, 1, 1);
    AddLine(crystal, 2, 0, 0);
    work = BeginLatticeWork(program, view.GraphNo);
    work.ElementIndex = 0;
    work.LatticeIndex = kCubic;
    work.Seed[0] = 4.2112;
    listener.notices.clear();
  }
  static void AddLine(CrystalRec& crystal, std::int16_t h, std::int16_t k, std::int16_t l) {
    const int n = crystal.LineCount++;
    crystal.H[n] = h;
    crystal.K[n] = k;
    crystal.L[n] = l;
  }
  std::vector<LineMark> Marks() const { return CrystalMarks(*state, workspace, work); }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const LineMark& mark : Marks()) texts.push_back(mark.text);
    return texts;
  }

  std::int16_t data_no = 0;
  std::unique_ptr<LatticeState> state = std::make_unique<LatticeState>();
  LatticeWork work;
};

// ---- the angle

TEST_F(LatticeWorkTest, WorkBeginsWithTheAngleThatCalibrates) {
  EXPECT_EQ(work.TwoTheta, 6);
  workspace.UseFileEgc = 0;
  EXPECT_EQ(BeginLatticeWork(program, view.GraphNo).TwoTheta, 5.5);
}

TEST_F(LatticeWorkTest, NewAngleCountsWhicheverCalibrates) {
  SetWorkTwoTheta(program, work, 6.2);
  EXPECT_EQ(work.TwoTheta, 6.2);
  for (const std::int16_t own : {0, 1}) {
    workspace.UseFileEgc = own;
    EXPECT_EQ(CalibrationOf(workspace, data_no).TwoTheta, 6.2);
  }
  EXPECT_GE(listener.Count("calibration"), 1);
}

TEST_F(LatticeWorkTest, BothAnglesComeBackEachAsItWas) {
  SetWorkTwoTheta(program, work, 6.2);
  SetWorkTwoTheta(program, work, 6.3);
  GiveBackTwoTheta(program, work);
  EXPECT_EQ(workspace.Spectra[data_no].Prop.TwoTheta, 6);
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 5.5);
}

// asin(sin(3 degrees) * 4.21 / 4.2112), by an independent computation.
TEST_F(LatticeWorkTest, ExpectedTwoThetaIsThetaAsMeant) {
  EXPECT_NEAR(ExpectedTwoTheta(6, 4.21, 4.2112), 2.9991443550, 1e-9);
}

TEST_F(LatticeWorkTest, ExpectedTwoThetaFailsWhereThereIsNoAngle) {
  EXPECT_THROW(ExpectedTwoTheta(6, 4.21, 0), Fault);
  EXPECT_THROW(ExpectedTwoTheta(180, 1, 1), Fault);  // the sine is 1
  EXPECT_THROW(ExpectedTwoTheta(60, 3, 1), Fault);   // the sine would be 1.5
}

// ---- the lines

TEST_F(LatticeWorkTest, MatchedLinesAreCountedFromOneInTheOrderOfThePeaks) {
  state->Lines[1].Matched = kTrue;
  state->Lines[4].Matched = kTrue;
  state->Lines[4].Unused = kTrue;
  EXPECT_EQ(MatchedLine(state->Lines, 1), &state->Lines[1]);
  EXPECT_EQ(MatchedLine(state->Lines, 2), &state->Lines[4]);
  for (const int r : {0, -1, 3}) EXPECT_EQ(MatchedLine(state->Lines, r), nullptr) << r;
}

// ---- marks

// 12.3981 / (2 d sin(3 degrees)) keV, by hand.
TEST_F(LatticeWorkTest, LinesStandAtTheirEnergies) {
  ASSERT_THAT(Marks(), SizeIs(2));
  EXPECT_NEAR(Marks()[0].energy_kev, 48.71691, 1e-5);
  EXPECT_FALSE(Marks()[0].channel);
}

TEST_F(LatticeWorkTest, LinesAreNamedByTheirIndices) {
  CrystalRec& crystal = state->Library.CrystalTable[0];
  AddLine(crystal, 10, 1, 0);
  AddLine(crystal, -1, 1, 2);
  EXPECT_THAT(Texts(), ElementsAre("111", "200", "10 1 0", "-1 1 2"));
}

TEST_F(LatticeWorkTest, NothingIsMarkedWithoutASampleASystemACellOrAnAngle) {
  const LatticeWork whole = work;
  work.ElementIndex = -1;
  EXPECT_THAT(Marks(), IsEmpty());
  work = whole;
  work.LatticeIndex = -1;
  EXPECT_THAT(Marks(), IsEmpty());
  work = whole;
  work.LatticeIndex = kTriclinic;
  work.Seed = {};
  EXPECT_THAT(Marks(), IsEmpty());
  work = whole;
  for (const double two_theta_deg : {0.0, -6.0}) {
    workspace.Spectra[data_no].Prop.TwoTheta = two_theta_deg;
    EXPECT_THAT(Marks(), IsEmpty()) << two_theta_deg;
  }
}

// Each channel has an angle of its own: the one whose d for the wavelength is that of the line.
class DacLatticeWorkTest : public LatticeWorkTest {
 protected:
  DacLatticeWorkTest() {
    workspace.Spectra[data_no].DataType = kDacData;
    workspace.Dac = {0.01, 5};
    workspace.Settings.DacWavelength = 0.49576;
  }
};

// 2 asin(0.49576 / (2 * 4.2112 / sqrt(3))) = 11.703186 degrees by hand, 5 + 0.01 * 670.32. The d of
// a line has the 32 bits of its cell.
TEST_F(DacLatticeWorkTest, LinesStandAtTheirBraggAngles) {
  ASSERT_THAT(Marks(), SizeIs(2));
  EXPECT_NEAR(*Marks()[0].channel, 671.3186, 1e-3);
  for (const LineMark& mark : Marks()) {
    const double d = 4.2112 / std::sqrt(mark.text == "111" ? 3 : 4);
    EXPECT_NEAR(ChTo2Theta(*mark.channel, workspace.Dac, 0.49576).d, d, 1e-6);
  }
}

TEST_F(DacLatticeWorkTest, EnergyCalibrationDoesNotMoveThem) {
  const auto before = Marks();
  workspace.Spectra[data_no].Prop.EGC = {};
  workspace.Spectra[data_no].Prop.TwoTheta = 0;
  EXPECT_EQ(Marks(), before);
}

TEST_F(DacLatticeWorkTest, LineShorterThanHalfTheWavelengthHasNoAngle) {
  workspace.Settings.DacWavelength = 4.5;  // 2 d(200) = 4.2112, 2 d(111) = 4.8627
  EXPECT_THAT(Texts(), ElementsAre("111"));
}

TEST_F(DacLatticeWorkTest, NothingIsMarkedWithoutAWavelengthOrAStepOfTheAngle) {
  workspace.Settings.DacWavelength = 0;
  EXPECT_THAT(Marks(), IsEmpty());
  workspace.Settings.DacWavelength = 0.49576;
  workspace.Dac.DacAngleSlope = 0;
  EXPECT_THAT(Marks(), IsEmpty());
}

}  // namespace
}  // namespace dorvane
