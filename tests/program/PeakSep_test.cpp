#include "program/PeakSep.h"

#include <gmock/gmock.h>

#include "program/Cursor.h"
#include "program/PeakFixture.h"
#include "program/WindowStyle.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

// Counts are rounded to integers.
constexpr double kChannelTolerance = 0.02;
constexpr double kHeightShare = 0.01;

// Two lines of half width 6 that stand 20 channels apart, on a background of 100 counts.
class PeakSepTest : public PeakFitTest {
 protected:
  std::int16_t ShowPair(const std::vector<std::pair<int, int>>& spikes = {}) {
    auto counts = Spectrum(300, 100, {{20000, 140, 6}, {15000, 160, 6}});
    for (const auto& [channel, count] : spikes) counts[static_cast<std::size_t>(channel)] = count;
    const auto data_no = Show(counts);
    Enter(data_no, {19000, 139, 5}, 120, 150);
    Enter(data_no, {14500, 161, 5}, 150, 180);
    return data_no;
  }
  const PeakRec& Peak(int data_no, int index) const {
    return workspace.Peaks[data_no].Peaks[index];
  }
};

TEST_F(PeakSepTest, OverlappingLinesAreRefinedTogether) {
  const auto data_no = ShowPair();
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  EXPECT_NEAR(Peak(data_no, 0).Center, 140, kChannelTolerance);
  EXPECT_NEAR(Peak(data_no, 1).Center, 160, kChannelTolerance);
  EXPECT_NEAR(Peak(data_no, 0).HalfWidth, 6, kChannelTolerance);
  EXPECT_NEAR(Peak(data_no, 1).Height, 15000, 15000 * kHeightShare);
  EXPECT_EQ(Peak(data_no, 0).FitDone, -1);
  EXPECT_EQ(Peak(data_no, 1).GaussRatio, 1);
}

TEST_F(PeakSepTest, TheAreasOfThePeaksFollow) {
  const auto data_no = ShowPair();
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  // area of a Gaussian: height * half width * sqrt(pi / ln 2)
  EXPECT_NEAR(Peak(data_no, 0).Amplitude, 20000 * 6 * 2.128934, 2600);
}

TEST_F(PeakSepTest, TheGraphFitEndsTheCommandAndTheCurrentRowStays) {
  const auto data_no = ShowPair();
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
  EXPECT_EQ(FlagsOf(0), FlagFit);
  EXPECT_EQ(workspace.Peaks[Row(0).DataNo], workspace.Peaks[data_no]);
  EXPECT_EQ(view.DataNo, data_no);
  EXPECT_EQ(view.Pointer, kPointerNormal);
}

TEST_F(PeakSepTest, TheMarksMoveToTheSplitCentres) {
  const auto data_no = ShowPair();
  for (int i = 0; i < 2; ++i) list.listener.PeakMarked(0, data_no, Peak(data_no, i));
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  EXPECT_THAT(program.spect.PeakLinesOf(0).Channels(), ElementsAre(140, 160));
}

TEST_F(PeakSepTest, PeaksOutsideOfTheAreaStay) {
  const auto data_no = ShowPair();
  const PeakRec before = Enter(data_no, {50, 250, 5}, 240, 260);
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  EXPECT_EQ(Peak(data_no, 2), before);
}

TEST_F(PeakSepTest, AnAreaWithoutPeaksIsSearchedFirst) {
  const auto data_no = Show(Spectrum(300, 100, {{20000, 140, 3}, {15000, 160, 3}}));
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  ASSERT_EQ(workspace.Peaks[data_no].Count, 2);
  EXPECT_NEAR(Peak(data_no, 0).Center, 140, kChannelTolerance);
  EXPECT_NEAR(Peak(data_no, 1).HalfWidth, 3, kChannelTolerance);
}

TEST_F(PeakSepTest, TheLastChannelOfTheAreaIsNotInTheSplitRegionAsMeant) {
  const auto data_no = ShowPair({{200, 900000}});
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  EXPECT_NEAR(Peak(data_no, 1).Height, 15000, 15000 * kHeightShare);
}

TEST_F(PeakSepTest, TheChannelBelowTheAreaIsInTheSplitRegionAsMeant) {
  // one end of the straight background: at channel 140 it is raised by 0.59 * 5000
  const auto data_no = ShowPair({{99, 5100}});
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  EXPECT_LT(Peak(data_no, 0).Height, 18500);
}

