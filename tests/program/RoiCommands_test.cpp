#include "program/RoiCommands.h"

#include <gmock/gmock.h>

#include "processing/RoiOpe.h"
#include "program/Commands.h"
#include "program/Cursor.h"
#include "program/MoveGraph.h"
#include "program/OpenSave.h"
#include "program/ProgramFixture.h"
#include "program/View.h"
#include "program/WindowStyle.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::Not;

class RoiCommandsTest : public ProgramTest {
 protected:
  // 4096 channels with 100 counts in each of the given ones.
  std::int16_t ShowPeaks(const std::vector<int>& channels, const std::string& title = "a.npd") {
    std::vector<std::int32_t> counts(4096, 0);
    for (const int channel : channels) counts[static_cast<std::size_t>(channel)] = 100;
    return Show(counts, title);
  }
  void AddBetween(int start, int end) {
    CsrX_Change(program, start);
    RunCommand(program, "mnuRoiStart");
    CsrX_Change(program, end);
    RunCommand(program, "mnuRoiEnd");
    RunCommand(program, "RoiAdd");
  }
  void SwitchAreaOn(int start, int end) {
    view.AreaOn = kTrue;
    SetArea(program, start, end);
  }
  void ShowRange(double start, double span) {
    SetSpanCh(program, span);
    SetStartCh(program, start);
  }
  RoiTable& Table() { return workspace.Regions; }
  std::optional<RoiRange> Range(int index) { return RoiGet(workspace, index); }
  Color ColorAt(int view_no, int data_no, int channel) const {
    return program.spect.CurveOf(view_no, data_no).PointColors[channel];
  }
};

TEST_F(RoiCommandsTest, ARegionIsAddedFromTheAreaCursorInTheColourOfItsGraph) {
  const auto data_no = ShowPeaks({1000});
  workspace.Slots[0].Color = 0x123456;
  SwitchAreaOn(900, 1100);
  RunCommand(program, "RoiAdd");
  ASSERT_EQ(Table().RoiCount, 1);
  EXPECT_EQ(Range(0), (RoiRange{900, 1100, 0x123456}));
  EXPECT_EQ(Table().Rois[0].DataNo, data_no);
  EXPECT_EQ(Table().Rois[0].PeakCh, 1000);
}

TEST_F(RoiCommandsTest, TheAreaCursorIsUsedOnce) {
  ShowPeaks({1000});
  SwitchAreaOn(900, 1100);
  RunCommand(program, "RoiAdd");
  RunCommand(program, "RoiAdd");
  EXPECT_EQ(Table().RoiCount, 1);
  EXPECT_EQ(view.AreaStart, kNoEnd);
}

TEST_F(RoiCommandsTest, ARegionIsAddedBetweenItsBounds) {
  ShowPeaks({});
  AddBetween(100, 200);
  ASSERT_EQ(Table().RoiCount, 1);
  EXPECT_EQ(Range(0)->start, 100);
  EXPECT_EQ(Range(0)->end, 200);
}

TEST_F(RoiCommandsTest, BoundsMayBeSetFromRightToLeft) {
  ShowPeaks({});
  AddBetween(200, 100);
  EXPECT_EQ(Range(0)->start, 100);
  EXPECT_EQ(Range(0)->end, 200);
}

TEST_F(RoiCommandsTest, BoundsAreUsedOnce) {
  ShowPeaks({});
  AddBetween(100, 200);
  RunCommand(program, "RoiAdd");
  EXPECT_EQ(Table().RoiCount, 1);
}

TEST_F(RoiCommandsTest, BoundsMarkTheAreaWhileTheAreaCursorIsOn) {
  ShowPeaks({});
  view.AreaOn = kTrue;
  CsrX_Change(program, 200);
  RunCommand(program, "mnuRoiEnd");
  EXPECT_EQ(view.AreaStart, kNoEnd);
  CsrX_Change(program, 100);
  RunCommand(program, "mnuRoiStart");
  EXPECT_EQ(view.AreaStart, 100);
  EXPECT_EQ(view.AreaEnd, 200);
  EXPECT_EQ(view.RoiStart, kNoEnd);
  EXPECT_EQ(view.RoiEnd, kNoEnd);
}

TEST_F(RoiCommandsTest, NeitherBoundIsUsedAgainWithANewOne) {
  ShowPeaks({});
  AddBetween(100, 200);
  CsrX_Change(program, 50);
  RunCommand(program, "mnuRoiStart");
  RunCommand(program, "RoiAdd");
  view.RoiStart = kNoEnd;
  RunCommand(program, "mnuRoiEnd");
  RunCommand(program, "RoiAdd");
  EXPECT_EQ(Table().RoiCount, 1);
}

