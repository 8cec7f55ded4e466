#include "forms/frmPeakReport.h"

#include <gmock/gmock.h>

#include <functional>

#include "forms/FakePrinter.h"
#include "forms/FormFixture.h"
#include "processing/Units.h"
#include "program/Cursor.h"
#include "program/PeakFixture.h"
#include "program/PeakReport.h"
#include "support/MemorySettings.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double kThird = 1.0 / 3;  // has no seven-digit text of its own

// Row 0: a curve "Fit"; row 1: a spectrum with two peaks. E = 0.5 + 0.02 n + 1E-6 n^2 keV.
class frmPeakReportTest : public PeakFitTest {
 protected:
  frmPeakReportTest() {
    workspace.DefaultProp.EGC[0] = 0.5;
    workspace.DefaultProp.EGC[1] = 0.02;
    workspace.DefaultProp.EGC[2] = 1e-6;
    workspace.DefaultProp.TwoTheta = 6;
    Show(std::vector<std::int32_t>(2048, 0), "Fit");
    data_no = Show(std::vector<std::int32_t>(2048, 7), "a.npd");
    Fitted({1234.5, 99.5, 1.5}, 5000.25, 0.75, kEngineExpress);
    Fitted({98765.4321, 1500.25, 2.1234567}, 1234567.891, 1, kEngineNax);
  }
  void Fitted(const Line& line, double area, double gauss, std::int16_t engine) {
    PeakRec& peak = Enter(data_no, line, 90, 110);
    peak.FitDone = kTrue;
    peak.FuncType = kMix;
    peak.Amplitude = area;
    peak.GaussRatio = gauss;
    peak.FitEngine = engine;
  }
  void Work(const std::function<void()>& work) {
    host.ExpectModal([this, work](Form&) {
      work();
      form.cmdClose.Press();
    });
    form.Open(0);
  }
  std::vector<std::string> Texts(int row) const {
    std::vector<std::string> texts;
    for (int column = 1; column <= form.sprPeakInf.Columns(); ++column) {
      texts.push_back(form.sprPeakInf.Text(row, column));
    }
    return texts;
  }
  std::vector<std::string> ErrorTexts(int row) const {
    std::vector<std::string> texts;
    for (int column = 1; column <= form.sprPeakErr.Columns(); ++column) {
      texts.push_back(form.sprPeakErr.Text(row, column));
    }
    return texts;
  }
  void Type(int row, int column, const char* text) { form.sprPeakInf.EditCell(row, column, text); }
  PeakTable& Table() { return workspace.Peaks[data_no]; }

  std::int16_t data_no = 0;
  ScriptedFormHost host;
  MemorySettings settings;
  FakePrinter printer;
  frmPrint ask{program, host, settings};
  frmPreView preview{host};
  Printing printing{program, ask, preview, printer};
  frmPeakReport form{program, host, printing};
};

TEST_F(frmPeakReportTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Peak Report");
  EXPECT_EQ(form.cmdPkSet.Caption(), "SET");
  EXPECT_EQ(form.cmdSave.Caption(), "Save as..");
  EXPECT_THAT(form.sprPeakInf.Headings(),
              ElementsAre("Peak(Ch)", "Peak(Ch)", "Intensity", "FWHM(Ch)", "FWHM(keV)", "FWHM(dA)",
                          "Amplitude", "Gauss%", "FitType"));
}

// U+212B is the angstrom sign.
TEST_F(frmPeakReportTest, SecondHeadingFollowsTheDisplayUnit) {
  const char* const expected[] = {"Peak(Ch)",     "Peak(keV)",     "Peak(eV)", "Peak(d:\u212B)",
                                  "Peak(\u212B)", "Peak(Q\u212B)", "Peak(2θ)"};
  for (std::int16_t unit = 0; unit < kUnits; ++unit) {
    view.DispUnit = unit;
    Work([&] { EXPECT_EQ(form.sprPeakInf.Headings()[1], expected[unit]); });
  }
}

// Composed from the formulas of the units by a Python computation of its own.
TEST_F(frmPeakReportTest, EveryPeakHasARowOfNineColumns) {
  view.DispUnit = kUnitD;
  Work([this] {
    EXPECT_THAT(Texts(1), ElementsAre("100.5", "47.00101", "1234.5", "3", "0.060009", "1.130435",
                                      "5000.25", "75", "E"));
    EXPECT_THAT(Texts(2), ElementsAre("1501.25", "3.613538", "98765.43", "4.246913", "0.0849563",
                                      "0.01076935", "1234568", "100", "N"));
  });
}

