#include "forms/frmDialogCalibC.h"

#include <gmock/gmock.h>

#include "forms/FormFixture.h"
#include "processing/Units.h"
#include "program/Cursor.h"
#include "program/DerivedGraphs.h"
#include "program/OpenSave.h"
#include "program/PeakFixture.h"
#include "program/StartEnd.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kChannel = frmDialogCalibC::kChannel;
constexpr int kEnergy = frmDialogCalibC::kEnergy;
constexpr int kCharacter = frmDialogCalibC::kCharacter;
constexpr int kSource = frmDialogCalibC::kSource;
constexpr double kRounding = 1e-12;

class frmDialogCalibCTest : public PeakFitTest {
 protected:
  frmDialogCalibCTest() {
    views.Add(form);
    SetStartCalibration(0.25, 0.05, 0);
  }

  void SetStartCalibration(double a, double b, double c) {
    EgcCoef& egc = workspace.Spectra[0].Prop.EGC;
    egc[0] = a;
    egc[1] = b;
    egc[2] = c;
  }
  void Type(int row, const std::string& channel, const std::string& energy) {
    form.vaSpread1.EditCell(row, kChannel, channel);
    form.vaSpread1.EditCell(row, kEnergy, energy);
  }
  std::vector<std::string> Cells(int row) const {
    std::vector<std::string> cells;
    for (int column = kChannel; column <= kSource; ++column) {
      cells.push_back(form.vaSpread1.Text(row, column));
    }
    return cells;
  }
  std::vector<double> Coefficients() const {
    return {form.ImConst[0].Value(), form.ImConst[1].Value(), form.ImConst[2].Value()};
  }
  // A spectrum with one fitted peak, shown and worked on.
  void ShowPeak(double center, const std::string& name) {
    const auto data_no = Show(Spectrum(1000, 20, {{1000, center, 5}}), name + ".npd");
    workspace.Spectra[data_no].MsuName.Set(name);
    Enter(data_no, {1000, center, 5}, RoundTo16(center) - 20, RoundTo16(center) + 20);
    ChangeActiveWin(list, 0);
  }
  static int RoundTo16(double value) { return static_cast<int>(value); }
  std::string File(const std::string& name) {
    Show({1, 2, 3}, name);
    SaveGraphAs(program, folder.Path(name));
    DeleteGraph(list, view.GraphNo);
    return folder.Path(name);
  }
  std::vector<std::string> FileNames() const {
    std::vector<std::string> names;
    for (int row = 1; row <= form.sprdFileName.MaxRows(); ++row) {
      names.push_back(form.sprdFileName.Text(row, 1));
    }
    return names;
  }
  void Update() {
    dialogs.ExpectMessage("Parameter saved as " + folder.Path("Calib_Data.txt"));
    form.cmdCalbOK.Press();
  }

  std::vector<std::string> chosen;  // what the file dialog answers
  int choices = 0;                  // how often it came up
  std::vector<int> fitted;          // rows that the fit by hand was opened for
  std::vector<CalibrationResult> curves;
  frmAtom::TakeLine take;
  ScriptedFormHost host;
  frmDialogCalibC form{
      program,
      host,
      {.ChooseFiles =
           [this] {
             ++choices;
             return chosen;
           },
       .ManualFit = [this](int grp_no) { fitted.push_back(grp_no); },
       .ElementTable = [this](frmAtom::TakeLine taker) { take = taker; },
       .CloseElementTable = [this] { take = {}; },
       .ShowCurve = [this](CalibrationResult result) { curves.push_back(std::move(result)); }}};
};

