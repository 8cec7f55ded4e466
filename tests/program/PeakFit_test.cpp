#include "program/PeakFit.h"

#include <gmock/gmock.h>

#include <cmath>

#include "program/Cursor.h"
#include "program/DerivedGraphs.h"
#include "program/PeakFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

// Counts are rounded to integers, so that fitted values agree with the truth to a fraction of a
// channel or of a percent.
constexpr double kChannelTolerance = 0.02;
constexpr double kHeightShare = 0.01;

TEST_F(PeakFitTest, AGaussianIsRecoveredFromItsCounts) {
  const auto data_no = Show(Spectrum(200, 50, {{10000, 100.3, 6}}));
  const PeakRec& peak = Enter(data_no, {9500, 99, 5}, 80, 120);
  const PeakFitResult result = FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.accepted);
  EXPECT_NEAR(peak.Center, 100.3, kChannelTolerance);
  EXPECT_NEAR(peak.HalfWidth, 6, kChannelTolerance);
  EXPECT_NEAR(peak.Height, 10000, 10000 * kHeightShare);
  EXPECT_NEAR(peak.BackConst, 50, 3);
  EXPECT_EQ(peak.FitDone, -1);
  EXPECT_EQ(peak.FuncType, kGauss);
  EXPECT_EQ(peak.GaussRatio, 1);
  EXPECT_EQ(peak.BackSlope, 0);
  EXPECT_EQ(peak.FitEngine, kEngineExpress);
}

TEST_F(PeakFitTest, TheErrorsOfASuccessfulFitAreTold) {
  const auto data_no = Show(Spectrum(200, 50, {{10000, 100, 6}}));
  Enter(data_no, {9500, 99, 5}, 80, 120);
  const PeakFitResult result = FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_THAT(result.text, StartsWith(" 係数誤差="));
  // area / sqrt(area) of a Poisson count: the centre is known to about sigma / sqrt(N),
  // sigma = 6 / sqrt(2 ln 2) = 5.096, N = 10000 * 6 * sqrt(pi / ln 2) = 127739
  EXPECT_NEAR(result.standard_error[2], 0.01426, 0.001);
}

TEST_F(PeakFitTest, ALorentzianStoresNoGaussianShare) {
  std::vector<std::int32_t> counts;
  for (int i = 0; i < 200; ++i) {
    const double v = (i - 100.0) / 5;
    counts.push_back(static_cast<std::int32_t>(std::lround(5000 / (v * v + 1) + 30)));
  }
  const auto data_no = Show(counts);
  const PeakRec& peak = Enter(data_no, {4900, 99, 6}, 60, 140);
  FitOnePeak(program, data_no, 0, kLorentz, 4);
  EXPECT_EQ(peak.GaussRatio, 0);
  EXPECT_NEAR(peak.Center, 100, kChannelTolerance);
  EXPECT_NEAR(peak.Height, 5000, 5000 * kHeightShare);
}

TEST_F(PeakFitTest, AMixedShapeStoresBothHeightsAsHeightAndShare) {
  std::vector<std::int32_t> counts;
  for (int i = 0; i < 300; ++i) {
    const double v = (i - 150.0) / 8;
    counts.push_back(static_cast<std::int32_t>(
        std::lround(6000 * std::pow(2.0, -v * v) + 2000 / (v * v + 1) + 100)));
  }
  const auto data_no = Show(counts);
  const PeakRec& peak = Enter(data_no, {8000, 149, 7}, 90, 210);
  FitOnePeak(program, data_no, 0, kMix, 5);
  EXPECT_NEAR(peak.Height, 8000, 80);
  EXPECT_NEAR(peak.GaussRatio, 0.75, 0.02);
  EXPECT_NEAR(peak.HalfWidth, 8, 0.1);
}

TEST_F(PeakFitTest, AnUnknownShapeIsRefusedAndThePeakStays) {
  const auto data_no = Show(Spectrum(50, 10, {}));
  const PeakRec before = Enter(data_no, {5, 25, 2}, 20, 30);
  dialogs.ExpectMessage("Bad Function Type!");
  EXPECT_EQ(FitOnePeak(program, data_no, 0, 4, 4).status, -1);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0], before);
}

TEST_F(PeakFitTest, APeakThatDoesNotExistIsNotFitted) {
  const auto data_no = Show(Spectrum(50, 10, {}));
  EXPECT_EQ(FitOnePeak(program, data_no, 0, kGauss, 4).status, -1);
}

