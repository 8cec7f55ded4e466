#include "program/View.h"

#include "program/Cursor.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

class ViewTest : public ProgramTest {};

TEST_F(ViewTest, TheHeightIsTheSmallestStepThatCoversTheShownRange) {
  std::vector<std::int32_t> counts(4096, 0);
  counts[10] = 750000;
  counts[3000] = 31;
  const auto data_no = Show(counts);
  AutoScaleY(program, 0, data_no);
  EXPECT_EQ(view.HeightY, 800000);
  view.AutoScale = kFalse;
  SetSpanCh(program, 1000);
  SetStartCh(program, 2500);
  AutoScaleY(program, 0, data_no);
  EXPECT_EQ(view.HeightY, 40);
}

TEST_F(ViewTest, ACountThatEqualsAStepFitsIt) {
  const auto data_no = Show({500, 0});
  AutoScaleY(program, 0, data_no);
  EXPECT_EQ(view.HeightY, 500);
}

TEST_F(ViewTest, CountsAboveAllStepsGetAMillionAsMeant) {
  for (const std::int32_t count : {900000, 50000000}) {
    AutoScaleY(program, 0, Show({count}));
    EXPECT_EQ(view.HeightY, 1000000);
  }
}

TEST_F(ViewTest, AnExpandedFirstWindowTakesTheHeightOfItsFirst4096ChannelsAsMeant) {
  std::vector<std::int32_t> counts(8192, 0);
  counts[100] = 55;
  counts[4095] = 700;
  counts[4096] = 90000;
  const auto data_no = Show(counts);
  SetSpanCh(program, 1000);
  view.ExpandOn = kTrue;
  AutoScaleY(program, 0, data_no);
  EXPECT_EQ(view.HeightY, 800);
  AutoScaleY(program, 1, data_no);
  EXPECT_EQ(view.HeightY, 60);
}

TEST_F(ViewTest, TheHeightGoesToTheWindowsThatPileUp) {
  listener.notices.clear();
  view.FilePile[1] = kFalse;
  SetYHeight(program, 0, 500, true);
  EXPECT_EQ(listener.Count("scale 0"), 1);
  EXPECT_EQ(listener.Count("scale 1"), 0);
  SetYHeight(program, 0, 500, false);
  EXPECT_EQ(listener.Count("redraw 0"), 1);
}

TEST_F(ViewTest, WiderHalvesTheSpanDownTo32Channels) {
  SetSpanCh(program, 64);
  cmdWider(program);
  EXPECT_EQ(view.SpanCh, 32);
  cmdWider(program);
  EXPECT_EQ(view.SpanCh, 32);
}

TEST_F(ViewTest, NarrowerDoublesTheSpanWhileAllChannelsHaveRoom) {
  SetSpanCh(program, 2048);
  cmdNarrower(program);
  EXPECT_EQ(view.SpanCh, 4096);
  cmdNarrower(program);
  EXPECT_EQ(view.SpanCh, 4096);
}

TEST_F(ViewTest, TheRangeStaysInsideTheChannels) {
  SetSpanCh(program, 1000);
  SetStartCh(program, 9000);
  EXPECT_EQ(view.StartCh, 3096);
  SetStartCh(program, -5);
  EXPECT_EQ(view.StartCh, 0);
  SetSpanCh(program, 1);
  EXPECT_EQ(view.SpanCh, 32);
}

TEST_F(ViewTest, TheEngineFollowsTheRange) {
  SetSpanCh(program, 1000);
  SetStartCh(program, 500);
  EXPECT_EQ(program.spect.Scale(0).StartX, 500);
  EXPECT_EQ(program.spect.Scale(0).EndX, 1499);
  EXPECT_EQ(program.spect.Scale(1).WidthX, 1000);
}

TEST_F(ViewTest, AnotherRangeIsToldThenDrawnWithTheAxisInBothWindows) {
  SetSpanCh(program, 1000);
  view.AutoScale = kFalse;
  listener.notices.clear();
  SetStartCh(program, 500);
  EXPECT_EQ(listener.notices, (std::vector<std::string>{"range", "axis", "redraw 0", "redraw 1"}));
}

