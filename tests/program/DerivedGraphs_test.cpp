#include "program/DerivedGraphs.h"

#include <gmock/gmock.h>

#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class DerivedGraphsTest : public ProgramTest {};

TEST_F(DerivedGraphsTest, SmoothingMakesANewGraphAtTheHeadAndSelectsIt) {
  // given: one spike of 16; the binomial filter 1 4 6 4 1 spreads it
  const auto raw = Show({0, 0, 0, 0, 16, 0, 0, 0, 0});
  SmoothGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "a.npd"));
  EXPECT_EQ(view.GraphNo, 0);
  EXPECT_THAT(CountsOf(Row(0).DataNo), ElementsAre(0, 0, 1, 4, 6, 4, 1, 0, 0));
  EXPECT_THAT(CountsOf(raw), ElementsAre(0, 0, 0, 0, 16, 0, 0, 0, 0));
  EXPECT_EQ(Row(0).State, kRowSaved);
}

TEST_F(DerivedGraphsTest, ADerivedCurveInheritsRecordAndPeaks) {
  const auto raw = Show({1, 2, 3, 4, 5});
  workspace.Spectra[raw].SampName.Set("MgO");
  workspace.Spectra[raw].Prop.EGC[1] = 0.05;
  workspace.Peaks[raw].Count = 1;
  workspace.Peaks[raw].Peaks[0].Center = 2;
  SmoothGraph(program);
  const auto smooth = Row(0).DataNo;
  EXPECT_EQ(workspace.Spectra[smooth].SampName.Text(), "MgO");
  EXPECT_EQ(workspace.Spectra[smooth].Prop.EGC[1], 0.05);
  EXPECT_EQ(workspace.Peaks[smooth], workspace.Peaks[raw]);
  EXPECT_EQ(FlagsOf(0), FlagSmooth);
  EXPECT_EQ(FlagsOf(1), 0);
}

TEST_F(DerivedGraphsTest, SmoothingASmoothedSpectrumReplacesRowZero) {
  Show({0, 0, 0, 0, 256, 0, 0, 0, 0});
  SmoothGraph(program);
  SmoothGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "a.npd"));
  // the filter twice: 256/16/16 times the convolution of 1 4 6 4 1 with itself, the two channels at
  // each end unfiltered
  EXPECT_THAT(CountsOf(Row(0).DataNo), ElementsAre(0, 0, 28, 56, 70, 56, 28, 0, 0));
}

TEST_F(DerivedGraphsTest, SmoothingAnInheritingCurveReplacesRowZeroWhateverItIsAsMeant) {
  Show({0, 0, 0, 0, 16, 0, 0, 0, 0});
  SmoothGraph(program);
  BackGroundGraph(program);  // carries the flag of the smoothed source
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "Smooth", "a.npd"));
  SmoothGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "BackGraund", "Smooth", "a.npd"));
}

TEST_F(DerivedGraphsTest, TheFlagOfTheSourceDecidesNotItsTitleAsMeant) {
  Show({0, 0, 0, 0, 16, 0, 0, 0, 0});
  SmoothGraph(program);
  BackGroundGraph(program);
  EXPECT_EQ(FlagsOf(0), FlagSmooth | FlagBackRemv);
  EXPECT_EQ(FlagsOf(1), FlagSmooth | FlagBackGraund);
  Change_cboGrphSel(list, 0, 1);  // smoothing the background takes the place of the difference
  SmoothGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "BackGraund", "Smooth", "a.npd"));
  EXPECT_EQ(FlagsOf(0), FlagSmooth | FlagBackGraund);
}

TEST_F(DerivedGraphsTest, SmoothingTakesTheKindOfTheSetting) {
  // given: one spike of 21; the quadratic filter of 7 points spreads it by -2 3 6 7 6 3 -2
  Show({0, 0, 0, 0, 0, 21, 0, 0, 0, 0, 0});
  workspace.FitParam.SmoothKind = 1;
  SmoothGraph(program);
  EXPECT_THAT(CountsOf(Row(0).DataNo), ElementsAre(0, 0, 0, 3, 6, 7, 6, 3, 0, 0, 0));
}

TEST_F(DerivedGraphsTest, AnUnknownKindOfSmoothingFaultsBeforeARowIsOpened) {
  Show({1, 2, 3}, "a.npd");
  for (const std::int16_t kind : {-1, 4}) {
    workspace.FitParam.SmoothKind = kind;
    EXPECT_THROW(SmoothGraph(program), Fault);
  }
  EXPECT_EQ(Row(0).Title, "a.npd");
  EXPECT_EQ(workspace.GrpCount, 1);
}

TEST_F(DerivedGraphsTest, AnEmptyRowZeroIsNotReplacedByASmoothedGraph) {
  // given: row 0 as a failed read leaves it, and a smoothed spectrum below
  Show({1});
  const auto data_no = Show(std::vector<std::int32_t>(100, 50), "b.npd");
  workspace.Spectra[data_no].Prop.Flags = FlagSmooth;
  workspace.Slots[0] = GraphSlot{};
  SmoothGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "b.npd"));
  EXPECT_EQ(Row(0).DataNo, 2);
}

