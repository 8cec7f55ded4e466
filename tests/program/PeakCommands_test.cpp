#include <gmock/gmock.h>

#include "program/Commands.h"
#include "program/Cursor.h"
#include "program/DerivedGraphs.h"
#include "program/PeakFit.h"
#include "program/PeakFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::MatchesRegex;

// Counts are rounded to integers.
constexpr double kChannelTolerance = 0.02;

// What the peak commands leave in tables, rows, flags and marks.
class PeakCommandsTest : public PeakFitTest {
 protected:
  const PeakTable& Table(int data_no) const { return workspace.Peaks[data_no]; }
  int Lines() const { return program.spect.PeakLinesOf(0).Count(); }
  void EnterAndMark(int data_no, const Line& line, int start, int end) {
    list.listener.PeakMarked(0, data_no, Enter(data_no, line, start, end));
  }
};

// ---- one peak

TEST_F(PeakCommandsTest, TheErrorsAreFourNumbersOfFiveDecimals) {
  const auto data_no = Show(Spectrum(200, 50, {{10000, 100, 6}}));
  Enter(data_no, {9500, 99, 5}, 80, 120);
  const PeakFitResult result = FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_THAT(result.text,
              MatchesRegex(" 係数誤差=[0-9]+[.][0-9][0-9][0-9][0-9][0-9] [0-9]+[.][0-9][0-9][0-9]"
                           "[0-9][0-9] [0-9]+[.][0-9][0-9][0-9][0-9][0-9] [0-9]+[.][0-9][0-9][0-9]"
                           "[0-9][0-9]"));
}

TEST_F(PeakCommandsTest, TheGrowthOfAHeightIsCountedFromItsHeightAboveTheEdge) {
  // 500 counts above the edge of 1000; the line is 2000 high: more than three times 500, less than
  // three times 1500.
  const auto data_no = Show(Spectrum(200, 1000, {{2000, 100, 6}}));
  Enter(data_no, {1500, 100, 6}, 75, 125);
  EXPECT_FALSE(FitOnePeak(program, data_no, 0, kGauss, 4).accepted);
}

TEST_F(PeakCommandsTest, ADipIsNotAccepted) {
  const auto data_no = Show(Spectrum(200, 5000, {{-2000, 100, 6}}));
  const PeakRec& peak = Enter(data_no, {5100, 100, 6}, 75, 125);
  EXPECT_FALSE(FitOnePeak(program, data_no, 0, kGauss, 4).accepted);
  EXPECT_LT(peak.Height, 0);
}

TEST_F(PeakCommandsTest, AMixedShapeStartsWithFourFifthsOfTheHeightAsGaussian) {
  // more than 500 points: the start values come back
  const auto data_no = Show(Spectrum(600, 50, {{10000, 300, 6}}));
  const PeakRec& peak = Enter(data_no, {9500, 299, 5}, 0, 599);
  FitOnePeak(program, data_no, 0, kMix, 5);
  EXPECT_EQ(peak.Height, 9500);
  EXPECT_DOUBLE_EQ(peak.GaussRatio, 0.8);
  EXPECT_EQ(peak.Center, 299);
  EXPECT_EQ(peak.HalfWidth, 5);
}

TEST_F(PeakCommandsTest, AMixedShapeAsHighAsItsEdgeStartsWithoutWidthAsMeant) {
  // nothing above the edge, so centre and width stay 0; four fifths of the height come after that
  const auto data_no = Show(std::vector<std::int32_t>(100, 500));
  Enter(data_no, {500, 50, 6}, 30, 70);
  const PeakFitResult result = FitOnePeak(program, data_no, 0, kMix, 5);
  EXPECT_EQ(result.status, 11);
  EXPECT_EQ(result.text, "(error) CFDQR2 :初期fGaussのエラー");
}

