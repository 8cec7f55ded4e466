// How the lattice form opens and ends.
#include <gmock/gmock.h>

#include "forms/PeakCalFixture.h"
#include "lattice/CalLattice.h"

namespace dorvane {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PeakCalOpenTest : public PeakCalTest {};

TEST_F(PeakCalOpenTest, TextsOfTheForm) {
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
  EXPECT_THAT(form.cmbUnit.Items(), ElementsAre("℃", "K"));
  EXPECT_EQ(form.cmbUnit.Text(), "℃");
  EXPECT_EQ(form.txtLatticeConstans[5].Caption(), "Initial Value");
  EXPECT_EQ(form.txtLatticeLength[5].Caption(), "Calculated");
}

TEST_F(PeakCalOpenTest, EachArrayHasAnEntryForEachConstant) {
  for (const auto* boxes :
       {&form.txtLatticeConstans, &form.txtSeedConstant, &form.txtLatticeLength}) {
    EXPECT_EQ(boxes->Size(), 6);
  }
  EXPECT_EQ(form.lblSeed.Size(), 6);
}

TEST_F(PeakCalOpenTest, OnlySeedsTemperatureAndAngleAreTyped) {
  for (int k = 0; k < 6; ++k) {
    EXPECT_FALSE(form.txtSeedConstant[k].ReadOnly());
    EXPECT_TRUE(form.txtLatticeConstans[k].ReadOnly() && form.txtLatticeLength[k].ReadOnly());
  }
  EXPECT_FALSE(form.txtTemp.ReadOnly() || form.txt2Theta.ReadOnly());
  for (const TextBox* box :
       {&form.txtVol, &form.txtVolPerVol0, &form.txtPressure, &form.txtExpected2theta}) {
    EXPECT_TRUE(box->ReadOnly()) << box->Name();
  }
}

TEST_F(PeakCalOpenTest, NothingOpensWithoutAGraph) {
  form.Open(5);
  EXPECT_THAT(host.Shown(), IsEmpty());
}

TEST_F(PeakCalOpenTest, OpensOnTheGraphOfItsRow) {
  Work([&] {
    EXPECT_EQ(form.GetGrpNo(), view.GraphNo);
    EXPECT_EQ(form.GetWinNo(), 0);
    EXPECT_EQ(form.Work().DataNo, data_no);
    EXPECT_EQ(form.Work().Loading, 0);
    EXPECT_EQ(form.Work().DispUnit, view.DispUnit);
  });
}

TEST_F(PeakCalOpenTest, NumbersOfTheWorkAreItsOwners) {
  Work([&] {
    form.WinNo(1);
    form.GrpNo(7);
    form.DispUnit(3);
    EXPECT_EQ(form.GetWinNo(), 1);
    EXPECT_EQ(form.GetGrpNo(), 7);
    EXPECT_EQ(form.Work().DispUnit, 3);
  });
}

TEST_F(PeakCalOpenTest, OffersTheCrystalsOfTheLibrary) {
  Work([&] {
    EXPECT_THAT(form.cmbElement.Items(),
                ElementsAre("Cu", "Tin", "Al2O3", "Olivine", "Cryolite", "Kyanite", "MgO", "Odd"));
    EXPECT_EQ(form.cmbElement.Index(), -1);
  });
}

TEST_F(PeakCalOpenTest, MissingLibraryIsToldByItsNameAndLeavesTheListEmpty) {
  files.Remove(folder.Path("crystal.dat"));
  dialogs.ExpectMessage("File not found: " + folder.Path("crystal.dat"));
  Work([&] { EXPECT_THAT(form.cmbElement.Items(), IsEmpty()); });
}

TEST_F(PeakCalOpenTest, BrokenLibraryIsToldByItsLine) {
  std::string text = LibraryText(1);
  text.replace(text.find("1,1,1"), 5, "1,x,1");
  folder.Put("crystal.dat", text);
  dialogs.ExpectMessage("Not a number: " + folder.Path("crystal.dat") + ", line 13");
  Work([&] { EXPECT_THAT(form.cmbElement.Items(), IsEmpty()); });
}

TEST_F(PeakCalOpenTest, ShowsTheAngleThatCalibrates) {
  Work([&] {
    EXPECT_EQ(form.txt2Theta.Text(), "6.00000");
    EXPECT_EQ(form.Work().TwoTheta, 6);
  });
}

TEST_F(PeakCalOpenTest, AngleOfAnAngleDispersiveSpectrumIsNotEdited) {
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

TEST_F(PeakCalOpenTest, EachOpeningIsAWorkOfItsOwn) {
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

TEST_F(PeakCalOpenTest, PresetsAreBackAtEachOpening) {
  Work([&] {
    form.optSelectMode.SetIndex(1);
    form.tabLatticeFit.SetIndex(1);
    form.txtTemp.SetText("300");
    form.cmbUnit.SetIndex(1);
    Type(form.txt2Theta, "6.1");
  });
  Work([&] {
    EXPECT_EQ(form.optSelectMode.Index(), 0);
    EXPECT_EQ(form.tabLatticeFit.Index(), 0);
    EXPECT_EQ(form.txtTemp.Text(), "27.0");
    EXPECT_EQ(form.cmbUnit.Index(), 0);
    EXPECT_EQ(form.txt2Theta.Text(), "6.00000");
  });
}

TEST_F(PeakCalOpenTest, InitFormReadsTheFormAndRunsTheMode) {
  Work([&] {
    Choose(kTin);
    form.txtSeedConstant[0].SetText("5.9");
    form.txtSeedConstant[2].SetText("x");
    form.InitForm();
    EXPECT_EQ(form.Work().Seed[0], 5.9);
    EXPECT_EQ(form.Work().Seed[1], 0);
    EXPECT_EQ(form.Work().Seed[2], 0);
    EXPECT_EQ(form.Work().LatticeIndex, kTetragonal);
    EXPECT_EQ(form.Work().ElementIndex, -1);  // the list is filled anew
    EXPECT_EQ(form.Work().SelectMode, 0);
    EXPECT_EQ(form.Work().TwoTheta, 6);
  });
  EXPECT_EQ(Logged("Mode Changed!!"), 2);
}

// Changes of controls while the form loads are not those of a user: the log has the one record of
// InitForm alone.
TEST_F(PeakCalOpenTest, NothingHappensWhileTheFormLoads) {
  Work([&] {
    form.optSelectMode.SetIndex(1);
    Choose(kMgO);
  });
  Work([&] {});
  EXPECT_EQ(Logged("Mode Changed!!"), 1);
  EXPECT_EQ(Logged("Lattice Type Changed!!"), 0);
  EXPECT_EQ(Logged("Element Changed!!"), 0);
}

// The grid is filled while the form loads.
TEST_F(PeakCalOpenTest, ControlThatChangesWhileTheFormLoadsRunsNoHandler) {
  AddPeak(2);
  form.sprPeakInf.Shown.Connect([&] {
    if (form.Work().Loading != 0) form.cmbLatticeType.SetIndex(kCubic);
  });
  Work([&] { EXPECT_THAT(On(form.txtSeedConstant), Each(true)); });
  EXPECT_EQ(Logged("Lattice Type Changed!!"), 0);
}

TEST_F(PeakCalOpenTest, LogBeginsWithBannerPropertiesAndPeaksAndEndsWithItsBanner) {
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

TEST_F(PeakCalOpenTest, LogIsKeptUnderTheNameThatTheUserGives) {
  Work([&] {}, folder.Path("kept.csv"));
  EXPECT_EQ(dialogs.LastRequest().file_name, "corundum_Result.csv");
  EXPECT_EQ(folder.Get("kept.csv"), folder.Get("crystalfit.csv"));
}

TEST_F(PeakCalOpenTest, WorkGoesOnWithoutALogAndStillAsksWhatToKeep) {
  std::filesystem::create_directory(folder.Path("crystalfit.csv"));
  AddLines(kCu);
  dialogs.ExpectMessage("LatticeFit Temp File Open Error");
  Work([&] {
    EXPECT_EQ(form.LogFailed(), kTrue);
    Fit(kCu);
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 3.615, 1e-5);
  });
}

TEST_F(PeakCalOpenTest, ClosingByTheFrameEndsTheWorkLikeExit) {
  host.ExpectModal([&](Form&) {
    Type(form.txt2Theta, "6.1");
    dialogs.ExpectSave(folder.Path("kept.csv"));
    form.QueryClose();
  });
  form.Open(view.GraphNo);
  EXPECT_EQ(workspace.Spectra[data_no].Prop.TwoTheta, 6);
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 5.5);
  EXPECT_THAT(folder.Get("kept.csv"), testing::EndsWith("************************\"\r\n"));
}

TEST_F(PeakCalOpenTest, BlankLinesOfTheLibraryAreNoFields) {
  std::string text = LibraryText(2);
  for (auto at = text.find("0,0,0\n"); at != std::string::npos; at = text.find("0,0,0\n", at + 9)) {
    text.replace(at, 6, "\n \n0,0,0\n\n");
  }
  folder.Put("crystal.dat", text);
  Work([&] { EXPECT_THAT(form.cmbElement.Items(), ElementsAre("Cu", "Tin")); });
}

TEST_F(PeakCalOpenTest, TheEndGivesTheAnglesBack) {
  Work([&] { Type(form.txt2Theta, "6.1"); });
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 5.5);
  EXPECT_EQ(workspace.Spectra[data_no].Prop.TwoTheta, 6);
}

TEST_F(PeakCalOpenTest, TheEndGivesTheAnglesBackWithoutALog) {
  std::filesystem::create_directory(folder.Path("crystalfit.csv"));
  dialogs.ExpectMessage("LatticeFit Temp File Open Error");
  Work([&] { Type(form.txt2Theta, "6.1"); });
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 5.5);
}

}  // namespace
}  // namespace dorvane
