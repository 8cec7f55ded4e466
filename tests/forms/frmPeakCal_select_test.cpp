// What is chosen and typed in the lattice form: opening, mode, sample, system, seeds, angle, end.
#include <gmock/gmock.h>

#include "forms/PeakCalFixture.h"
#include "lattice/CalLattice.h"

namespace dorvane {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class PeakCalSelectTest : public PeakCalTest {};

// ---- opening and end

TEST_F(PeakCalSelectTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Lattice Caluculate");
  EXPECT_THAT(form.cmbLatticeType.Items(), ElementsAre("Cubic", "Tetragonal", "Hexagonal",
                                                       "Orthorhombic", "Monoclinic", "Triclinic"));
  EXPECT_THAT(form.optSelectMode.Captions(), ElementsAre("Sample", "Pressure Marker"));
  EXPECT_THAT(form.tabLatticeFit.Captions(), ElementsAre("PeakData", "UsePeak"));
  EXPECT_EQ(form.fra2ThetaCalib.Caption(), "2θCalibration for Cubic Type");
  EXPECT_EQ(form.cmdCal.Caption(), "Execute");
  EXPECT_EQ(form.cmdDataSave.Caption(), "Data Save");
  EXPECT_EQ(form.cmdExit.Caption(), "Exit");
  EXPECT_EQ(form.cmd2ThetaCalib.Caption(), "Correct");
  EXPECT_EQ(form.txtTemp.Text(), "27.0");
  EXPECT_EQ(form.txt2Theta.Text(), "5.0000");
}

TEST_F(PeakCalSelectTest, NothingOpensWithoutAGraph) {
  form.Open(5);
  EXPECT_THAT(host.Shown(), IsEmpty());
}

TEST_F(PeakCalSelectTest, OpensOnTheGraphOfItsRow) {
  Work([&] {
    EXPECT_EQ(form.GetGrpNo(), view.GraphNo);
    EXPECT_EQ(form.GetWinNo(), 0);
    EXPECT_EQ(form.Work().DataNo, data_no);
    EXPECT_EQ(form.Work().Loading, 0);
  });
}

TEST_F(PeakCalSelectTest, OffersTheCrystalsOfTheLibrary) {
  Work([&] {
    EXPECT_THAT(form.cmbElement.Items(),
                ElementsAre("Cu", "Tin", "Al2O3", "Olivine", "Cryolite", "Kyanite", "MgO", "Odd"));
    EXPECT_EQ(form.cmbElement.Index(), -1);
  });
}

TEST_F(PeakCalSelectTest, MissingLibraryIsToldByItsNameAndLeavesTheListEmpty) {
  files.Remove(folder.Path("crystal.dat"));
  dialogs.ExpectMessage("File not found: " + folder.Path("crystal.dat"));
  Work([&] { EXPECT_THAT(form.cmbElement.Items(), IsEmpty()); });
}

TEST_F(PeakCalSelectTest, BrokenLibraryIsToldByItsLine) {
  std::string text = LibraryText(1);
  text.replace(text.find("1,1,1"), 5, "1,x,1");
  folder.Put("crystal.dat", text);
  dialogs.ExpectMessage("Not a number: " + folder.Path("crystal.dat") + ", line 13");
  Work([&] { EXPECT_THAT(form.cmbElement.Items(), IsEmpty()); });
}

TEST_F(PeakCalSelectTest, ShowsTheAngleThatCalibrates) {
  Work([&] {
    EXPECT_EQ(form.txt2Theta.Text(), "6.00000");
    EXPECT_EQ(form.Work().TwoTheta, 6);
  });
}

TEST_F(PeakCalSelectTest, AngleOfAnAngleDispersiveSpectrumIsNotEdited) {
  workspace.Spectra[data_no].DataType = kDacData;
  Work([&] {
    EXPECT_FALSE(form.txt2Theta.Enabled());
    EXPECT_FALSE(form.cmd2ThetaCalib.Enabled());
  });
  workspace.Spectra[data_no].DataType = kNpdData;
  Work([&] {
    EXPECT_TRUE(form.txt2Theta.Enabled());
    EXPECT_TRUE(form.cmd2ThetaCalib.Enabled());
  });
}

TEST_F(PeakCalSelectTest, EachOpeningIsAWorkOfItsOwn) {
  AddLines(kCu);
  Work([&] { Fit(kCu); });
  Work([&] {
    EXPECT_THAT(Texts(form.txtLatticeLength), Each(""));
    EXPECT_THAT(Texts(form.txtSeedConstant), Each(""));
    EXPECT_EQ(form.txtVol.Text(), "");
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 0);
    EXPECT_EQ(form.cmbElement.Index(), -1);
  });
}

