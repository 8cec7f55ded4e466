#include "program/Commands.h"

#include <gmock/gmock.h>

#include <set>

#include "program/DerivedGraphs.h"
#include "program/ProgramFixture.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class CommandsTest : public ProgramTest {};

TEST_F(CommandsTest, EveryNameStandsForOneCommand) {
  std::set<std::string_view> names;
  for (const Command& command : Commands()) {
    EXPECT_TRUE(names.insert(command.key).second) << command.key;
    if (command.menu.empty()) continue;
    EXPECT_TRUE(names.insert(command.menu).second) << command.menu;
  }
}

TEST_F(CommandsTest, KeyAndMenuEntryRunTheSameOperation) {
  struct Pair {
    const char* key;
    const char* menu;
  };
  for (const Pair& pair :
       {Pair{"LoadData", "mnuLoad"}, Pair{"SaveData", "mnuSave"}, Pair{"Smooth", "mnuSmooth"},
        Pair{"BackGround", "mnuBackGround"}, Pair{"MkIns", "mnuPeakIns"}, Pair{"Fit", "mnuFitting"},
        Pair{"MkDel", "mnuPeakDelete"}, Pair{"JmpLeft", "mnuPeakJumpB"},
        Pair{"JmpRight", "mnuPeakJumpN"}, Pair{"All", "mnuPeakAllIns"},
        Pair{"AutoFit", "mnuAutoFit"}, Pair{"Split", "mnuPeakSep"}}) {
    ASSERT_NE(FindCommand(pair.key), nullptr) << pair.key;
    EXPECT_EQ(FindCommand(pair.key), FindCommand(pair.menu)) << pair.key;
  }
}

TEST_F(CommandsTest, AKeyThatNoRowNamesDoesNothing) {
  EXPECT_TRUE(RunCommand(program, "smooth"));
  EXPECT_TRUE(RunCommand(program, ""));
  EXPECT_TRUE(listener.notices.empty() || workspace.GrpCount == 0);
}

TEST_F(CommandsTest, AFaultStopsAtTheBoundaryWithItsTextAndTheProgramGoesOn) {
  Show(std::vector<std::int32_t>(8192, 5));
  workspace.FitParam.BackInterval = 16;  // the last grid channel is 8192
  dialogs.ExpectMessage("Subscript out of range");
  EXPECT_FALSE(RunCommand(program, "BackGround"));
  EXPECT_TRUE(RunCommand(program, "CursorRight"));
  EXPECT_EQ(view.CursorCh, 1);
}

TEST_F(CommandsTest, TheGraphOfAKindIsTheLastRowOfThatKind) {
  Show({0, 0, 9, 0, 0}, "a.npd");
  Show({0, 0, 9, 0, 0}, "b.npd");
  Change_cboGrphSel(list, 0, 0);
  RunCommand(program, "mnuGraphRaw");
  EXPECT_EQ(view.GraphNo, 1);
  RunCommand(program, "mnuGraphFit");
  EXPECT_EQ(view.GraphNo, 1);
}

TEST_F(CommandsTest, ClosingAGraphRemovesTheCurrentRow) {
  Show({1}, "a.npd");
  Show({1}, "b.npd");
  Change_cboGrphSel(list, 0, 0);
  RunCommand(program, "mnuCloseGraph");
  EXPECT_THAT(Titles(), ElementsAre("b.npd"));
}

TEST_F(CommandsTest, ClosingAnEmptyRowTouchesNoGraph) {
  // given: row 0 as a failed read leaves it, and the current row there
  Show({7}, "a.npd");
  Show({1}, "b.npd");
  workspace.Slots[1].DataNo = 0;
  workspace.Slots[0] = GraphSlot{};
  Change_cboGrphSel(list, 0, 0);
  RunCommand(program, "mnuCloseGraph");
  EXPECT_THAT(Titles(), ElementsAre("b.npd"));
  EXPECT_EQ(CountsOf(0), std::vector<std::int32_t>{7});
}