TEST_F(frmPeakReportTest, PeakAt99AndAHalfWithHalfWidth1AndAHalfShows100AndAHalfAnd3) {
  Work([this] {
    EXPECT_EQ(form.sprPeakInf.Text(1, frmPeakReport::kPeakCh), "100.5");
    EXPECT_EQ(form.sprPeakInf.Text(1, frmPeakReport::kFwhmCh), "3");
  });
}

TEST_F(frmPeakReportTest, ColumnOfDIsZeroWithoutADetectorAngle) {
  workspace.DefaultProp.TwoTheta = 0;
  Work([this] {
    for (int row = 1; row <= 2; ++row) {
      EXPECT_EQ(form.sprPeakInf.Text(row, frmPeakReport::kFwhmD), "0");
    }
  });
}

TEST_F(frmPeakReportTest, CalibrationIsThatOfTheFileWhereItIsChosen) {
  workspace.Spectra[data_no].Prop.EGC[0] = 0;
  workspace.Spectra[data_no].Prop.EGC[1] = 0.1;
  workspace.Spectra[data_no].Prop.EGC[2] = 0;
  workspace.UseFileEgc = -1;
  view.DispUnit = kUnitKeV;
  Work([this] {
    EXPECT_EQ(form.sprPeakInf.Text(1, frmPeakReport::kPeakUnit), "10.05");
    EXPECT_EQ(form.sprPeakInf.Text(1, frmPeakReport::kFwhmKeV), "0.3");
  });
}

TEST_F(frmPeakReportTest, EmptyTableHasNoRows) {
  Table().Count = 0;
  Work([this] {
    EXPECT_EQ(form.sprPeakInf.MaxRows(), 0);
    EXPECT_THAT(form.lblHint.Caption(), HasSubstr("no peaks"));
    form.cmdPkSet.Press();
  });
}

TEST_F(frmPeakReportTest, HintNamesTheGraphAndCountsItsPeaks) {
  Work([this] { EXPECT_THAT(form.lblHint.Caption(), HasSubstr("a.npd: 2 peaks.")); });
  Table().Count = 1;
  Work([this] { EXPECT_THAT(form.lblHint.Caption(), HasSubstr("a.npd: 1 peak.")); });
}

TEST_F(frmPeakReportTest, FourColumnsCanBeTyped) {
  std::vector<int> editable;
  for (int column = 1; column <= form.sprPeakInf.Columns(); ++column) {
    if (form.sprPeakInf.EditableColumn(column)) editable.push_back(column);
  }
  EXPECT_THAT(editable, ElementsAre(frmPeakReport::kPeakCh, frmPeakReport::kIntensity,
                                    frmPeakReport::kFwhmCh, frmPeakReport::kGaussPercent));
}

TEST_F(frmPeakReportTest, RowZeroIsMeantToStandForTheCurrentGraph) {
  Work([this] { EXPECT_EQ(form.GrpNo, 1); });
  Change_cboGrphSel(list, 0, 0);
  Work([this] { EXPECT_EQ(form.GrpNo, 0); });
}

TEST_F(frmPeakReportTest, WindowIsThatOfTheCurrentGraph) {
  Work([this] { EXPECT_EQ(form.WinNo, 0); });
  workspace.Slots[1].WinNo = 1;
  ChangeActiveWin(list, 1);
  Work([this] { EXPECT_EQ(form.WinNo, 1); });
}

TEST_F(frmPeakReportTest, OtherRowsAreShownAsTheyAreAskedFor) {
  Show({1, 2, 3}, "b.npd");
  host.ExpectModal([this](Form&) {
    EXPECT_EQ(form.sprPeakInf.MaxRows(), 2);
    form.Hide();
  });
  form.Open(1);
}

TEST_F(frmPeakReportTest, RowWithoutAGraphIsNotReported) {
  form.Open(5);
  EXPECT_THAT(host.Shown(), IsEmpty());
}

TEST_F(frmPeakReportTest, ClickMovesTheCursorToThePeakRounded) {
  Work([this] {
    form.sprPeakInf.PressCell(2, 3);
    EXPECT_EQ(view.CursorCh, 1500);
    form.sprPeakInf.PressCell(1, 9);
    EXPECT_EQ(view.CursorCh, 100);
  });
}

TEST_F(frmPeakReportTest, ClickOutsideOfThePeaksIsIgnored) {
  CsrX_Change(program, 77);
  Work([this] {
    form.sprPeakInf_Click(0, 1);
    form.sprPeakInf_Click(3, 1);
  });
  EXPECT_EQ(view.CursorCh, 77);
}