TEST_F(PeakCommandsTest, TheShapeZeroHasNoGaussianShareAndGivesNoCurve) {
  const auto data_no = Show(Spectrum(200, 50, {{10000, 100, 6}}));
  const PeakRec& peak = Enter(data_no, {9500, 99, 5}, 80, 120);
  EXPECT_EQ(FitOnePeak(program, data_no, 0, kNoFunc, 4).status, 4);
  EXPECT_EQ(peak.FuncType, kNoFunc);
  EXPECT_EQ(peak.GaussRatio, 0);
  EXPECT_EQ(peak.FitDone, -1);
}

TEST_F(PeakCommandsTest, ARegionBeginsAtTheFirstChannel) {
  const auto data_no = Show(Spectrum(200, 50, {{10000, 30, 6}}));
  const PeakRec& peak = Enter(data_no, {9500, 29, 5}, -40, 60);
  EXPECT_EQ(FitOnePeak(program, data_no, 0, kGauss, 4).status, 0);
  EXPECT_NEAR(peak.Center, 30, kChannelTolerance);
}

TEST_F(PeakCommandsTest, ARegionWithoutChannelsIsNotFitted) {
  const auto data_no = Show(Spectrum(300, 50, {}));
  const PeakRec before = Enter(data_no, {5, 100, -33}, 200, 0);
  const PeakFitResult result = FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_FALSE(result.accepted);
  EXPECT_EQ(Table(data_no).Peaks[0], before);
}

TEST_F(PeakCommandsTest, APeakWithoutWidthIsAFaultAtTheStartAndNotAccepted) {
  const auto data_no = Show(Spectrum(300, 50, {{900, 100, 6}}));
  Enter(data_no, {900, 100, 0}, 80, 120);
  const PeakFitResult result = FitOnePeak(program, data_no, 0, kGauss, 4);
  EXPECT_EQ(result.status, 11);
  EXPECT_FALSE(result.accepted);
}

TEST_F(PeakCommandsTest, ANegativeWidthStartsAtTenChannels) {
  const auto data_no = Show(Spectrum(300, 50, {{900, 100, 9}}));
  const PeakRec& peak = Enter(data_no, {900, 100, -3}, 60, 140);
  EXPECT_TRUE(FitOnePeak(program, data_no, 0, kGauss, 4).accepted);
  EXPECT_NEAR(peak.HalfWidth, 9, 0.1);
}

// ---- the fit of a range

TEST_F(PeakCommandsTest, TheFittedBackgroundHasNoSlope) {
  for (const std::int16_t type : {kGauss, kLorentz, kMix}) {
    const auto data_no = Show(Spectrum(300, 100, {{20000, 150, 6}}), std::to_string(type));
    Enter(data_no, {19000, 150, 5}, 120, 180);
    workspace.FitParam.FuncType = type;
    view.CursorCh = 150;
    FitPeak(program, 0);
    EXPECT_EQ(Table(data_no).Peaks[0].BackSlope, 0) << type;
  }
}

// Four coefficients of a single shape, five of the mixed one: the last is the background.
TEST_F(PeakCommandsTest, TheConstantBackgroundIsFittedAlsoOfTheMixedShape) {
  for (const std::int16_t type : {kGauss, kMix}) {
    const auto data_no = Show(Spectrum(300, 100, {{20000, 150, 6}}), std::to_string(type));
    Enter(data_no, {19000, 150, 5}, 120, 180);
    workspace.FitParam.FuncType = type;
    view.CursorCh = 150;
    FitPeak(program, 0);
    EXPECT_NEAR(Table(data_no).Peaks[0].BackConst, 100, 1) << type;
    EXPECT_NEAR(Table(data_no).Peaks[0].Height, 20000, 20) << type;
  }
}

