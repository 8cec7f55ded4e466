#include "forms/MainFormFixture.h"
#include "processing/Units.h"
#include "program/Cursor.h"
#include "program/MoveGraph.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

class CursorPanelTest : public MainFormTest {
 protected:
  CursorPanel& cursor = form.cursor;
};

TEST_F(CursorPanelTest, TheCursorStartsAtChannelZeroWithRoomUpToAllChannels) {
  EXPECT_EQ(cursor.inumCursorCh.Text(), "0");
  EXPECT_EQ(cursor.updCursorX.Maximum(), 4096);
  EXPECT_EQ(cursor.inumCursorDisp[0].Text(), "");
}

TEST_F(CursorPanelTest, ATypedChannelBecomesTheCursor) {
  TypeCursor("100");
  EXPECT_EQ(view.CursorCh, 100);
  EXPECT_EQ(cursor.updCursorX.Value(), 100);
}

TEST_F(CursorPanelTest, ATypedChannelBeyondTheLastGivesTheLastButOne) {
  TypeCursor("9999");
  EXPECT_EQ(view.CursorCh, 4095);
  EXPECT_EQ(cursor.inumCursorCh.Text(), "4095");
}

TEST_F(CursorPanelTest, ATypedChannelBelowZeroGivesZero) {
  TypeCursor("100");
  TypeCursor("-7");
  EXPECT_EQ(view.CursorCh, 0);
  EXPECT_EQ(cursor.inumCursorCh.Text(), "0");
}

TEST_F(CursorPanelTest, ATextThatIsNoNumberLeavesTheCursor) {
  TypeCursor("100");
  TypeCursor("abc");
  EXPECT_EQ(view.CursorCh, 100);
  EXPECT_EQ(cursor.inumCursorCh.Text(), "100");
}

TEST_F(CursorPanelTest, AFractionIsRoundedHalfToEven) {
  TypeCursor("10.5");
  EXPECT_EQ(view.CursorCh, 10);
  EXPECT_EQ(cursor.inumCursorCh.Value(), 10);
  TypeCursor("11.5");
  EXPECT_EQ(view.CursorCh, 12);
}

TEST_F(CursorPanelTest, TheUpDownButtonMovesByOneChannel) {
  cursor.updCursorX.Up();
  cursor.updCursorX.Up();
  cursor.updCursorX.Down();
  EXPECT_EQ(cursor.inumCursorCh.Value(), 1);
}

TEST_F(CursorPanelTest, PlusAtTheLastChannelKeepsTheCursor) {
  view.CursorCh = 4096;
  form.tool_bars.tlbrOperation.Press("CursorRight");
  EXPECT_EQ(view.CursorCh, 4096);
}

TEST_F(CursorPanelTest, PlusReachesTheChannelPastTheLastAndOneMoreByKeyComesBack) {
  TypeCursor("4095");
  cursor.updCursorX.Up();
  EXPECT_EQ(view.CursorCh, 4096);
  Press(FormKey::Right);
  EXPECT_EQ(view.CursorCh, 4095);
}

TEST_F(CursorPanelTest, MinusAtZeroStays) {
  form.tool_bars.tlbrOperation.Press("CursorLeft");
  EXPECT_EQ(view.CursorCh, 0);
}

TEST_F(CursorPanelTest, TwentyToTheLeftOfChannelFiveIsZero) {
  TypeCursor("5");
  Press(FormKey::Left, KeyModifier::Shift);
  EXPECT_EQ(view.CursorCh, 0);
}

TEST_F(CursorPanelTest, TheReadOutsFollowInAllUnits) {
  ShowSpectrum();
  workspace.DefaultProp.EGC[1] = 0.05;  // keV a channel number
  TypeCursor("199");
  // Channel number 200, 10 keV.
  EXPECT_EQ(cursor.inumCursorDisp[0].Text(), Picture(10, UnitPattern(kUnitKeV)));
  EXPECT_EQ(cursor.lblDispUnit[0].Caption(), UnitLabel(kUnitKeV));
  EXPECT_EQ(cursor.inumCursorDisp.Size(), 5);
}

TEST_F(CursorPanelTest, EachWindowShowsTheCountOfItsOwnGraph) {
  ShowSpectrum("a.npd", 7);
  TypeCursor("3");
  EXPECT_EQ(cursor.inumCursorCnt[0].Text(), "7");
  EXPECT_EQ(cursor.inumCursorCnt[1].Text(), "");
}

TEST_F(CursorPanelTest, AnExpansionCountsTheFirstRow) {
  ShowSpectrum("b.npd", 9);
  ShowSpectrum("a.npd", 7);
  form.style.ckbExpand.SetChecked(true);
  EXPECT_EQ(view.SelectedRow[0], 1);
  EXPECT_EQ(cursor.inumCursorCnt[0].Text(), "9");
  EXPECT_EQ(cursor.inumCursorCnt[1].Text(), "9");
}