// Changes of controls while the form loads are not those of a user: the log has the one record of
// InitForm alone.
TEST_F(PeakCalSelectTest, NothingHappensWhileTheFormLoads) {
  Work([&] {
    form.optSelectMode.SetIndex(1);
    Choose(kMgO);
  });
  Work([&] {});
  EXPECT_EQ(Logged("Mode Changed!!"), 1);
  EXPECT_EQ(Logged("Lattice Type Changed!!"), 0);
  EXPECT_EQ(Logged("Element Changed!!"), 0);
}

TEST_F(PeakCalSelectTest, LogBeginsWithBannerPropertiesAndPeaksAndEndsWithItsBanner) {
  AddPeak(2);
  Work([&] {});
  const std::string narrated = LogText();
  EXPECT_EQ(narrated.rfind("\"*******************corundumLatticeFitting Log Start***", 0), 0u);
  EXPECT_THAT(narrated, HasSubstr("\"2θ\",\"6.00000\"\r\n"));
  EXPECT_THAT(narrated, HasSubstr("\"LOAD\",\"12.50\"\r\n"));
  EXPECT_THAT(narrated, HasSubstr("\"Number=\",1\r\n"));
  EXPECT_THAT(narrated,
              testing::EndsWith(
                  "\"*************corundumLatticeFitting Log Ende************************\"\r\n"));
}

TEST_F(PeakCalSelectTest, LogIsKeptUnderTheNameThatTheUserGives) {
  Work([&] {}, folder.Path("kept.csv"));
  EXPECT_EQ(dialogs.LastRequest().file_name, "corundum_Result.csv");
  EXPECT_EQ(folder.Get("kept.csv"), folder.Get("crystalfit.csv"));
}

TEST_F(PeakCalSelectTest, WorkGoesOnWithoutALogAndStillAsksWhatToKeep) {
  std::filesystem::create_directory(folder.Path("crystalfit.csv"));
  AddLines(kCu);
  dialogs.ExpectMessage("LatticeFit Temp File Open Error");
  Work([&] {
    EXPECT_EQ(form.LogFailed(), kTrue);
    Fit(kCu);
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 3.615, 1e-5);
  });
}

// ---- mode

TEST_F(PeakCalSelectTest, SampleModeComesFirst) {
  Work([&] {
    EXPECT_EQ(form.Work().SelectMode, 0);
    EXPECT_TRUE(form.cmbElement.Enabled());
    EXPECT_FALSE(form.txtPressure.Enabled());
  });
}

TEST_F(PeakCalSelectTest, MarkerModeResetsTheChoiceAndOpensThePressure) {
  Work([&] {
    Choose(kTin);
    form.optSelectMode.SetIndex(1);
    EXPECT_EQ(form.Work().SelectMode, 1);
    EXPECT_EQ(form.cmbLatticeType.Index(), -1);
    EXPECT_EQ(form.cmbElement.Index(), -1);
    EXPECT_EQ(form.cmbElement.Items().size(), 8u);
    EXPECT_TRUE(form.txtPressure.Enabled());
  });
  EXPECT_EQ(Logged("\"********************* Lattice Fit Mode Changed!! **********\"\r\n\"\"\r\n"),
            2);
}

TEST_F(PeakCalSelectTest, SampleModeOpensTheSecondAndThirdSeedAgain) {
  Work([&] {
    Choose(kCu);
    form.optSelectMode.SetIndex(1);
    form.optSelectMode.SetIndex(0);
    EXPECT_EQ(form.cmbElement.Index(), -1);
    EXPECT_THAT(On(form.txtSeedConstant), ElementsAre(true, true, true, false, false, false));
    EXPECT_TRUE(form.lblSeed[1].Enabled() && form.lblSeed[2].Enabled());
    EXPECT_FALSE(form.txtPressure.Enabled());
    for (int k = 1; k < 6; ++k) {
      EXPECT_TRUE(form.txtSeedConstant[k].Visible() && form.txtLatticeLength[k].Visible());
    }
  });
}

// ---- sample

TEST_F(PeakCalSelectTest, SampleShowsItsCellAndSeeds) {
  Work([&] {
    Choose(kKyanite);
    const auto cell =
        ElementsAre("7.126200", "7.852000", "5.572400", "89.990000", "101.110000", "106.030000");
    EXPECT_THAT(Texts(form.txtLatticeConstans), cell);
    EXPECT_THAT(Texts(form.txtSeedConstant), cell);
    EXPECT_EQ(form.cmbLatticeType.Text(), "Triclinic");
  });
}