TEST_F(DerivedGraphsTest, ADerivedGraphIsNotAskedAboutAndLeavesTheSourceAlone) {
  Show(std::vector<std::int32_t>(100, 50));
  workspace.Slots[0].State = kRowUnsaved;
  SmoothGraph(program);
  BackGroundGraph(program);
  EXPECT_EQ(Row(0).State, kRowSaved);
  EXPECT_EQ(Row(1).State, kRowSaved);
  EXPECT_EQ(Row(2).State, kRowSaved);
  EXPECT_EQ(Row(3).State, kRowUnsaved);
}

TEST_F(DerivedGraphsTest, AClosedSmoothedSpectrumIsNoSource) {
  const auto data_no = Show({0, 0, 0, 0, 16, 0, 0, 0, 0});
  workspace.Spectra[data_no].Prop.Flags = FlagSmooth;
  DeleteGraph(list, 0);
  dialogs.ExpectMessage("ShiftGraph: Data Notting!");
  SmoothGraph(program);
  EXPECT_EQ(Row(0).State, kRowEmpty);
}

TEST_F(DerivedGraphsTest, AFailedReadLeavesNothingToWorkOn) {
  GetGraphSpace(list, -1);  // as a failed read leaves it: a number taken, no row filled
  SmoothGraph(program);
  BackGroundGraph(program);
  EXPECT_THAT(Titles(), ElementsAre());
  EXPECT_EQ(workspace.GrpCount, 1);
}

TEST_F(DerivedGraphsTest, SmoothingWithoutAGraphIsRefused) {
  dialogs.ExpectMessage("ShiftGraph: Data Notting!");
  SmoothGraph(program);
  EXPECT_EQ(workspace.GrpCount, 0);
}

TEST_F(DerivedGraphsTest, BackgroundAndDifferenceStandAboveTheSourceWhichStaysCurrent) {
  workspace.FitParam.BackInterval = 1;
  workspace.FitParam.BackTimes = 1;
  const auto raw = Show({4, 4, 10, 4, 4, 4, 4});
  BackGroundGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "a.npd"));
  EXPECT_EQ(view.GraphNo, 2);
  EXPECT_EQ(view.DataNo, raw);
  EXPECT_EQ(FlagsOf(0), FlagBackRemv);
  EXPECT_EQ(FlagsOf(1), FlagBackGraund);
}

TEST_F(DerivedGraphsTest, AFlatSpectrumIsItsOwnBackground) {
  const std::vector<std::int32_t> flat(100, 50);
  Show(flat);
  workspace.Channels[0].Counts[100] = 50;  // the last chord ends on it
  BackGroundGraph(program);
  EXPECT_EQ(CountsOf(Row(1).DataNo), flat);
  EXPECT_EQ(CountsOf(Row(0).DataNo), std::vector<std::int32_t>(100, 0));
}

TEST_F(DerivedGraphsTest, ABackgroundAboveTheCountsLeavesNoNegativeDifference) {
  // given: interval 2, one pass; K = floor(6/2 - 2) = 1 clips channels 2 and 4, here nothing;
  // chords join 0, 2, 4, 6: their values at 1, 3, 5 lie above the counts 0 there
  workspace.FitParam.BackInterval = 2;
  workspace.FitParam.BackTimes = 1;
  Show({8, 0, 8, 0, 8, 0});
  workspace.Channels[0].Counts[6] = 8;
  BackGroundGraph(program);
  for (const std::int32_t count : CountsOf(Row(0).DataNo)) EXPECT_GE(count, 0);
}

TEST_F(DerivedGraphsTest, RunningTheBackgroundAgainReplacesBothCurves) {
  Show(std::vector<std::int32_t>(100, 50));
  BackGroundGraph(program);
  const auto back = Row(1).DataNo;
  const auto difference = Row(0).DataNo;
  BackGroundGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "a.npd"));
  EXPECT_EQ(Row(1).DataNo, back);
  EXPECT_EQ(Row(0).DataNo, difference);
}

TEST_F(DerivedGraphsTest, BackgroundAndDifferenceInheritRecordAndPeaks) {
  const auto raw = Show(std::vector<std::int32_t>(100, 50));
  workspace.Spectra[raw].SampName.Set("MgO");
  workspace.Peaks[raw].Count = 1;
  workspace.Peaks[raw].Peaks[0].Center = 2;
  BackGroundGraph(program);
  for (const int row : {0, 1}) {
    EXPECT_EQ(workspace.Spectra[Row(row).DataNo].SampName.Text(), "MgO") << row;
    EXPECT_EQ(workspace.Peaks[Row(row).DataNo], workspace.Peaks[raw]) << row;
    EXPECT_EQ(workspace.Channels[Row(row).DataNo].Count, 100) << row;
  }
}