TEST_F(CursorPanelTest, ThePileCountsTheGraphsOfBothWindowsInTheFirst) {
  ShowSpectrum("a.npd", 7);
  MoveGraph(program, 0, 1);
  form.style.chkWinStyle.SetChecked(true);
  form.style.ckbExpand.SetChecked(false);
  EXPECT_EQ(view.PileUpOn, kTrue);
  EXPECT_EQ(cursor.inumCursorCnt[0].Text(), "7");
  EXPECT_EQ(cursor.inumCursorCnt[1].Text(), "");
}

TEST_F(CursorPanelTest, AWindowThatDoesNotPileShowsNoCount) {
  ShowSpectrum();
  form.style.chkFilePile[0].SetChecked(false);
  EXPECT_EQ(view.FilePile[0], kFalse);
  EXPECT_EQ(cursor.inumCursorCnt[0].Text(), "");
}

TEST_F(CursorPanelTest, ACountPastTheStoredChannelsIsEmpty) {
  Show({1, 2, 3});
  ChangeActiveWin(list, 0);
  TypeCursor("3");
  EXPECT_EQ(cursor.inumCursorCnt[0].Text(), "");
}

TEST_F(CursorPanelTest, TheViewFollowsACursorThatLeavesItToEitherSide) {
  form.scale.imnSpanCh.Type("100");
  TypeCursor("150");
  EXPECT_LE(view.StartCh + view.SpanCh - 1, 170);
  EXPECT_GE(view.StartCh + view.SpanCh - 1, 150);
  TypeCursor("20");
  EXPECT_LE(view.StartCh, 20);
  EXPECT_EQ(form.scale.hsbStartX.Value(), static_cast<int>(view.StartCh));
}

TEST_F(CursorPanelTest, TheRangeOfAnExpansionDoesNotFollowTheCursor) {
  form.scale.imnSpanCh.Type("100");
  form.style.ckbExpand.SetChecked(true);
  TypeCursor("150");
  EXPECT_EQ(view.StartCh, 0);
  EXPECT_EQ(view.CursorCh, 150);
}

TEST_F(CursorPanelTest, AreaCursorAndItsButtonGoTogether) {
  cursor.chkArea.SetChecked(true);
  EXPECT_EQ(view.AreaOn, kTrue);
  EXPECT_TRUE(form.tool_bars.tlbrOperation.ButtonPressed("AreaCursor"));
  form.tool_bars.tlbrOperation.Press("AreaCursor");
  EXPECT_FALSE(cursor.chkArea.Checked());
  EXPECT_FALSE(form.tool_bars.tlbrOperation.ButtonPressed("AreaCursor"));
}

TEST_F(CursorPanelTest, AnAreaCursorSwitchedOffLeavesTheWholeRange) {
  form.tool_bars.tlbrOperation.Press("AreaCursor");
  SetArea(program, 100, 200);
  form.tool_bars.tlbrOperation.Press("AreaCursor");
  EXPECT_EQ(view.AreaStart, 0);
  EXPECT_EQ(view.AreaEnd, 4096);
}

TEST_F(CursorPanelTest, TheCursorTakesTheFormThatIsChosen) {
  ShowSpectrum();
  TypeCursor("3");
  EXPECT_EQ(form.OverlayOf(0).Form, CursorForm::Line);
  cursor.chkCsrType.SetChecked(true);
  EXPECT_EQ(form.OverlayOf(0).Form, CursorForm::Cross);
  EXPECT_EQ(form.OverlayOf(0).CursorCount, 5);
}

TEST_F(CursorPanelTest, TheCrossStandsAtTheCountOfItsWindowsGraph) {
  ShowSpectrum("a.npd", 7);
  ShowSpectrum("b.npd", 9);
  MoveGraph(program, 1, 1);
  TypeCursor("3");
  EXPECT_EQ(form.OverlayOf(0).CursorCount, 7);
  EXPECT_EQ(form.OverlayOf(1).CursorCount, 9);
  form.style.ckbExpand.SetChecked(true);
  EXPECT_EQ(form.OverlayOf(1).CursorCount, 7);
}

// Keys.

TEST_F(CursorPanelTest, ArrowsMoveByOneAndWithShiftByTwenty) {
  TypeCursor("100");
  Press(FormKey::Right);
  EXPECT_EQ(view.CursorCh, 101);
  Press(FormKey::Left);
  Press(FormKey::Left);
  EXPECT_EQ(view.CursorCh, 99);
  Press(FormKey::Right, KeyModifier::Shift);
  EXPECT_EQ(view.CursorCh, 119);
  Press(FormKey::Left, KeyModifier::Shift);
  EXPECT_EQ(view.CursorCh, 99);
}