TEST_F(PeakFitTest, TheRegionEndsAtTheLastStoredChannel) {
  const auto data_no = Show(Spectrum(110, 50, {{10000, 100, 6}}));
  const PeakRec& peak = Enter(data_no, {9500, 99, 5}, 80, 4000);
  EXPECT_EQ(FitOnePeak(program, data_no, 0, kGauss, 4).status, 0);
  EXPECT_NEAR(peak.Center, 100, kChannelTolerance);
}

TEST_F(PeakFitTest, AFitThatIsRefusedStillMarksThePeakAsFittedAsMeant) {
  // more than 500 points: the engine refuses and hands the start values back
  const auto data_no = Show(Spectrum(600, 50, {{10000, 300, 6}}));
  const PeakRec& peak = Enter(data_no, {9500, 299, 5}, 0, 599);
  const PeakFitResult result = FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_EQ(result.status, 4);
  EXPECT_EQ(result.text, "(error) CFDQR2 : Many Data!");
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(peak.FitDone, -1);
  EXPECT_EQ(peak.Height, 9450);  // 9500 less the 50 counts at the left edge
}

TEST_F(PeakFitTest, AStartHeightBelowTheLeftEdgeTakesTheRightEdge) {
  std::vector<std::int32_t> counts(600, 0);
  counts[0] = 300;
  counts[599] = 40;
  const auto data_no = Show(counts);
  const PeakRec& peak = Enter(data_no, {100, 299, 5}, 0, 599);
  FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_EQ(peak.Height, 60);
}

TEST_F(PeakFitTest, AStartHeightBelowBothEdgesIsTakenPlain) {
  std::vector<std::int32_t> counts(600, 0);
  counts[0] = 300;
  counts[599] = 200;
  const auto data_no = Show(counts);
  const PeakRec& peak = Enter(data_no, {100, 299, 5}, 0, 599);
  FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_EQ(peak.Height, 100);
}

TEST_F(PeakFitTest, AHeightMoreThanThreeTimesItsStartIsStoredButNotAccepted) {
  const auto data_no = Show(Spectrum(200, 50, {{10000, 100, 6}}));
  const PeakRec& peak = Enter(data_no, {1000, 100, 6}, 80, 120);
  const PeakFitResult result = FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_FALSE(result.accepted);
  EXPECT_NEAR(peak.Height, 10000, 10000 * kHeightShare);
}

TEST_F(PeakFitTest, TheFitCurveIsTheSumOfTheFittedShapesWithoutBackground) {
  const auto data_no = Show(std::vector<std::int32_t>(100, 7));
  PeakRec& first = Enter(data_no, {1000, 30, 5}, 20, 40);
  PeakRec& second = Enter(data_no, {500, 70, 5}, 60, 80);
  for (PeakRec* peak : {&first, &second}) {
    peak->FitDone = -1;
    peak->FuncType = kGauss;
    peak->GaussRatio = 1;
    peak->BackConst = 7;
  }
  CalcFitSpectrum(workspace, data_no, 5, -1, -1);
  EXPECT_EQ(workspace.Channels[5].Count, 100);
  EXPECT_EQ(workspace.Channels[5].Counts[30], 1000);
  EXPECT_EQ(workspace.Channels[5].Counts[35], 500);  // half the height at the half width
  EXPECT_EQ(workspace.Channels[5].Counts[70], 500);
  EXPECT_EQ(workspace.Channels[5].Counts[0], 0);
}

TEST_F(PeakFitTest, PeaksWithoutShapeWidthOrFitGiveNoCurve) {
  const auto data_no = Show(std::vector<std::int32_t>(100, 0));
  for (int i = 0; i < 3; ++i) {
    PeakRec& peak = Enter(data_no, {1000, 30.0 + i, 5}, 20, 40);
    peak.FitDone = -1;
    peak.FuncType = kGauss;
    peak.GaussRatio = 1;
  }
  workspace.Peaks[data_no].Peaks[0].FuncType = kNoFunc;
  workspace.Peaks[data_no].Peaks[1].HalfWidth = 0;
  workspace.Peaks[data_no].Peaks[2].FitDone = 0;
  CalcFitSpectrum(workspace, data_no, 5, -1, -1);
  EXPECT_EQ(workspace.Channels[5].Counts[31], 0);
}