TEST_F(frmPeakReportTest, SetWithUntouchedCellsKeepsEveryFieldToTheLastBit) {
  PeakRec& peak = Table().Peaks[0];
  peak.Center = 99 + kThird;
  peak.Height = 1000 * kThird;
  peak.HalfWidth = kThird;
  peak.Amplitude = 100 * kThird;
  peak.GaussRatio = kThird;
  const PeakTable before = Table();
  Work([this] { form.cmdPkSet.Press(); });
  EXPECT_EQ(Table(), before);
}

TEST_F(frmPeakReportTest, SetTakesTheFourTypedColumnsOver) {
  PeakTable expected = Table();
  expected.Peaks[0].Center = 110.25;
  expected.Peaks[0].Height = 2000;
  expected.Peaks[0].HalfWidth = 2.5;
  expected.Peaks[0].GaussRatio = 0.5;
  Work([this] {
    Type(1, frmPeakReport::kPeakCh, "111.25");
    Type(1, frmPeakReport::kIntensity, " 2E3 ");
    Type(1, frmPeakReport::kFwhmCh, "5");
    Type(1, frmPeakReport::kGaussPercent, "50");
    form.cmdPkSet.Press();
  });
  EXPECT_EQ(Table(), expected);
}

TEST_F(frmPeakReportTest, AreaIsMeantToStayWhenTheHeightIsTyped) {
  Work([this] {
    Type(1, frmPeakReport::kIntensity, "1");
    form.cmdPkSet.Press();
    EXPECT_EQ(form.sprPeakInf.Text(1, frmPeakReport::kAmplitude), "5000.25");
  });
  EXPECT_EQ(Table().Peaks[0].Amplitude, 5000.25);
}

TEST_F(frmPeakReportTest, AreaAndEngineAreThoseOfTheirCells) {
  Work([this] {
    form.sprPeakInf.SetText(1, frmPeakReport::kAmplitude, "12");
    form.sprPeakInf.SetText(1, frmPeakReport::kFitType, "N");
    form.sprPeakInf.SetText(2, frmPeakReport::kFitType, "E");
    form.cmdPkSet.Press();
  });
  EXPECT_EQ(Table().Peaks[0].Amplitude, 12);
  EXPECT_EQ(Table().Peaks[0].FitEngine, kEngineNax);
  EXPECT_EQ(Table().Peaks[1].FitEngine, kEngineExpress);
}

// ---- standard errors

TEST_F(frmPeakReportTest, StandardErrorsStandInAGridOfTheirOwn) {
  EXPECT_EQ(form.lblPeakErr.Caption(), "Standard error");
  view.DispUnit = kUnitKeV;
  Table().Peaks[1].Errors = {
      .Height = 31.25, .GaussRatio = 0.015, .HalfWidth = 0.25, .Center = 0.5};
  Work([this] {
    EXPECT_THAT(form.sprPeakErr.Headings(), ElementsAre("Peak(Ch)", "Peak(keV)", "Intensity",
                                                        "FWHM(Ch)", "FWHM(keV)", "Gauss%"));
    EXPECT_THAT(ErrorTexts(1), ElementsAre("", "", "", "", "", ""));
    // The slope of the calibration is 0.0230025 keV a channel there.
    EXPECT_THAT(ErrorTexts(2), ElementsAre("0.5", "0.0115", "31.3", "0.5", "0.01", "1.5"));
  });
}

TEST_F(frmPeakReportTest, ErrorsCannotBeTyped) {
  for (int column = 1; column <= form.sprPeakErr.Columns(); ++column) {
    EXPECT_FALSE(form.sprPeakErr.EditableColumn(column));
  }
}

TEST_F(frmPeakReportTest, RowsOfValuesAndErrorsAreInStep) {
  Work([this] {
    form.sprPeakErr.PressCell(2, 1);
    EXPECT_EQ(view.CursorCh, 1500);
    EXPECT_EQ(form.sprPeakInf.ActiveRow(), 2);
    form.sprPeakInf.SetActiveRow(1);
    EXPECT_EQ(form.sprPeakErr.ActiveRow(), 1);
  });
}

TEST_F(frmPeakReportTest, TypedValueLosesItsErrorAndNoOther) {
  Table().Peaks[0].Errors = {.Height = 1, .GaussRatio = 2, .HalfWidth = 3, .Center = 4};
  const std::pair<int, PeakErrors> left[] = {
      {frmPeakReport::kPeakCh, {.Height = 1, .GaussRatio = 2, .HalfWidth = 3}},
      {frmPeakReport::kIntensity, {.GaussRatio = 2, .HalfWidth = 3, .Center = 4}},
      {frmPeakReport::kFwhmCh, {.Height = 1, .GaussRatio = 2, .Center = 4}},
      {frmPeakReport::kGaussPercent, {.Height = 1, .HalfWidth = 3, .Center = 4}}};
  const PeakTable before = Table();
  for (const auto& typed : left) {
    Table() = before;
    Work([this, &typed] {
      Type(1, typed.first, "50");
      form.cmdPkSet.Press();
    });
    EXPECT_EQ(Table().Peaks[0].Errors, typed.second) << typed.first;
  }
}