TEST_F(CursorPanelTest, ArrowsWithAltJumpToThePeaks) {
  ShowSpectrum();
  AddPeak(100);
  AddPeak(300);
  TypeCursor("200");
  Press(FormKey::Right, KeyModifier::Alt);
  EXPECT_EQ(view.CursorCh, 300);
  Press(FormKey::Left, KeyModifier::Alt);
  EXPECT_EQ(view.CursorCh, 100);
}

TEST_F(CursorPanelTest, UpAndDownStepTheHeight) {
  form.scale.hsbWidthY.SetValue(20);
  Press(FormKey::Up);
  EXPECT_EQ(form.scale.hsbWidthY.Value(), 19);
  Press(FormKey::Down);
  EXPECT_EQ(form.scale.hsbWidthY.Value(), 20);
}

TEST_F(CursorPanelTest, KeyPadChangesSpanAndScale) {
  Press(FormKey::PadPlus);
  EXPECT_EQ(form.scale.imnSpanCh.Value(), 2048);
  Press(FormKey::PadMinus);
  EXPECT_EQ(form.scale.imnSpanCh.Value(), 4096);
  Press(FormKey::PadDecimal);
  EXPECT_TRUE(form.scale.ckbLogScale.Checked());
  Press(FormKey::PadDecimal);
  EXPECT_FALSE(form.scale.ckbLogScale.Checked());
}

TEST_F(CursorPanelTest, ArrowsStayWithTheControlsThatUseThem) {
  for (Control* focused : std::initializer_list<Control*>{
           &cursor.inumCursorCh, &form.scale.itxtScaleY, &form.selector.cboGrphSel[0],
           &form.scale.hsbStartX, &form.calibration.optEGC, form.Controls().Find("mnuFile")}) {
    EXPECT_FALSE(form.Form_KeyDown(FormKey::Right, KeyModifier::None, focused)) << focused->Name();
    EXPECT_FALSE(form.Form_KeyDown(FormKey::Up, KeyModifier::None, focused)) << focused->Name();
  }
  EXPECT_EQ(view.CursorCh, 0);
}

TEST_F(CursorPanelTest, ArrowsToTheSideMoveTheCursorOnItsUpDownButtonAndTheDivider) {
  for (Control* focused :
       std::initializer_list<Control*>{&cursor.updCursorX, &form.style.fraWinHeight}) {
    EXPECT_TRUE(form.Form_KeyDown(FormKey::Right, KeyModifier::None, focused)) << focused->Name();
    EXPECT_FALSE(form.Form_KeyDown(FormKey::Up, KeyModifier::None, focused)) << focused->Name();
  }
  EXPECT_EQ(view.CursorCh, 2);
}

TEST_F(CursorPanelTest, ArrowsBelongToTheFormWhereTheControlHasNoUseForThem) {
  EXPECT_TRUE(form.Form_KeyDown(FormKey::Right, KeyModifier::None, &form.graphs.picGraph[0]));
  EXPECT_TRUE(form.Form_KeyDown(FormKey::Right, KeyModifier::None, &form.scale.ckbLogScale));
  EXPECT_TRUE(form.Form_KeyDown(FormKey::Right, KeyModifier::None, &form.scale.cmdWider));
  EXPECT_EQ(view.CursorCh, 3);
}

TEST_F(CursorPanelTest, JumpsWithAltWorkInBoxesToo) {
  ShowSpectrum();
  AddPeak(300);
  EXPECT_TRUE(form.Form_KeyDown(FormKey::Right, KeyModifier::Alt, &cursor.inumCursorCh));
  EXPECT_EQ(view.CursorCh, 300);
}

TEST_F(CursorPanelTest, SignsOfTheKeyPadStayInBoxesAlone) {
  EXPECT_FALSE(form.Form_KeyDown(FormKey::PadPlus, KeyModifier::None, &cursor.inumCursorCh));
  EXPECT_FALSE(form.Form_KeyDown(FormKey::PadDecimal, KeyModifier::None, &form.scale.itxtScaleY));
  EXPECT_EQ(view.SpanCh, 4096);
  EXPECT_TRUE(form.Form_KeyDown(FormKey::PadPlus, KeyModifier::None, &form.scale.cboUnitX));
  EXPECT_EQ(view.SpanCh, 2048);
}

TEST_F(CursorPanelTest, AKeyWithAModifierThatNoRowHasIsNotTaken) {
  EXPECT_FALSE(form.Form_KeyDown(FormKey::Up, KeyModifier::Shift, nullptr));
  EXPECT_FALSE(form.Form_KeyDown(FormKey::PadPlus, KeyModifier::Alt, nullptr));
}

}  // namespace
}  // namespace dorvane
