// Borders and failures of the lattice form: library, indexing, refinement, checks.
#include <gmock/gmock.h>

#include "forms/PeakCalFixture.h"
#include "lattice/CalLattice.h"

namespace dorvane {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kTooFewLines = "計算するための回折線の数が少なすぎます。";
constexpr const char* kSingular = "最小二乗が計算できません";
constexpr double kLength = 2e-5;  // angstrom, the rounding of 32-bit floats in the refinement

class PeakCalEdgesTest : public PeakCalTest {
 protected:
  struct Crystal {
    std::string name;
    int type;
    Cell6 cell;
    std::vector<Plane> planes;
  };

  // Each crystal stands on one line: crystal n, from 1, on line 11 + n.
  void PutCrystals(const std::vector<Crystal>& crystals, bool terminated = true) {
    std::string text;
    for (int line = 0; line < 10; ++line) text += "comment\n";
    text += std::to_string(crystals.size()) + "\n";
    for (const Crystal& crystal : crystals) {
      text += "\"" + crystal.name + "\"," + std::to_string(crystal.type);
      for (const double value : crystal.cell) text += "," + PlainNumber(value);
      for (const Plane& p : crystal.planes) {
        text += "," + std::to_string(p.h) + "," + std::to_string(p.k) + "," + std::to_string(p.l);
      }
      text += terminated ? ",0,0,0\n" : "\n";
    }
    folder.Put("crystal.dat", text);
  }
  // A cubic crystal of the edge a.
  static Crystal Cubic(const std::string& name, double a, std::vector<Plane> planes) {
    return {name, kCubic, {a, a, a, 90, 90, 90}, std::move(planes)};
  }
  std::string LibraryPath() const { return folder.Path("crystal.dat"); }
  // The only crystal of the library.
  void ChooseFirst() { form.cmbElement.SetIndex(0); }
  void FitFirst() {
    ChooseFirst();
    Execute();
  }
  void ExpectTooFewLines() { dialogs.ExpectMessage(kTooFewLines); }
};

// ---- library

TEST_F(PeakCalEdgesTest, ElevenCrystalsOfferTenAndKeepTheEleventh) {
  std::vector<Crystal> crystals;
  for (int i = 1; i <= 11; ++i) {
    crystals.push_back(Cubic("Crystal " + std::to_string(i), i, {{1, 0, 0}}));
  }
  PutCrystals(crystals);
  Work([&] {
    ASSERT_EQ(form.cmbElement.Items().size(), 10u);
    EXPECT_EQ(form.cmbElement.Items().back(), "Crystal 10");
    EXPECT_EQ(form.State().Library.CrystalCount, 11);
    EXPECT_EQ(form.State().Library.CrystalTable[10].Name, "Crystal 11");
    EXPECT_EQ(form.State().Library.CrystalTable[10].Lat[0], 11);
  });
}

TEST_F(PeakCalEdgesTest, ListEndsAtTheFirstBlankName) {
  PutCrystals({Cubic("A", 4, {}), Cubic("  ", 4, {}), Cubic("C", 4, {})});
  Work([&] { EXPECT_THAT(form.cmbElement.Items(), ElementsAre("A")); });
}

// The 31st crystal stands on line 42.
TEST_F(PeakCalEdgesTest, ThirtySecondCrystalIsToldAndLeavesTheListEmpty) {
  PutCrystals(std::vector<Crystal>(32, Cubic("A", 4, {{1, 0, 0}})));
  dialogs.ExpectMessage("Subscript out of range: " + LibraryPath() + ", line 42");
  Work([&] { EXPECT_THAT(form.cmbElement.Items(), IsEmpty()); });
}

TEST_F(PeakCalEdgesTest, ListOf101LinesWithoutAnEndTakesTheNextNameAsANumber) {
  const std::vector<Plane> planes(101, {1, 0, 0});
  PutCrystals({Cubic("A", 4, planes), Cubic("B", 4, planes)}, false);
  dialogs.ExpectMessage("Not a number: " + LibraryPath() + ", line 13");
  Work([&] { EXPECT_THAT(form.cmbElement.Items(), IsEmpty()); });
}

TEST_F(PeakCalEdgesTest, ListOf101LinesWithItsEndIsWhole) {
  PutCrystals({Cubic("A", 4, std::vector<Plane>(101, {1, 0, 0}))});
  Work([&] {
    EXPECT_THAT(form.cmbElement.Items(), ElementsAre("A"));
    EXPECT_EQ(form.State().Library.CrystalTable[0].LineCount, 101);
  });
}

TEST_F(PeakCalEdgesTest, WorkGoesOnWithoutALibrary) {
  files.Remove(LibraryPath());
  dialogs.ExpectMessage("File not found: " + LibraryPath());
  Work([&] {
    form.txtSeedConstant[0].SetText("4");
    dialogs.ExpectMessage("Subscript out of range");
    Execute();
  });
}

// ---- indexing

TEST_F(PeakCalEdgesTest, CrystalWithoutLinesHasTooFew) {
  PutCrystals({Cubic("Bare", 3.615, {})});
  AddLines(kCu);
  Work([&] {
    ExpectTooFewLines();
    FitFirst();
    EXPECT_EQ(form.State().Match.LineCountUsed, 0);
  });
}

// The line lies at exactly 2 angstrom, so that the range can be made to end there to the last bit.
TEST_F(PeakCalEdgesTest, LineAtEitherEndOfTheJudgmentRangeDoesNotMatch) {
  PutCrystals({Cubic("Two", 2, {{1, 0, 0}})});
  for (const double d : {2.02, 1.98}) {
    workspace.Peaks[data_no] = {};
    workspace.Settings.JudgeRange = 0.05;
    AddPeak(d);
    Work([&] {
      FitFirst();
      const double distance = std::fabs(form.State().Lines[0].DObs - 2);
      workspace.Settings.JudgeRange = distance;
      ExpectTooFewLines();
      Execute();
      workspace.Settings.JudgeRange = distance + 1e-9;
      Execute();
      EXPECT_EQ(form.State().Match.LineCountUsed, 1);
    });
  }
}

TEST_F(PeakCalEdgesTest, FirstLineOfTheLibraryWinsOverANearerOneAsMeant) {
  PutCrystals({{"Near", kTetragonal, {2, 2, 2.01, 90, 90, 90}, {{1, 0, 0}, {0, 0, 1}}}});
  workspace.Settings.JudgeRange = 0.03;
  AddPeak(2.01);
  Work([&] {
    ExpectTooFewLines();
    FitFirst();
    EXPECT_EQ(form.State().Lines[0].H, 1);
    EXPECT_EQ(form.State().Lines[0].L, 0);
  });
}

// d = 2 and 2.01 on 100: rows d^2, so 1/a^2 = (4 + 4.0401) / (16 + 4.0401^2); the errors by an
// independent computation in 64 bits.
TEST_F(PeakCalEdgesTest, TwoPeaksOnOneLineBothEnterTheFit) {
  PutCrystals({Cubic("Two", 2, {{1, 0, 0}})});
  workspace.Settings.JudgeRange = 0.03;
  AddPeak(2);
  AddPeak(2.01);
  Work([&] {
    FitFirst();
    EXPECT_EQ(form.State().Match.LineCountUsed, 2);
    const auto near = [](const TextBox& box, double value, double error) {
      const std::string& text = box.Text();
      EXPECT_NEAR(NumberOf(text.substr(0, text.find("+-"))), value, 1e-5);
      EXPECT_NEAR(NumberOf(text.substr(text.find("+-") + 2)), error, 1e-5);
    };
    near(form.txtLatticeLength[0], 2.005031, 0.005000);
    near(form.txtVol, 8.060526, 0.060303);
    near(form.txtVolPerVol0, 1.007566, 0.007538);
  });
}

TEST_F(PeakCalEdgesTest, WorkKeepsWhatItWasIndexedFor) {
  WorkOn(kCorundum, 1.0001, [&] {
    Type(form.txtSeedConstant[2], "12.9935");
    Execute();
    const MatchState& match = form.State().Match;
    EXPECT_EQ(match.CurName, "Al2O3");
    EXPECT_EQ(match.CurLat[0], 4.7587);
    EXPECT_EQ(match.CurLat[2], 12.9935);
    EXPECT_EQ(match.CurAng[2], 120);
    EXPECT_EQ(match.CurData, data_no);
    EXPECT_EQ(match.LineCountUsed, 10);
  });
}

TEST_F(PeakCalEdgesTest, ExcludedPeakKeepsItsEntryUnderAnotherSample) {
  WorkOn(kCu, 1, [&] {
    Execute();
    SetUse(form.sprPeakInf3, 2, false);
    const LineRec excluded = form.State().Lines[1];
    Choose(kMgO);
    ExpectTooFewLines();
    Execute();
    EXPECT_EQ(form.State().Lines[1], excluded);
    EXPECT_EQ(form.State().Lines[0].Matched, kFalse);
  });
}

TEST_F(PeakCalEdgesTest, SpectrumWithoutAnAngleIndexesNothing) {
  workspace.Spectra[data_no].Prop.TwoTheta = 0;
  WorkOn(kCu, 1, [&] {
    ExpectTooFewLines();
    Execute();
    EXPECT_EQ(form.State().Match.LineCountUsed, 0);
  });
}

TEST_F(PeakCalEdgesTest, SpectrumWithoutAnAngleIndexesLinesBelowTheRangeAndFitsNone) {
  workspace.Spectra[data_no].Prop.TwoTheta = 0;
  workspace.Settings.JudgeRange = 4;
  WorkOn(kCu, 1, [&] {
    ExpectTooFewLines();
    Execute();
    EXPECT_EQ(form.State().Match.LineCountUsed, 5);
    EXPECT_EQ(form.State().Lines[0].DObs, 0);
  });
}

// 2-theta = 5 + 0.01 * 2433.628192 degrees, by hand.
TEST_F(PeakCalEdgesTest, LinesOfAnAngleDispersiveSpectrumHaveTheirOwnAngle) {
  workspace.Spectra[data_no].DataType = kDacData;
  workspace.Dac = {0.01, 5.0};
  AddLines(kMgO, 1.0005);
  Work([&] {
    form.optSelectMode.SetIndex(1);
    Fit(kMgO);
    EXPECT_NEAR(form.State().Lines[0].Angle, 29.336282, 1e-6);
    EXPECT_EQ(form.sprPeakInf4.Text(1, 10), "29.33628");
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 1.0005 * 4.2112, kLength);
  });
  EXPECT_THAT(LogText(), HasSubstr("\"PK#\",\"HKL\",\"CH\",\"2Theta\",\"DOBS\""));
  EXPECT_EQ(Logged("\"29.336282\""), 1);
}