TEST_F(frmDialogCalibCTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Energy Constans Value");
  EXPECT_EQ(form.sprdFileName.Headings(), std::vector<std::string>{"FileName"});
  EXPECT_THAT(form.vaSpread1.Headings(),
              ElementsAre("Channel", "Energy(KeV)", "Character", "Source File"));
  EXPECT_THAT(form.optCnst.Captions(), ElementsAre("E=A+Bx", "E=A+Bx+Cx^2"));
  EXPECT_EQ(form.ImConst[0].NumberPicture(), "##,###,##0.000000");
  EXPECT_EQ(form.cmdFileOpen.Caption(), "File Open");
  EXPECT_EQ(form.cmdDelFile.Caption(), "File Delete");
  EXPECT_EQ(form.cmdFitDel.Caption(), "Del Fit");
  EXPECT_EQ(form.cmdSmothBk.Caption(), "Smoth&&BkRemove");  // the mark of no mnemonic
  EXPECT_EQ(form.cmdAuto[0].Caption(), "Split Fit");
  EXPECT_EQ(form.cmdAuto[1].Caption(), "MonoFit");
  EXPECT_EQ(form.cmdCsrSet.Caption(), "Input Fit Center Value");
  EXPECT_EQ(form.cmdEnergyInp.Caption(), "Element Table");
  EXPECT_EQ(form.cmdDelTable.Caption(), "Delete Current Line");
  EXPECT_EQ(form.cmdCalEng.Caption(), "Calculate");
  EXPECT_EQ(form.cmdCalbOK.Caption(), "Update");
  EXPECT_EQ(form.cmdCalbCan.Caption(), "Exit");
  EXPECT_EQ(form.cmdCurve.Caption(), "Show");
}

// ---- opening and leaving

TEST_F(frmDialogCalibCTest, OpeningShowsTheCalibrationOfTheFirstSpectrum) {
  form.Open();
  EXPECT_THAT(Coefficients(), ElementsAre(0.25, 0.05, 0));
  EXPECT_EQ(form.ImConst[1].Text(), "0.050000");
  EXPECT_EQ(form.optCnst.Index(), 0);
  EXPECT_FALSE(form.ImConst[2].Enabled());
}

TEST_F(frmDialogCalibCTest, AFirstSpectrumWithACurvedCalibrationSelectsTheParabola) {
  SetStartCalibration(0.25, 0.05, 1e-7);
  form.Open();
  EXPECT_EQ(form.optCnst.Index(), 1);
  EXPECT_TRUE(form.ImConst[2].Enabled());
  EXPECT_THAT(Coefficients(), ElementsAre(0.25, 0.05, 1e-7));
}

TEST_F(frmDialogCalibCTest, AfterAParabolaAStraightLineIsShownAsOne) {
  SetStartCalibration(0.25, 0.05, 1e-7);
  form.Open();
  form.cmdCalbCan.Press();
  SetStartCalibration(0.25, 0.05, 0);
  form.Open();
  EXPECT_EQ(form.optCnst.Index(), 0);
  EXPECT_THAT(Coefficients(), ElementsAre(0.25, 0.05, 0));
}

TEST_F(frmDialogCalibCTest, TheMainFormCalibratesWhileTheDialogIsOpen) {
  form.Open();
  EXPECT_EQ(view.CalibrationOn, kTrue);
  EXPECT_THAT(host.Shown(), ElementsAre("frmDialogCalibC"));
  form.cmdCalbCan.Press();
  EXPECT_EQ(view.CalibrationOn, kFalse);
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(listener.Count("buttons"), 2);
}

TEST_F(frmDialogCalibCTest, EveryWayOutEndsTheCalibration) {
  form.Open();
  form.QueryClose();
  EXPECT_EQ(view.CalibrationOn, kFalse);
  form.Open();
  form.mnuCancel.Choose();
  EXPECT_EQ(view.CalibrationOn, kFalse);
  form.Open();
  form.Hide();
  EXPECT_EQ(view.CalibrationOn, kFalse);
}

TEST_F(frmDialogCalibCTest, OpenAlreadyItOnlyComesToTheFront) {
  form.Open();
  form.ImConst[0].Type("7");
  form.Open();
  EXPECT_EQ(form.ImConst[0].Value(), 7);
  EXPECT_EQ(listener.Count("buttons"), 1);
}

TEST_F(frmDialogCalibCTest, TheTableSurvivesBetweenOpenings) {
  form.Open();
  Type(1, "10", "1.5");
  form.cmdCalbCan.Press();
  form.Open();
  EXPECT_THAT(Cells(1), ElementsAre("10", "1.5", "", ""));
}

TEST_F(frmDialogCalibCTest, NothingIsLoadedFromTheStoredTable) {
  folder.Put("Calib_Data.txt", "10,  1.5,  a,  b,  \r\n \r\n");
  form.Open();
  EXPECT_THAT(Cells(1), ElementsAre("", "", "", ""));
}

