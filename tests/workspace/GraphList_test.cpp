#include "workspace/GraphList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "support/ScriptedDialogs.h"
#include "workspace/RecordingListener.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class GraphListTest : public testing::Test {
 protected:
  // Takes a spectrum and puts it in the next row, as an open file does.
  std::int16_t Add(const std::string& title, int win_no = 0) {
    const std::int16_t row = workspace->GrpCount;
    const std::int16_t data_no = GetGraphSpace(list, -1);
    workspace->Channels[data_no].Count = 4;
    workspace->Channels[data_no].Counts[0] = 100 + data_no;
    SetGraph(list, win_no, row, data_no, title);
    return data_no;
  }

  std::vector<std::string> Titles() const {
    std::vector<std::string> titles;
    for (const GraphSlot& slot : workspace->Slots) {
      if (slot.State != kRowEmpty) titles.push_back(slot.Title);
    }
    return titles;
  }

  std::unique_ptr<Workspace> workspace = std::make_unique<Workspace>();
  ViewState view;
  RecordingListener listener;
  ScriptedDialogs dialogs;
  GraphList list{*workspace, view, listener, dialogs};
};

TEST_F(GraphListTest, TheLowestFreeNumberIsTaken) {
  EXPECT_EQ(GetGraphSpace(list, -1), 0);
  EXPECT_EQ(GetGraphSpace(list, -1), 1);
  workspace->DataUse[0] = 0;
  EXPECT_EQ(GetGraphSpace(list, -1), 0);
  EXPECT_EQ(workspace->GrpCount, 3);
  EXPECT_EQ(workspace->DataUse[0], -1);
}

TEST_F(GraphListTest, TheEleventhSpectrumFindsNoSpace) {
  for (int i = 0; i < 10; ++i) GetGraphSpace(list, -1);
  dialogs.ExpectMessage("GetGraphSpace: Notting Space!");
  EXPECT_EQ(GetGraphSpace(list, -1), -1);
  EXPECT_EQ(workspace->GrpCount, 10);
}

TEST_F(GraphListTest, LookingForSpaceWithoutTakingItChangesNothing) {
  EXPECT_EQ(GetGraphSpace(list, 0), 0);
  EXPECT_EQ(workspace->GrpCount, 0);
  EXPECT_EQ(workspace->DataUse[0], 0);
}

TEST_F(GraphListTest, ADerivedGraphPushesTheOthersDown) {
  Add("a.npd");
  Add("b.npd");
  EXPECT_EQ(InsertGraph(list), 2);
  EXPECT_EQ(workspace->Slots[0].State, kRowEmpty);
  SetGraph(list, 0, 0, 2, kTitleSmooth);
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "a.npd", "b.npd"));
  EXPECT_EQ(workspace->GrpCount, 3);
}

TEST_F(GraphListTest, TheCurrentRowStaysOnItsGraphWhenRowsMove) {
  Add("a.npd");
  Add("b.npd");
  Change_cboGrphSel(list, 0, 1);
  InsertGraph(list);
  EXPECT_EQ(view.GraphNo, 2);
  EXPECT_EQ(view.DataNo, 1);
}

TEST_F(GraphListTest, InsertionIntoAnEmptyListIsRefusedEvenThoughThereIsSpace) {
  dialogs.ExpectMessage("ShiftGraph: Data Notting!");
  EXPECT_EQ(InsertGraph(list), -1);
  EXPECT_EQ(workspace->DataUse[0], 0);
}

TEST_F(GraphListTest, InsertionIntoAFullListTakesNoNumber) {
  for (int i = 0; i < 10; ++i) Add(std::to_string(i));
  workspace->DataUse[9] = 0;
  dialogs.ExpectMessage("ShiftGraph: List Over!");
  EXPECT_EQ(InsertGraph(list), -1);
  EXPECT_EQ(workspace->DataUse[9], 0);
}

TEST_F(GraphListTest, TheFirstRowCannotMoveUp) {
  Add("a.npd");
  dialogs.ExpectMessage("ShiftGraph: List Under!");
  EXPECT_EQ(ShiftGraph(list, 0, -1), 0);
}

TEST_F(GraphListTest, RowsMoveUpOverTheRowBefore) {
  Add("a.npd");
  Add("b.npd");
  Add("c.npd");
  EXPECT_EQ(ShiftGraph(list, 1, -1), -1);
  EXPECT_EQ(workspace->Slots[0].Title, "b.npd");
  EXPECT_EQ(workspace->Slots[1].Title, "c.npd");
  EXPECT_EQ(workspace->Slots[2].State, kRowEmpty);
}

