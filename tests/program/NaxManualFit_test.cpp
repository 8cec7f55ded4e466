#include "program/NaxManualFit.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fitting/NaxFixture.h"
#include "program/OpenSave.h"
#include "program/PeakFixture.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Counts are rounded to integers.
constexpr double kChannelTolerance = 0.01;

class NaxManualFitTest : public PeakFitTest {
 protected:
  // Two peaks at channel indices 150.25 and 190 on a background of 200, which is shown.
  std::int16_t ShowTwoPeaks() {
    return Show(Spectrum(400, 200, {{8000, 150.25, 4}, {3000, 190, 6}}));
  }
  // Both of them, by channel numbers.
  static ManualFitList BothPeaks() {
    ManualFitList stated;
    stated.StartCh = 121;
    stated.EndCh = 220;
    stated.PeakNum = 2;
    stated.CenterCh[0] = 150;
    stated.CenterCh[1] = 192;
    stated.MaxCount[0] = 7000;
    stated.MaxCount[1] = 3500;
    return stated;
  }
  static NaxPeak Fitted(double position, double height, double fwhm) {
    NaxPeak peak;
    peak.position = position;
    peak.height = height;
    peak.fwhm = fwhm;
    peak.background.c1 = 50;
    return peak;
  }
  std::vector<double> Centers(int data_no) const {
    std::vector<double> centers;
    const PeakTable& table = workspace.Peaks[data_no];
    for (int i = 0; i < table.Count; ++i) centers.push_back(table.Peaks[i].Center);
    return centers;
  }
  bool FitBackIsEmpty() const {
    const FitBackTable& table = workspace.FitBack;
    return std::all_of(table.begin(), table.end(), [](std::int32_t y) { return y == 0; });
  }
  void ExpectUntouched(int data_no, const PeakTable& before) const {
    EXPECT_EQ(workspace.Peaks[data_no], before);
    EXPECT_THAT(Titles(), ElementsAre("a.npd"));
  }
};

TEST_F(NaxManualFitTest, PeaksOfARegionReachTheTable) {
  const auto data_no = ShowTwoPeaks();
  workspace.FitParam.FuncType = kLorentz;
  EXPECT_EQ(NaxManualFit(program, 0, data_no, BothPeaks()), 0);
  ASSERT_EQ(workspace.Peaks[data_no].Count, 2);
  const PeakRec& peak = workspace.Peaks[data_no].Peaks[0];
  EXPECT_EQ(peak.FitDone, -1);
  EXPECT_EQ(peak.FuncType, kLorentz);
  EXPECT_NEAR(peak.Height, 8000, 5);
  EXPECT_NEAR(peak.Center, 150.25, kChannelTolerance);
  EXPECT_NEAR(peak.HalfWidth, 4, kChannelTolerance);
  EXPECT_EQ(peak.GaussRatio, 1);
  EXPECT_EQ(peak.BackConst, 0);
  EXPECT_EQ(peak.BackSlope, 0);
  EXPECT_EQ(peak.RegionStart, 0);
  EXPECT_EQ(peak.RegionEnd, 0);
  EXPECT_EQ(peak.Reserved, 0);
  EXPECT_NEAR(workspace.Peaks[data_no].Peaks[1].Center, 190, kChannelTolerance);
}

// The number that reports show as "E", the lattice grids as "M".
TEST_F(NaxManualFitTest, APeakOfARegionFitCountsAsMadeByHandAsMeant) {
  const auto data_no = ShowTwoPeaks();
  NaxManualFit(program, 0, data_no, BothPeaks());
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].FitEngine, 1);
}

// height * half width * sqrt(pi / ln 2)
TEST_F(NaxManualFitTest, TheAreaIsThatOfTheFittedGaussian) {
  const auto data_no = ShowTwoPeaks();
  NaxManualFit(program, 0, data_no, BothPeaks());
  EXPECT_NEAR(workspace.Peaks[data_no].Peaks[0].Amplitude, 8000 * 4 * 2.128934038862, 200);
}

TEST_F(NaxManualFitTest, TheFitBecomesAGraphAndTheCurrentOneStays) {
  const auto data_no = ShowTwoPeaks();
  NaxManualFit(program, 0, data_no, BothPeaks());
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
  EXPECT_EQ(view.DataNo, data_no);
  EXPECT_EQ(FlagsOf(0) & FlagFit, FlagFit);
  EXPECT_NEAR(workspace.Channels[Row(0).DataNo].Counts[150], 7980, 20);
  EXPECT_EQ(workspace.Peaks[Row(0).DataNo], workspace.Peaks[data_no]);
}