// ---- files

TEST_F(frmDialogCalibCTest, OpenedFilesStandInTheirTableAndTheLastIsCurrent) {
  form.Open();
  chosen = {File("a.xbm"), File("b.xbm")};
  form.cmdFileOpen.Press();
  EXPECT_THAT(FileNames(), ElementsAre("a.xbm", "b.xbm"));
  EXPECT_EQ(form.sprdFileName.ActiveRow(), 2);
  EXPECT_EQ(Row(view.GraphNo).Title, "b.xbm");
  chosen = {File("c.xbm")};
  form.mnuFileOpen.Choose();
  EXPECT_THAT(FileNames(), ElementsAre("a.xbm", "b.xbm", "c.xbm"));
}

TEST_F(frmDialogCalibCTest, CancelledChoiceOpensNothing) {
  form.Open();
  form.cmdFileOpen.Press();
  EXPECT_THAT(FileNames(), IsEmpty());
}

TEST_F(frmDialogCalibCTest, TheTwentyFirstFileIsRefused) {
  form.Open();
  for (int i = 0; i < 20; ++i) chosen.push_back(File(std::to_string(i) + ".xbm"));
  form.cmdFileOpen.Press();
  EXPECT_EQ(form.sprdFileName.MaxRows(), 20);
  dialogs.ExpectMessage("Can not open more file (Max=20)");
  form.cmdFileOpen.Press();
  EXPECT_EQ(choices, 1);
}

TEST_F(frmDialogCalibCTest, AClickOnAFileBringsItsSpectrumIntoTheWindow) {
  form.Open();
  chosen = {File("a.xbm"), File("b.xbm")};
  form.cmdFileOpen.Press();
  form.sprdFileName.PressCell(1, 1);
  EXPECT_EQ(Row(view.GraphNo).Title, "a.xbm");
  EXPECT_EQ(form.GrpNo(), 0);
  EXPECT_EQ(form.WinNo(), 0);
}

TEST_F(frmDialogCalibCTest, AFileIsDeletedWithItsGraph) {
  form.Open();
  chosen = {File("a.xbm"), File("b.xbm")};
  form.cmdFileOpen.Press();
  form.sprdFileName.PressCell(1, 1);
  form.cmdDelFile.Press();
  EXPECT_THAT(FileNames(), ElementsAre("b.xbm"));
  EXPECT_THAT(Titles(), ElementsAre("b.xbm"));
  form.cmdDelFile.Press();
  form.cmdDelFile.Press();
  EXPECT_THAT(FileNames(), IsEmpty());
}

TEST_F(frmDialogCalibCTest, ExitClosesWhatTheDialogOpenedAndNoOther) {
  Show({1}, "own.npd");
  form.Open();
  chosen = {File("a.xbm")};
  form.cmdFileOpen.Press();
  form.cmdCalbCan.Press();
  EXPECT_THAT(Titles(), ElementsAre("own.npd"));
  form.Open();
  EXPECT_THAT(FileNames(), IsEmpty());
}

TEST_F(frmDialogCalibCTest, ExitClosesTheCurvesOfTheSpectraAndLeavesThoseOfOtherGraphs) {
  ShowPeak(500, "own");
  SmoothGraph(program);
  form.Open();
  chosen = {File("a.xbm"), File("b.xbm")};
  form.cmdFileOpen.Press();
  form.cmdSmothBk.Press();
  form.sprdFileName.PressCell(2, 1);
  form.cmdDelFile.Press();
  form.cmdCalbCan.Press();
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "own.npd"));
}

TEST_F(frmDialogCalibCTest, ExitAsksForUnsavedDataAndStaysWhereItIsKept) {
  form.Open();
  chosen = {File("a.xbm")};
  form.cmdFileOpen.Press();
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", false);
  form.cmdCalbCan.Press();
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(view.CalibrationOn, kTrue);
  EXPECT_THAT(FileNames(), ElementsAre("a.xbm"));
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", true);
  form.cmdCalbCan.Press();
  EXPECT_FALSE(form.Visible());
}

// ---- smoothing and fits