TEST_F(RoiCommandsTest, OneBoundOrEqualBoundsAddNothing) {
  ShowPeaks({});
  CsrX_Change(program, 100);
  RunCommand(program, "mnuRoiStart");
  RunCommand(program, "RoiAdd");
  AddBetween(100, 100);
  EXPECT_EQ(Table().RoiCount, 0);
}

TEST_F(RoiCommandsTest, TheAreaCursorGoesBeforeTheBounds) {
  ShowPeaks({});
  view.RoiStart = 100;
  view.RoiEnd = 200;
  SwitchAreaOn(900, 1100);
  RunCommand(program, "RoiAdd");
  RunCommand(program, "RoiAdd");
  ASSERT_EQ(Table().RoiCount, 2);
  EXPECT_EQ(Range(0)->start, 100);
  EXPECT_EQ(Range(1)->start, 900);
}

TEST_F(RoiCommandsTest, TheRangeOfTheNextFitIsNoAreaWhileTheAreaCursorIsOff) {
  ShowPeaks({});
  SetFullRange(program);
  RunCommand(program, "RoiAdd");
  EXPECT_EQ(Table().RoiCount, 0);
  EXPECT_EQ(view.AreaEnd, 4096);
}

TEST_F(RoiCommandsTest, WithoutAGraphNothingIsAddedOrDeleted) {
  SwitchAreaOn(900, 1100);
  RunCommand(program, "RoiAdd");
  RunCommand(program, "RoiDel");
  EXPECT_EQ(Table().RoiCount, 0);
}

TEST_F(RoiCommandsTest, TheEleventhRegionIsNotAdded) {
  ShowPeaks({});
  for (int i = 0; i < 11; ++i) AddBetween(100 * i, 100 * i + 50);
  EXPECT_EQ(Table().RoiCount, 10);
  EXPECT_EQ(Range(9)->start, 900);
}

TEST_F(RoiCommandsTest, TheRegionAtTheCursorIsDeleted) {
  ShowPeaks({});
  AddBetween(100, 200);
  AddBetween(300, 400);
  CsrX_Change(program, 150);
  RunCommand(program, "RoiDel");
  ASSERT_EQ(Table().RoiCount, 1);
  EXPECT_EQ(Range(0)->start, 300);
}

TEST_F(RoiCommandsTest, ARegionOfAnotherGraphIsNotDeleted) {
  ShowPeaks({}, "a.npd");
  AddBetween(100, 200);
  ShowPeaks({}, "b.npd");
  CsrX_Change(program, 150);
  RunCommand(program, "RoiDel");
  EXPECT_EQ(Table().RoiCount, 1);
}

TEST_F(RoiCommandsTest, TheCursorJumpsToTheHighestChannelOfTheNextRegion) {
  ShowPeaks({150, 350});
  AddBetween(100, 200);
  AddBetween(300, 400);
  CsrX_Change(program, 250);
  RunCommand(program, "RoiJmpRight");
  EXPECT_EQ(view.CursorCh, 350);
  RunCommand(program, "RoiJmpLeft");
  EXPECT_EQ(view.CursorCh, 150);
}

TEST_F(RoiCommandsTest, AJumpToTheRightFromBehindTheLastRegionDoesNothing) {
  ShowPeaks({150});
  AddBetween(100, 200);
  CsrX_Change(program, 250);
  listener.notices.clear();
  RunCommand(program, "RoiJmpRight");
  EXPECT_EQ(view.CursorCh, 250);
  EXPECT_TRUE(listener.notices.empty());
}

TEST_F(RoiCommandsTest, AJumpScrollsTheWholeRegionIntoView) {
  ShowPeaks({1950});
  AddBetween(1900, 2000);
  CsrX_Change(program, 0);
  ShowRange(0, 500);
  RunCommand(program, "RoiJmpRight");
  EXPECT_EQ(view.StartCh, 1501);  // 1501..2000
  EXPECT_EQ(program.spect.Scale(0).StartX, 1501);
  EXPECT_EQ(program.spect.Scale(1).StartX, 1501);
  CsrX_Change(program, 3000);
  RunCommand(program, "RoiJmpLeft");
  EXPECT_EQ(view.StartCh, 1900);
  EXPECT_EQ(view.CursorCh, 1950);
}

TEST_F(RoiCommandsTest, AJumpToARegionInViewDoesNotScroll) {
  ShowPeaks({150});
  AddBetween(100, 200);
  CsrX_Change(program, 0);
  ShowRange(0, 500);
  RunCommand(program, "RoiJmpRight");
  EXPECT_EQ(view.StartCh, 0);
}

