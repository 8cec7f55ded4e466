#include "forms/frmSelGraph.h"

#include <gmock/gmock.h>

#include "files/FileDorvane.h"
#include "forms/FormFixture.h"
#include "program/MoveGraph.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

constexpr Color kOwn = Rgb(1, 2, 3);

class frmSelGraphTest : public ProgramTest {
 protected:
  frmSelGraphTest() { views.Add(form); }

  // The file names of the used rows, from the first row on.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (int row = 1; row <= kRows; ++row) {
      if (!form.sprGraphSel.Text(row, 2).empty()) names.push_back(form.sprGraphSel.Text(row, 4));
    }
    return names;
  }
  // The grid rows with the mark of the current row.
  std::vector<int> Marked() const {
    std::vector<int> rows;
    for (int row = 1; row <= kRows; ++row) {
      if (form.sprGraphSel.Cell(row, 3).mark) rows.push_back(row);
    }
    return rows;
  }
  const GridCell& Cell(int row, int column) const { return form.sprGraphSel.Cell(row, column); }

  // Shows a graph in each window; the first is active.
  void ShowInBoth() {
    Show({1, 2}, "a.npd");
    Show({3, 4}, "b.npd");
    MoveGraph(program, 1, 1);
    Change_cboGrphSel(list, 0, 0);
    ChangeActiveWin(list, 0);
  }

  ScriptedFormHost host;
  frmSelGraph form{program, host};
};

// The table.

TEST_F(frmSelGraphTest, AllColumnsComeFromTheList) {
  const std::int16_t data_no = Show({1, 2}, "a.npd");
  workspace.Spectra[data_no].SampName.Set("MgO 試料");
  form.GraphSel_Repl(0);
  EXPECT_TRUE(Cell(1, 1).is_check);
  EXPECT_TRUE(Cell(1, 1).checked);
  EXPECT_EQ(Cell(1, 2).text, "1");
  EXPECT_EQ(Cell(1, 3).back, workspace.ColorTbl[data_no]);
  EXPECT_EQ(Cell(1, 4).text, "a.npd");
  EXPECT_EQ(Cell(1, 5).text, "MgO 試料");
}

TEST_F(frmSelGraphTest, TheTableHasTenRowsAndItsTitles) {
  EXPECT_EQ(form.sprGraphSel.MaxRows(), 10);
  EXPECT_THAT(form.sprGraphSel.Headings(),
              ElementsAre("Disp", "Win", "Activ", "FileName", "Sample Name"));
  EXPECT_EQ(form.Caption(), "Graph Select");
}

TEST_F(frmSelGraphTest, AFormMadeLateShowsTheGraphsThatAreThere) {
  Show({1, 2}, "a.npd");
  const frmSelGraph late(program, host);
  EXPECT_EQ(late.sprGraphSel.Text(1, 4), "a.npd");
  EXPECT_TRUE(late.sprGraphSel.Cell(1, 3).mark);
}

TEST_F(frmSelGraphTest, ANewGraphAppearsAtOnceAndIsMarked) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  EXPECT_THAT(Names(), ElementsAre("a.npd", "b.npd"));
  EXPECT_THAT(Marked(), ElementsAre(2));
}

TEST_F(frmSelGraphTest, ADerivedGraphPushesTheRowsDown) {
  Show({1, 2}, "a.npd");
  const std::int16_t data_no = InsertGraph(list);
  EXPECT_THAT(Names(), ElementsAre("a.npd"));  // the row is open, but not filled yet
  EXPECT_EQ(Cell(1, 2).text, "");
  SetGraph(list, 0, 0, data_no, kTitleSmooth);
  EXPECT_THAT(Names(), ElementsAre("Smooth", "a.npd"));
  EXPECT_THAT(Marked(), ElementsAre(2));
}

TEST_F(frmSelGraphTest, AfterDeleteGraphTheRowsMoveUp) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  Show({1, 2}, "c.npd");
  DeleteGraph(list, 1);
  EXPECT_THAT(Names(), ElementsAre("a.npd", "c.npd"));
  EXPECT_EQ(Cell(3, 4).text, "");
  EXPECT_EQ(Cell(3, 3).back, std::nullopt);
  EXPECT_FALSE(Cell(3, 1).is_check);
}

