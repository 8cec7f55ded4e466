#include "display/RecordingSurface.h"
#include "forms/MainFormFixture.h"
#include "program/Cursor.h"
#include "program/View.h"
#include "program/WindowStyle.h"

namespace dorvane {
namespace {

class GraphPanelTest : public MainFormTest {
 protected:
  GraphPanelTest() {
    ShowSpectrum();
    for (int win_no = 0; win_no < kWindows; ++win_no) {
      form.graphs.picGraph[win_no].RedrawWanted.Connect([this] { ++pictures; });
      form.graphs.picGraph[win_no].OverlayWanted.Connect([this] { ++overlays; });
    }
  }
  // Where a channel lies among the 4096 shown.
  static double At(double channel) { return channel / 4095; }

  int pictures = 0;
  int overlays = 0;
};

TEST_F(GraphPanelTest, AClickSetsTheCursorAndMakesTheWindowActive) {
  MouseDown(1, At(1000));
  MouseUp(1, At(1000));
  EXPECT_EQ(view.CurWin, 1);
  EXPECT_EQ(view.CursorCh, 1000);
  EXPECT_EQ(form.cursor.inumCursorCh.Value(), 1000);
}

TEST_F(GraphPanelTest, TheCursorFollowsADragAndOnlyTheOverlayIsDrawn) {
  MouseDown(0, At(1000));
  pictures = overlays = 0;
  MouseMove(0, At(1200));
  EXPECT_EQ(view.CursorCh, 1200);
  EXPECT_EQ(pictures, 0);
  EXPECT_GT(overlays, 0);
}

TEST_F(GraphPanelTest, AfterTheReleaseTheCursorStays) {
  MouseDown(0, At(1000));
  MouseUp(0, At(1000));
  MouseMove(0, At(1200), MouseButton::None);
  EXPECT_EQ(view.CursorCh, 1000);
}

TEST_F(GraphPanelTest, ALostReleaseEndsTheDragAtTheNextMove) {
  MouseDown(0, At(1000));
  MouseMove(0, 1.2);
  ASSERT_TRUE(form.graphs.timCursor.Enabled());
  const int channel = view.CursorCh;
  MouseMove(0, At(1200), MouseButton::None);
  EXPECT_EQ(view.CursorCh, channel);
  EXPECT_FALSE(form.graphs.timCursor.Enabled());
}

TEST_F(GraphPanelTest, OnlyTheLeftButtonSetsTheCursor) {
  form.graphs.picGraph[0].MouseDown.Fire({0.5, 0.5, MouseButton::Right, false});
  EXPECT_EQ(view.CursorCh, 0);
}

TEST_F(GraphPanelTest, ADragMarksANewArea) {
  form.cursor.chkArea.SetChecked(true);
  MouseDown(0, At(1000));
  MouseMove(0, At(1500));
  MouseUp(0, At(1500));
  EXPECT_EQ(view.AreaStart, 1000);
  EXPECT_EQ(view.AreaEnd, 1500);
}

TEST_F(GraphPanelTest, AnEdgeOfTheAreaIsTakenAndDraggedAcrossTheOther) {
  form.cursor.chkArea.SetChecked(true);
  SetArea(program, 1000, 1500);
  MouseDown(0, At(1505));
  MouseMove(0, At(800));
  MouseUp(0, At(800));
  EXPECT_EQ(view.AreaStart, 800);
  EXPECT_EQ(view.AreaEnd, 1000);
}

TEST_F(GraphPanelTest, ThePointerTellsWhatItWouldTake) {
  form.cursor.chkArea.SetChecked(true);
  SetArea(program, 1000, 1500);
  MouseMove(0, At(1003), MouseButton::None);
  EXPECT_EQ(form.graphs.picGraph[0].Pointer(), picWidthIcon);
  MouseMove(0, At(1200), MouseButton::None);
  EXPECT_EQ(form.graphs.picGraph[0].Pointer(), kPointerCursor);
}

TEST_F(GraphPanelTest, TheRangeMarkOfAnExpansionIsDraggedInTheFirstWindow) {
  form.style.ckbExpand.SetChecked(true);
  form.scale.imnSpanCh.Type("1000");
  form.scale.hsbStartX.SetValue(1000);
  MouseMove(0, At(1500), MouseButton::None);
  EXPECT_EQ(form.graphs.picGraph[0].Pointer(), picFingerIco);
  MouseDown(0, At(1500));
  MouseMove(0, At(1700));
  EXPECT_EQ(view.StartCh, 1200);
  EXPECT_EQ(program.spect.Scale(1).StartX, 1200);
  EXPECT_EQ(program.spect.Scale(0).StartX, 0);
  EXPECT_EQ(form.scale.hsbStartX.Value(), 1200);
}

TEST_F(GraphPanelTest, TheMarkShowsTheRangeOfTheExpansionInTheFirstWindowAlone) {
  form.style.ckbExpand.SetChecked(true);
  form.scale.imnSpanCh.Type("1000");
  form.scale.hsbStartX.SetValue(500);
  EXPECT_TRUE(form.OverlayOf(0).Range.On);
  EXPECT_EQ(form.OverlayOf(0).Range.Start, 500);
  EXPECT_EQ(form.OverlayOf(0).Range.End, 1499);
  EXPECT_FALSE(form.OverlayOf(1).Range.On);
  EXPECT_TRUE(form.OverlayOf(1).CursorOn);
}

TEST_F(GraphPanelTest, ADragHeldPastAnEdgeScrollsByTenChannelsATick) {
  form.scale.imnSpanCh.Type("1000");
  form.scale.hsbStartX.SetValue(500);
  form.cursor.chkArea.SetChecked(true);
  MouseDown(0, 0.5);
  MouseMove(0, 1.2);
  ASSERT_TRUE(form.graphs.timCursor.Enabled());
  form.graphs.timCursor.Tick();
  EXPECT_EQ(form.scale.hsbStartX.Value(), 510);
  EXPECT_EQ(view.AreaEnd, 1509);
  form.graphs.timCursor.Tick();
  EXPECT_EQ(form.scale.hsbStartX.Value(), 520);
}

TEST_F(GraphPanelTest, ScrollingEndsAtTheFirstChannel) {
  form.scale.imnSpanCh.Type("1000");
  form.scale.hsbStartX.SetValue(5);
  form.cursor.chkArea.SetChecked(true);
  MouseDown(0, 0.5);
  MouseMove(0, -0.1);
  form.graphs.timCursor.Tick();
  form.graphs.timCursor.Tick();
  EXPECT_EQ(form.scale.hsbStartX.Value(), 0);
  EXPECT_EQ(view.AreaStart, 0);
}

TEST_F(GraphPanelTest, TheTimerRestsInsideTheWindowAndAfterTheRelease) {
  form.scale.imnSpanCh.Type("1000");
  MouseDown(0, 0.5);
  MouseMove(0, 1.2);
  MouseMove(0, 0.9);
  EXPECT_FALSE(form.graphs.timCursor.Enabled());
  MouseMove(0, 1.2);
  MouseUp(0, 1.2);
  EXPECT_FALSE(form.graphs.timCursor.Enabled());
}

TEST_F(GraphPanelTest, TheFirstWindowOfAnExpansionHasNowhereToScroll) {
  form.style.ckbExpand.SetChecked(true);
  form.scale.imnSpanCh.Type("1000");
  MouseDown(0, At(3000));
  MouseMove(0, 1.2);
  EXPECT_FALSE(form.graphs.timCursor.Enabled());
  MouseUp(0, 1.2);
  MouseDown(1, 0.5);
  MouseMove(1, 1.2);
  EXPECT_TRUE(form.graphs.timCursor.Enabled());
}

TEST_F(GraphPanelTest, TheWheelZoomsAboutThePointerAndScrollsWithShift) {
  form.graphs.picGraph[0].Wheel.Fire({0.5, 0.5, MouseButton::None, false}, 1);
  EXPECT_NEAR(view.SpanCh, 3277, 1);  // 0.8 of 4096
  EXPECT_NEAR(view.StartCh + view.SpanCh / 2, 2048, 2);
  const double start = view.StartCh;
  form.graphs.picGraph[0].Wheel.Fire({0.5, 0.5, MouseButton::None, true}, -1);
  EXPECT_NEAR(view.StartCh, start + 328, 1);
}

TEST_F(GraphPanelTest, ADoubleClickOnAnAxisRestoresTheFullRange) {
  form.scale.imnSpanCh.Type("100");
  form.graphs.picSubScale[0].DblClick.Fire({});
  EXPECT_EQ(view.SpanCh, 4096);
  form.scale.hsbWidthY.SetValue(5);
  form.graphs.picScaleY[0].DblClick.Fire({});
  EXPECT_EQ(view.HeightY, 10);
}

TEST_F(GraphPanelTest, TheWheelOnTheCountAxisStepsTheHeight) {
  form.scale.hsbWidthY.SetValue(20);
  form.graphs.picScaleY[0].Wheel.Fire({}, 2);
  EXPECT_EQ(form.scale.hsbWidthY.Value(), 22);
  form.graphs.picScaleY[0].Wheel.Fire({}, -1);
  EXPECT_EQ(form.scale.hsbWidthY.Value(), 21);
}

TEST_F(GraphPanelTest, AnotherWindowClearsTheAreaOfTheOldOne) {
  form.cursor.chkArea.SetChecked(true);
  SetArea(program, 1000, 1500);
  ChangeActiveWin(list, 1);
  EXPECT_EQ(form.OverlayOf(0).Area.On, false);
  EXPECT_EQ(form.OverlayOf(1).Area.Start, kNoEnd);
}

// Window styles.

TEST_F(GraphPanelTest, AGraphInTheListSwitchesThePileOfItsWindowOn) {
  form.style.chkFilePile[0].SetChecked(false);
  ShowSpectrum();
  EXPECT_TRUE(form.style.chkFilePile[0].Checked());
}

TEST_F(GraphPanelTest, ExpandSwitchesPileUpOffAndTakesThePileBoxes) {
  form.style.chkWinStyle.SetChecked(true);
  form.style.ckbExpand.SetChecked(false);
  form.style.ckbExpand.SetChecked(true);
  EXPECT_FALSE(form.style.chkWinStyle.Checked());
  EXPECT_FALSE(form.style.chkFilePile[0].Enabled());
  EXPECT_TRUE(form.tool_bars.tlbrDisplay.ButtonPressed("Expand"));
  EXPECT_EQ(program.spect.AliasView(), 1);
  form.style.ckbExpand.SetChecked(false);
  EXPECT_TRUE(form.style.chkFilePile[0].Enabled());
  EXPECT_EQ(program.spect.AliasView(), 0);
}

TEST_F(GraphPanelTest, TheButtonTogglesExpand) {
  form.tool_bars.tlbrDisplay.Press("Expand");
  EXPECT_TRUE(form.style.ckbExpand.Checked());
  EXPECT_FALSE(Menu("mnuExpandOn").Enabled());
  EXPECT_TRUE(Menu("mnuExpandOff").Enabled());
  Menu("mnuExpandOff").Choose();
  EXPECT_FALSE(form.style.ckbExpand.Checked());
}

TEST_F(GraphPanelTest, PileUpWithOneGraphKeepsTheSelection) {
  form.style.chkWinStyle.SetChecked(true);
  EXPECT_EQ(view.SelectedRow[1], 0);
  EXPECT_EQ(view.PileUpOn, kTrue);
  EXPECT_EQ(GetRealWinNo(list), 0);
}

TEST_F(GraphPanelTest, PileUpSelectsTheFirstFurtherGraphAndExpands) {
  ShowSpectrum("b.npd");
  Menu("mnuWinType_1").Choose();
  EXPECT_EQ(view.SelectedRow[1], 1);
  EXPECT_EQ(form.selector.cboGrphSel[1].Index(), 1);
  EXPECT_EQ(view.WinStyle, kPileUpSwitched);
  EXPECT_TRUE(form.style.ckbExpand.Checked());
  EXPECT_FALSE(form.style.chkFilePile[1].Checked());
  EXPECT_TRUE(Menu("mnuWinType_1").Checked());
  EXPECT_FALSE(Menu("mnuWinType_0").Checked());
}

TEST_F(GraphPanelTest, LineUpReversesTheChecksAndRemembersTheOldStyle) {
  form.style.chkWinStyle.SetChecked(true);
  Menu("mnuWinType_0").Choose();
  EXPECT_FALSE(form.style.chkWinStyle.Checked());
  EXPECT_EQ(view.WinStyle, kLineUp);
  EXPECT_EQ(view.WinStyleOld, kPileUpSwitched);
  EXPECT_TRUE(Menu("mnuWinType_0").Checked());
}

TEST_F(GraphPanelTest, TheDividerKeepsItsPlaceBetweenTheWindows) {
  form.style.fraWinHeight.SetShare(1.5);
  EXPECT_EQ(form.style.fraWinHeight.Share(), 1);
}

// The list.

TEST_F(GraphPanelTest, TheSelectorHasATitleFromTheThirdCharacterOn) {
  ShowSpectrum("b.npd");
  EXPECT_EQ(form.selector.cboGrphSel[0].Items()[1].substr(2), "b.npd");
  EXPECT_EQ(form.selector.cboGrphSel[0].Index(), 1);
}

TEST_F(GraphPanelTest, ASelectedRowBecomesTheCurrentGraphWithItsCaptions) {
  ShowSpectrum("b.npd");
  form.selector.cboGrphSel[0].SetIndex(0);
  EXPECT_EQ(view.GraphNo, 0);
  EXPECT_EQ(form.Caption(), "Dorvane (Data Analyze) --- a.npd");
  EXPECT_EQ(Menu("mnuCloseGraph").Caption(), "&Close Graph(a.npd)");
}

TEST_F(GraphPanelTest, ACheckBoxHidesAndShowsItsGraph) {
  CheckBox& box = form.selector.chkGrp[0];
  EXPECT_TRUE(box.Checked());
  EXPECT_EQ(box.Caption(), "a.npd");
  box.SetChecked(false);
  EXPECT_EQ(Row(0).Disp, kFalse);
  box.SetChecked(true);
  EXPECT_EQ(Row(0).Disp, kTrue);
}

TEST_F(GraphPanelTest, TheBoxOfTheOtherWindowTakesTheGraphThere) {
  EXPECT_FALSE(form.selector.chkGrp[10].Checked());
  form.selector.chkGrp[10].SetChecked(true);
  EXPECT_EQ(Row(0).WinNo, 1);
  EXPECT_FALSE(form.selector.chkGrp[0].Checked());
  EXPECT_TRUE(form.selector.chkGrp[10].Checked());
}

TEST_F(GraphPanelTest, EmptyRowsHaveNoBox) {
  EXPECT_FALSE(form.selector.chkGrp[1].Visible());
  form.selector.chkGrp[1].SetChecked(true);
  EXPECT_FALSE(form.selector.chkGrp[1].Checked());
  EXPECT_FALSE(form.selector.ColorOf_chkGrp(1).has_value());
  EXPECT_EQ(form.selector.ColorOf_chkGrp(10), Row(0).Color);
}

TEST_F(GraphPanelTest, AClosedGraphLeavesListAndBoxes) {
  ShowSpectrum("b.npd");
  Menu("mnuCloseGraph").Choose();
  EXPECT_EQ(form.selector.cboGrphSel[0].Items().size(), 1u);
  EXPECT_FALSE(form.selector.chkGrp[1].Visible());
}

TEST_F(GraphPanelTest, AChangeFromElsewhereShowsAtOnce) {
  pictures = 0;
  ChgValue_chkGrp(list, 0, 0, false);
  EXPECT_FALSE(form.selector.chkGrp[0].Checked());
  EXPECT_GT(pictures, 0);
  SetSpanCh(program, 100);
  EXPECT_EQ(form.scale.imnSpanCh.Value(), 100);
  CsrX_Change(program, 50);
  EXPECT_EQ(form.cursor.inumCursorCh.Value(), 50);
  ckbExpand_Click(program, true);
  EXPECT_TRUE(form.style.ckbExpand.Checked());
}

TEST_F(GraphPanelTest, ARowOfEitherListSelectsTheGraphInTheWindowThatItIsIn) {
  ShowSpectrum("a.npd");
  ShowSpectrum("b.npd");
  form.selector.chkGrp[kRows].SetChecked(true);  // the first graph moves to window 1
  form.selector.SelectRow(1);
  ASSERT_EQ(view.CurWin, 0);
  form.selector.SelectRow(0);
  EXPECT_EQ(view.CurWin, 1);
  EXPECT_EQ(view.GraphNo, 0);
}

TEST_F(GraphPanelTest, TheFirstWindowOfAPileIsNotEmptyWhereAGraphIsOfTheSecond) {
  ShowSpectrum();
  for (GraphSlot& slot : workspace.Slots) slot.WinNo = 1;
  EXPECT_FALSE(form.graphs.HintOf(0).empty());
  view.PileUpOn = kTrue;
  EXPECT_TRUE(form.graphs.HintOf(0).empty());
}

TEST_F(GraphPanelTest, RegionsOfShownGraphsAreDrawnOverThePicture) {
  const auto data_no = ShowSpectrum();
  RecordingSurface without;
  form.DrawOverlay(0, without);
  workspace.Regions.RoiCount = 1;
  workspace.Regions.Rois[0].DataNo = data_no;
  workspace.Regions.Rois[0].Start = 100;
  workspace.Regions.Rois[0].End = 200;
  RecordingSurface with;
  form.DrawOverlay(0, with);
  EXPECT_GT(with.strokes.size(), without.strokes.size());
}

}  // namespace
}  // namespace dorvane