TEST_F(frmPeakReportTest, SetWithUntouchedCellsKeepsTheErrors) {
  Table().Peaks[0].Errors = {.Height = 1, .GaussRatio = 2, .HalfWidth = 3, .Center = 4};
  const PeakTable before = Table();
  Work([this] { form.cmdPkSet.Press(); });
  EXPECT_EQ(Table(), before);
}

TEST_F(frmPeakReportTest, SaveWritesTheKnownErrorsBesideTheReport) {
  Table().Peaks[0].Errors.Height = 12.5;
  dialogs.ExpectSave(folder.Path("r.csv"));
  Work([this] { form.cmdSave.Press(); });
  EXPECT_THAT(folder.Get("r_errors.csv"), HasSubstr("100.5000,,,12.5,,,,E\r\n"));
}

TEST_F(frmPeakReportTest, SetLeavesFitDone) {
  Table().Peaks[0].FitDone = 0;
  Work([this] {
    Type(1, frmPeakReport::kIntensity, "1");
    form.cmdPkSet.Press();
  });
  EXPECT_EQ(Table().Peaks[0].FitDone, 0);
}

TEST_F(frmPeakReportTest, SetShowsTheRowsAnew) {
  Work([this] {
    Type(1, frmPeakReport::kPeakCh, "1601");
    form.cmdPkSet.Press();
    EXPECT_EQ(form.sprPeakInf.Text(1, frmPeakReport::kPeakCh), "1501.25");
    EXPECT_EQ(form.sprPeakInf.Text(2, frmPeakReport::kPeakCh), "1601");
    EXPECT_EQ(form.sprPeakInf.Text(2, frmPeakReport::kPeakUnit), "1601");
  });
}

TEST_F(frmPeakReportTest, SetKeepsTheCurrentRow) {
  Work([this] {
    form.sprPeakInf.SetActiveRow(2);
    form.cmdPkSet.Press();
    EXPECT_EQ(form.sprPeakInf.ActiveRow(), 2);
    EXPECT_EQ(form.sprPeakErr.ActiveRow(), 2);
  });
}

TEST_F(frmPeakReportTest, SetCalculatesTheCurveOfTheFirstGraph) {
  Work([this] {
    Type(1, frmPeakReport::kPeakCh, "101");
    Type(1, frmPeakReport::kIntensity, "500");
    form.cmdPkSet.Press();
  });
  EXPECT_EQ(CountsOf(Row(0).DataNo)[100], 500);
  EXPECT_EQ(workspace.Peaks[Row(0).DataNo], Table());
  EXPECT_EQ(view.GraphNo, 1);
}

TEST_F(frmPeakReportTest, CellThatIsNoNumberChangesNothing) {
  const PeakTable before = Table();
  for (const char* text : {"", "wide", "1,5", "1 2", "1e999"}) {
    dialogs.ExpectMessage("Not a number");
    Work([&] {
      Type(1, frmPeakReport::kIntensity, "1");
      Type(2, frmPeakReport::kFwhmCh, text);
      form.cmdPkSet.Press();
      EXPECT_EQ(form.sprPeakInf.Text(2, frmPeakReport::kFwhmCh), text);
    });
    EXPECT_EQ(Table(), before);
    EXPECT_EQ(CountsOf(Row(0).DataNo)[100], 0);
  }
}

TEST_F(frmPeakReportTest, WhatIsTypedWithoutSetIsGoneAfterClose) {
  const PeakTable before = Table();
  Work([this] { Type(1, frmPeakReport::kIntensity, "1"); });
  EXPECT_EQ(Table(), before);
  Work([this] { EXPECT_EQ(form.sprPeakInf.Text(1, frmPeakReport::kIntensity), "1234.5"); });
}