TEST_F(frmSelGraphTest, AClearedGraphEmptiesItsRow) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  ClearGrp(list, 0);
  EXPECT_THAT(Names(), ElementsAre("b.npd"));
  EXPECT_EQ(Cell(1, 4).text, "");
}

TEST_F(frmSelGraphTest, AnEmptyListHasNoMark) {
  Show({1, 2}, "a.npd");
  DeleteGraph(list, 0);
  EXPECT_THAT(Marked(), ElementsAre());
}

TEST_F(frmSelGraphTest, TheMarkFollowsTheSelectorOfTheActiveWindow) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  Change_cboGrphSel(list, 0, 0);
  EXPECT_THAT(Marked(), ElementsAre(1));
}

TEST_F(frmSelGraphTest, TheSelectorOfTheOtherWindowLeavesTheMark) {
  ShowInBoth();
  Change_cboGrphSel(list, 0, 0);
  Change_cboGrphSel(list, 1, 1);
  EXPECT_THAT(Marked(), ElementsAre(1));
  ChangeActiveWin(list, 1);
  EXPECT_THAT(Marked(), ElementsAre(2));
}

TEST_F(frmSelGraphTest, AGraphHiddenElsewhereLosesItsCheck) {
  Show({1, 2}, "a.npd");
  ChgValue_chkGrp(list, 0, 0, false);
  EXPECT_FALSE(Cell(1, 1).checked);
  ChgValue_chkGrp(list, 0, 0, true);
  EXPECT_TRUE(Cell(1, 1).checked);
}

TEST_F(frmSelGraphTest, AnEmptyRowTakesNoCheck) {
  form.GraphSel_Check(4, true);
  EXPECT_EQ(Cell(5, 1), GridCell{});
}

TEST_F(frmSelGraphTest, ARowOutsideOfTheTableIsAFault) {
  EXPECT_THROW(form.GraphSel_Insert(0, 10), Fault);
  EXPECT_THROW(form.GraphSel_Delete(-1), Fault);
  EXPECT_THROW(form.GraphSel_Check(10, true), Fault);
}

TEST_F(frmSelGraphTest, FillingShowsTheFormOnlyWhenAsked) {
  form.GraphSel_Repl(0);
  EXPECT_FALSE(form.Visible());
  form.GraphSel_Repl(1);
  EXPECT_TRUE(form.Visible());
  EXPECT_THAT(host.Shown(), ElementsAre("frmSelGraph"));
}

// A widget that hands back what it is shown, as if a user had done it.
TEST_F(frmSelGraphTest, TheGridsOwnChangesWhileFillingAreIgnored) {
  Show({1, 2}, "a.npd");
  form.sprGraphSel.Shown.Connect([&, echoed = false]() mutable {
    if (echoed || !Cell(1, 1).is_check) return;
    echoed = true;
    form.sprGraphSel.CheckCell(1, 1, false);
  });
  form.GraphSel_Repl(0);
  EXPECT_EQ(Row(0).Disp, kTrue);
}

// Clicks.

TEST_F(frmSelGraphTest, AClickOnAnEmptyRowDoesNothing) {
  Show({1, 2}, "a.npd");
  listener.notices.clear();
  for (int column = 1; column <= 5; ++column) {
    form.sprGraphSel.PressCell(2, column);
    form.sprGraphSel.CheckCell(2, column, true);
    form.sprGraphSel.DoublePressCell(2, column);
  }
  EXPECT_TRUE(listener.notices.empty());
  EXPECT_EQ(view.GraphNo, 0);
}

TEST_F(frmSelGraphTest, AClickSelectsTheGraphInItsWindow) {
  ShowInBoth();
  Change_cboGrphSel(list, 1, 0);
  form.sprGraphSel.PressCell(2, 4);
  EXPECT_EQ(view.SelectedRow[1], 1);
  EXPECT_EQ(view.SelectedRow[0], 0);
}

TEST_F(frmSelGraphTest, AClickMakesTheRowCurrent) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  form.sprGraphSel.PressCell(1, 5);
  EXPECT_EQ(view.GraphNo, 0);
  EXPECT_THAT(Marked(), ElementsAre(1));
}