TEST_F(PeakCommandsTest, TheFitCurveInheritsRecordAndFlags) {
  const auto data_no = Show(Spectrum(300, 100, {{20000, 150, 3}}));
  workspace.Spectra[data_no].SampName.Set("MgO");
  workspace.Spectra[data_no].Prop.Flags = FlagSmooth;
  SetArea(program, 0, 299);
  FitPeak(program, 0);
  EXPECT_EQ(workspace.Spectra[Row(0).DataNo].SampName.Text(), "MgO");
  EXPECT_EQ(FlagsOf(0), FlagSmooth | FlagFit);
  EXPECT_EQ(FlagsOf(1), FlagSmooth);
  EXPECT_EQ(view.FitMade, kTrue);
}

TEST_F(PeakCommandsTest, AFitCanBeMadeAgainAndIsNotAskedAbout) {
  Show(Spectrum(300, 100, {{20000, 150, 3}}));
  SetArea(program, 0, 299);
  FitPeak(program, 0);
  EXPECT_EQ(Row(0).State, kRowSaved);
  EXPECT_EQ(Row(1).State, kRowSaved);
}

TEST_F(PeakCommandsTest, AFitThatIsNotTheFirstGraphIsNotReplacedAsMeant) {
  Show(Spectrum(300, 100, {{20000, 150, 3}}));
  SetArea(program, 0, 299);
  FitPeak(program, 0);
  SmoothGraph(program);
  SetArea(program, 0, 299);
  FitPeak(program, 0);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "Smooth", "Fit", "a.npd"));
  EXPECT_EQ(view.GraphNo, 1);
}

TEST_F(PeakCommandsTest, AnExpressFitLeavesNoBackgroundOfAnEarlierScan) {
  Show(Spectrum(300, 100, {{20000, 150, 3}}));
  workspace.FitBack[150] = 90;
  SetArea(program, 0, 299);
  FitPeak(program, 0);
  EXPECT_EQ(workspace.FitBack[150], 0);
}

TEST_F(PeakCommandsTest, AFitWithoutRoomKeepsTheFittedPeaks) {
  const auto data_no = Show(Spectrum(300, 100, {{20000, 150, 3}}));
  for (int i = 0; i < 9; ++i) Show({1}, std::to_string(i));
  Change_cboGrphSel(list, 0, 0);
  SetArea(program, 0, 299);
  dialogs.ExpectMessage("ShiftGraph: List Over!");
  FitPeak(program, 0);
  EXPECT_EQ(Table(data_no).Peaks[0].FitDone, -1);
  EXPECT_EQ(workspace.GrpCount, 10);
}

TEST_F(PeakCommandsTest, AllFitTakesTheWholeSpectrumWhateverTheAreaCursorShows) {
  const auto data_no = Show(Spectrum(1000, 100, {{20000, 250, 3}, {15000, 750, 4}}));
  SetArea(program, 600, 900);
  EXPECT_TRUE(RunCommand(program, "AllFit"));
  EXPECT_EQ(Table(data_no).Count, 2);
}

TEST_F(PeakCommandsTest, ACancelledFitTakesTheFoundPeaksBack) {
  const auto data_no = Show(Spectrum(1000, 100, {{20000, 250, 3}, {15000, 750, 4}}));
  progress.cancel_after = 1;
  SetArea(program, 0, 999);
  FitPeak(program, 0);
  EXPECT_EQ(Table(data_no).Count, 0);
  EXPECT_EQ(Lines(), 0);
}

TEST_F(PeakCommandsTest, ACancelledFitPutsTheMarksBack) {
  const auto data_no = Show(Spectrum(400, 50, {{10000, 100, 6}, {10000, 200, 6}}));
  EnterAndMark(data_no, {9500, 98, 5}, 80, 120);
  EnterAndMark(data_no, {9500, 198, 5}, 180, 220);
  progress.cancel_after = 1;
  SetArea(program, 0, 399);
  FitPeak(program, 0);
  EXPECT_THAT(program.spect.PeakLinesOf(0).Channels(), ElementsAre(98, 198));
}