TEST_F(CommandsTest, DeletingAllPeaksFromTheMenuDoesNotAsk) {
  Show({1}, "a.npd");
  EXPECT_TRUE(RunCommand(program, "mnuPeakAllDelete"));
}

TEST_F(CommandsTest, SwitchingTheAreaCursorOffMakesTheWholeSpectrumTheRange) {
  RunCommand(program, "AreaCursor");
  EXPECT_EQ(view.AreaOn, kTrue);
  EXPECT_EQ(view.AreaStart, kNoEnd);
  RunCommand(program, "AreaCursor");
  EXPECT_EQ(view.AreaOn, kFalse);
  EXPECT_EQ(view.AreaStart, 0);
  EXPECT_EQ(view.AreaEnd, 4096);
}

TEST_F(CommandsTest, TheDrawingModeHoldsForBothWindows) {
  RunCommand(program, "mnuPaint");
  EXPECT_EQ(program.spect.Scale(0).DrawMode, kDrawPaint);
  EXPECT_EQ(program.spect.Scale(1).DrawMode, kDrawPaint);
  RunCommand(program, "mnuDot");
  EXPECT_EQ(program.spect.Scale(1).DrawMode, kDrawDot);
}

TEST_F(CommandsTest, LinesAreDrawingModeZero) {
  RunCommand(program, "mnuDot");
  RunCommand(program, "mnuLine");
  EXPECT_EQ(program.spect.Scale(0).DrawMode, kDrawLine);
  EXPECT_EQ(program.spect.Scale(1).DrawMode, kDrawLine);
}

TEST_F(CommandsTest, EveryKindOfGraphHasItsMenuEntry) {
  for (const char* title : {"a.npd", "Smooth", "BackGraund", "BackRemv", "Fit"}) Show({1}, title);
  int row = 0;
  for (const char* menu :
       {"mnuGraphRaw", "mnuGraphSmt", "mnuGraphBack", "mnuGraphBackRemoved", "mnuGraphFit"}) {
    RunCommand(program, menu);
    EXPECT_EQ(view.GraphNo, row++) << menu;
  }
}

TEST_F(CommandsTest, TwoProgramsDoNotKnowOfEachOther) {
  const auto other = std::make_unique<Program>(program.ports, folder.Path(""));
  Show({0, 0, 16, 0, 0});
  RunCommand(program, "Smooth");
  EXPECT_EQ(other->workspace.GrpCount, 0);
  EXPECT_EQ(other->workspace.Slots[0].State, kRowEmpty);
}

class EngineTest : public ProgramTest {};

TEST_F(EngineTest, AShownSpectrumIsRegisteredInItsWindowAlone) {
  const auto data_no = Show({1, 2, 3});
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Shown, kTrue);
  ChgValue_chkGrp(list, 1, 0, true);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Valid, kFalse);
  EXPECT_EQ(program.spect.CurveOf(1, data_no).Shown, kTrue);
}

TEST_F(EngineTest, ASpectrumSetIntoAnotherWindowLeavesTheFirst) {
  const auto data_no = Show({1, 2, 3});
  SetGraph(list, 1, 0, data_no, "");
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Valid, kFalse);
  EXPECT_EQ(program.spect.CurveOf(1, data_no).Valid, kTrue);
}

TEST_F(EngineTest, AnotherColourTableColoursRowsCurvesAndMarksAndShowsNothingHidden) {
  const auto data_no = Show({1, 2, 3});
  ChgValue_chkGrp(list, 0, 0, false);
  ColorTable colors = workspace.ColorTbl;
  colors[data_no] = 0x123456;
  UseColors(program, colors);
  EXPECT_EQ(Row(0).Color, 0x123456);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Color, 0x123456);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Shown, kFalse);
}