TEST_F(PeakCalSelectTest, EachSystemOpensTheBoxesThatItNeedsAndClearsTheOthers) {
  struct {
    Sample sample;
    std::vector<bool> on;
  } const rows[] = {{kCu, {true, false, false, false, false, false}},
                    {kTin, {true, false, true, false, false, false}},
                    {kCorundum, {true, false, true, false, false, false}},
                    {kOlivine, {true, true, true, false, false, false}},
                    {kCryolite, {true, true, true, false, true, false}},
                    {kKyanite, {true, true, true, true, true, true}}};
  Work([&] {
    for (const auto& row : rows) {
      Choose(row.sample);
      EXPECT_EQ(On(form.txtSeedConstant), row.on) << row.sample;
      EXPECT_EQ(On(form.txtLatticeLength), row.on) << row.sample;
      for (int k = 0; k < 6; ++k) {
        EXPECT_EQ(form.txtSeedConstant[k].Text().empty(), !row.on[static_cast<std::size_t>(k)]);
      }
    }
  });
}

TEST_F(PeakCalSelectTest, BoxesThatASystemDoesNotNeedLoseTheirResult) {
  AddLines(kOlivine);
  Work([&] {
    Fit(kOlivine);
    Choose(kCu);
    EXPECT_THAT(form.txtLatticeLength[0].Text(), Not(IsEmpty()));
    for (int k = 1; k < 6; ++k) EXPECT_EQ(form.txtLatticeLength[k].Text(), "");
  });
}

TEST_F(PeakCalSelectTest, SampleOfAnUnknownSystemChangesNoBoxAndIsNotLogged) {
  Work([&] {
    Choose(kTin);
    Choose(kOdd);
    EXPECT_EQ(form.cmbLatticeType.Text(), "Tetragonal");
    EXPECT_EQ(form.txtLatticeConstans[0].Text(), "3.615000");
    EXPECT_THAT(On(form.txtSeedConstant), ElementsAre(true, false, true, false, false, false));
  });
  EXPECT_EQ(Logged("Element Changed!!"), 1);
}

TEST_F(PeakCalSelectTest, SampleIsLoggedWithItsCell) {
  Work([&] { Choose(kTin); });
  EXPECT_THAT(LogText(),
              HasSubstr("\"********************* Element Changed!! **********\"\r\n"
                        "\"*********** Element Reference Information *************\"\r\n"
                        "\"\",\"TRI\",\"Tin\"\r\n"
                        "\"\",\"A     =\",5.8316\r\n\"\",\"B     =\",5.8316\r\n"
                        "\"\",\"C     =\",3.1815\r\n\"\",\"Alpha =\",90\r\n\"\",\"Beta  =\",90\r\n"
                        "\"\",\"Gamma =\",90\r\n"));
}

TEST_F(PeakCalSelectTest, LinesOfTheSampleAreMarkedWhileTheFormIsOpen) {
  Work([&] {
    Choose(kMgO);
    EXPECT_THAT(MarksShown(), ElementsAre("111", "200", "220", "311", "400"));
    // 111 at E = 12.3981 / (2 * 4.2112 / sqrt(3) * sin(3 degrees)) keV, 0.02 keV a channel: by hand
    // channel number 2435.85, index 2435.
    EXPECT_EQ(program.spect.NamedLines(0)[0].X, 2435);
    form.optSelectMode.SetIndex(1);
    EXPECT_THAT(MarksShown(), IsEmpty());
    Choose(kMgO);
  });
  EXPECT_THAT(MarksShown(), IsEmpty());
}

TEST_F(PeakCalSelectTest, MarksFollowTheSeeds) {
  Work([&] {
    Choose(kMgO);
    Type(form.txtSeedConstant[0], "2.1056");
    EXPECT_EQ(program.spect.NamedLines(0)[0].X, 4871);  // at twice the energy
  });
}

// ---- system

TEST_F(PeakCalSelectTest, AnotherSystemOpensItsBoxesAndIsLogged) {
  Work([&] {
    Choose(kOlivine);
    form.txtLatticeConstans[0].SetText("");
    form.cmbLatticeType.SetIndex(kHexagonal);
    EXPECT_THAT(On(form.txtSeedConstant), ElementsAre(true, false, true, false, false, false));
    EXPECT_THAT(Texts(form.txtSeedConstant), ElementsAre("4.753500", "", "5.980700", "", "", ""));
    EXPECT_EQ(form.txtLatticeConstans[0].Text(), "4.753500");
  });
  // One by the sample, one by the user.
  EXPECT_EQ(Logged("\"********************* Lattice Type Changed!! **********\"\r\n\"\"\r\n"), 2);
}