TEST_F(GraphListTest, SettingAGraphFillsTheRowAndTellsTheViews) {
  workspace->ColorTbl[0] = 0x123456;
  Add("a.npd", 1);
  const GraphSlot& slot = workspace->Slots[0];
  EXPECT_EQ(slot.State, kRowSaved);
  EXPECT_EQ(slot.Disp, -1);
  EXPECT_EQ(slot.WinNo, 1);
  EXPECT_EQ(slot.DataNo, 0);
  EXPECT_EQ(slot.Color, 0x123456);
  EXPECT_THAT(listener.notices, ElementsAre("selector", "shown 1 0", "checks"));
}

TEST_F(GraphListTest, AnEmptyTitleKeepsTheOldOne) {
  Add("a.npd");
  SetGraph(list, 0, 0, 0, "");
  EXPECT_EQ(workspace->Slots[0].Title, "a.npd");
}

TEST_F(GraphListTest, TheLargestChannelCountIsNeverLowered) {
  const std::int16_t data_no = Add("a.npd");
  EXPECT_EQ(workspace->MaxCh, 4096);
  workspace->Channels[data_no].Count = 8192;
  SetGraph(list, 0, 0, data_no, "");
  EXPECT_EQ(workspace->MaxCh, 8192);
  DeleteGraph(list, 0);
  EXPECT_EQ(workspace->MaxCh, 8192);
}

TEST_F(GraphListTest, ClearingAGraphEmptiesItsCountsButKeepsTheirNumber) {
  Add("a.npd");
  EXPECT_EQ(ClearGrp(list, 0), -1);
  EXPECT_EQ(workspace->Channels[0].Counts[0], 0);
  EXPECT_EQ(workspace->Channels[0].Count, 4);
  EXPECT_EQ(workspace->Slots[0].State, kRowEmpty);
  EXPECT_EQ(workspace->Slots[0].Title, "a.npd");
  EXPECT_EQ(workspace->DataUse[0], 0);
  EXPECT_EQ(workspace->GrpCount, 0);
}

TEST_F(GraphListTest, ClearingSaysYesAlsoWhenNothingHappens) {
  EXPECT_EQ(ClearGrp(list, 0), -1);
  Add("a.npd");
  EXPECT_EQ(ClearGrp(list, 10), -1);
  EXPECT_EQ(workspace->GrpCount, 1);
}

TEST_F(GraphListTest, DeletingClosesTheGap) {
  Add("a.npd");
  Add("b.npd");
  Add("c.npd");
  DeleteGraph(list, 1);
  EXPECT_THAT(Titles(), ElementsAre("a.npd", "c.npd"));
  EXPECT_EQ(workspace->Slots[2], GraphSlot{});
  EXPECT_EQ(workspace->DataUse[1], 0);
}

TEST_F(GraphListTest, RemovingClosesTheGapWithoutAQuestion) {
  Add("a.npd");
  Add("b.npd");
  workspace->Slots[1].State = kRowUnsaved;
  RemoveGraph(list, 0);
  EXPECT_THAT(Titles(), ElementsAre("b.npd"));
  EXPECT_EQ(workspace->DataUse[0], 0);
  EXPECT_EQ(workspace->GrpCount, 1);
}

TEST_F(GraphListTest, RemovingFromAnEmptyListDoesNothing) {
  RemoveGraph(list, 0);
  EXPECT_TRUE(listener.notices.empty());
}

TEST_F(GraphListTest, DeletingFromAnEmptyListDoesNothing) {
  DeleteGraph(list, 0);
  EXPECT_TRUE(listener.notices.empty());
}

TEST_F(GraphListTest, ClearingAsksAboutEveryUnsavedRowNotOnlyItsOwnAsMeant) {
  Add("a.npd");
  Add("b.npd");
  workspace->Slots[1].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=2 (Do you Cansel?)", true);
  ClearGrp(list, 0);
  EXPECT_EQ(workspace->Slots[0].State, kRowEmpty);
}

TEST_F(GraphListTest, YesDropsTheDataAndAsksOnAsMeant) {
  Add("a.npd");
  Add("b.npd");
  workspace->Slots[0].State = kRowUnsaved;
  workspace->Slots[1].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", true);
  dialogs.ExpectQuestion("File No Save.  Grp=2 (Do you Cansel?)", false);
  EXPECT_EQ(ConfirmUnsaved(list), -1);
  EXPECT_TRUE(dialogs.LastQuestion().no_is_default);
  EXPECT_EQ(dialogs.LastQuestion().icon, BoxIcon::Exclamation);
}