TEST_F(PeakCommandsTest, AFitMovesTheMarksToTheFittedCentres) {
  const auto data_no = Show(Spectrum(400, 50, {{10000, 100, 6}}));
  EnterAndMark(data_no, {9500, 98, 5}, 80, 120);
  view.CursorCh = 98;
  FitPeak(program, 0);
  EXPECT_THAT(program.spect.PeakLinesOf(0).Channels(), ElementsAre(100));
}

// ---- the search

TEST_F(PeakCommandsTest, FoundPeaksAreMarkedAfterTheirBordersAreSettled) {
  const auto data_no = Show(Spectrum(600, 100, {{20000, 150, 6}, {20000, 450, 6}}));
  SetArea(program, 0, 599);
  InsertPeaksAtCursor(program);
  EXPECT_THAT(program.spect.PeakLinesOf(0).Channels(), ElementsAre(150, 450));
  const PeakRec& first = Table(data_no).Peaks[0];
  const auto& colors = program.spect.CurveOf(0, data_no).PointColors;
  EXPECT_NE(colors[first.RegionStart], 0);
  EXPECT_EQ(colors[first.RegionStart - 1], 0);
}

TEST_F(PeakCommandsTest, ASingleFoundPeakHasOneLine) {
  Show(Spectrum(300, 100, {{20000, 150, 6}}));
  SetArea(program, 0, 299);
  InsertPeaksAtCursor(program);
  EXPECT_EQ(Lines(), 1);
}

TEST_F(PeakCommandsTest, NeighboursOfTheSameAreaShareTheValleyAsTheirBorder) {
  const auto data_no = Show(Spectrum(600, 100, {{20000, 150, 6}, {20000, 166, 6}}));
  Enter(data_no, {5, 20, 3}, 10, 155);  // outside of the area: keeps its region
  SetArea(program, 100, 300);
  InsertPeaksAtCursor(program);
  ASSERT_EQ(Table(data_no).Count, 3);
  EXPECT_EQ(Table(data_no).Peaks[0].RegionEnd, 155);
  // lines of one height and width: the valley is half way, the border one channel to the right
  EXPECT_EQ(Table(data_no).Peaks[1].RegionEnd, 158);
  EXPECT_EQ(Table(data_no).Peaks[2].RegionStart, 159);
}

TEST_F(PeakCommandsTest, FoundPeaksOfAnAreaHaveTheirAreas) {
  const auto data_no = Show(Spectrum(600, 100, {{20000, 150, 6}, {20000, 450, 6}}));
  SetArea(program, 0, 599);
  InsertPeaksAtCursor(program);
  EXPECT_GT(Table(data_no).Peaks[0].Amplitude, 0);
  EXPECT_GT(Table(data_no).Peaks[1].Amplitude, 0);
}

TEST_F(PeakCommandsTest, TheLastChannelOfAnAreaIsSearched) {
  const auto data_no = Show({0, 0, 0, 0, 0, 0, 9, 0, 0});
  SetArea(program, 2, 6);  // below nine channels: the greatest count is the peak
  InsertPeaksAtCursor(program);
  ASSERT_EQ(Table(data_no).Count, 1);
  EXPECT_EQ(Table(data_no).Peaks[0].Center, 6);
  EXPECT_EQ(Table(data_no).Peaks[0].RegionEnd, 6);
}

TEST_F(PeakCommandsTest, TheSearchAboutTheCursorEndsNineChannelsToItsRight) {
  std::vector<std::int32_t> counts(300, 0);
  for (int i = 0; i < 300; ++i) counts[static_cast<std::size_t>(i)] = i;
  const auto data_no = Show(counts);
  view.CursorCh = 100;
  InsertPeaksAtCursor(program);
  ASSERT_EQ(Table(data_no).Count, 1);  // a ramp is one peak as a whole, at its greatest count
  EXPECT_EQ(Table(data_no).Peaks[0].Center, 109);
  EXPECT_EQ(Table(data_no).Peaks[0].RegionStart, 90);
}