TEST_F(frmDialogCalibCTest, SmoothingMakesItsCurvesAndOpensTheFits) {
  ShowPeak(500, "a");
  form.Open();
  EXPECT_FALSE(form.cmdAuto[0].Enabled());
  EXPECT_FALSE(form.cmdAuto[1].Enabled());
  form.cmdSmothBk.Press();
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "Smooth", "a.npd"));
  EXPECT_FALSE(form.cmdSmothBk.Enabled());
  EXPECT_TRUE(form.cmdAuto[0].Enabled());
  EXPECT_TRUE(form.cmdAuto[1].Enabled());
}

TEST_F(frmDialogCalibCTest, TheSmoothingButtonStaysOffUntilTheDialogIsOpenedAgain) {
  ShowPeak(500, "a");
  form.Open();
  form.cmdSmothBk.Press();
  form.cmdCalEng.Press();
  form.Open();
  EXPECT_FALSE(form.cmdSmothBk.Enabled());
  form.cmdCalbCan.Press();
  form.Open();
  EXPECT_TRUE(form.cmdSmothBk.Enabled());
  EXPECT_FALSE(form.cmdAuto[0].Enabled());
}

TEST_F(frmDialogCalibCTest, InAFullListTheOtherSpectraMakeRoomForTheCurvesAndComeBackByAClick) {
  form.Open();
  for (int i = 0; i < 10; ++i) chosen.push_back(File(std::to_string(i) + ".xbm"));
  form.cmdFileOpen.Press();
  form.cmdSmothBk.Press();
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "Smooth", "4.xbm", "5.xbm", "6.xbm",
                                    "7.xbm", "8.xbm", "9.xbm"));
  EXPECT_EQ(form.sprdFileName.MaxRows(), 10);
  EXPECT_FALSE(form.cmdSmothBk.Enabled());
  form.sprdFileName.PressCell(1, 1);
  EXPECT_EQ(Row(view.GraphNo).Title, "0.xbm");
}

TEST_F(frmDialogCalibCTest, WithoutASpectrumTheSmoothingButtonStaysOn) {
  form.Open();
  form.cmdSmothBk.Press();
  EXPECT_TRUE(form.cmdSmothBk.Enabled());
  EXPECT_FALSE(form.cmdAuto[1].Enabled());
}

TEST_F(frmDialogCalibCTest, AFaultOfTheSmoothingIsToldAndLeavesTheButtons) {
  ShowPeak(500, "a");
  workspace.FitParam.SmoothKind = 99;
  form.Open();
  dialogs.ExpectMessage(Fault(FaultCode::Subscript).what());
  form.cmdSmothBk.Press();
  EXPECT_TRUE(form.cmdSmothBk.Enabled());
}

TEST_F(frmDialogCalibCTest, BothFitsOpenTheSameWindowForTheCurrentGraphAsIsMeant) {
  ShowPeak(500, "a");
  ShowPeak(300, "b");
  form.Open();
  form.cmdAuto[0].Press();
  form.cmdAuto[1].Press();
  EXPECT_THAT(fitted, ElementsAre(1, 1));
}

TEST_F(frmDialogCalibCTest, DelFitRemovesThePeakAtTheCursor) {
  ShowPeak(500, "a");
  CsrX_Change(program, 500);
  form.Open();
  form.cmdFitDel.Press();
  EXPECT_EQ(workspace.Peaks[0].Count, 0);
  EXPECT_EQ(view.CurWin, 1);
}

// ---- the line table

TEST_F(frmDialogCalibCTest, TheFittedPositionNearTheCursorGoesIntoTheActiveRow) {
  ShowPeak(499.75, "ref");
  CsrX_Change(program, 480);
  form.Open();
  form.cmdCsrSet.Press();
  EXPECT_THAT(Cells(1), ElementsAre("500.7500", "", "", "ref"));
  EXPECT_EQ(form.vaSpread1.ActiveRow(), 2);
}

TEST_F(frmDialogCalibCTest, WithoutAPeakTheCursorGoesInAndTheSourceStays) {
  Show({1, 2, 3}, "a.npd");
  CsrX_Change(program, 2);
  form.Open();
  form.vaSpread1.EditCell(1, kSource, "typed");
  form.cmdCsrSet.Press();
  EXPECT_THAT(Cells(1), ElementsAre("3", "", "", "typed"));
}