TEST_F(GraphListTest, SavedRowsAreNotAskedAbout) {
  Add("a.npd");
  EXPECT_EQ(ConfirmUnsaved(list), 0);
}

TEST_F(GraphListTest, NoInADeletionKeepsTheDataButLosesTheRowAsMeant) {
  Add("a.npd");
  workspace->Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", false);
  DeleteGraph(list, 0);
  EXPECT_EQ(workspace->Slots[0], GraphSlot{});
  EXPECT_EQ(workspace->DataUse[0], -1);
  EXPECT_EQ(workspace->Channels[0].Counts[0], 100);
  EXPECT_EQ(workspace->GrpCount, 1);
}

TEST_F(GraphListTest, ACountThatIsTooHighAfterNoBreaksNothing) {
  for (int i = 0; i < 10; ++i) Add(std::to_string(i));
  workspace->Slots[9].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=10 (Do you Cansel?)", false);
  DeleteGraph(list, 9);
  EXPECT_EQ(workspace->GrpCount, 10);
  dialogs.ExpectMessage("ShiftGraph: List Over!");
  EXPECT_EQ(InsertGraph(list), -1);
  for (int i = 0; i < 12; ++i) DeleteGraph(list, 0);
  EXPECT_EQ(workspace->GrpCount, 0);
}

TEST_F(GraphListTest, InsertionWithoutAFreeNumberOpensTheRowButFillsNothing) {
  Add("a.npd");
  workspace->DataUse.fill(kTrue);
  dialogs.ExpectMessage("GetGraphSpace: Notting Space!");
  EXPECT_EQ(InsertGraph(list), -1);
  EXPECT_EQ(workspace->GrpCount, 1);
  EXPECT_EQ(workspace->Slots[0].State, kRowEmpty);
  EXPECT_EQ(workspace->Slots[1].Title, "a.npd");
}

TEST_F(GraphListTest, MovingRowsTellsTheSelectionList) {
  Add("a.npd");
  Add("b.npd");
  listener.notices.clear();
  ShiftGraph(list, 0, 1);
  EXPECT_THAT(listener.notices, ElementsAre("list"));
  Change_cboGrphSel(list, 0, 1);
  ShiftGraph(list, 1, -1);
  EXPECT_EQ(view.GraphNo, 0);
}

TEST_F(GraphListTest, ClearingTellsTheViewsInOrder) {
  Add("a.npd", 1);
  listener.notices.clear();
  ClearGrp(list, 0);
  EXPECT_THAT(listener.notices, ElementsAre("removed 1 0", "row cleared 0", "selector", "checks"));
}

TEST_F(GraphListTest, DeletingTellsTheViewsInOrder) {
  Add("a.npd", 1);
  listener.notices.clear();
  DeleteGraph(list, 0);
  EXPECT_THAT(listener.notices, ElementsAre("removed 1 0", "row cleared 0", "selector", "checks",
                                            "list", "selector", "checks", "redraw 1", "caption"));
}

TEST_F(GraphListTest, TheCaptionsNameTheGraphThatIsCurrentAfterADeletion) {
  Add("a.npd");
  Add("b.npd");
  Change_cboGrphSel(list, 0, 1);
  DeleteGraph(list, 1);
  EXPECT_EQ(view.Caption, "Dorvane (Data Analyze) --- a.npd");
  EXPECT_EQ(view.CloseGraphCaption, "Close Graph(a.npd)");
  DeleteGraph(list, 0);
  EXPECT_EQ(view.CloseGraphCaption, "Close Graph()");
}

TEST_F(GraphListTest, ASelectedGraphShowsInTheCaptions) {
  Add("a.npd");
  Add("b.npd");
  Change_cboGrphSel(list, 0, 1);
  EXPECT_EQ(view.Caption, "Dorvane (Data Analyze) --- b.npd");
  EXPECT_EQ(view.CloseGraphCaption, "Close Graph(b.npd)");
}

TEST_F(GraphListTest, TheSelectorOfTheOtherWindowLeavesTheCaptions) {
  Add("a.npd");
  Add("b.npd");
  Change_cboGrphSel(list, 0, 0);
  Change_cboGrphSel(list, 1, 1);
  EXPECT_EQ(view.CloseGraphCaption, "Close Graph(a.npd)");
}