// ---- refinement

TEST_F(PeakCalEdgesTest, OneLineOfACubicSampleIsEnough) {
  AddPeak(3.615 / std::sqrt(3));
  Work([&] {
    Fit(kCu);
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 3.615, kLength);
    for (const TextBox* box : {&form.txtLatticeLength[0], &form.txtVol, &form.txtVolPerVol0}) {
      EXPECT_THAT(box->Text(), EndsWith("+-0.000000"));
    }
  });
  EXPECT_EQ(Logged("Caluclate Result"), 1);
}

TEST_F(PeakCalEdgesTest, HexagonalLinesWithoutLAreSingular) {
  AddPeak(PlaneDistance(kCells[kCorundum], 1, 0, 0));
  AddPeak(PlaneDistance(kCells[kCorundum], 1, 1, 0));
  Work([&] {
    dialogs.ExpectMessage(kSingular);
    Fit(kCorundum);
    EXPECT_EQ(form.State().Match.LineCountUsed, 2);
    EXPECT_EQ(form.State().Fit.Status, 1);
    EXPECT_THAT(Texts(form.txtLatticeLength), Each(""));
  });
  EXPECT_EQ(Logged("Caluclate Result"), 0);
}

// 100 at 2 and 201 at 1.003 angstrom give 1/c^2 = 1/1.003^2 - 1 < 0.
TEST_F(PeakCalEdgesTest, LinesOfNoCellFailWithoutAMessage) {
  PutCrystals({{"Flat", kTetragonal, {2, 2, 40, 90, 90, 90}, {{1, 0, 0}, {2, 0, 1}}}});
  workspace.Settings.JudgeRange = 0.01;
  AddPeak(2);
  AddPeak(1.003);
  Work([&] {
    FitFirst();
    EXPECT_EQ(form.State().Match.LineCountUsed, 2);
    EXPECT_EQ(form.State().Fit.Status, 0);
    EXPECT_THAT(Texts(form.txtLatticeLength), Each(""));
  });
  EXPECT_EQ(Logged("Caluclate Result"), 0);
}