TEST_F(frmDialogCalibCTest, AFilledCellIsOverwrittenOnlyOnYes) {
  ShowPeak(499.75, "ref");
  form.Open();
  Type(1, "7", "1");
  dialogs.ExpectQuestion("Over write?", false);
  form.cmdCsrSet.Press();
  EXPECT_THAT(Cells(1), ElementsAre("7", "1", "", ""));
  EXPECT_EQ(form.vaSpread1.ActiveRow(), 1);
  dialogs.ExpectQuestion("Over write?", true);
  form.cmdCsrSet.Press();
  EXPECT_THAT(Cells(1), ElementsAre("500.7500", "1", "", "ref"));
}

TEST_F(frmDialogCalibCTest, InTheLastRowThePointerStays) {
  ShowPeak(499.75, "ref");
  form.Open();
  form.vaSpread1.SetActiveRow(30);
  form.cmdCsrSet.Press();
  EXPECT_EQ(form.vaSpread1.Text(30, kChannel), "500.7500");
  EXPECT_EQ(form.vaSpread1.ActiveRow(), 30);
}

TEST_F(frmDialogCalibCTest, AnElementsLineGoesIntoTheRowThatIsActiveThen) {
  form.Open();
  form.cmdEnergyInp.Press();
  form.vaSpread1.SetActiveRow(2);
  take({1, 8.04778, "Cu Ka1"});
  EXPECT_THAT(Cells(2), ElementsAre("", "8.0478", "Cu Ka1", ""));
  form.mnuElmTable.Choose();
  take({1, 17.5, "Mo Ka1"});
  EXPECT_EQ(form.vaSpread1.Text(2, kEnergy), "17.5000");
  form.cmdCalbCan.Press();
  EXPECT_FALSE(take);
}

TEST_F(frmDialogCalibCTest, ADeletedLineLetsTheRowsBelowMoveUp) {
  form.Open();
  for (int row = 1; row <= 30; ++row) Type(row, std::to_string(row), std::to_string(100 + row));
  form.vaSpread1.EditCell(3, kCharacter, "third");
  form.vaSpread1.SetActiveRow(2);
  form.cmdDelTable.Press();
  EXPECT_THAT(Cells(1), ElementsAre("1", "101", "", ""));
  EXPECT_THAT(Cells(2), ElementsAre("3", "103", "third", ""));
  EXPECT_THAT(Cells(29), ElementsAre("30", "130", "", ""));
  EXPECT_THAT(Cells(30), ElementsAre("", "", "", ""));
  form.mnuDelPoint.Choose();
  EXPECT_THAT(Cells(2), ElementsAre("4", "104", "", ""));
  EXPECT_EQ(form.vaSpread1.RowTitle(2), "2");
}

// ---- calculation. Points of E = 1 + 0.5 n, which a line for channel numbers gives back.

class frmDialogCalibCFitTest : public frmDialogCalibCTest {
 protected:
  frmDialogCalibCFitTest() {
    form.Open();
    Type(1, "2", "2");
    Type(2, "4", "3");
    Type(3, "8", "5");
  }
};

TEST_F(frmDialogCalibCFitTest, CalculatesTheStraightLine) {
  form.cmdCalEng.Press();
  EXPECT_NEAR(form.ImConst[0].Value(), 1, kRounding);
  EXPECT_NEAR(form.ImConst[1].Value(), 0.5, kRounding);
  EXPECT_EQ(form.ImConst[2].Value(), 0);
  EXPECT_EQ(form.lblHint.Caption(), "3 lines, at most 0.0 eV off");
}

// 0, -0.003 and 0 keV in the indices 0, 1, 2 lie 1, -2 and 1 eV off their level line.
TEST_F(frmDialogCalibCFitTest, TheWorstLineCanLieBelowTheCurve) {
  Type(1, "1", "0");
  Type(2, "2", "-0.003");
  Type(3, "3", "0");
  form.cmdCalEng.Press();
  EXPECT_EQ(form.lblHint.Caption(), "3 lines, at most 2.0 eV off");
}