TEST_F(PeakSepTest, AnAreaThatStartsAtChannelZeroIsNotSplit) {
  const auto data_no = ShowPair();
  const PeakTable before = workspace.Peaks[data_no];
  SetArea(program, 0, 200);
  PeakSep(program, 0);
  EXPECT_EQ(workspace.Peaks[data_no], before);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(PeakSepTest, AnAreaThatStartsAtChannelZeroIsNotSearched) {
  const auto data_no = Show(Spectrum(300, 100, {{20000, 140, 3}}));
  SetArea(program, 0, 200);
  PeakSep(program, 0);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 0);
}

TEST_F(PeakSepTest, WithoutAnAreaThePeakAtTheCursorIsNotSplitAsMeant) {
  const auto data_no = ShowPair();
  const PeakTable before = workspace.Peaks[data_no];
  view.CursorCh = 139;
  PeakSep(program, 0);
  EXPECT_EQ(workspace.Peaks[data_no], before);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(PeakSepTest, AGroupOfAHundredPeaksReachesPastTheTableAsMeant) {
  const auto data_no = Show(Spectrum(300, 100, {{20000, 140, 3}}));
  for (int i = 0; i < kMaxPeaks; ++i) Enter(data_no, {50, 101.0 + i, 5}, 100, 200);
  const PeakTable before = workspace.Peaks[data_no];
  SetArea(program, 100, 250);
  EXPECT_THROW(PeakSep(program, 0), Fault);
  EXPECT_EQ(workspace.Peaks[data_no], before);
  EXPECT_EQ(view.Pointer, kPointerNormal);
}

TEST_F(PeakSepTest, AGroupUpToTheHundredthPeakReachesPastTheTableAsMeant) {
  const auto data_no = Show(Spectrum(300, 100, {{20000, 140, 3}}));
  for (int i = 0; i < kMaxPeaks; ++i) Enter(data_no, {50, 101.0 + i, 5}, 100, 200);
  SetArea(program, 199, 250);
  EXPECT_THROW(PeakSep(program, 0), Fault);
}

TEST_F(PeakSepTest, ATooLargeAreaLeavesThePeaksAndStillMakesTheGraph) {
  const auto data_no = Show(Spectrum(8192, 100, {{20000, 140, 6}}));
  const PeakRec before = Enter(data_no, {19000, 139, 5}, 120, 160);
  SetArea(program, 1, 4097);
  dialogs.ExpectMessage("too large region");
  PeakSep(program, 0);
  EXPECT_EQ(Peak(data_no, 0), before);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
}

TEST_F(PeakSepTest, AFaultOfTheSplitIsToldAndTheOldValuesCountAsFitted) {
  const auto data_no = ShowPair();
  workspace.Peaks[data_no].Peaks[0].HalfWidth = 0;
  SetArea(program, 100, 200);
  dialogs.ExpectMessage("計算限界超えました。処理を終了します。");
  PeakSep(program, 0);
  EXPECT_EQ(Peak(data_no, 1).Center, 161);
  EXPECT_EQ(Peak(data_no, 1).FitDone, -1);
  EXPECT_THAT(log.lines, ElementsAre("CalWaveSprit : (Error)  code=11"));
}

TEST_F(PeakSepTest, TheAreaIsUsedUpByTheCommand) {
  ShowPair();
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  EXPECT_EQ(view.AreaStart, kNoEnd);
}

TEST_F(PeakSepTest, AnAreaWithoutPeaksIsGoneFromTheScreenToo) {
  Show(Spectrum(300, 100, {}));
  SetArea(program, 100, 200);
  listener.notices.clear();
  PeakSep(program, 0);
  EXPECT_GE(listener.Count("cursor"), 1);
}

TEST_F(PeakSepTest, InExpandModeTheGraphIsShownInTheFirstWindow) {
  ShowPair();
  ckbExpand_Click(program, true);
  view.CurWin = 1;
  view.SelectedRow[1] = 0;
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  EXPECT_EQ(Row(0).Title, "Fit");
  EXPECT_EQ(Row(0).WinNo, 0);
}

TEST_F(PeakSepTest, NoBackgroundOfAnEarlierScanIsLeft) {
  ShowPair();
  workspace.FitBack[150] = 90;
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  EXPECT_EQ(workspace.FitBack[150], 0);
}

TEST_F(PeakSepTest, WithoutAGraphNothingHappens) {
  SetArea(program, 100, 200);
  PeakSep(program, 0);
  EXPECT_EQ(workspace.GrpCount, 0);
}

}  // namespace
}  // namespace dorvane
