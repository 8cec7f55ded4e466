// The calculation in the lattice form: checks, both modes, correction, summary, plot.
#include <gmock/gmock.h>

#include "display/RecordingSurface.h"
#include "forms/PeakCalFixture.h"
#include "lattice/CalLattice.h"
#include "lattice/CrystalFile.h"
#include "program/LatticeNarration.h"
#include "program/NaxFitting.h"
#include "program/OpenSave.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kTooFewLines = "計算するための回折線の数が少なすぎます。";
constexpr double kLength = 2e-5;  // angstrom, the rounding of 32-bit floats in the refinement
constexpr double kAngle = 2e-4;   // degrees, likewise

class PeakCalCalculateTest : public PeakCalTest {};

// ---- checks

TEST_F(PeakCalCalculateTest, SeedThatIsNoNumberIsTold) {
  WorkOn(kCu, 1, [&] {
    form.txtSeedConstant[0].SetText("x");
    form.txtTemp.SetText("x");
    dialogs.ExpectMessage("Seed Error");
    Execute();
    EXPECT_EQ(form.txtLatticeLength[0].Text(), "");
  });
  EXPECT_EQ(Logged("Caluclate Result"), 0);
}

TEST_F(PeakCalCalculateTest, NothingChosenIsASeedError) {
  Work([&] {
    dialogs.ExpectMessage("Seed Error");
    Execute();
  });
}

TEST_F(PeakCalCalculateTest, TemperatureThatIsNoNumberIsToldInSampleModeToo) {
  WorkOn(kCu, 1, [&] {
    form.txtTemp.SetText("warm");
    dialogs.ExpectMessage("Temp Error");
    Execute();
    EXPECT_EQ(form.txtLatticeLength[0].Text(), "");
  });
}

TEST_F(PeakCalCalculateTest, SystemThatIsNoneFindsNoLineInMarkerMode) {
  Work([&] {
    form.optSelectMode.SetIndex(1);
    Choose(kOdd);
    dialogs.ExpectMessage(kTooFewLines);
    Execute();
  });
}

TEST_F(PeakCalCalculateTest, EmptySecondSeedFailsInItsConversion) {
  WorkOn(kOlivine, 1, [&] {
    form.txtSeedConstant[1].SetText("");
    dialogs.ExpectMessage("Not a number");
    Execute();
    EXPECT_EQ(form.txtLatticeLength[0].Text(), "");
  });
}

TEST_F(PeakCalCalculateTest, SeedWithoutASampleFailsAndTheNextExecuteStartsFromTheTop) {
  AddLines(kCu);
  Work([&] {
    form.cmbLatticeType.SetIndex(kCubic);
    form.txtSeedConstant[0].SetText("3.6");
    dialogs.ExpectMessage("Subscript out of range");
    Execute();
    EXPECT_THAT(form.lblOutcome.Caption(), HasSubstr("Choose a sample"));
    Fit(kCu);
    EXPECT_EQ(form.lblOutcome.Caption(), "");
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 3.615, kLength);
  });
}

TEST_F(PeakCalCalculateTest, SpectrumWithoutPeaksHasTooFewLines) {
  Work([&] {
    EXPECT_EQ(form.sprPeakInf.MaxRows(), 0);
    dialogs.ExpectMessage(kTooFewLines);
    Fit(kCu);
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 0);
  });
  EXPECT_EQ(Logged("\"Number=\",0"), 1);
}

// ---- sample mode

// The peaks are put where a cell of 1.001 times the lengths has them; V/V0 = 1.001^3 by hand.
TEST_F(PeakCalCalculateTest, EachSystemFindsTheCellOfItsPeaks) {
  for (const Sample sample : {kCu, kTin, kCorundum, kOlivine, kCryolite, kKyanite}) {
    workspace.Peaks[data_no] = {};
    WorkOn(sample, 1.001, [&] {
      Execute();
      const Cell6& cell = kCells[static_cast<std::size_t>(sample)];
      for (std::size_t k = 0; k < 6; ++k) {
        const TextBox& box = form.txtLatticeLength[static_cast<int>(k)];
        if (k < 3 && !box.Enabled()) {
          EXPECT_EQ(box.Text(), "");
        } else {
          EXPECT_NEAR(ValueIn(box), k < 3 ? 1.001 * cell[k] : cell[k], k < 3 ? kLength : kAngle)
              << sample << " " << k;
        }
      }
      EXPECT_NEAR(ValueIn(form.txtVol), 1.003003 * VolumeOf(cell), 2e-3) << sample;
      EXPECT_NEAR(ValueIn(form.txtVolPerVol0), 1.003003, 1e-5) << sample;
    });
  }
}