TEST_F(frmSelGraphTest, AClickNamesTheGraphInTheCaptionsOfTheMainForm) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  form.sprGraphSel.PressCell(1, 4);
  EXPECT_EQ(view.Caption, "Dorvane (Data Analyze) --- a.npd");
  EXPECT_EQ(view.CloseGraphCaption, "Close Graph(a.npd)");
}

TEST_F(frmSelGraphTest, AClickOnTheCheckColumnIsNoSelection) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  form.sprGraphSel.PressCell(1, 1);
  EXPECT_EQ(view.GraphNo, 1);
}

TEST_F(frmSelGraphTest, ACheckShowsTheGraphAndMakesItCurrent) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  ChgValue_chkGrp(list, 0, 0, false);
  form.sprGraphSel.CheckCell(1, 1, true);
  EXPECT_EQ(Row(0).Disp, kTrue);
  EXPECT_EQ(program.spect.CurveOf(0, 0).Shown, kTrue);
  EXPECT_EQ(view.GraphNo, 0);
}

TEST_F(frmSelGraphTest, ATakenCheckHidesTheGraphAndLeavesTheCurrentRow) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  form.sprGraphSel.CheckCell(1, 1, false);
  EXPECT_EQ(Row(0).Disp, kFalse);
  EXPECT_EQ(program.spect.CurveOf(0, 0).Shown, kFalse);
  EXPECT_EQ(view.GraphNo, 1);
}

TEST_F(frmSelGraphTest, ACheckInTheOtherWindowSelectsNothing) {
  ShowInBoth();
  ChgValue_chkGrp(list, 1, 1, false);
  Change_cboGrphSel(list, 1, 0);
  form.sprGraphSel.CheckCell(2, 1, true);
  EXPECT_EQ(Row(1).Disp, kTrue);
  EXPECT_EQ(view.SelectedRow[1], 0);
  EXPECT_EQ(Row(1).WinNo, 1);
  EXPECT_EQ(view.GraphNo, 0);
}

TEST_F(frmSelGraphTest, ADoubleClickOnWinMovesTheGraphToTheOtherWindow) {
  const std::int16_t data_no = Show({1, 2}, "a.npd");
  form.sprGraphSel.DoublePressCell(1, 2);
  EXPECT_EQ(Row(0).WinNo, 1);
  EXPECT_EQ(Cell(1, 2).text, "2");
  EXPECT_EQ(program.spect.CurveOf(1, data_no).Valid, kTrue);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Valid, kFalse);
  form.sprGraphSel.DoublePressCell(1, 2);
  EXPECT_EQ(Row(0).WinNo, 0);
  EXPECT_EQ(Cell(1, 2).text, "1");
}

TEST_F(frmSelGraphTest, AHiddenGraphStaysHiddenInTheOtherWindow) {
  Show({1, 2}, "a.npd");
  form.sprGraphSel.CheckCell(1, 1, false);
  form.sprGraphSel.DoublePressCell(1, 2);
  EXPECT_EQ(Row(0).WinNo, 1);
  EXPECT_EQ(Row(0).Disp, kFalse);
}

// Colours.

TEST_F(frmSelGraphTest, ADoubleClickOnActivRecoloursTheGraph) {
  const std::int16_t data_no = Show({1, 2}, "a.npd");
  const Color old_color = Row(0).Color;
  listener.notices.clear();
  dialogs.ExpectColor(kOwn);
  form.sprGraphSel.DoublePressCell(1, 3);
  EXPECT_EQ(dialogs.LastColor(), old_color);
  EXPECT_EQ(Row(0).Color, kOwn);
  EXPECT_EQ(Cell(1, 3).back, kOwn);
  EXPECT_TRUE(Cell(1, 3).mark);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Color, kOwn);
  EXPECT_EQ(listener.Count("checks"), 1);
}

TEST_F(frmSelGraphTest, ACancelledColourChangesNothing) {
  Show({1, 2}, "a.npd");
  const Color old_color = Row(0).Color;
  listener.notices.clear();
  dialogs.ExpectColor(std::nullopt);
  form.sprGraphSel.DoublePressCell(1, 3);
  EXPECT_EQ(Row(0).Color, old_color);
  EXPECT_TRUE(listener.notices.empty());
}