// In indices x = n - 1 the same points lie on E = 1.5 + 0.5 x.
TEST_F(frmDialogCalibCFitTest, TheParabolaHoldsForIndicesAsIsMeant) {
  form.optCnst.SetIndex(1);
  form.cmdCalEng.Press();
  EXPECT_NEAR(form.ImConst[0].Value(), 1.5, 1e-9);
  EXPECT_NEAR(form.ImConst[1].Value(), 0.5, 1e-9);
  EXPECT_NEAR(form.ImConst[2].Value(), 0, 1e-9);
}

// y = x^2 at x = 1, 3, 7.
TEST_F(frmDialogCalibCFitTest, TheParabolaHasItsThirdCoefficient) {
  form.optCnst.SetIndex(1);
  Type(1, "2", "1");
  Type(2, "4", "9");
  Type(3, "8", "49");
  form.cmdCalEng.Press();
  EXPECT_NEAR(form.ImConst[0].Value(), 0, 1e-9);
  EXPECT_NEAR(form.ImConst[1].Value(), 0, 1e-9);
  EXPECT_NEAR(form.ImConst[2].Value(), 1, 1e-9);
}

TEST_F(frmDialogCalibCFitTest, AGapInTheTableEndsThePoints) {
  Type(3, "", "");
  Type(4, "10", "99");
  form.cmdCalEng.Press();
  EXPECT_NEAR(form.ImConst[1].Value(), 0.5, kRounding);
  EXPECT_THAT(form.lblHint.Caption(), HasSubstr("2 lines"));
}

TEST_F(frmDialogCalibCFitTest, WithoutPointsNothingHappens) {
  Type(1, "", "2");
  form.optCnst.SetIndex(1);
  form.ImConst[2].Type("0.125");
  form.cmdCalEng.Press();
  EXPECT_THAT(Coefficients(), ElementsAre(0.25, 0.05, 0.125));
  EXPECT_THAT(form.lblHint.Caption(), HasSubstr("stay as they are"));
}

TEST_F(frmDialogCalibCFitTest, TooFewPointsKeepTheFirstTwoBoxesAndClearTheThird) {
  Type(3, "", "");
  form.optCnst.SetIndex(1);
  form.ImConst[2].Type("0.125");
  form.cmdCalEng.Press();
  EXPECT_THAT(Coefficients(), ElementsAre(0.25, 0.05, 0));
  EXPECT_THAT(form.lblHint.Caption(), HasSubstr("three different channels"));
}

TEST_F(frmDialogCalibCFitTest, OnePointGivesNoLine) {
  Type(2, "", "");
  form.cmdCalEng.Press();
  EXPECT_THAT(Coefficients(), ElementsAre(0.25, 0.05, 0));
  EXPECT_THAT(form.lblHint.Caption(), HasSubstr("two different channels"));
}

TEST_F(frmDialogCalibCFitTest, ACellThatIsNoNumberIsToldAndNothingChanges) {
  Type(2, "four", "3");
  dialogs.ExpectMessage(Fault(FaultCode::NotANumber, "row 2, \"four\"").what());
  form.cmdCalEng.Press();
  EXPECT_THAT(Coefficients(), ElementsAre(0.25, 0.05, 0));
  dialogs.ExpectMessage(Fault(FaultCode::NotANumber, "row 2, \"four\"").what());
  form.cmdCurve.Press();
  EXPECT_THAT(curves, IsEmpty());
}

TEST_F(frmDialogCalibCFitTest, TheStraightLineHasNoThirdCoefficient) {
  form.optCnst.SetIndex(1);
  form.ImConst[2].Type("0.125");
  form.optCnst.SetIndex(0);
  EXPECT_EQ(form.ImConst[2].Value(), 0);
  EXPECT_FALSE(form.ImConst[2].Enabled());
}

TEST_F(frmDialogCalibCFitTest, ATypedCoefficientIsTakenAsTyped) {
  form.ImConst[0].Type("0.12345678901");
  EXPECT_EQ(form.ImConst[0].Text(), "0.123457");
  form.vaSpread1.EditCell(1, kChannel, "");
  Update();
  EXPECT_EQ(workspace.DefaultProp.EGC[0], 0.12345678901);
}