TEST_F(PeakFitTest, AHeightOfTheCurveIsLimited) {
  const auto data_no = Show(std::vector<std::int32_t>(100, 0));
  PeakRec& peak = Enter(data_no, {1e9, 30, 5}, 20, 40);
  peak.FitDone = -1;
  peak.FuncType = kGauss;
  peak.GaussRatio = 1;
  CalcFitSpectrum(workspace, data_no, 5, -1, -1);
  EXPECT_EQ(workspace.Channels[5].Counts[30], 10000000);
}

TEST_F(PeakFitTest, TheFitOfAnAreaFindsFitsAndShowsItsPeaks) {
  const auto data_no =
      Show(Spectrum(1000, 100, {{20000, 250.4, 3}, {8000, 500.7, 3.5}, {15000, 750.2, 4}}));
  SetArea(program, 0, 999);
  FitPeak(program, 0);
  const PeakTable& table = workspace.Peaks[data_no];
  ASSERT_EQ(table.Count, 3);
  EXPECT_NEAR(table.Peaks[0].Center, 250.4, kChannelTolerance);
  EXPECT_NEAR(table.Peaks[1].Center, 500.7, kChannelTolerance);
  EXPECT_NEAR(table.Peaks[2].Center, 750.2, kChannelTolerance);
  // area of a Gaussian: height * half width * sqrt(pi / ln 2)
  EXPECT_NEAR(table.Peaks[0].Amplitude, 20000 * 3 * 2.128934, 1300);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
  EXPECT_EQ(FlagsOf(0), FlagFit);
  EXPECT_EQ(workspace.Peaks[Row(0).DataNo], table);
  EXPECT_EQ(view.GraphNo, 1);
  EXPECT_EQ(view.DataNo, data_no);
  EXPECT_EQ(view.Pointer, kPointerNormal);
}

TEST_F(PeakFitTest, TheAreaIsUsedUpByTheCommand) {
  Show(Spectrum(300, 100, {{20000, 150, 3}}));
  SetArea(program, 100, 200);
  FitPeak(program, 0);
  EXPECT_EQ(view.AreaStart, kNoEnd);
  EXPECT_EQ(view.AreaEnd, kNoEnd);
}

TEST_F(PeakFitTest, AnAreaWithoutPeaksIsGoneFromTheScreenToo) {
  Show(std::vector<std::int32_t>(300, 0));
  SetArea(program, 100, 200);
  listener.notices.clear();
  FitPeak(program, 0);
  EXPECT_GE(listener.Count("cursor"), 1);
}

TEST_F(PeakFitTest, WithoutAnAreaThePeakAtTheCursorIsFitted) {
  const auto data_no = Show(Spectrum(300, 100, {{20000, 100, 6}, {20000, 200, 6}}));
  Enter(data_no, {19000, 100, 5}, 80, 120);
  Enter(data_no, {19000, 200, 5}, 180, 220);
  view.CursorCh = 202;
  FitPeak(program, 0);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].FitDone, 0);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[1].FitDone, -1);
}

TEST_F(PeakFitTest, WithNothingUnderTheCursorTheCommandEndsQuietly) {
  Show(Spectrum(300, 100, {}));
  view.CursorCh = 150;
  FitPeak(program, 0);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(PeakFitTest, AnUnknownShapeSettingBecomesGauss) {
  Show(Spectrum(300, 100, {}));
  for (const std::int16_t type : {9, 0, -1}) {
    workspace.FitParam.FuncType = type;
    FitPeak(program, 0);
    EXPECT_EQ(workspace.FitParam.FuncType, kGauss) << type;
  }
}

TEST_F(PeakFitTest, PeaksThatAreNotAcceptedAreRemovedWithAMessage) {
  const auto data_no = Show(Spectrum(400, 50, {{10000, 100, 6}, {10000, 200, 6}, {10000, 300, 6}}));
  Enter(data_no, {1000, 100, 6}, 80, 120);
  Enter(data_no, {9500, 200, 6}, 180, 220);
  Enter(data_no, {1000, 300, 6}, 280, 320);
  SetArea(program, 0, 399);
  dialogs.ExpectMessage("2 Peaks Cuted");
  FitPeak(program, 0);
  ASSERT_EQ(workspace.Peaks[data_no].Count, 1);
  EXPECT_NEAR(workspace.Peaks[data_no].Peaks[0].Center, 200, kChannelTolerance);
}

// The search gives well under half of a half width of six channels, from where the fit steps to a
// negative width.
TEST_F(PeakFitTest, AFitThatEndsAtANegativeWidthIsCutAsMeant) {
  const auto data_no = Show(Spectrum(300, 100, {{20000, 150, 6}}));
  SetArea(program, 100, 200);
  dialogs.ExpectMessage("1 Peaks Cuted");
  FitPeak(program, 0);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 0);
}