TEST_F(frmPeakReportTest, SaveAsksWithTheProposedNameAndWritesTheStoredPeaks) {
  view.DispUnit = kUnitKeV;
  dialogs.ExpectSave(folder.Path("r.csv"));
  Work([this] {
    Type(1, frmPeakReport::kIntensity, "1");
    form.cmdSave.Press();
  });
  EXPECT_EQ(dialogs.LastRequest().file_name, "a_2FitParam.csv");
  EXPECT_EQ(dialogs.LastRequest().filter, "Result File (*.csv)|*.csv");
  EXPECT_TRUE(dialogs.LastRequest().overwrite_prompt);
  EXPECT_EQ(folder.Get("r.csv"),
            "Peak(Ch),Peak(keV),Intensity,FWHM(Ch),FWHM(keV),FWHM(d),Amplitude,Gauss(%),Type\r\n"
            " 100.5000,   2.5201,   1234.50,   3.00,   0.060,   1.130,   5000.25,  75.0,E\r\n"
            "1501.2500,  32.7788,  98765.43,   4.25,   0.085,   0.011,1234567.89, 100.0,N\r\n");
}

TEST_F(frmPeakReportTest, CancelledOrEmptyNameSavesNothing) {
  const auto before = folder.Names();
  dialogs.ExpectSave({});
  dialogs.ExpectSave("");
  Work([this] {
    form.cmdSave.Press();
    form.cmdSave.Press();
  });
  EXPECT_EQ(folder.Names(), before);
}

TEST_F(frmPeakReportTest, FailedSaveLeavesTheFormAsItWas) {
  dialogs.ExpectSave(folder.Path("none/r.csv"));
  dialogs.ExpectMessage("File Write Error");
  Work([this] {
    Type(1, frmPeakReport::kIntensity, "1");
    form.cmdSave.Press();
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.sprPeakInf.Text(1, frmPeakReport::kIntensity), "1");
  });
}

// ---- print

class PrintedPeakReport : public frmPeakReportTest {
 protected:
  // Prints from the open report; a button of the dialog answers.
  void Print(Button& answer) {
    Work([this, &answer] {
      Type(1, frmPeakReport::kIntensity, "1");
      host.ExpectModal([this, &answer](Form&) {
        EXPECT_EQ(ask.txtFileName.Text(), "a_2FitParam");
        answer.Press();
      });
      form.cmdPrint.Press();
    });
  }
};

TEST_F(PrintedPeakReport, IsTheStoredTableUnderItsTitleAndTheMeasurement) {
  workspace.Spectra[data_no].MsuName.Set("run 7");
  view.DispUnit = kUnitKeV;
  EXPECT_EQ(form.cmdPrint.Caption(), "Print");
  Print(ask.cmdOk);
  EXPECT_THAT(printer.titles, ElementsAre("a_2FitParam"));
  ASSERT_EQ(printer.pages.size(), 1u);
  EXPECT_THAT(printer.pages[0].Texts(),
              ElementsAre("Peak Report", "  Measurement Name : run 7", "Peak(Ch)", "Peak(keV)",
                          "Intensity", "FWHM(Ch)", "FWHM(keV)", "FWHM(d)", "Amplitude", "Gauss(%)",
                          "Type", "100.5000", "2.5201", "1234.50", "3.00", "0.060", "1.130",
                          "5000.25", "75.0", "E", "1501.2500", "32.7788", "98765.43", "4.25",
                          "0.085", "0.011", "1234567.89", "100.0", "N"));
}

TEST_F(PrintedPeakReport, HundredPeaksTakeAsManySheetsAsTheyNeed) {
  for (int i = 2; i < kMaxPeaks; ++i) Enter(data_no, {10, 1600.0 + i, 1}, 1, 2);
  Print(ask.cmdOk);
  // 600 x 1000 pixels in portrait: 52 lines of 17 pixels between header and foot.
  ASSERT_EQ(printer.pages.size(), 2u);
  EXPECT_THAT(printer.pages[1].Texts(), testing::Contains("2 / 2"));
}

TEST_F(PrintedPeakReport, CancelPrintsNothing) {
  Print(ask.cmdCan);
  EXPECT_THAT(printer.titles, IsEmpty());
}

TEST_F(PrintedPeakReport, PreviewShowsTheSheetAndPrintsNothing) {
  host.ExpectModal([this](Form&) {
    host.ExpectModal([this](Form&) {
      host.ExpectModal([this](Form& shown) {
        EXPECT_EQ(shown.Name(), "frmPreView");
        RecordingPage page;
        preview.DrawSheet(page);
        EXPECT_THAT(page.Texts(), testing::Contains("Peak Report"));
        shown.Hide();
      });
      ask.cmdPreview.Press();
    });
    form.cmdPrint.Press();
    form.Hide();
  });
  form.Open(0);
  EXPECT_THAT(printer.titles, IsEmpty());
}

TEST_F(PrintedPeakReport, PrinterThatIsNotReadyIsTold) {
  printer.ready = false;
  dialogs.ExpectMessage("Printer not ready");
  Print(ask.cmdOk);
}

}  // namespace
}  // namespace dorvane