TEST_F(PeakCalCalculateTest, FixedAnglesAreTextsOfEachSystem) {
  struct {
    Sample sample;
    const char *alpha, *gamma;
  } const rows[] = {{kCu, "90.000000", "90.000000"},
                    {kTin, "90.000000", "90.000000"},
                    {kCorundum, "90.000000", "120.000000"},
                    {kOlivine, "90.000000", "90.000000"},
                    {kCryolite, "90.00000", "90.00000"}};
  for (const auto& row : rows) {
    workspace.Peaks[data_no] = {};
    WorkOn(row.sample, 1, [&] {
      Execute();
      EXPECT_EQ(form.txtLatticeLength[3].Text(), row.alpha) << row.sample;
      EXPECT_EQ(form.txtLatticeLength[5].Text(), row.gamma) << row.sample;
    });
  }
}

TEST_F(PeakCalCalculateTest, ResultsHaveTheirErrorsInSixPlaces) {
  WorkOn(kCu, 1, [&] {
    Execute();
    for (const TextBox* box : {&form.txtLatticeLength[0], &form.txtVol, &form.txtVolPerVol0}) {
      EXPECT_THAT(box->Text(), testing::MatchesRegex("[0-9]+\\.[0-9]+\\+-0\\.[0-9]+"));
      EXPECT_EQ(box->Text().size() - box->Text().find("+-"), 10u);
    }
    EXPECT_EQ(form.txtPressure.Text(), "");
  });
}

TEST_F(PeakCalCalculateTest, V0OfASampleIsThatOfTheLibraryWhateverTheSeeds) {
  WorkOn(kCu, 1, [&] {
    Type(form.txtSeedConstant[0], "3.618");
    Execute();
    EXPECT_NEAR(ValueIn(form.txtVolPerVol0), 1, 1e-5);
  });
}

TEST_F(PeakCalCalculateTest, SecondExecuteGivesTheSame) {
  AddPeak(2.5);
  WorkOn(kKyanite, 1.0003, [&] {
    Execute();
    const auto first = Texts(form.txtLatticeLength);
    const auto lines = form.State().Lines;
    Execute();
    EXPECT_EQ(Texts(form.txtLatticeLength), first);
    EXPECT_TRUE(std::equal(lines.begin(), lines.end(), form.State().Lines.begin()));
  });
  EXPECT_EQ(Logged("Caluclate Result"), 2);
}

TEST_F(PeakCalCalculateTest, LinesOfAnEarlierSampleDoNotEnter) {
  AddLines(kTin);
  WorkOn(kCu, 1, [&] {
    Choose(kTin);
    Execute();
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 10);
    Fit(kCu);
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 3.615, kLength);
  });
}

TEST_F(PeakCalCalculateTest, FailedSampleLeavesTheGridsAsTheyWere) {
  WorkOn(kCu, 1, [&] {
    Execute();
    form.cmbLatticeType.SetIndex(kTriclinic);
    for (int k = 1; k < 6; ++k) form.txtSeedConstant[k].SetText(k < 3 ? "3.615" : "90");
    dialogs.ExpectMessage(kTooFewLines);
    Execute();
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 5);
  });
  EXPECT_EQ(Logged("Caluclate Result"), 1);
}

TEST_F(PeakCalCalculateTest, SampleIsNarratedBySeedsComparisonAndResult) {
  WorkOn(kMgO, 1.0005, [&] { Execute(); });
  const std::string narrated = LogText();
  EXPECT_THAT(narrated, HasSubstr("\"MgO\",\"CUB\",90,90,90,4.2112,4.2112,4.2112\r\n"));
  EXPECT_THAT(narrated, HasSubstr("\"PK#\",\"HKL\",\"CH\",\"E(KEV)\",\"DO\",\"DC\",\"DR\"\r\n"
                                  "\"1 \",\"(1 1 1)\",\"2434.628192\",\"48.692564\","
                                  "\"2.432553\",\"2.431338\",\"0.001216\",\"M\"\r\n"));
  EXPECT_THAT(narrated, HasSubstr("\"\",\"CUBIC\"\r\n\"\",\"A    =\",\"4.21330"));
  EXPECT_THAT(narrated, HasSubstr("\"\",\"2θ = \",6\r\n"));
  EXPECT_EQ(Logged("DDEF to Initial"), 0);
}