TEST_F(PeakFitTest, AFittedGraphInTheFirstRowIsReplaced) {
  Show(Spectrum(300, 100, {{20000, 150, 3}}));
  for (int i = 0; i < 2; ++i) {
    SetArea(program, 0, 299);
    FitPeak(program, 0);
  }
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
}

TEST_F(PeakFitTest, ACancelledFitLeavesTheTableAsItWas) {
  const auto data_no = Show(Spectrum(400, 50, {{10000, 100, 6}, {10000, 200, 6}}));
  Enter(data_no, {9500, 100, 6}, 80, 120);
  Enter(data_no, {9500, 200, 6}, 180, 220);
  const PeakTable before = workspace.Peaks[data_no];
  progress.cancel_after = 1;
  SetArea(program, 0, 399);
  FitPeak(program, 0);
  EXPECT_EQ(workspace.Peaks[data_no], before);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
  EXPECT_EQ(view.Pointer, kPointerNormal);
}

TEST_F(PeakFitTest, ABackgroundOfAScanGoesAlsoWhereAnAreaHoldsNoPeak) {
  Show(std::vector<std::int32_t>(300, 0));
  workspace.FitBack[150] = 90;
  view.CursorCh = 150;
  FitPeak(program, 0);
  EXPECT_EQ(workspace.FitBack[150], 90);
  SetArea(program, 50, 250);
  FitPeak(program, 0);
  EXPECT_EQ(workspace.FitBack[150], 0);
}

TEST_F(PeakFitTest, ACancelledFitKeepsTheBackgroundOfTheScanBefore) {
  const auto data_no = Show(Spectrum(400, 50, {{10000, 100, 6}, {10000, 200, 6}}));
  Enter(data_no, {9500, 100, 6}, 80, 120);
  Enter(data_no, {9500, 200, 6}, 180, 220);
  workspace.FitBack[150] = 90;
  progress.cancel_after = 1;
  SetArea(program, 0, 399);
  FitPeak(program, 0);
  EXPECT_EQ(workspace.FitBack[150], 90);
}

TEST_F(PeakFitTest, FindingPeaksAnewReplacesThoseOfTheArea) {
  const auto data_no = Show(Spectrum(600, 100, {{20000, 150, 6}, {20000, 450, 6}}));
  Enter(data_no, {5, 160, 3}, 150, 170);
  Enter(data_no, {5, 450, 3}, 440, 460);
  SetArea(program, 50, 300);
  InsertPeaksAtCursor(program);
  ASSERT_EQ(workspace.Peaks[data_no].Count, 2);
  EXPECT_NEAR(workspace.Peaks[data_no].Peaks[0].Center, 150, 1);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[1].Height, 5);
}

TEST_F(PeakFitTest, WithoutAnAreaTwentyChannelsAboutTheCursorAreSearched) {
  const auto data_no = Show(Spectrum(300, 10, {{5000, 150, 2}}));
  view.CursorCh = 148;
  InsertPeaksAtCursor(program);
  ASSERT_EQ(workspace.Peaks[data_no].Count, 1);
  EXPECT_NEAR(workspace.Peaks[data_no].Peaks[0].Center, 150, 1);
}

TEST_F(PeakFitTest, ACursorNearTheStartFindsNothing) {
  const auto data_no = Show(Spectrum(300, 10, {{5000, 8, 2}}));
  view.CursorCh = 8;  // the range would begin at channel -2
  InsertPeaksAtCursor(program);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 0);
}