// ---- seeds

TEST_F(PeakCalSelectTest, SeedThatIsNoNumberKeepsTheFocus) {
  Work([&] {
    Choose(kCu);
    EXPECT_FALSE(Type(form.txtSeedConstant[0], "3.6x"));
    EXPECT_EQ(form.txtSeedConstant[0].Text(), "3.6x");
    EXPECT_EQ(form.Work().Seed[0], 3.615);
  });
}

TEST_F(PeakCalSelectTest, SameSeedIsOnlyShownInItsPicture) {
  AddLines(kCu);
  Work([&] {
    Fit(kCu);
    EXPECT_TRUE(Type(form.txtSeedConstant[0], " 3.615 "));
    EXPECT_EQ(form.txtSeedConstant[0].Text(), "3.615000");
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 5);
  });
  EXPECT_EQ(Logged("New Seed"), 0);
}

TEST_F(PeakCalSelectTest, NewSeedIsLoggedAndForgetsWhatWasIndexed) {
  AddLines(kCu);
  Work([&] {
    Fit(kCu);
    SetUse(form.sprPeakInf3, 2, false);
    EXPECT_TRUE(Type(form.txtSeedConstant[0], "3.62"));
    EXPECT_EQ(form.txtSeedConstant[0].Text(), "3.620000");
    EXPECT_EQ(form.Work().Seed[0], 3.62);
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 0);
    EXPECT_EQ(form.State().Lines[1], LineRec{});
    EXPECT_EQ(form.State().Match, MatchState{});
  });
  EXPECT_EQ(Logged("\"************ New Seed Inputed!!!!!! **************\"\r\n\"\"\r\n"), 1);
}

// ---- angle

TEST_F(PeakCalSelectTest, AngleThatIsNoNumberKeepsTheFocus) {
  Work([&] {
    EXPECT_FALSE(Type(form.txt2Theta, ""));
    EXPECT_EQ(form.Work().TwoTheta, 6);
  });
}

TEST_F(PeakCalSelectTest, SameAngleIsOnlyShownInItsPicture) {
  Work([&] {
    EXPECT_TRUE(Type(form.txt2Theta, "6"));
    EXPECT_EQ(form.txt2Theta.Text(), "6.00000");
  });
  EXPECT_EQ(Logged("2θChanged"), 0);
}

TEST_F(PeakCalSelectTest, NewAngleCountsAtOnceAndIsLogged) {
  AddPeak(2);
  Work([&] {
    EXPECT_EQ(form.sprPeakInf.Text(1, 3), "2.00000");
    EXPECT_TRUE(Type(form.txt2Theta, "6.1"));
    EXPECT_EQ(form.txt2Theta.Text(), "6.10000");
    EXPECT_EQ(form.Work().TwoTheta, 6.1);
    EXPECT_EQ(workspace.Spectra[data_no].Prop.TwoTheta, 6.1);
    EXPECT_EQ(workspace.DefaultProp.TwoTheta, 6.1);
    // 2 sin(3 degrees) / sin(3.05 degrees), by hand.
    EXPECT_EQ(form.sprPeakInf.Text(1, 3), "1.96724");
  });
  EXPECT_THAT(LogText(), HasSubstr("\"********************* 2θChanged!! **********\"\r\n"
                                   "\"********** Property      ********************\"\r\n"
                                   "\"2θ\",\"6.10000\"\r\n"));
  EXPECT_EQ(Logged("PEAKS CURVE FITED LIST"), 2);
}

TEST_F(PeakCalSelectTest, NewAngleForgetsWhatWasIndexed) {
  AddLines(kCu);
  Work([&] {
    Fit(kCu);
    Type(form.txt2Theta, "6.01");
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 0);
    EXPECT_EQ(form.State().Lines[0].Matched, kFalse);
  });
}

TEST_F(PeakCalSelectTest, TheEndGivesTheAnglesBack) {
  Work([&] { Type(form.txt2Theta, "6.1"); });
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 5.5);
  EXPECT_EQ(workspace.Spectra[data_no].Prop.TwoTheta, 6);
}

TEST_F(PeakCalSelectTest, TheEndGivesTheAnglesBackWithoutALog) {
  std::filesystem::create_directory(folder.Path("crystalfit.csv"));
  dialogs.ExpectMessage("LatticeFit Temp File Open Error");
  Work([&] { Type(form.txt2Theta, "6.1"); });
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 5.5);
}

}  // namespace
}  // namespace dorvane