TEST_F(ViewTest, ZoomingKeepsTheChannelUnderThePointerInPlace) {
  ZoomAbout(program, 1024, 0.5);
  EXPECT_EQ(view.SpanCh, 2048);
  EXPECT_EQ(view.StartCh, 512);  // a quarter of the picture lies left of it, before and after
  ZoomAbout(program, 1024, 2);
  EXPECT_EQ(view.StartCh, 0);
  EXPECT_EQ(view.SpanCh, 4096);
}

TEST_F(ViewTest, TheLogarithmicScaleHasSevenDecadesAndKeepsTheHeight) {
  Show({400});
  AutoScaleY(program, 0, 0);
  SetLogScale(program, true);
  EXPECT_EQ(program.spect.Scale(0).YMode, kLogarithmic);
  EXPECT_EQ(program.spect.Scale(0).MaxY, 7);
  EXPECT_EQ(view.HeightY, 400);
  SetLogScale(program, false);
  EXPECT_EQ(program.spect.Scale(0).MaxY, 400);
}

TEST_F(ViewTest, TheLogarithmicScaleHoldsForAWindowThatDoesNotPileUpToo) {
  view.FilePile[1] = kFalse;
  SetLogScale(program, true);
  EXPECT_EQ(program.spect.Scale(1).YMode, kLogarithmic);
  SetLogScale(program, false);
  EXPECT_EQ(program.spect.Scale(1).YMode, kLinear);
}

TEST_F(ViewTest, ATallerScaleMakesTheCurvesSmallerAsMeant) {
  Show({400});
  AutoScaleY(program, 0, 0);
  mnuTaller(program);
  EXPECT_EQ(view.HeightY, 500);
  EXPECT_EQ(view.AutoScale, kFalse);
  mnuShoter(program);
  mnuShoter(program);
  EXPECT_EQ(view.HeightY, 300);
}

TEST_F(ViewTest, TheScrollBarCountsTheHeightsDownwards) {
  SetYHeight(program, 0, 10, false);
  EXPECT_EQ(WidthYOf(program), 35);
  SetYHeight(program, 0, 800000, false);
  EXPECT_EQ(WidthYOf(program), 1);
  SetWidthY(program, 34);
  EXPECT_EQ(view.HeightY, 20);
  EXPECT_EQ(view.AutoScale, kFalse);
}

TEST_F(ViewTest, AHeightThatNoStepCoversKeepsTheScrollBar) {
  Show({900000});
  SetYHeight(program, 0, 500, false);
  const int before = WidthYOf(program);
  AutoScaleY(program, 0, 0);
  EXPECT_EQ(view.HeightY, 1000000);
  EXPECT_EQ(WidthYOf(program), before);
}

// Heights by their place from 0: 14 is 1000, 15 is 2000, 16 is 3000; the bar counts 35 less that.
TEST_F(ViewTest, TallerAndShorterStepTheScrollBarWhereNoStepCoversTheHeight) {
  SetWidthY(program, 20);
  TypeHeight(program, "1000000");
  mnuTaller(program);
  EXPECT_EQ(view.WidthY, 19);
  EXPECT_EQ(view.HeightY, 3000);
}

TEST_F(ViewTest, TheHeightAtStartHasNoTallerOneAndTheHighestStepBelowIt) {
  mnuTaller(program);
  EXPECT_EQ(view.HeightY, 10000000);
  mnuShoter(program);
  EXPECT_EQ(view.HeightY, 800000);
}

TEST_F(ViewTest, TallerAndShorterEndAtTheLastSteps) {
  SetWidthY(program, 1);
  mnuTaller(program);
  EXPECT_EQ(view.HeightY, 800000);
  SetWidthY(program, 35);
  mnuShoter(program);
  EXPECT_EQ(view.HeightY, 10);
  EXPECT_EQ(view.WidthY, 35);
}

TEST_F(ViewTest, ATypedHeightIsTakenAsItStands) {
  TypeHeight(program, "1234");
  EXPECT_EQ(view.HeightY, 1234);
  TypeHeight(program, "abc");
  TypeHeight(program, "-5");
  TypeHeight(program, "0");
  EXPECT_EQ(view.HeightY, 1234);
}