TEST_F(DerivedGraphsTest, AnEmptySecondRowIsNoEarlierBackground) {
  // The empty row points at spectrum 0 as well, which is a background that was saved and read.
  const auto data_no = Show(std::vector<std::int32_t>(100, 50));
  workspace.Spectra[data_no].Prop.Flags = FlagBackGraund;
  BackGroundGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "a.npd"));
  EXPECT_EQ(Row(2).DataNo, data_no);
}

TEST_F(DerivedGraphsTest, AFittedDifferenceIsNotReusedWhileItsBackgroundIs) {
  Show(std::vector<std::int32_t>(100, 50));
  BackGroundGraph(program);
  const auto back = Row(1).DataNo;
  workspace.Spectra[Row(0).DataNo].Prop.Flags = FlagBackRemv | FlagFit;
  BackGroundGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackRemv", "BackGraund", "a.npd"));
  EXPECT_EQ(Row(2).DataNo, back);
  EXPECT_EQ(view.GraphNo, 3);
}

TEST_F(DerivedGraphsTest, ABackgroundOfAFittedRecordIsNotReused) {
  Show(std::vector<std::int32_t>(100, 50));
  BackGroundGraph(program);
  workspace.Spectra[Row(0).DataNo].Prop.Flags = FlagBackRemv | FlagFit;
  workspace.Spectra[Row(1).DataNo].Prop.Flags = FlagBackGraund | FlagFit;
  BackGroundGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "BackRemv", "BackGraund", "a.npd"));
}

TEST_F(DerivedGraphsTest, AWrongIntervalIsToldAndTheCopyCountsAsBackground) {
  workspace.FitParam.BackInterval = 0;
  Show({1, 2, 3, 4, 5});
  dialogs.ExpectMessage("BackGrand Interval <= 0 !");
  BackGroundGraph(program);
  EXPECT_THAT(CountsOf(Row(1).DataNo), ElementsAre(1, 2, 3, 4, 5));
  EXPECT_THAT(CountsOf(Row(0).DataNo), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(DerivedGraphsTest, WithOneFreeRowTheSecondCurveIsRefused) {
  for (int i = 0; i < 9; ++i) Show({1, 2, 3, 4, 5}, std::to_string(i));
  dialogs.ExpectMessage("ShiftGraph: List Over!");
  BackGroundGraph(program);
  EXPECT_EQ(workspace.GrpCount, 10);
  EXPECT_EQ(Row(0).State, kRowEmpty);
}

TEST_F(DerivedGraphsTest, AnIntervalThatDividesTheLastChannelCountFaults) {
  Show(std::vector<std::int32_t>(8192, 5));
  workspace.FitParam.BackInterval = 16;
  EXPECT_THROW(BackGroundGraph(program), Fault);
}

// ---- faults: counts that no measurement gives

class FaultOfTheBackgroundTest : public DerivedGraphsTest {
 protected:
  void ExpectCurvesOfTheFirstRun(std::size_t channels) const {
    EXPECT_EQ(CountsOf(Row(1).DataNo), std::vector<std::int32_t>(channels, 50));
    EXPECT_EQ(CountsOf(Row(0).DataNo), std::vector<std::int32_t>(channels, 0));
  }
};

TEST_F(FaultOfTheBackgroundTest, ADifferenceThatOverflowsLeavesBothCurves) {
  const auto raw = Show(std::vector<std::int32_t>(110, 50));
  BackGroundGraph(program);
  workspace.Channels[raw].Counts.fill(-1000000000);
  workspace.Channels[raw].Counts[30] = 2147483647;
  EXPECT_THROW(BackGroundGraph(program), Fault);
  ExpectCurvesOfTheFirstRun(110);
}

TEST_F(FaultOfTheBackgroundTest, AGridThatLeavesTheTableLeavesBothCurves) {
  const auto raw = Show(std::vector<std::int32_t>(8192, 50));
  BackGroundGraph(program);
  workspace.Channels[raw].Counts.fill(70);
  workspace.FitParam.BackInterval = 16;
  EXPECT_THROW(BackGroundGraph(program), Fault);
  ExpectCurvesOfTheFirstRun(8192);
}

TEST_F(DerivedGraphsTest, ABackgroundOfTheBackgroundItselfLeavesNoDifference) {
  Show({10, 10, 10, 10, 10, 10, 90, 10, 10});
  workspace.FitParam.BackInterval = 2;
  BackGroundGraph(program);
  workspace.Channels[Row(1).DataNo].Counts[4] = 500;
  Change_cboGrphSel(list, 0, 1);
  BackGroundGraph(program);
  EXPECT_THAT(CountsOf(Row(1).DataNo), testing::Each(10));
  EXPECT_THAT(CountsOf(Row(0).DataNo), testing::Each(0));
}

}  // namespace
}  // namespace dorvane