TEST_F(EngineTest, AGraphWithAColourOfItsOwnKeepsItUntilItsEntryChanges) {
  const auto data_no = Show({1, 2, 3});
  ChgStrColor_chkGrp(list, 0, 0, 0x00FF00);
  ColorTable colors = workspace.ColorTbl;
  colors[kColorPeakMark] = 0x123456;
  UseColors(program, colors);
  EXPECT_EQ(Row(0).Color, 0x00FF00);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Color, 0x00FF00);
  colors[data_no] = 0x654321;
  UseColors(program, colors);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Color, 0x654321);
}

TEST_F(EngineTest, PeaksThatAreMarkedTakeTheirNewColour) {
  const auto data_no = Show(std::vector<std::int32_t>(200, 5));
  PeakRec& peak = workspace.Peaks[data_no].Peaks[0];
  peak.Center = 100;
  peak.RegionStart = 90;
  peak.RegionEnd = 110;
  workspace.Peaks[data_no].Count = 1;
  list.listener.PeakMarked(0, data_no, peak);
  ColorTable colors = workspace.ColorTbl;
  colors[kColorPeakCurve] = 0x123456;
  UseColors(program, colors);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).PointColors[100], 0x123456);
  EXPECT_EQ(program.spect.PeakLinesOf(0).Count(), 1);
}

TEST_F(EngineTest, AHiddenGraphIsNotDrawn) {
  const auto data_no = Show({1, 2, 3});
  ChgValue_chkGrp(list, 0, 0, false);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Shown, kFalse);
}

TEST_F(EngineTest, APeakHasALineAtItsCentreAsLongAsItIsInTheTable) {
  Show({1, 2, 3});
  PeakRec peak;
  peak.Center = 100.6;
  peak.RegionStart = 90;
  peak.RegionEnd = 110;
  list.listener.PeakMarked(0, 0, peak);
  EXPECT_EQ(program.spect.PeakLinesOf(0).Count(), 1);
  EXPECT_EQ(program.spect.PeakLinesOf(0).Entry(0), 101);
  list.listener.PeakUnmarked(0, 0, peak);
  EXPECT_EQ(program.spect.PeakLinesOf(0).Count(), 0);
}

TEST_F(EngineTest, AGraphTakesThePeakLinesToTheOtherWindow) {
  const auto data_no = Show({1, 2, 3});
  PeakRec& peak = workspace.Peaks[data_no].Peaks[0];
  peak.Center = 2;
  workspace.Peaks[data_no].Count = 1;
  list.listener.PeakMarked(0, data_no, peak);
  ChgValue_chkGrp(list, 1, 0, true);
  EXPECT_EQ(program.spect.PeakLinesOf(0).Count(), 0);
  EXPECT_EQ(program.spect.PeakLinesOf(1).Count(), 1);
}

TEST_F(EngineTest, ADerivedCurveTakesNoPeakLinesFromItsSource) {
  const auto data_no = Show({1, 2, 3, 4, 5});
  PeakRec& peak = workspace.Peaks[data_no].Peaks[0];
  peak.Center = 2;
  workspace.Peaks[data_no].Count = 1;
  list.listener.PeakMarked(0, data_no, peak);
  RunCommand(program, "Smooth");
  ChgValue_chkGrp(list, 1, 0, true);
  EXPECT_EQ(program.spect.PeakLinesOf(0).Count(), 1);
  EXPECT_EQ(program.spect.PeakLinesOf(1).Count(), 0);
}

TEST_F(EngineTest, ASpectrumInAFreedNumberHasNoMarksOfTheOneBefore) {
  Show({1, 2, 3}, "a.npd");
  const auto data_no = Show({1, 2, 3}, "b.npd");
  PeakRec& peak = workspace.Peaks[data_no].Peaks[0];
  peak.Center = 2;
  workspace.Peaks[data_no].Count = 1;
  list.listener.PeakMarked(0, data_no, peak);
  DeleteGraph(list, 1);
  ASSERT_EQ(Show({4, 5, 6}, "c.npd"), data_no);
  ChgValue_chkGrp(list, 1, 1, true);
  EXPECT_EQ(program.spect.PeakLinesOf(1).Count(), 0);
}