TEST_F(GraphListTest, TheCurrentRowStaysOnItsGraphWhenOneBeforeItIsDeleted) {
  Add("a.npd");
  Add("b.npd");
  Add("c.npd");
  Change_cboGrphSel(list, 0, 1);
  DeleteGraph(list, 0);
  EXPECT_EQ(view.GraphNo, 0);
  EXPECT_EQ(view.DataNo, 1);
  EXPECT_EQ(view.SelectedRow[0], 0);
}

TEST_F(GraphListTest, DeletingTheLastRowMakesTheOneBeforeItCurrent) {
  Add("a.npd");
  Add("b.npd");
  Change_cboGrphSel(list, 0, 1);
  DeleteGraph(list, 1);
  EXPECT_EQ(view.GraphNo, 0);
  EXPECT_EQ(view.DataNo, 0);
  EXPECT_EQ(view.SelectedRow[0], 0);
}

TEST_F(GraphListTest, AGraphOpensItsWindowForPilingUp) {
  Add("a.npd", 1);
  EXPECT_EQ(view.FilePile[0], kFalse);
  EXPECT_EQ(view.FilePile[1], kTrue);
  view.PileUpOn = kTrue;
  Add("b.npd", 0);
  EXPECT_EQ(view.FilePile[0], kTrue);
  EXPECT_EQ(view.FilePile[1], kFalse);
}

TEST_F(GraphListTest, AGraphInTheSecondWindowEndsTheExpansion) {
  view.ExpandOn = kTrue;
  Add("a.npd", 0);
  EXPECT_EQ(view.ExpandOn, kTrue);
  Add("b.npd", 1);
  EXPECT_EQ(view.ExpandOn, kFalse);
  EXPECT_EQ(view.FilePile[0], kFalse);
}

TEST_F(GraphListTest, ClearingAllRemovesThePeakLinesOfBothWindows) {
  Add("a.npd");
  Add("b.npd");
  EXPECT_EQ(ClearAllGrp(list), -1);
  EXPECT_EQ(workspace->GrpCount, 0);
  EXPECT_EQ(listener.Count("no peak lines 0"), 1);
  EXPECT_EQ(listener.Count("no peak lines 1"), 1);
}

TEST_F(GraphListTest, TheRealWindowIsTheFirstInPileUpStyle) {
  view.CurWin = 1;
  EXPECT_EQ(GetRealWinNo(list), 1);
  view.PileUpOn = kTrue;
  EXPECT_EQ(GetRealWinNo(list), 0);
}

TEST_F(GraphListTest, TheSelectedRowIsZeroWhenNothingIsSelected) {
  view.SelectedRow[0] = -1;
  EXPECT_EQ(GetGrpNo(list), 0);
}

TEST_F(GraphListTest, TheSecondCountIsTakenNumbersLessTheRowAndNeverNegative) {
  Add("a.npd");
  Add("b.npd");
  Add("c.npd");
  view.SelectedRow[0] = 1;
  EXPECT_EQ(GetGrpNo2(list), 1);
  view.SelectedRow[0] = 5;
  EXPECT_EQ(GetGrpNo2(list), 0);
}

TEST_F(GraphListTest, MinusOneMeansTheCurrentRow) {
  Add("a.npd");
  Add("b.npd");
  Change_cboGrphSel(list, 0, 1);
  EXPECT_EQ(GetGraphDataNo(list, -1), 1);
  EXPECT_EQ(GetGraphDataNo(list, 0), 0);
  EXPECT_THROW(GetGraphDataNo(list, 10), Fault);
}

TEST_F(GraphListTest, KindsCompareExactlyAndAnythingElseIsRaw) {
  EXPECT_EQ(KindOf("Smooth"), GraphKind::Smooth);
  EXPECT_EQ(KindOf("BackGraund"), GraphKind::BackGraund);
  EXPECT_EQ(KindOf("BackRemv"), GraphKind::BackRemv);
  EXPECT_EQ(KindOf("Fit"), GraphKind::Fit);
  EXPECT_EQ(KindOf("smooth"), GraphKind::Raw);
  EXPECT_EQ(KindOf("BackGround"), GraphKind::Raw);
  EXPECT_EQ(KindOf(""), GraphKind::Raw);
}