TEST_F(ViewTest, ATypedHeightBelowTenCountsDecadesOnTheLogScale) {
  SetLogScale(program, true);
  TypeHeight(program, "4");
  EXPECT_EQ(view.HeightY, 10000);
}

// The axis takes a height below 10 for decades.
TEST_F(ViewTest, ATypedHeightIsAtLeastTenCounts) {
  TypeHeight(program, "5");
  EXPECT_EQ(view.HeightY, 10);
  EXPECT_EQ(program.spect.Scale(0).MaxY, 10);
  SetLogScale(program, true);
  TypeHeight(program, "0.5");
  EXPECT_EQ(view.HeightY, 10);
}

TEST_F(ViewTest, ASpanTypedInDWavelengthQOrAngleCountsChannelsAsMeant) {
  for (const std::int16_t unit : {3, 4, 5, 6}) {
    SetDispUnit(program, unit);
    TypeSpan(program, 500 + unit);
    EXPECT_EQ(view.SpanCh, 500 + unit);
  }
}

TEST_F(ViewTest, ASpanTypedInTheUnitOfTheAxisBecomesChannels) {
  workspace.DefaultProp.EGC[1] = 0.05;
  SetDispUnit(program, 1);
  TypeSpan(program, 50);  // keV, at 0.05 keV a channel
  EXPECT_EQ(view.SpanCh, 1000);
  EXPECT_NEAR(SpanInUnit(program), 50, 1e-9);
}

TEST_F(ViewTest, ASpanThatIsNoneKeepsTheOldOne) {
  TypeSpan(program, -5);
  TypeSpan(program, 0);
  EXPECT_EQ(view.SpanCh, 4096);
}

TEST_F(ViewTest, TheSwitchesOfTheScaleAreTold) {
  listener.notices.clear();
  SetNorScale(program, true);
  SetAutoScale(program, false);
  EXPECT_EQ(listener.Count("scale 0"), 2);
}

TEST_F(ViewTest, AutomaticAndNormalScaleExcludeEachOther) {
  SetNorScale(program, true);
  EXPECT_EQ(view.AutoScale, kFalse);
  SetAutoScale(program, true);
  EXPECT_EQ(view.NorScale, kFalse);
}

TEST_F(ViewTest, WiderAndNarrowerKeepTheFirstChannel) {
  SetSpanCh(program, 512);
  SetStartCh(program, 1000);
  cmdWider(program);
  EXPECT_EQ(view.StartCh, 1000);
  cmdNarrower(program);
  EXPECT_EQ(view.StartCh, 1000);
  EXPECT_EQ(view.SpanCh, 512);
}

TEST_F(ViewTest, AutoScaleFollowsTheShownRange) {
  std::vector<std::int32_t> counts(4096, 0);
  counts[10] = 750000;
  counts[3000] = 31;
  Show(counts);
  SetSpanCh(program, 1000);
  SetStartCh(program, 2500);
  EXPECT_EQ(view.HeightY, 40);
  SetAutoScale(program, false);
  SetStartCh(program, 0);
  EXPECT_EQ(view.HeightY, 40);
  SetAutoScale(program, true);
  EXPECT_EQ(view.HeightY, 800000);
}

TEST_F(ViewTest, InAPileTheAutomaticScaleCoversTheFirstWindow) {
  std::vector<std::int32_t> counts(4096, 0);
  counts[10] = 750000;
  counts[3000] = 31;
  Show(counts);
  view.AutoScale = kFalse;
  view.PileUpOn = kTrue;
  view.ExpandOn = kTrue;
  view.CurWin = 1;
  SetSpanCh(program, 1000);
  SetStartCh(program, 2500);
  SetAutoScale(program, true);
  EXPECT_EQ(view.HeightY, 800000);
  SetYHeight(program, 0, 40, false);
  SetStartCh(program, 2600);
  EXPECT_EQ(view.HeightY, 800000);
}

TEST_F(ViewTest, AnotherUnitOrCalibrationIsShownOnAxisAndReadOut) {
  listener.notices.clear();
  SetDispUnit(program, 3);
  EXPECT_EQ(view.DispUnit, 3);
  optEGC_Click(program, 1);
  EXPECT_EQ(listener.notices,
            (std::vector<std::string>{"axis", "cursor", "calibration", "axis", "cursor"}));
}