TEST_F(frmSelGraphTest, AFixedWindowLetsTheColourDialogInFront) {
  Show({1, 2}, "a.npd");
  form.chkFix.SetChecked(true);
  bool top_most_meanwhile = true;
  dialogs.WhileChoosingColor([&] { top_most_meanwhile = form.TopMost(); });
  dialogs.ExpectColor(std::nullopt);
  form.sprGraphSel.DoublePressCell(1, 3);
  EXPECT_FALSE(top_most_meanwhile);
  EXPECT_TRUE(form.TopMost());
}

TEST_F(frmSelGraphTest, AWindowThatIsNotFixedStaysSoAfterTheColourDialog) {
  Show({1, 2}, "a.npd");
  dialogs.ExpectColor(kOwn);
  form.sprGraphSel.DoublePressCell(1, 3);
  EXPECT_FALSE(form.TopMost());
}

// Buttons.

TEST_F(frmSelGraphTest, CutRemovesTheGraphOfTheActiveRow) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  form.sprGraphSel.SetActiveRow(1);
  form.cmdCut.Press();
  EXPECT_THAT(Titles(), ElementsAre("b.npd"));
  EXPECT_THAT(Names(), ElementsAre("b.npd"));
  EXPECT_EQ(listener.notices.back(), "checks");
}

TEST_F(frmSelGraphTest, CutOnAnEmptyRowDoesNothing) {
  Show({1, 2}, "a.npd");
  listener.notices.clear();
  form.sprGraphSel.SetActiveRow(2);
  form.cmdCut.Press();
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
  EXPECT_TRUE(listener.notices.empty());
}

TEST_F(frmSelGraphTest, CutAnsweredWithNoStillClosesTheRowAsMeant) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", false);
  form.sprGraphSel.SetActiveRow(1);
  form.cmdCut.Press();
  EXPECT_THAT(Names(), ElementsAre("b.npd"));
  EXPECT_EQ(workspace.GrpCount, 2);
}

TEST_F(frmSelGraphTest, OpenReadsIntoTheFirstRowsWithoutClearingAsMeant) {
  Show({1, 2}, "a.npd");
  Show({1, 2}, "b.npd");
  ChannelBlock block;
  block.Count = 3;
  folder.Put("new.xbm", AsText(XbmImage(block, SpectrumRec{})));
  dialogs.ExpectOpen({folder.Path("new.xbm")});
  form.cmdOpen.Press();
  EXPECT_THAT(Titles(), ElementsAre("new.xbm", "b.npd"));
  EXPECT_THAT(Names(), ElementsAre("new.xbm", "b.npd"));
  EXPECT_TRUE(dialogs.LastRequest().several);
}

TEST_F(frmSelGraphTest, FixKeepsTheWindowOnTop) {
  EXPECT_FALSE(form.picPinOn.Visible());
  EXPECT_TRUE(form.picPinOff.Visible());
  form.chkFix.SetChecked(true);
  EXPECT_TRUE(form.TopMost());
  EXPECT_TRUE(form.picPinOn.Visible());
  EXPECT_FALSE(form.picPinOff.Visible());
  form.chkFix.SetChecked(false);
  EXPECT_FALSE(form.TopMost());
}

TEST_F(frmSelGraphTest, ThePinSwitchesFix) {
  form.picPin.MouseDown.Fire({});
  EXPECT_TRUE(form.chkFix.Checked());
  EXPECT_TRUE(form.TopMost());
  form.picPin.MouseDown.Fire({});
  EXPECT_FALSE(form.TopMost());
}

TEST_F(frmSelGraphTest, OkAndClosingHideAndTheContentSurvives) {
  Show({1, 2}, "a.npd");
  form.GraphSel_Repl(1);
  form.cmdOk.Press();
  EXPECT_FALSE(form.Visible());
  form.Show();
  form.QueryClose();
  EXPECT_FALSE(form.Visible());
  EXPECT_THAT(Names(), ElementsAre("a.npd"));
}

TEST_F(frmSelGraphTest, AFaultEndsInAPlainBox) {
  Show({1, 2}, "a.npd");
  workspace.Slots[0].DataNo = kSpectra;
  dialogs.ExpectMessage(Fault(FaultCode::Subscript).what());
  form.sprGraphSel.DoublePressCell(1, 2);
}

}  // namespace
}  // namespace dorvane