// ---- update

TEST_F(frmDialogCalibCFitTest, UpdateCalculatesStoresShowsAndStaysOpen) {
  Update();
  EXPECT_NEAR(workspace.DefaultProp.EGC[0], 1, kRounding);
  EXPECT_NEAR(workspace.DefaultProp.EGC[1], 0.5, kRounding);
  EXPECT_EQ(workspace.DefaultProp.EGC[2], 0);
  EXPECT_NEAR(EnergyToCh(5, workspace.DefaultProp.EGC), 8, 1e-9);
  EXPECT_NEAR(form.ImConst[0].Value(), 1, kRounding);
  EXPECT_NEAR(form.ImConst[1].Value(), 0.5, kRounding);
  EXPECT_EQ(form.lblHint.Caption(), "3 lines, at most 0.0 eV off");
  EXPECT_GE(listener.Count("axis"), 1);
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(folder.Get("Calib_Data.txt"),
            "2,  2,  ,  ,  \r\n \r\n4,  3,  ,  ,  \r\n \r\n8,  5,  ,  ,  \r\n \r\n"
            "E = A + Bx\r\n \r\n1.000000\r\n0.500000\r\n");
}

TEST_F(frmDialogCalibCFitTest, TheUpdatedCalibrationIsThereAtTheNextStart) {
  form.optCnst.SetIndex(1);
  dialogs.ExpectMessage("Parameter saved as " + folder.Path("Calib_Data.txt"));
  form.mnuUpdate.Choose();
  const EgcCoef updated = workspace.DefaultProp.EGC;
  form.cmdCalbCan.Press();
  Program next({dialogs, files, log, progress, views}, folder.Path(""));
  Form_Load(next, folder.Path(""));
  EXPECT_EQ(next.workspace.DefaultProp.EGC, updated);
}

TEST_F(frmDialogCalibCFitTest, UpdateWithoutPointsStoresTheEarlierValuesAllTheSame) {
  Type(1, "", "");
  Update();
  EXPECT_EQ(workspace.DefaultProp.EGC[0], 0.25);
  EXPECT_EQ(workspace.DefaultProp.EGC[1], 0.05);
  EXPECT_NE(folder.Get("syspara_a.xpr"), "");
}

TEST_F(frmDialogCalibCFitTest, ExitKeepsWhatUpdateHasStored) {
  Update();
  form.cmdCalbCan.Press();
  EXPECT_NEAR(workspace.DefaultProp.EGC[1], 0.5, kRounding);
}

// ---- curve

TEST_F(frmDialogCalibCFitTest, ShowHandsPointsCoefficientsAndMemoOver) {
  form.optCnst.SetIndex(1);
  form.cmdCalEng.Press();
  form.cmdCurve.Press();
  ASSERT_EQ(curves.size(), 1u);
  EXPECT_THAT(curves[0].points, ElementsAre(Point{1, 2}, Point{3, 3}, Point{7, 5}));
  EXPECT_NEAR(curves[0].coefficients[0], 1.5, 1e-9);
  EXPECT_EQ(curves[0].form, 1);
  EXPECT_THAT(curves[0].memo, testing::StartsWith("Energy(keV) = (1.5e+000) + (5.e-001)*Ch"));
}

// The line is for channel numbers, the points of the curve have indices: 1 + 0.5 (x + 1).
TEST_F(frmDialogCalibCFitTest, TheLineIsHandedOverForIndices) {
  form.cmdCalEng.Press();
  form.mnuShow.Choose();
  ASSERT_EQ(curves.size(), 1u);
  EXPECT_NEAR(curves[0].coefficients[0], 1.5, kRounding);
  EXPECT_NEAR(curves[0].coefficients[1], 0.5, kRounding);
  EXPECT_THAT(curves[0].memo, testing::StartsWith("Energy(keV) = (1.e+000) + (5.e-001)*Ch"));
}

TEST_F(frmDialogCalibCTest, ShowWithoutPointsShowsTheCurveAlone) {
  form.Open();
  form.cmdCurve.Press();
  ASSERT_EQ(curves.size(), 1u);
  EXPECT_THAT(curves[0].points, IsEmpty());
}

}  // namespace
}  // namespace dorvane