TEST_F(RoiCommandsTest, ARegionWiderThanTheViewIsShownFromItsStart) {
  ShowPeaks({1010});
  AddBetween(1000, 2000);
  CsrX_Change(program, 0);
  ShowRange(0, 500);
  RunCommand(program, "RoiJmpRight");
  EXPECT_EQ(view.StartCh, 1000);
  EXPECT_EQ(view.SpanCh, 500);
}

TEST_F(RoiCommandsTest, AJumpGoesToRegionsOfAllGraphs) {
  ShowPeaks({150}, "a.npd");
  AddBetween(100, 200);
  ShowPeaks({}, "b.npd");
  CsrX_Change(program, 0);
  RunCommand(program, "RoiJmpRight");
  EXPECT_EQ(view.CursorCh, 150);
}

TEST_F(RoiCommandsTest, ARegionIsColouredAsLongAsItIsInTheTable) {
  const auto data_no = ShowPeaks({});
  AddBetween(100, 200);
  const Color color = Row(0).Color;
  EXPECT_EQ(ColorAt(0, data_no, 100), color);
  EXPECT_EQ(ColorAt(0, data_no, 200), color);
  EXPECT_EQ(ColorAt(0, data_no, 201), 0);
  CsrX_Change(program, 150);
  RunCommand(program, "RoiDel");
  EXPECT_EQ(ColorAt(0, data_no, 150), 0);
}

TEST_F(RoiCommandsTest, AGraphTakesItsRegionsToTheOtherWindow) {
  const auto data_no = ShowPeaks({});
  AddBetween(100, 200);
  MoveGraph(program, 0, 1);
  EXPECT_EQ(ColorAt(1, data_no, 150), Row(0).Color);
  EXPECT_EQ(ColorAt(0, data_no, 150), 0);
}

TEST_F(RoiCommandsTest, AGraphThatIsSetAnewHasItsOwnRegionsAlone) {
  const auto first = ShowPeaks({}, "a.npd");
  AddBetween(100, 200);
  const auto second = ShowPeaks({}, "b.npd");
  SetGraph(list, 0, 0, first, "");
  EXPECT_EQ(ColorAt(0, first, 150), Row(0).Color);
  EXPECT_EQ(ColorAt(0, second, 150), 0);
}

TEST_F(RoiCommandsTest, RegionsOutliveAChangeOfTheWindowStyle) {
  const auto data_no = ShowPeaks({});
  AddBetween(100, 200);
  ckbExpand_Click(program, true);
  EXPECT_EQ(ColorAt(1, data_no, 150), Row(0).Color);
  ckbExpand_Click(program, false);
  EXPECT_EQ(ColorAt(0, data_no, 150), Row(0).Color);
}

TEST_F(RoiCommandsTest, TheRegionsOfAClosedGraphDisturbNobody) {
  ShowPeaks({150}, "a.npd");
  AddBetween(100, 200);
  DeleteGraph(list, 0);
  for (const char* key : {"RoiAdd", "RoiDel", "RoiJmpLeft", "RoiJmpRight"}) {
    EXPECT_TRUE(RunCommand(program, key)) << key;
  }
  EXPECT_EQ(Table().RoiCount, 1);
  RoiDrawAll(list);
  RoiClear(list);
  EXPECT_EQ(Table().RoiCount, 0);
}

TEST_F(RoiCommandsTest, AReadTakesTheRegionsOfTheOtherGraphsAway) {
  const auto data_no = ShowPeaks({});
  AddBetween(100, 200);
  ReadGraph(program, 0, 1, folder.Path("no.such"));
  EXPECT_EQ(Table().RoiCount, 0);
  EXPECT_EQ(ColorAt(0, data_no, 150), 0);
}

TEST_F(RoiCommandsTest, AddingAndDeletingAskForANewPicture) {
  ShowPeaks({});
  AddBetween(100, 200);
  CsrX_Change(program, 150);
  listener.notices.clear();
  RunCommand(program, "RoiDel");
  EXPECT_THAT(listener.notices, Contains("redraw 0"));
  EXPECT_THAT(listener.notices, Contains("regions"));
  EXPECT_THAT(listener.notices, Not(Contains("redraw 1")));
}

TEST_F(RoiCommandsTest, KeysAndMenuEntriesRunTheSameOperation) {
  EXPECT_EQ(FindCommand("RoiAdd"), FindCommand("mnuRoiAdd"));
  EXPECT_EQ(FindCommand("RoiDel"), FindCommand("mnuRoiDelete"));
  EXPECT_EQ(FindCommand("RoiJmpLeft"), FindCommand("mnuRoiJumpB"));
  EXPECT_EQ(FindCommand("RoiJmpRight"), FindCommand("mnuRoiJumpN"));
}

}  // namespace
}  // namespace dorvane