// Copper K-alpha does not reach d = 0.604: 600 of an edge of 3.615 lies at 0.6025, 0.604 / 0.6025 =
// 1.00249.
TEST_F(PeakCalEdgesTest, LineWithoutAnAngleTakesNoPartAndIsStillCalculated) {
  std::vector<Plane> planes = kCubicPlanes;
  planes.push_back({6, 0, 0});
  PutCrystals({Cubic("Cu", 3.615, planes)});
  AddLines(kCu);
  AddPeak(0.604);
  Work([&] {
    FitFirst();
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 3.615, kLength);
    EXPECT_EQ(form.State().Fit.RowCount, 5);
    EXPECT_EQ(form.State().Fit.FitFlag[6], 2);
    EXPECT_NEAR(form.State().Fit.FitDCalc[6], 0.6025f, 1e-5);
    EXPECT_NEAR(form.State().Fit.FitDev[6], 0.00249f, 1e-5);
    EXPECT_THAT(RowOf(form.sprPeakInf3, 6),
                ElementsAre("0.60400", "0.60250", "0.60250", "(6 0 0)", "[x]", "M"));
  });
}

TEST_F(PeakCalEdgesTest, HundredLinesFailAndNinetyNineRunAsMeant) {
  for (int i = 0; i < 100; ++i) AddPeak(3.615 / std::sqrt(3));
  Work([&] {
    dialogs.ExpectMessage("Subscript out of range");
    Fit(kCu);
    EXPECT_EQ(form.txtLatticeLength[0].Text(), "");
    SetUse(form.sprPeakInf, 100, false);
    Execute();
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 3.615, kLength);
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 100);
  });
  EXPECT_EQ(Logged("Caluclate Result"), 1);
}