TEST_F(EngineTest, ClearedPointMarksLeaveTheCurve) {
  const auto data_no = Show({1, 2, 3});
  program.spect.SetPointColor(0, data_no, 0, 2, 0xFF);
  list.listener.PointMarksCleared(0, data_no);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).PointColors[1], 0);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Counts[1], 2);
}

TEST_F(EngineTest, PointsOfAPeakHaveTheirColourAsLongAsItIsInTheTable) {
  const auto data_no = Show({1, 2, 3, 4, 5});
  PeakRec peak;
  peak.Center = 2;
  peak.RegionStart = 1;
  peak.RegionEnd = 3;
  const auto color_at = [&](int channel) {
    return program.spect.CurveOf(0, data_no).PointColors[channel];
  };
  list.listener.PeakMarked(0, data_no, peak);
  EXPECT_EQ(color_at(3), workspace.ColorTbl[14]);
  EXPECT_EQ(color_at(4), 0);
  list.listener.PeakUnmarked(0, data_no, peak);
  EXPECT_EQ(color_at(1), 0);
  EXPECT_EQ(color_at(3), 0);
}

TEST_F(EngineTest, ClearedPointMarksTakeTheTextsOfTheWindowAlong) {
  const auto data_no = Show({1, 2, 3});
  program.spect.AddText(0, 1, 2, "200", 0xFF, 10, kFalse);
  program.spect.AddText(1, 1, 2, "220", 0xFF, 10, kFalse);
  list.listener.PointMarksCleared(0, data_no);
  EXPECT_TRUE(program.spect.Texts(0).empty());
  EXPECT_EQ(program.spect.Texts(1).size(), 1u);
}

TEST_F(EngineTest, AClearedWindowHasNoCurvesAndNoPeakLines) {
  const auto data_no = Show({1, 2, 3});
  program.spect.AddPeakLine(0, 2);
  list.listener.WindowCleared(0);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Valid, kFalse);
  EXPECT_EQ(program.spect.PeakLinesOf(0).Count(), 0);
}

TEST_F(EngineTest, ClearedPeakLinesAreThoseOfOneWindow) {
  program.spect.AddPeakLine(0, 2);
  program.spect.AddPeakLine(1, 3);
  list.listener.PeakLinesCleared(0);
  EXPECT_EQ(program.spect.PeakLinesOf(0).Count(), 0);
  EXPECT_EQ(program.spect.PeakLinesOf(1).Count(), 1);
}

TEST_F(EngineTest, EveryNoticeReachesTheOutside) {
  listener.notices.clear();
  WorkspaceListener& inside = program.Listener();
  PeakRec peak;
  inside.SelectorFilled();
  inside.SelectorRowSelected(0, 1);
  inside.CheckBoxesFilled();
  inside.SelectionListFilled();
  inside.SelectionRowCleared(1);
  inside.SpectrumShown(0, 1);
  inside.SpectrumRemoved(0, 1);
  inside.GraphShown(0, 1, true);
  inside.PeakMarked(0, 1, peak);
  inside.PeakUnmarked(0, 1, peak);
  inside.PeakLinesCleared(0);
  inside.PointMarksCleared(0, 1);
  inside.WindowCleared(0);
  inside.RedrawWanted(0);
  inside.WindowStyleChanged();
  inside.WindowActivated(0);
  inside.UnitAxisChanged();
  inside.CountScaleChanged(0);
  inside.RangeChanged();
  inside.CursorMoved();
  inside.CalibrationShown();
  inside.CaptionChanged();
  inside.PointerChanged();
  inside.DataTypeShown();
  EXPECT_EQ(listener.notices.size(), 24u);
}

}  // namespace
}  // namespace dorvane