TEST_F(NaxManualFitTest, ASecondRegionAddsItsPeaksAndReplacesTheGraph) {
  const auto data_no = ShowTwoPeaks();
  ManualFitList one = BothPeaks();
  one.PeakNum = 1;
  one.EndCh = 172;
  NaxManualFit(program, 0, data_no, one);
  one.StartCh = 173;
  one.EndCh = 220;
  one.CenterCh[0] = 192;
  EXPECT_EQ(NaxManualFit(program, 0, data_no, one), 0);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 2);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
}

TEST_F(NaxManualFitTest, TheBackgroundUnderThePeaksIsThatOfThisFitAlone) {
  const auto data_no = ShowTwoPeaks();
  workspace.FitBack[10] = 7;
  NaxManualFit(program, 0, data_no, BothPeaks());
  EXPECT_EQ(workspace.FitBack[10], 0);
  EXPECT_NEAR(workspace.FitBack[150], 200, 2);
  EXPECT_NEAR(workspace.FitBack[190], 200, 2);
  EXPECT_EQ(workspace.FitBack[170], 0);
}

TEST_F(NaxManualFitTest, APositionOutsideOfTheRegionShowsItsBoxAlone) {
  const auto data_no = ShowTwoPeaks();
  ManualFitList stated = BothPeaks();
  stated.CenterCh[1] = 221;
  dialogs.ExpectMessage("Error in Function COND");
  EXPECT_EQ(NaxManualFit(program, 0, data_no, stated), -1);
  ExpectUntouched(data_no, {});
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(NaxManualFitTest, ARegionOutsideOfTheSpectrumFailsWithALineInTheLog) {
  const auto data_no = ShowTwoPeaks();
  ManualFitList stated = BothPeaks();
  stated.EndCh = 401;
  dialogs.ExpectMessage("Failed to fit");
  EXPECT_EQ(NaxManualFit(program, 0, data_no, stated), -1);
  EXPECT_THAT(log.lines, ElementsAre("LSQ FOR BACK GROUND FAILED"));
  ExpectUntouched(data_no, {});
}

TEST_F(NaxManualFitTest, ANegativeNumberInTheListIsAFaultAsMeant) {
  const auto data_no = ShowTwoPeaks();
  ManualFitList stated = BothPeaks();
  stated.ChWidth[1] = -1;
  dialogs.ExpectMessage("Can not fit");
  EXPECT_EQ(NaxManualFit(program, 0, data_no, stated), -1);
  ExpectUntouched(data_no, {});
}

TEST_F(NaxManualFitTest, ATypedWidthChangesNothingAsMeant) {
  const auto data_no = ShowTwoPeaks();
  ManualFitList stated = BothPeaks();
  NaxManualFit(program, 0, data_no, stated);
  const PeakTable first = workspace.Peaks[data_no];
  workspace.Peaks[data_no].Count = 0;
  stated.ChWidth[0] = 400;
  NaxManualFit(program, 0, data_no, stated);
  EXPECT_EQ(workspace.Peaks[data_no], first);
}

TEST_F(NaxManualFitTest, AsManyChannelsAsParametersAreAFault) {
  const auto data_no = ShowTwoPeaks();
  ManualFitList stated = BothPeaks();
  stated.StartCh = 147;
  stated.EndCh = 155;
  stated.CenterCh[1] = 153;
  dialogs.ExpectMessage("Can not fit");
  EXPECT_EQ(NaxManualFit(program, 0, data_no, stated), -1);
}

TEST_F(NaxManualFitTest, AFailedFitLeavesThePeaksAndNoBackground) {
  const auto data_no = Show(std::vector<std::int32_t>(400, 0));
  Enter(data_no, {5, 25, 2}, 20, 30);
  const PeakTable before = workspace.Peaks[data_no];
  workspace.FitBack[25] = 7;
  dialogs.ExpectMessage("Failed to fit");
  ManualFitList stated = BothPeaks();
  stated.MaxCount[0] = 0;
  EXPECT_EQ(NaxManualFit(program, 0, data_no, stated), -1);
  ExpectUntouched(data_no, before);
  EXPECT_TRUE(FitBackIsEmpty());
}

TEST_F(NaxManualFitTest, AStoppedFitLeavesPeaksAndBackgroundAsTheyWere) {
  const auto data_no = ShowTwoPeaks();
  workspace.FitBack[25] = 7;
  progress.cancel_after = 0;
  dialogs.ExpectMessage("Failed to fit");
  EXPECT_EQ(NaxManualFit(program, 0, data_no, BothPeaks()), -1);
  ExpectUntouched(data_no, {});
  EXPECT_EQ(workspace.FitBack[25], 7);
}

TEST_F(NaxManualFitTest, ResultsOfAnIterationThatHasNotConvergedAreStoredAsMeant) {
  // a line far narrower than the start width, and much noise
  const auto data_no = Show(SawToothSpectrum(10, 0, 30, {{161.6, 50000, 2}}));
  const ManualFitList stated = ListOf(100, 179, {162}, {75000});
  EXPECT_EQ(NaxManualFit(program, 0, data_no, stated), 0);
  EXPECT_EQ(log.lines.back(), "ITERATION OF DAMP OVER");
  EXPECT_EQ(workspace.Peaks[data_no].Count, 1);
}

TEST_F(NaxManualFitTest, ASpectrumThatIsInNoRowIsNotFitted) {
  ShowTwoPeaks();
  EXPECT_EQ(NaxManualFit(program, 0, 7, BothPeaks()), -1);
}

TEST_F(NaxManualFitTest, AnyRowCanBeFitted) {
  const auto data_no = ShowTwoPeaks();
  Show(std::vector<std::int32_t>(400, 1), "b.npd");
  EXPECT_EQ(NaxManualFit(program, 0, data_no, BothPeaks()), 0);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 2);
  EXPECT_EQ(Row(view.GraphNo).Title, "b.npd");
}