TEST_F(PeakCalEdgesTest, TetragonalIsTaggedAsTriclinicAndNamedInFullAsMeant) {
  WorkOn(kTin, 1, [&] {
    Execute();
    EXPECT_EQ(form.State().Fit.ParamCount, 2);
  });
  EXPECT_EQ(Logged("\"Tin\",\"TRI\",90,90,90,5.8316,5.8316,3.1815\r\n"), 1);
  EXPECT_EQ(Logged("\"\",\"TETRAGONAL\"\r\n"), 1);
}

TEST_F(PeakCalEdgesTest, CrystalKeepsTheSystemThatItWasRefinedIn) {
  AddLines(kTin);
  Work([&] {
    Choose(kTin);
    form.cmbLatticeType.SetIndex(kOrthorhombic);
    form.txtSeedConstant[1].SetText("5.8316");
    Execute();
    Choose(kCu);
    Choose(kTin);
    EXPECT_EQ(form.cmbLatticeType.Text(), "Orthorhombic");
  });
}

// Rows that determine the cell of each system.
TEST_F(PeakCalEdgesTest, AsManyLinesAsParametersRunAndOneFewerIsTold) {
  struct {
    Sample sample;
    std::vector<int> rows;
  } const cases[] = {{kCu, {1}},
                     {kTin, {1, 3}},
                     {kCorundum, {1, 3}},
                     {kOlivine, {1, 2, 3}},
                     {kCryolite, {1, 2, 3, 5}},
                     {kKyanite, {1, 2, 3, 4, 5, 6}}};
  for (const auto& [sample, rows] : cases) {
    workspace.Peaks[data_no] = {};
    WorkOn(sample, 1, [&, rows = rows] {
      Execute();
      for (int r = 1; r <= form.sprPeakInf3.MaxRows(); ++r) {
        if (std::find(rows.begin(), rows.end(), r) == rows.end()) {
          SetUse(form.sprPeakInf3, r, false);
        }
      }
      Execute();
      EXPECT_THAT(form.txtLatticeLength[0].Text(), EndsWith("+-0.000000"));
      const auto lengths = Texts(form.txtLatticeLength);
      SetUse(form.sprPeakInf3, rows.back(), false);
      ExpectTooFewLines();
      Execute();
      EXPECT_EQ(Texts(form.txtLatticeLength), lengths);
    });
    EXPECT_EQ(Logged("Caluclate Result"), 2) << sample;
  }
}