// ---- marker mode

class PeakCalMarkerTest : public PeakCalCalculateTest {
 protected:
  void Mark(Sample sample, double scale, const std::function<void()>& work) {
    AddLines(sample, scale);
    Work([&, sample] {
      form.optSelectMode.SetIndex(1);
      Choose(sample);
      work();
    });
  }
};

TEST_F(PeakCalMarkerTest, CubicMarkerShowsAllThreeLengthsAndRightAngles) {
  Mark(kMgO, 0.9995, [&] {
    Execute();
    for (int k = 0; k < 3; ++k) {
      EXPECT_NEAR(ValueIn(form.txtLatticeLength[k]), 4.2090944, kLength);  // 0.9995 * 4.2112
      EXPECT_EQ(form.txtLatticeLength[k + 3].Text(), "90.00000");
    }
    EXPECT_NEAR(ValueIn(form.txtVol), 74.570332, 1e-3);          // 4.2090944^3
    EXPECT_EQ(form.txtVolPerVol0.Text().substr(0, 5), ".9985");  // 0.9995^3 = 0.99850075
  });
}

TEST_F(PeakCalMarkerTest, HexagonalMarkerHasItsGamma) {
  Mark(kCorundum, 1, [&] {
    Execute();
    EXPECT_EQ(form.txtLatticeLength[3].Text(), "90.00000");
    EXPECT_EQ(form.txtLatticeLength[5].Text(), "120.00000");
    EXPECT_EQ(form.txtPressure.Text(), "");  // no scale has its name
  });
}

TEST_F(PeakCalMarkerTest, V0OfAMarkerIsThatOfTheSeeds) {
  Mark(kMgO, 1, [&] {
    Type(form.txtSeedConstant[0], "4.214");
    Execute();
    EXPECT_NEAR(NumberOf(form.txtVolPerVol0.Text().substr(0, 7)), 0.998008, 2e-6);
  });
}

TEST_F(PeakCalMarkerTest, OtherSystemsLeaveTheResultsAsTheyWere) {
  AddLines(kMgO);
  Mark(kOlivine, 1, [&] {
    Choose(kMgO);
    Execute();
    const std::string volume = form.txtVol.Text();
    Fit(kOlivine);
    EXPECT_EQ(form.txtVol.Text(), volume);
    EXPECT_EQ(form.txtLatticeLength[1].Text(), "4.211200+-0.000000");
    EXPECT_EQ(form.sprPeakInf4.MaxRows(), 10);
  });
}

// 3.2355 GPa at V/V0 = 0.9 and 298 K, an independent evaluation of Decker's equation (1971).
TEST_F(PeakCalMarkerTest, PressureIsThatOfTheScaleWithTheSamplesName) {
  std::string library = LibraryText();
  library.replace(library.find("\"MgO\""), 5, "\"NACL 300K\"");
  folder.Put("crystal.dat", library);
  workspace.Settings.JudgeRange = 0.09;
  Mark(kMgO, std::cbrt(0.9), [&] {
    form.cmbUnit.SetIndex(1);
    form.txtTemp.SetText("298");
    Execute();
    EXPECT_NEAR(ValueIn(form.txtPressure), 3.2355, 2e-3);
    const std::string in_kelvin = form.txtPressure.Text();
    form.cmbUnit.SetIndex(0);
    form.txtTemp.SetText("24.85");
    Execute();
    EXPECT_EQ(form.txtPressure.Text(), in_kelvin);
  });
  EXPECT_EQ(Logged("******** DECKER PRESSURE AT T="), 2);
}

TEST_F(PeakCalMarkerTest, NameWithoutAScaleLeavesThePressure) {
  AddLines(kMgO);
  Mark(kCu, 1, [&] {
    Fit(kMgO);
    const std::string pressure = form.txtPressure.Text();
    EXPECT_NE(pressure, "");
    Fit(kCu);
    EXPECT_EQ(form.txtPressure.Text(), pressure);
  });
}