TEST_F(GraphListTest, SuffixesNameTheKindsOfTheUsedRows) {
  Add("a.npd");
  Add(kTitleFit);
  Add(kTitleSmooth);
  Add(kTitleBackRemv);
  Add(kTitleBackGraund);
  const auto names = ResetSlotNames(list);
  EXPECT_THAT(names, ElementsAre("RAW", "FIT", "SMT", "RMD", "BAK", "", "", "", "", ""));
}

TEST_F(GraphListTest, AKindIsFoundAtItsLastRow) {
  Add("a.npd");
  Add(kTitleFit);
  Add("b.npd");
  EXPECT_EQ(LastRowOfKind(*workspace, GraphKind::Raw), 2);
  EXPECT_EQ(LastRowOfKind(*workspace, GraphKind::Smooth), -1);
  EXPECT_EQ(FindRow(*workspace, kTitleFit), 1);
}

TEST_F(GraphListTest, ActivatingAWindowShowsItsGraphInTheCaptions) {
  Add("a.npd");
  Add("b.npd");
  view.SelectedRow[1] = 1;
  listener.notices.clear();
  ChangeActiveWin(list, 1);
  EXPECT_THAT(listener.notices, ElementsAre("active 1", "axis", "caption"));
  EXPECT_EQ(view.CurWin, 1);
  EXPECT_EQ(view.GraphNo, 1);
  EXPECT_EQ(view.DataNo, 1);
  EXPECT_EQ(view.Caption, "Dorvane (Data Analyze) --- b.npd");
  EXPECT_EQ(view.CloseGraphCaption, "Close Graph(b.npd)");
}

TEST_F(GraphListTest, AnAreaCursorDoesNotFollowIntoAnotherWindow) {
  view.AreaOn = kTrue;
  view.AreaStart = 10;
  view.AreaEnd = 20;
  ChangeActiveWin(list, 0);
  EXPECT_EQ(view.AreaStart, 10);
  ChangeActiveWin(list, 1);
  EXPECT_EQ(view.AreaStart, kNoEnd);
}

TEST_F(GraphListTest, WithoutTheAreaCursorAWindowChangeKeepsTheStoredEnds) {
  view.AreaStart = 10;
  view.AreaEnd = 20;
  ChangeActiveWin(list, 1);
  EXPECT_EQ(view.AreaStart, 10);
  EXPECT_EQ(view.AreaEnd, 20);
}

TEST_F(GraphListTest, TheCheckBoxOfTheOtherWindowMovesAGraphThere) {
  Add("a.npd");
  ChgValue_chkGrp(list, 1, 0, true);
  EXPECT_EQ(workspace->Slots[0].WinNo, 1);
  EXPECT_EQ(listener.Count("removed 0 0"), 1);
  EXPECT_EQ(listener.Count("shown 1 0"), 1);
}

TEST_F(GraphListTest, TheCheckBoxOfAnEmptyRowDoesNothing) {
  ChgValue_chkGrp(list, 1, 3, true);
  EXPECT_EQ(workspace->Slots[3], GraphSlot{});
  EXPECT_TRUE(listener.notices.empty());
}

TEST_F(GraphListTest, AHiddenGraphStaysInTheList) {
  Add("a.npd");
  ChgValue_chkGrp(list, 0, 0, false);
  EXPECT_EQ(workspace->Slots[0].Disp, 0);
  EXPECT_EQ(listener.Count("off 0 0"), 1);
  EXPECT_EQ(workspace->Slots[0].State, kRowSaved);
}

TEST_F(GraphListTest, ARecolouredGraphTellsItsColourAndItsCheckBox) {
  Add("a.npd");
  Add("b.npd", 1);
  listener.notices.clear();
  ChgStrColor_chkGrp(list, 1, 1, 0x010203);
  EXPECT_EQ(workspace->Slots[1].Color, 0x010203);
  EXPECT_EQ(workspace->ColorTbl[1], 0);
  EXPECT_THAT(listener.notices, ElementsAre("colour 1 1", "checks", "redraw 0", "redraw 1"));
}

TEST_F(GraphListTest, AnEmptyRowTakesNoColour) {
  ChgStrColor_chkGrp(list, 0, 3, 0x010203);
  EXPECT_EQ(workspace->Slots[3].Color, 0);
  EXPECT_TRUE(listener.notices.empty());
}

TEST_F(GraphListTest, NewCaptionsFillTheCheckBoxesAnew) {
  ChgAllCaption_chkGrp(list);
  EXPECT_THAT(listener.notices, ElementsAre("checks"));
}

}  // namespace
}  // namespace dorvane