// ---- checks and failures of the form

TEST_F(PeakCalEdgesTest, RefusedCalculationLeavesEverythingAsItWas) {
  WorkOn(kCu, 1.0005, [&] {
    Execute();
    const auto lengths = Texts(form.txtLatticeLength);
    const auto row = RowOf(form.sprPeakInf3, 1);
    form.txtTemp.SetText("");
    dialogs.ExpectMessage("Temp Error");
    Execute();
    form.txtSeedConstant[0].SetText("");
    dialogs.ExpectMessage("Seed Error");
    Execute();
    EXPECT_EQ(Texts(form.txtLatticeLength), lengths);
    EXPECT_EQ(RowOf(form.sprPeakInf3, 1), row);
    EXPECT_EQ(form.Work().Seed[0], 3.615);
  });
  EXPECT_EQ(Logged("Caluclate Result"), 1);
}

TEST_F(PeakCalEdgesTest, SampleOfNoSystemHasTooFewLines) {
  AddLines(kCu);
  Work([&] {
    ExpectTooFewLines();
    Fit(kOdd);
  });
}

// Lines of no system are calculated at d = 0: a range that is wider than d reaches them.
TEST_F(PeakCalEdgesTest, SampleOfNoSystemIsToldAfterItsRefinementAsMeant) {
  workspace.Settings.JudgeRange = 3;
  AddPeak(2);
  Work([&] {
    Choose(kOdd);
    dialogs.ExpectMessage("Lattice Type Error");
    Execute();
    EXPECT_EQ(form.State().Match.LineCountUsed, 1);
    EXPECT_THAT(Texts(form.txtLatticeLength), Each(""));
    EXPECT_EQ(form.txtVol.Text(), "");
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 0);
  });
  EXPECT_EQ(Logged("Caluclate Result"), 0);
}

TEST_F(PeakCalEdgesTest, CellStandsWhereTheLibrarysHasNoVolumeToCompareWith) {
  PutCrystals({{"Half", kCubic, {4, 0, 0, 90, 90, 90}, {{1, 0, 0}, {0, 0, 1}}}});
  AddPeak(4);
  AddPeak(5);
  Work([&] {
    ChooseFirst();
    form.cmbLatticeType.SetIndex(kTetragonal);
    Type(form.txtSeedConstant[2], "5");
    dialogs.ExpectMessage("Division by zero");
    Execute();
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 4, kLength);
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[2]), 5, kLength);
    EXPECT_NEAR(ValueIn(form.txtVol), 80, 1e-3);
    EXPECT_EQ(form.txtVolPerVol0.Text(), "");
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 0);
  });
  EXPECT_EQ(Logged("Caluclate Result"), 0);
}

TEST_F(PeakCalEdgesTest, CorrectionBeyondARightAngleFails) {
  WorkOn(kMgO, 1, [&] {
    form.txtLatticeLength[0].SetText("400");
    dialogs.ExpectMessage("Bad argument");
    form.cmd2ThetaCalib.Press();
    EXPECT_EQ(form.txtExpected2theta.Text(), "");
    EXPECT_EQ(form.State().UseCarry, kFalse);
  });
}

// A length without an error is a number, too; a text that begins with "+" has nothing in front.
TEST_F(PeakCalEdgesTest, CorrectionReadsTheLengthInFrontOfItsFirstPlus) {
  WorkOn(kMgO, 1, [&] {
    for (const char* text : {"", "   ", "+-0.1", "a+4.21"}) {
      form.txtLatticeLength[0].SetText(text);
      dialogs.ExpectMessage("LatticeConstance Error");
      form.cmd2ThetaCalib.Press();
    }
    form.txtLatticeLength[0].SetText(" 4.2112+x ");
    form.cmd2ThetaCalib.Press();
    EXPECT_EQ(form.txtExpected2theta.Text(), "6.00000");
  });
}

}  // namespace
}  // namespace dorvane