TEST_F(PeakCalMarkerTest, FailedMarkerFillsTheGridsWithoutARefinedCell) {
  Mark(kMgO, 1, [&] {
    Execute();
    for (int r = 1; r <= 5; ++r) SetUse(form.sprPeakInf4, r, false);
    dialogs.ExpectMessage(kTooFewLines);
    Execute();
    EXPECT_EQ(form.sprPeakInf4.MaxRows(), 5);
    EXPECT_EQ(form.sprPeakInf4.Text(1, 5), "");
    EXPECT_EQ(form.sprPeakInf4.Text(1, 6), "");
  });
  EXPECT_EQ(Logged("Caluclate Result"), 1);
}

TEST_F(PeakCalMarkerTest, MarkerIsNarratedInDetail) {
  Mark(kMgO, 1.0005, [&] { Execute(); });
  const std::string narrated = LogText();
  EXPECT_THAT(narrated, HasSubstr("\"*********Compare to Caluclate   **********************\"\r\n"
                                  "\"PK#\",\"HKL\",\"CH\",\"E(KEV)\",\"DOBS\",\"DCAL\",\"DR\","
                                  "\"DDEF to Initial\",\"FIT TYPE\"\r\n"
                                  "\"1 \",\"(1 1 1)\",\"2434.628192\",\"48.692564\","
                                  "\"2.432553\",\"2.431338\",\"2.43255"));
  EXPECT_EQ(Logged("Compare to Caluclate      ****"), 0);
  EXPECT_EQ(Logged("\"P(GPA)= \""), 1);
  EXPECT_EQ(Logged("******** JAMIESON SCALE AT T="), 1);
}

// ---- correction

TEST_F(PeakCalCalculateTest, CorrectionBeforeAnyCalculationIsRefused) {
  WorkOn(kMgO, 1, [&] {
    dialogs.ExpectMessage("LatticeConstance Error");
    form.cmd2ThetaCalib.Press();
    EXPECT_EQ(form.State().UseCarry, kFalse);
  });
}

TEST_F(PeakCalCalculateTest, CorrectionChecksLengthAngleAndSeedInThisOrder) {
  WorkOn(kMgO, 1, [&] {
    form.txtLatticeLength[0].SetText("x+-0.1");
    form.txt2Theta.SetText("");
    form.txtSeedConstant[0].SetText("x");
    dialogs.ExpectMessage("LatticeConstance Error");
    form.cmd2ThetaCalib.Press();
    form.txtLatticeLength[0].SetText(" 4.21 +-0.1");
    dialogs.ExpectMessage("2θ Error");
    form.cmd2ThetaCalib.Press();
    form.txt2Theta.SetText("6");
    dialogs.ExpectMessage("Initial Constans Error");
    form.cmd2ThetaCalib.Press();
    EXPECT_EQ(form.txtExpected2theta.Text(), "");
  });
}

// 2 asin(sin(3 degrees) * 4.21 / 4.2112), by an independent computation.
TEST_F(PeakCalCalculateTest, CorrectionShowsTheAngleThatGivesTheSeed) {
  WorkOn(kMgO, 1, [&] {
    form.txtLatticeLength[0].SetText("4.21");
    form.cmd2ThetaCalib.Press();
    EXPECT_EQ(form.txtExpected2theta.Text(), "5.99829");
    EXPECT_EQ(form.State().UseCarry, kTrue);
  });
}

TEST_F(PeakCalCalculateTest, CorrectionWithASeedOfZeroFailsAndKeepsNoChoice) {
  WorkOn(kMgO, 1, [&] {
    form.txtLatticeLength[0].SetText("4.21");
    form.txtSeedConstant[0].SetText("0");
    dialogs.ExpectMessage("Division by zero");
    form.cmd2ThetaCalib.Press();
    EXPECT_EQ(form.State().UseCarry, kFalse);
  });
}

// Peaks as a true angle of 6 degrees has them, worked on at 6.01.
TEST_F(PeakCalCalculateTest, ExclusionIsKeptOverTheCorrection) {
  workspace.Spectra[data_no].Prop.TwoTheta = 6.01;
  workspace.Settings.JudgeRange = 0.02;
  WorkOn(kMgO, 1, [&] {
    Execute();
    SetUse(form.sprPeakInf3, 2, false);
    Execute();
    form.cmd2ThetaCalib.Press();
    EXPECT_NEAR(NumberOf(form.txtExpected2theta.Text()), 6, 2e-5);
    Type(form.txt2Theta, form.txtExpected2theta.Text());
    Execute();
    EXPECT_EQ(form.State().Lines[1].Unused, kTrue);
    EXPECT_EQ(form.State().Lines[0].Unused, kFalse);
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 4.2112, 2e-5);
    EXPECT_EQ(form.State().UseCarry, kFalse);
  });
}