TEST_F(NaxManualFitTest, AllPeaksOfTheTableAreMarkedInTheEnd) {
  const auto data_no = ShowTwoPeaks();
  NaxManualFit(program, 0, data_no, BothPeaks());
  EXPECT_EQ(listener.Count("peak 0 0") - listener.Count("no peak 0 0"), 2);
}

// ---- NaxFitStore

TEST_F(NaxManualFitTest, CenterIsTheIndexAndHalfWidthHalfTheFullWidth) {
  const auto data_no = Show(std::vector<std::int32_t>(400, 0));
  NaxFitStore(program, 0, 0, std::vector{Fitted(100.5, 700, 8)});
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].Center, 99.5);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].HalfWidth, 4);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].Height, 700);
}

TEST_F(NaxManualFitTest, NothingIsStoredWhereTheFirstPositionIsZero) {
  const auto data_no = Show(std::vector<std::int32_t>(400, 0));
  NaxFitStore(program, 0, 0, std::vector{Fitted(0, 700, 8), Fitted(100, 700, 8)});
  ExpectUntouched(data_no, {});
  EXPECT_TRUE(FitBackIsEmpty());
}

TEST_F(NaxManualFitTest, NothingIsStoredForNoPeakOrMoreThanAHundred) {
  const auto data_no = Show(std::vector<std::int32_t>(400, 0));
  NaxFitStore(program, 0, 0, {});
  NaxFitStore(program, 0, 0, std::vector<NaxPeak>(101, Fitted(100, 700, 8)));
  ExpectUntouched(data_no, {});
}

TEST_F(NaxManualFitTest, AHundredPeaksAreStored) {
  const auto data_no = Show(std::vector<std::int32_t>(400, 0));
  NaxFitStore(program, 0, 0, std::vector<NaxPeak>(100, Fitted(100, 700, 8)));
  EXPECT_EQ(workspace.Peaks[data_no].Count, 100);
}

TEST_F(NaxManualFitTest, AFullTableIsAFault) {
  const auto data_no = ShowTwoPeaks();
  workspace.Peaks[data_no].Count = kMaxPeaks;
  dialogs.ExpectMessage("Can not fit");
  EXPECT_EQ(NaxManualFit(program, 0, data_no, BothPeaks()), -1);
  EXPECT_EQ(workspace.Peaks[data_no].Count, kMaxPeaks);
}

// The second peak's background starts at channel -1.
TEST_F(NaxManualFitTest, ABackgroundOutsideOfItsTableIsAFaultWithThePeakInTheTable) {
  const auto data_no = Show(std::vector<std::int32_t>(400, 0));
  const std::vector peaks{Fitted(100, 700, 8), Fitted(4, 300, 4)};
  EXPECT_THROW(NaxFitStore(program, 0, 0, peaks), Fault);
  EXPECT_THAT(Centers(data_no), ElementsAre(3, 99));
  EXPECT_EQ(workspace.FitBack[99], 50);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(NaxManualFitTest, BordersAreSettledOverTheWholeTable) {
  const auto data_no = Show(Spectrum(400, 10, {{500, 100, 5}, {500, 120, 5}}));
  Enter(data_no, {500, 100, 5}, 80, 118);
  Enter(data_no, {500, 120, 5}, 102, 140);
  NaxFitStore(program, 0, 0, std::vector{Fitted(301, 700, 8)});
  const PeakTable& table = workspace.Peaks[data_no];
  EXPECT_EQ(table.Count, 3);
  EXPECT_LT(table.Peaks[0].RegionEnd, table.Peaks[1].RegionStart);
}

// ---- FitBack elsewhere

TEST_F(NaxManualFitTest, ASpectrumThatIsReadStartsWithoutABackground) {
  workspace.FitBack[25] = 7;
  ReadGraph(program, 0, 0, folder.Path("none.txt"));
  EXPECT_TRUE(FitBackIsEmpty());
}

}  // namespace
}  // namespace dorvane
