#include "program/FitGraphs.h"

#include <gmock/gmock.h>

#include "program/Cursor.h"
#include "program/DerivedGraphs.h"
#include "program/PeakFit.h"
#include "program/PeakFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using Counts = std::vector<std::int32_t>;

class FitGraphsTest : public PeakFitTest {
 protected:
  // A spectrum with one fitted peak at channel 150, the only graph beside its fit.
  std::int16_t ShowFitted() {
    const auto data_no = Show(Spectrum(410, 100, {{20000, 150, 3}}));
    SetArea(program, 100, 200);
    FitPeak(program, 0);
    return data_no;
  }
  std::int16_t DataNoOf(std::string_view title) const {
    return Row(FindRow(workspace, title)).DataNo;
  }
  std::int32_t CountOf(std::string_view title, int channel) const {
    return workspace.Channels[DataNoOf(title)].Counts[channel];
  }
};

// ---- one curve

TEST_F(FitGraphsTest, TheBackgroundTakesTheFittedOneWhereThatIsNotZero) {
  Show({5, 5, 5, 5}, "BackGraund");
  workspace.FitBack[1] = 8;
  workspace.FitBack[2] = -3;
  NaxBackToGraph(program, 0);
  EXPECT_EQ(CountsOf(Row(0).DataNo), (Counts{5, 8, -3, 5}));
}

TEST_F(FitGraphsTest, TheBackgroundIsShownUnderItsTitle) {
  Show({5, 5}, "mine");
  view.SelectedRow[0] = 0;
  ChgValue_chkGrp(list, 0, 0, false);
  NaxBackToGraph(program, 0);
  EXPECT_EQ(Row(0).Title, "BackGraund");
  EXPECT_EQ(Row(0).Disp, kTrue);
  EXPECT_EQ(Row(0).State, kRowSaved);
}

TEST_F(FitGraphsTest, TheBackgroundBehindTheLastStoredChannelStays) {
  const auto data_no = Show({5, 5}, "BackGraund");
  workspace.FitBack[2] = 8;
  NaxBackToGraph(program, 0);
  EXPECT_EQ(workspace.Channels[data_no].Counts[2], 0);
}

TEST_F(FitGraphsTest, TheDifferenceIsZeroWhereThereIsNoBackground) {
  Show({10, 20, 30}, "source");
  Show({3, 0, -1}, "back");
  Show({9, 9, 9}, "removed");
  NaxRemvToGraph(program, 0, 1, 2);
  EXPECT_EQ(CountsOf(2), (Counts{7, 0, 0}));
  EXPECT_EQ(Row(2).Title, "BackRemv");
}

TEST_F(FitGraphsTest, ADifferenceBelowZeroStaysAsMeant) {
  Show({10}, "source");
  Show({40}, "back");
  Show({9}, "removed");
  NaxRemvToGraph(program, 0, 1, 2);
  EXPECT_EQ(CountsOf(2), Counts{-30});
}

TEST_F(FitGraphsTest, ADifferenceThatIsNoCountIsAFaultAndLeavesTheCurve) {
  Show({10, -2147483647}, "source");
  Show({3, 2147483647}, "back");
  Show({9, 9}, "removed");
  EXPECT_THROW(NaxRemvToGraph(program, 0, 1, 2), Fault);
  EXPECT_EQ(CountsOf(2), (Counts{9, 9}));
}

TEST_F(FitGraphsTest, ChannelsAbove4095KeepTheirDifference) {
  Show(Counts(4098, 10), "source");
  Show(Counts(4098, 3), "back");
  Show(Counts(4098, 9), "removed");
  NaxRemvToGraph(program, 0, 1, 2);
  EXPECT_EQ(workspace.Channels[2].Counts[4095], 7);
  EXPECT_EQ(workspace.Channels[2].Counts[4096], 9);
}

TEST_F(FitGraphsTest, ADifferenceWithoutARowIsShownInRowOne) {
  Show({10}, "source");
  Show({3}, "back");
  workspace.Channels[5].Count = 1;
  workspace.DataUse[5] = kTrue;
  NaxRemvToGraph(program, 0, 1, 5);
  EXPECT_EQ(Row(1).DataNo, 5);
  EXPECT_EQ(Row(1).Title, "BackRemv");
}

// ---- the graphs that end a fit