// ---- summary and plot

TEST_F(PeakCalCalculateTest, SummaryGoesIntoTheChosenDirectory) {
  std::filesystem::create_directory(folder.Path("results"));
  SetResultDirectory(settings, folder.Path("results"));
  WorkOn(kMgO, 1.0005, [&] {
    Execute();
    form.cmdDataSave.Press();
    EXPECT_EQ(form.lblOutcome.Caption(), "LatticeFit.csv saved in " + folder.Path("results/"));
    Execute();
    EXPECT_EQ(form.lblOutcome.Caption(), "");
  });
  const std::string summary = FromCodePage(folder.Get("results/LatticeFit.csv"));
  EXPECT_THAT(summary, HasSubstr("\"MgO\",\"CUB\",90,90,90,4.2112,4.2112,4.2112\r\n"));
  EXPECT_THAT(summary, HasSubstr("1,1,1,1,2434.628"));
  EXPECT_THAT(summary, EndsWith("\"P(GPA)= \",\"\"\r\n"));
}

TEST_F(PeakCalCalculateTest, SummaryWithoutItsDirectoryIsTold) {
  SetResultDirectory(settings, folder.Path("nowhere"));
  Work([&] {
    dialogs.ExpectMessage("Open Error");
    form.cmdDataSave.Press();
    EXPECT_THAT(form.lblOutcome.Caption(), HasSubstr("Not saved in " + folder.Path("nowhere")));
  });
  EXPECT_FALSE(folder.Has("nowhere"));
}

TEST_F(PeakCalCalculateTest, PlotHasAPointForEachLine) {
  WorkOn(kMgO, 1.0005, [&] {
    RecordingSurface empty;
    form.DrawDeviation(empty);
    EXPECT_THAT(empty.Boxes(), IsEmpty());
    Execute();
    RecordingSurface plot;
    form.DrawDeviation(plot);
    EXPECT_EQ(plot.Boxes().size(), 6u);  // five lines and the mark of the legend
  });
}

// ---- the same work in one go

TEST_F(PeakCalMarkerTest, LogIsThatOfTheSameWorkDoneInOneGo) {
  for (const LatticeMode mode : {LatticeMode::Sample, LatticeMode::Marker}) {
    workspace.Peaks[data_no] = {};
    AddLines(kMgO, 0.9995);
    Work([&] {
      if (mode == LatticeMode::Marker) form.optSelectMode.SetIndex(1);
      Fit(kMgO);
    });
    const auto state = std::make_unique<LatticeState>();
    state->Library = ReadCrystalFile(files, folder.Path("crystal.dat"));
    LatticeRequest request;
    request.crystal_index = kMgO;
    request.mode = mode;
    const LatticeReport report = RunLattice(*state, workspace, data_no, request, dialogs);
    EXPECT_EQ(folder.Get("crystalfit.csv"),
              CsvText(WorkRecords(*state, workspace, data_no, request, report)));
  }
}

// ---- a measured spectrum

// Literature: a = 4.7587, c = 12.9929 angstrom. Lines more than 0.001 angstrom off the seeds, which
// are those of weak peaks at high energies, are unchecked as a user does.
TEST_F(PeakCalCalculateTest, MeasuredCorundumHasTheCellOfTheLiterature) {
  const std::string source = DORVANE_SOURCE_DIR;
  folder.Put("crystal.dat", std::string(AsText(ReadFile(files, source + "/data/crystal.dat"))));
  workspace.Settings.JudgeRange = 0.03;
  LoadData(program, {source + "/samples/corundum_ambient.npd"});
  NaxFitting(program, 0, workspace.Slots[view.GraphNo].DataNo);
  Work([&] {
    Choose(static_cast<Sample>(9));
    EXPECT_EQ(form.cmbElement.Text(), "Al2O3");
    Execute();
    for (int r = 1; r <= form.sprPeakInf3.MaxRows(); ++r) {
      const auto row = RowOf(form.sprPeakInf3, r);
      if (std::fabs(NumberOf(row[0]) - NumberOf(row[1])) > 0.001)
        SetUse(form.sprPeakInf3, r, false);
    }
    Execute();
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 4.7587, 0.002);
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[2]), 12.9929, 0.006);
  });
}

}  // namespace
}  // namespace dorvane
