#include "program/WindowStyle.h"

#include <gmock/gmock.h>

#include "program/ProgramFixture.h"
#include "program/View.h"

namespace dorvane {
namespace {

class WindowStyleTest : public ProgramTest {
 protected:
  bool ShownIn(int view_no, int data_no) const {
    return program.spect.CurveOf(view_no, data_no).Shown == kTrue;
  }
};

TEST_F(WindowStyleTest, AnExpansionShowsTheCurvesOfTheFirstWindowInItsOwnRange) {
  const auto data_no = Show(std::vector<std::int32_t>(4096, 5));
  ckbExpand_Click(program, true);
  SetSpanCh(program, 500);
  SetStartCh(program, 1000);
  EXPECT_TRUE(ShownIn(1, data_no));
  EXPECT_EQ(program.spect.AliasView(), 1);
  EXPECT_EQ(program.spect.Scale(1).StartX, 1000);
  EXPECT_EQ(program.spect.Scale(1).WidthX, 500);
  EXPECT_EQ(program.spect.Scale(0).StartX, 0);
  EXPECT_EQ(program.spect.Scale(0).WidthX, 4096);
}

TEST_F(WindowStyleTest, WithoutExpansionTheSecondWindowHasItsOwnCurvesBack) {
  const auto first = Show({1, 2}, "a.npd");
  const auto second = Show({3, 4}, "b.npd");
  ChgValue_chkGrp(list, 1, 1, true);
  ckbExpand_Click(program, true);
  ckbExpand_Click(program, false);
  EXPECT_EQ(program.spect.AliasView(), 0);
  EXPECT_TRUE(ShownIn(0, first));
  EXPECT_FALSE(ShownIn(0, second));
  EXPECT_TRUE(ShownIn(1, second));
  EXPECT_FALSE(ShownIn(1, first));
}

TEST_F(WindowStyleTest, PiledUpAllGraphsAreInTheFirstWindowAndTheSecondExpandsIt) {
  const auto first = Show({1, 2}, "a.npd");
  const auto second = Show({3, 4}, "b.npd");
  ChgValue_chkGrp(list, 1, 1, true);
  chkWinStyle_Click(program, true);
  EXPECT_TRUE(ShownIn(0, first));
  EXPECT_TRUE(ShownIn(0, second));
  EXPECT_EQ(view.ExpandOn, kTrue);
  EXPECT_EQ(view.FilePile[1], kFalse);
  EXPECT_EQ(view.WinStyle, kPileUpSwitched);
  EXPECT_EQ(view.SelectedRow[1], 1);
  EXPECT_EQ(workspace.Slots[1].WinNo, 1);
}

TEST_F(WindowStyleTest, LineUpGivesEveryGraphItsWindowBack) {
  Show({1, 2}, "a.npd");
  const auto second = Show({3, 4}, "b.npd");
  ChgValue_chkGrp(list, 1, 1, true);
  chkWinStyle_Click(program, true);
  chkWinStyle_Click(program, false);
  ckbExpand_Click(program, false);
  EXPECT_FALSE(ShownIn(0, second));
  EXPECT_TRUE(ShownIn(1, second));
  EXPECT_EQ(view.WinStyle, kLineUp);
  EXPECT_EQ(view.WinStyleOld, kPileUpSwitched);
}

TEST_F(WindowStyleTest, TheStyleBeforeIsRememberedAtEverySwitch) {
  chkWinStyle_Click(program, true);
  EXPECT_EQ(view.WinStyleOld, kLineUp);
  chkWinStyle_Click(program, false);
  EXPECT_EQ(view.WinStyleOld, kPileUpSwitched);
}

TEST_F(WindowStyleTest, AnotherStyleFillsListAndBoxesAndDrawsBothWindowsWithTheirAxis) {
  Show({1, 2}, "a.npd");
  view.AutoScale = kFalse;
  listener.notices.clear();
  chkWinStyle_Click(program, true);
  EXPECT_THAT(listener.notices,
              testing::ElementsAre("style", "checks", "list", "axis", "redraw 0", "redraw 1"));
}

TEST_F(WindowStyleTest, AWindowThatPilesUpAgainTakesTheHeightOfTheOther) {
  chkFilePile_Click(program, 1, false);
  SetYHeight(program, 0, 500, false);
  EXPECT_NE(program.spect.Scale(1).MaxY, 500);
  chkFilePile_Click(program, 1, true);
  EXPECT_EQ(program.spect.Scale(1).MaxY, 500);
}

TEST_F(WindowStyleTest, AnotherStyleIsScaledAnewWithTheAutomaticScale) {
  Show({450, 2}, "a.npd");
  for (const bool on : {true, false}) {
    SetYHeight(program, 0, 80, false);
    chkWinStyle_Click(program, on);
    EXPECT_EQ(view.HeightY, 500) << on;
  }
}

TEST_F(WindowStyleTest, TheExpansionOfAPileHasTheHeightOfTheFirstWindow) {
  Show({450, 2}, "a.npd");
  chkWinStyle_Click(program, true);
  ASSERT_EQ(view.FilePile[1], kFalse);
  EXPECT_EQ(program.spect.Scale(1).MaxY, 500);
  SetYHeight(program, 0, 80, false);
  EXPECT_EQ(program.spect.Scale(1).MaxY, 80);
}

TEST_F(WindowStyleTest, WithoutTheAutomaticScaleTheHeightStaysInEveryStyle) {
  Show({450, 2}, "a.npd");
  view.AutoScale = kFalse;
  SetYHeight(program, 0, 80, false);
  chkWinStyle_Click(program, true);
  EXPECT_EQ(view.HeightY, 80);
}

TEST_F(WindowStyleTest, PilingUpSelectsTheFirstOfTheFurtherGraphs) {
  for (const char* title : {"a.npd", "b.npd", "c.npd"}) Show({1, 2}, title);
  chkWinStyle_Click(program, true);
  EXPECT_EQ(view.SelectedRow[1], 1);
}

TEST_F(WindowStyleTest, PilingUpWithOneGraphKeepsTheSelection) {
  Show({1, 2}, "a.npd");
  view.SelectedRow[1] = 0;
  chkWinStyle_Click(program, true);
  EXPECT_EQ(view.SelectedRow[1], 0);
}

TEST_F(WindowStyleTest, SwitchingTheExpansionOnEndsThePileUp) {
  Show({1, 2}, "a.npd");
  chkWinStyle_Click(program, true);
  ckbExpand_Click(program, false);
  ckbExpand_Click(program, true);
  EXPECT_EQ(view.PileUpOn, kFalse);
  EXPECT_EQ(view.WinStyle, kLineUp);
  EXPECT_EQ(view.FilePile[1], kTrue);
}

TEST_F(WindowStyleTest, AGraphSetIntoTheSecondWindowEndsItsExpansion) {
  Show({1, 2}, "a.npd");
  ckbExpand_Click(program, true);
  const auto second = GetGraphSpace(list, -1);
  SetGraph(list, 1, 1, second, "b.npd");
  EXPECT_EQ(view.ExpandOn, kFalse);
  EXPECT_EQ(program.spect.AliasView(), 0);
}

TEST_F(WindowStyleTest, AGraphMovedInAPileStaysInThePicture) {
  const auto data_no = Show({1, 2}, "a.npd");
  chkWinStyle_Click(program, true);
  ChgValue_chkGrp(list, 1, 0, true);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Counts[1], 2);
}

TEST_F(WindowStyleTest, AHiddenGraphStaysHiddenInEveryStyle) {
  const auto data_no = Show({1, 2}, "a.npd");
  ChgValue_chkGrp(list, 0, 0, false);
  chkWinStyle_Click(program, true);
  EXPECT_FALSE(ShownIn(0, data_no));
}

TEST_F(WindowStyleTest, PeakLinesComeAlongWithTheStyle) {
  const auto data_no = Show(std::vector<std::int32_t>(100, 1));
  workspace.Peaks[data_no].Count = 1;
  workspace.Peaks[data_no].Peaks[0].Center = 50;
  list.listener.PeakMarked(0, data_no, workspace.Peaks[data_no].Peaks[0]);
  ckbExpand_Click(program, true);
  EXPECT_EQ(program.spect.PeakLinesOf(1).Count(), 1);
  ckbExpand_Click(program, false);
  EXPECT_EQ(program.spect.PeakLinesOf(0).Count(), 1);
  EXPECT_EQ(program.spect.PeakLinesOf(1).Count(), 0);
}

}  // namespace
}  // namespace dorvane