TEST_F(PeakFitTest, AFullTableIsToldAndStopsTheEntry) {
  const auto data_no = Show(Spectrum(300, 10, {{5000, 150, 2}}));
  for (int i = 0; i < kMaxPeaks; ++i) Enter(data_no, {5, 200.0 + i, 1}, 200, 201);
  view.CursorCh = 150;
  dialogs.ExpectMessage("intPeakNo=-1");
  InsertPeaksAtCursor(program);
  EXPECT_EQ(workspace.Peaks[data_no].Count, kMaxPeaks);
}

TEST_F(PeakFitTest, AllPeaksAreFoundOverTheWholeSpectrum) {
  const auto data_no = Show(Spectrum(2048, 100, {{20000, 250, 6}, {8000, 1500, 9}}));
  InsertAllPeaks(program);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 2);
  EXPECT_EQ(view.AreaStart, kNoEnd);
}

TEST_F(PeakFitTest, AnAreaForInsertionOrDeletionIsGoneFromTheScreenToo) {
  Show(Spectrum(300, 100, {}));
  for (const auto& command : {InsertPeaksAtCursor, DeletePeaks}) {
    SetArea(program, 100, 200);
    listener.notices.clear();
    command(program);
    EXPECT_GE(listener.Count("cursor"), 1);
  }
}

TEST_F(PeakFitTest, NoToTheQuestionKeepsAllPeaks) {
  const auto data_no = Show(Spectrum(300, 10, {}));
  Enter(data_no, {5, 150, 3}, 140, 160);
  SetArea(program, 0, 299);
  dialogs.ExpectQuestion("It will deletes peaks in the range of the area cursor", false);
  AskAndDeletePeaks(program);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 1);
}

TEST_F(PeakFitTest, DeletedPeaksMakeTheirRowUnsaved) {
  const auto data_no = Show(Spectrum(300, 10, {}));
  Enter(data_no, {5, 100, 3}, 90, 110);
  Enter(data_no, {5, 150, 3}, 140, 160);
  Enter(data_no, {5, 250, 3}, 240, 260);
  SetArea(program, 120, 299);
  DeletePeaks(program);
  ASSERT_EQ(workspace.Peaks[data_no].Count, 1);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].Center, 100);
  EXPECT_EQ(Row(0).State, kRowUnsaved);
}

TEST_F(PeakFitTest, WithoutAnAreaOnlyThePeakAtTheCursorIsDeleted) {
  const auto data_no = Show(Spectrum(300, 10, {}));
  Enter(data_no, {5, 100, 3}, 90, 110);
  Enter(data_no, {5, 150, 3}, 140, 160);
  view.CursorCh = 101;
  DeletePeaks(program);
  ASSERT_EQ(workspace.Peaks[data_no].Count, 1);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].Center, 150);
}

TEST_F(PeakFitTest, DeletingPeaksRecalculatesTheFirstGraphAsTheFitWhateverItIsAsMeant) {
  const auto raw = Show(Spectrum(300, 100, {{20000, 100, 6}, {20000, 200, 6}}));
  SmoothGraph(program);
  Change_cboGrphSel(list, 0, 1);
  Enter(raw, {20000, 100, 6}, 80, 120);
  SetArea(program, 50, 150);
  DeletePeaks(program);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
  EXPECT_EQ(workspace.Channels[Row(0).DataNo].Counts[200], 0);
}

TEST_F(PeakFitTest, DeletingPeaksMakesNoFitOfAnEmptyFirstRow) {
  // given: row 0 as a failed read leaves it
  Show({1});
  const auto data_no = Show(Spectrum(300, 10, {}), "b.npd");
  workspace.Slots[0] = GraphSlot{};
  Enter(data_no, {5, 100, 3}, 90, 110);
  SetArea(program, 50, 150);
  DeletePeaks(program);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 0);
  EXPECT_THAT(Titles(), ElementsAre("b.npd"));
}

// 500 channels and four coefficients are more rows than the residuals have.
TEST_F(PeakFitTest, APeakWhoseFitFaultsKeepsItsMark) {
  const auto data_no = Show(Spectrum(600, 100, {{20000, 300, 60}}));
  list.listener.PeakMarked(0, data_no, Enter(data_no, {19000, 300, 55}, 50, 549));
  SetArea(program, 200, 400);
  EXPECT_THROW(FitPeak(program, 0), Fault);
  EXPECT_THAT(program.spect.PeakLinesOf(0).Channels(), ElementsAre(300));
  EXPECT_EQ(view.Pointer, kPointerNormal);
}

}  // namespace
}  // namespace dorvane