TEST_F(PeakCommandsTest, AHighestCountInChannelZeroIsRefusedAsAPeakAsMeant) {
  const auto data_no = Show(std::vector<std::int32_t>(600, 7));  // flat: one peak, at its first
  dialogs.ExpectMessage("intPeakNo=-1");
  InsertAllPeaks(program);
  EXPECT_EQ(Table(data_no).Count, 0);
}

TEST_F(PeakCommandsTest, AWideRangeWithoutAFallingFlankLosesItsPeakAgainAsMeant) {
  // flat from channel 100 on: the region comes out without channels, so that nothing is fitted
  const auto data_no = Show(std::vector<std::int32_t>(700, 7));
  SetArea(program, 100, 699);
  dialogs.ExpectMessage("1 Peaks Cuted");
  FitPeak(program, 0);
  EXPECT_EQ(Table(data_no).Count, 0);
}

TEST_F(PeakCommandsTest, TheSensitivityIsTheSetting) {
  // 400 counts times a width of 3.25 lie below the threshold 1900 of sensitivity 1
  const auto data_no = Show(Spectrum(200, 50, {{1000, 60, 6}, {400, 140, 8}}));
  workspace.FitParam.PeakThres = 1;
  InsertAllPeaks(program);
  EXPECT_EQ(Table(data_no).Count, 1);
  workspace.FitParam.PeakThres = 10;
  InsertAllPeaks(program);
  EXPECT_EQ(Table(data_no).Count, 2);
}

TEST_F(PeakCommandsTest, FoundPeaksAreNotAskedAbout) {
  Show(Spectrum(300, 100, {{20000, 150, 6}}));
  InsertAllPeaks(program);
  EXPECT_EQ(Row(0).State, kRowSaved);
}

// ---- deletion and empty rows

TEST_F(PeakCommandsTest, DeletionFromTheMenuTakesPeaksAndMarksWithoutAQuestion) {
  const auto data_no = Show(Spectrum(300, 10, {}));
  EnterAndMark(data_no, {5, 100, 3}, 90, 110);
  EnterAndMark(data_no, {5, 150, 3}, 140, 160);
  SetFullRange(program);
  RunCommand(program, "mnuPeakAllDelete");
  EXPECT_EQ(Table(data_no).Count, 0);
  EXPECT_EQ(Lines(), 0);
}

TEST_F(PeakCommandsTest, TheFitCurveTakesTheRemainingPeaksOver) {
  const auto data_no = Show(Spectrum(400, 100, {{20000, 100, 3}, {20000, 300, 3}}));
  SetArea(program, 0, 399);
  FitPeak(program, 0);
  SetArea(program, 50, 150);
  DeletePeaks(program);
  EXPECT_EQ(Table(Row(0).DataNo), Table(data_no));
  EXPECT_EQ(Table(data_no).Count, 1);
  EXPECT_EQ(workspace.Channels[Row(0).DataNo].Counts[100], 0);
  EXPECT_GT(workspace.Channels[Row(0).DataNo].Counts[300], 19000);
  EXPECT_EQ(view.GraphNo, 1);
  EXPECT_EQ(Row(0).State, kRowSaved);
  EXPECT_EQ(Row(1).State, kRowUnsaved);
}

TEST_F(PeakCommandsTest, WithoutAGraphTheCommandsEndQuietly) {
  const auto data_no = Show(Spectrum(300, 100, {{20000, 150, 6}}));
  Enter(data_no, {19000, 150, 5}, 120, 180);
  RunCommand(program, "mnuCloseGraph");
  for (const char* command : {"mnuFittingAll", "Fit", "All", "MkIns", "mnuPeakAllDelete"}) {
    view.CursorCh = 150;
    EXPECT_TRUE(RunCommand(program, command)) << command;
    EXPECT_EQ(Row(0).State, kRowEmpty) << command;
    EXPECT_EQ(Table(data_no).Count, 1) << command;
    EXPECT_EQ(view.AreaStart, kNoEnd) << command;
  }
}

}  // namespace
}  // namespace dorvane