TEST_F(FitGraphsTest, AFitWithoutABackgroundGetsOne) {
  const auto data_no = ShowFitted();
  BuildFitGraphs(program, 0, view.GraphNo);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "Fit", "a.npd"));
  EXPECT_EQ(view.DataNo, data_no);
  EXPECT_EQ(view.GraphNo, 3);
}

TEST_F(FitGraphsTest, NoGraphLosesItsRow) {
  ShowFitted();
  BuildFitGraphs(program, 0, view.GraphNo);
  for (const auto* title : {"BackRemv", "BackGraund", "Fit", "a.npd"}) {
    EXPECT_GE(FindRow(workspace, title), 0) << title;
  }
  EXPECT_NE(DataNoOf("BackRemv"), DataNoOf("BackGraund"));
}

TEST_F(FitGraphsTest, ABackgroundThatIsThereIsKept) {
  Show(Spectrum(410, 100, {{20000, 150, 3}}));
  BackGroundGraph(program);
  const auto background = DataNoOf("BackGraund");
  workspace.Channels[background].Counts[300] = 77;
  SetArea(program, 100, 200);
  FitPeak(program, 0);
  BuildFitGraphs(program, 0, view.GraphNo);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "BackRemv", "BackGraund", "a.npd"));
  EXPECT_EQ(DataNoOf("BackGraund"), background);
  EXPECT_EQ(CountOf("BackGraund", 300), 77);
  EXPECT_EQ(CountOf("BackRemv", 300), 23);  // the source has 100 there
}

TEST_F(FitGraphsTest, TheFittedBackgroundIsTakenFromTheFittedSpectrum) {
  Show(Spectrum(410, 1000, {}), "other.npd");
  ShowFitted();
  workspace.FitBack[150] = 90;
  BuildFitGraphs(program, 0, view.GraphNo);
  EXPECT_EQ(CountOf("BackGraund", 150), 90);
  EXPECT_EQ(CountOf("BackRemv", 150), 20100 - 90);
}

TEST_F(FitGraphsTest, AFitHasBeenDone) {
  ShowFitted();
  view.FitMade = kFalse;
  BuildFitGraphs(program, 0, view.GraphNo);
  EXPECT_EQ(view.FitMade, kTrue);
}

TEST_F(FitGraphsTest, WithoutAFitTheMessageTellsAndTheBackgroundIsThere) {
  Show(Spectrum(410, 100, {}));
  dialogs.ExpectMessage("Fit Failed");
  BuildFitGraphs(program, 0, view.GraphNo);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "a.npd"));
  EXPECT_EQ(view.FitMade, kFalse);
}

TEST_F(FitGraphsTest, WithoutADifferenceTheMessageTells) {
  ShowFitted();
  BackGroundGraph(program);
  DeleteGraph(list, FindRow(workspace, "BackRemv"));
  dialogs.ExpectMessage("Fit Failed");
  BuildFitGraphs(program, 0, view.GraphNo);
}

TEST_F(FitGraphsTest, WithoutRoomForTheBackgroundTheMessageTells) {
  ShowFitted();
  for (int i = 0; i < 8; ++i) Show({1}, std::to_string(i));
  Change_cboGrphSel(list, 0, 1);
  dialogs.ExpectMessage("ShiftGraph: List Over!");
  dialogs.ExpectMessage("Fit Failed");
  BuildFitGraphs(program, 0, view.GraphNo);
  EXPECT_EQ(workspace.GrpCount, 10);
}

TEST_F(FitGraphsTest, WithoutAGraphTheMessageTells) {
  dialogs.ExpectMessage("Fit Failed");
  BuildFitGraphs(program, 0, 0);
  EXPECT_EQ(workspace.GrpCount, 0);
}

TEST_F(FitGraphsTest, TheCollectedGraphsNeedTheirBackground) {
  ShowFitted();
  dialogs.ExpectMessage("Fit Failed");
  NaxAreaFitBackGroundDataSet(program, 0, view.GraphNo);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
}

TEST_F(FitGraphsTest, WithoutAFitTheCollectedBackgroundIsTakenAllTheSame) {
  Show(Spectrum(410, 100, {}));
  BackGroundGraph(program);
  workspace.FitBack[150] = 90;
  dialogs.ExpectMessage("Fit Failed");
  NaxAreaFitBackGroundDataSet(program, 0, view.GraphNo);
  EXPECT_EQ(CountOf("BackGraund", 150), 90);
  EXPECT_EQ(CountOf("BackRemv", 150), 0);  // as the background command has left it
}

}  // namespace
}  // namespace dorvane