TEST_F(ViewTest, TheCalibrationOptionPicksTheSource) {
  const auto data_no = Show({1});
  workspace.Spectra[data_no].Prop.TwoTheta = 6;
  workspace.DefaultProp.TwoTheta = 5;
  optEGC_Click(program, 1);
  EXPECT_EQ(CalibrationOf(workspace, data_no).TwoTheta, 6);
  optEGC_Click(program, 0);
  EXPECT_EQ(CalibrationOf(workspace, data_no).TwoTheta, 5);
}

class CursorTest : public ProgramTest {};

TEST_F(CursorTest, PlusMovesRightUpToTheChannelCountAsMeant) {
  view.CursorCh = 4095;
  spnCursor_SpinUpDown(program, "+");
  EXPECT_EQ(view.CursorCh, 4096);
  spnCursor_SpinUpDown(program, "+");
  EXPECT_EQ(view.CursorCh, 4096);
}

TEST_F(CursorTest, MinusStopsAtZero) {
  view.CursorCh = 1;
  spnCursor_SpinUpDown(program, "-");
  spnCursor_SpinUpDown(program, "-");
  EXPECT_EQ(view.CursorCh, 0);
}

TEST_F(CursorTest, StepsAreLimitedAtBothEnds) {
  view.CursorCh = 5;
  spnCursor_SpinUpDown(program, "-20");
  EXPECT_EQ(view.CursorCh, 0);
  view.CursorCh = 4090;
  spnCursor_SpinUpDown(program, "+20");
  EXPECT_EQ(view.CursorCh, 4095);
}

TEST_F(CursorTest, ATypedChannelBeyondTheEndIsTheLastOne) {
  spnCursor_SpinUpDown(program, "5000");
  EXPECT_EQ(view.CursorCh, 4095);
}

TEST_F(CursorTest, AFractionIsRoundedHalfToEven) {
  spnCursor_SpinUpDown(program, "12.5");
  EXPECT_EQ(view.CursorCh, 12);
  spnCursor_SpinUpDown(program, "13.5");
  EXPECT_EQ(view.CursorCh, 14);
}

TEST_F(CursorTest, PlusOneAtTheChannelCountGivesTheLastChannelAsMeant) {
  view.CursorCh = 4096;
  spnCursor_SpinUpDown(program, "+1");
  EXPECT_EQ(view.CursorCh, 4095);
}

TEST_F(CursorTest, ASignMakesAStepOfATypedNumber) {
  view.CursorCh = 100;
  spnCursor_SpinUpDown(program, "-1");
  EXPECT_EQ(view.CursorCh, 99);
  spnCursor_SpinUpDown(program, "+20");
  EXPECT_EQ(view.CursorCh, 119);
  spnCursor_SpinUpDown(program, "20");
  EXPECT_EQ(view.CursorCh, 20);
}

TEST_F(CursorTest, WhatIsNoNumberMovesNothing) {
  view.CursorCh = 7;
  spnCursor_SpinUpDown(program, "abc");
  spnCursor_SpinUpDown(program, "");
  EXPECT_EQ(view.CursorCh, 7);
}

TEST_F(CursorTest, TheViewFollowsTheCursorToBothSides) {
  SetSpanCh(program, 100);
  CsrX_Change(program, 1000);
  EXPECT_LE(view.StartCh, 1000);
  EXPECT_GE(view.StartCh + view.SpanCh - 1, 1000);
  CsrX_Change(program, 200);
  EXPECT_LE(view.StartCh, 200);
  EXPECT_GE(view.StartCh + view.SpanCh - 1, 200);
}

// A step is a tenth of the span: 1500 + 100 ends a range of 1000, 400 - 100 begins one.
TEST_F(CursorTest, TheViewFollowsByTheStepOfTheScrollBar) {
  SetSpanCh(program, 1000);
  CsrX_Change(program, 1500);
  EXPECT_EQ(view.StartCh, 601);
  CsrX_Change(program, 400);
  EXPECT_EQ(view.StartCh, 300);
}

TEST_F(CursorTest, JumpsGoToTheNextPeakOnThatSide) {
  const auto data_no = Show(std::vector<std::int32_t>(500, 1));
  for (const double center : {100.4, 200.0, 300.0}) {
    PeakRec& peak = workspace.Peaks[data_no].Peaks[workspace.Peaks[data_no].Count++];
    peak.Center = center;
    peak.HalfWidth = 4;
  }
  view.CursorCh = 150;
  PeakJump(program, 1);
  EXPECT_EQ(view.CursorCh, 200);
  PeakJump(program, 1);
  EXPECT_EQ(view.CursorCh, 300);
  PeakJump(program, 1);
  EXPECT_EQ(view.CursorCh, 300);
  PeakJump(program, 0);
  PeakJump(program, 0);
  EXPECT_EQ(view.CursorCh, 100);
  EXPECT_EQ(view.CursorExact, 100.4);
}

TEST_F(CursorTest, AJumpSetsTheAreaCursorAboutThePeak) {
  const auto data_no = Show(std::vector<std::int32_t>(500, 1));
  workspace.Peaks[data_no].Count = 1;
  workspace.Peaks[data_no].Peaks[0].Center = 200;
  workspace.Peaks[data_no].Peaks[0].HalfWidth = 4;
  view.AreaOn = kTrue;
  PeakJump(program, 1);
  EXPECT_EQ(view.AreaStart, 192);
  EXPECT_EQ(view.AreaEnd, 208);
}

TEST_F(CursorTest, TheAreaAboutAPeakBeginsAtChannelZero) {
  const auto data_no = Show(std::vector<std::int32_t>(500, 1));
  workspace.Peaks[data_no].Count = 1;
  workspace.Peaks[data_no].Peaks[0].Center = 5;
  workspace.Peaks[data_no].Peaks[0].HalfWidth = 4;
  view.AreaOn = kTrue;
  PeakJump(program, 1);
  EXPECT_EQ(view.AreaStart, 0);
  EXPECT_EQ(view.AreaEnd, 13);
}

TEST_F(CursorTest, TheAreaAboutAPeakEndsWithTheChannels) {
  const auto data_no = Show(std::vector<std::int32_t>(500, 1));
  workspace.Peaks[data_no].Count = 1;
  workspace.Peaks[data_no].Peaks[0].Center = 450;
  workspace.Peaks[data_no].Peaks[0].HalfWidth = 20000;
  view.AreaOn = kTrue;
  PeakJump(program, 1);
  EXPECT_EQ(view.AreaStart, 0);
  EXPECT_EQ(view.AreaEnd, workspace.MaxCh);
}

TEST_F(CursorTest, TheEndsOfAnAreaComeInAnyOrder) {
  SetArea(program, 90, 20);
  EXPECT_EQ(view.AreaStart, 20);
  EXPECT_EQ(view.AreaEnd, 90);
}

TEST_F(CursorTest, AnAreaThatACommandTakesIsGoneFromTheScreenToo) {
  SetArea(program, 90, 20);
  listener.notices.clear();
  const AreaRegion area = TakeArea(program);
  EXPECT_EQ(area.start, 20);
  EXPECT_EQ(area.end, 90);
  EXPECT_FALSE(MarkedArea(view).valid);
  EXPECT_EQ(listener.Count("cursor"), 1);
}

TEST_F(CursorTest, WithoutTheAreaCursorAJumpSetsNoArea) {
  const auto data_no = Show(std::vector<std::int32_t>(500, 1));
  workspace.Peaks[data_no].Count = 1;
  workspace.Peaks[data_no].Peaks[0].Center = 200;
  workspace.Peaks[data_no].Peaks[0].HalfWidth = 4;
  PeakJump(program, 1);
  EXPECT_EQ(view.CursorCh, 200);
  EXPECT_EQ(view.AreaStart, kNoEnd);
}

TEST_F(CursorTest, TheFullRangeReachesFromZeroToTheChannelCount) {
  SetFullRange(program);
  EXPECT_EQ(view.AreaStart, 0);
  EXPECT_EQ(view.AreaEnd, 4096);
}

}  // namespace
}  // namespace dorvane
