#include "program/AutoFit.h"

#include <gmock/gmock.h>

#include "program/Commands.h"
#include "program/Cursor.h"
#include "program/PeakFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

constexpr const char* kRetry =
    "Fitting was failed. Please change fit parameters(Change BG Coefficient to 5.0) and retry";

// Pointers in the order in which they show.
class PointerLog : public WorkspaceListener {
 public:
  explicit PointerLog(const ViewState& view) : view_(view) {}
  std::vector<std::int16_t> pointers;
  void PointerChanged() override { pointers.push_back(view_.Pointer); }

 private:
  const ViewState& view_;
};

class AutoFitTest : public PeakFitTest {
 protected:
  AutoFitTest() { views.Add(pointer_log); }

  // Three lines far from one another; 2050 channels, so that the background has its last node.
  std::int16_t ShowLines(const std::string& title = "a.npd") {
    return Show(Spectrum(2050, 100, {{20000, 500.4, 3}, {8000, 1000.7, 3}, {15000, 1500.2, 3}}),
                title);
  }
  void UseExpress() { workspace.ExpressFit = 1; }
  std::int16_t DataNoOf(std::string_view title) const {
    return Row(FindRow(workspace, title)).DataNo;
  }
  const PeakTable& Table() const { return workspace.Peaks[view.DataNo]; }

  PointerLog pointer_log{view};
};

// ---- AutoFit

TEST_F(AutoFitTest, TheExpressFamilyLeavesFiveGraphsAndTheSmoothedOneCurrent) {
  ShowLines();
  UseExpress();
  AutoFit(program);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "BackRemv", "BackGraund", "Smooth", "a.npd"));
  EXPECT_EQ(Row(view.GraphNo).Title, "Smooth");
  ASSERT_EQ(Table().Count, 3);
  EXPECT_NEAR(Table().Peaks[1].Center, 1000.7, 0.05);
  EXPECT_EQ(Table().Peaks[1].FitEngine, kEngineExpress);
}

TEST_F(AutoFitTest, TheExpressFamilyLeavesTheButtonsAsTheyAre) {
  ShowLines();
  UseExpress();
  AutoFit(program);
  EXPECT_EQ(view.Buttons, OperationButtons{});
}

TEST_F(AutoFitTest, TheNaxFamilyLeavesFiveGraphsAndTheSmoothedOneCurrent) {
  ShowLines();
  AutoFit(program);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "BackRemv", "BackGraund", "Smooth", "a.npd"));
  EXPECT_EQ(Row(view.GraphNo).Title, "Smooth");
  ASSERT_EQ(Table().Count, 3);
  EXPECT_NEAR(Table().Peaks[1].Center, 1000.7, 0.05);
  EXPECT_EQ(Table().Peaks[1].FitEngine, kEngineNax);
}

TEST_F(AutoFitTest, TheNaxFamilySwitchesTheFourButtonsOver) {
  ShowLines();
  AutoFit(program);
  const OperationButtons by_hand{.AutoFit = false, .AllFit = false, .ManFit = true, .MkDel = true};
  EXPECT_EQ(view.Buttons, by_hand);
}

TEST_F(AutoFitTest, AScanShowsItsOwnPairOfPointers) {
  ShowLines();
  AutoFit(program);
  EXPECT_EQ(pointer_log.pointers.front(), kPointerArrowHourglass);
  EXPECT_EQ(pointer_log.pointers.back(), kPointerArrow);
}

TEST_F(AutoFitTest, TheDifferenceIsTheFittedSpectrumLessTheFittedBackground) {
  ShowLines();
  AutoFit(program);
  const auto count = [this](std::string_view title) {
    return workspace.Channels[DataNoOf(title)].Counts[500];
  };
  EXPECT_EQ(count("BackGraund"), workspace.FitBack[500]);
  EXPECT_EQ(count("BackRemv"), count("Smooth") - count("BackGraund"));
}

TEST_F(AutoFitTest, ANaxFitWithoutPeaksTellsWhatToChange) {
  Show(std::vector<std::int32_t>(2050, 100));
  dialogs.ExpectMessage("NO PEAKS ARE FOUND");
  dialogs.ExpectMessage("Fit Failed");
  dialogs.ExpectMessage(kRetry);
  AutoFit(program);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "Smooth", "a.npd"));
  EXPECT_FALSE(Waits(view.Pointer));
}

TEST_F(AutoFitTest, AnExpressFitWithoutPeaksTellsWhatToChange) {
  Show(std::vector<std::int32_t>(2050, 100));
  UseExpress();
  dialogs.ExpectMessage("intPeakNo=-1");  // the highest count is that of channel 0
  dialogs.ExpectMessage("Fit Failed");
  dialogs.ExpectMessage(kRetry);
  AutoFit(program);
}

TEST_F(AutoFitTest, AFitWithoutRoomForItsGraphHasFailed) {
  ShowLines();
  UseExpress();
  for (int i = 0; i < 6; ++i) Show({1}, std::to_string(i));
  Change_cboGrphSel(list, 0, 0);  // smoothing and background take the last three rows
  dialogs.ExpectMessage("ShiftGraph: List Over!");
  dialogs.ExpectMessage("Fit Failed");
  dialogs.ExpectMessage(kRetry);
  AutoFit(program);
  EXPECT_GT(Table().Count, 0);
}

TEST_F(AutoFitTest, WithoutAGraphTheSmoothingTellsAndNothingElseDoes) {
  dialogs.ExpectMessage("ShiftGraph: Data Notting!");
  AutoFit(program);
  EXPECT_EQ(workspace.GrpCount, 0);
}

TEST_F(AutoFitTest, WhatTheUserStopsIsNotTold) {
  ShowLines();
  UseExpress();
  progress.cancel_after = 1;
  AutoFit(program);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "Smooth", "a.npd"));
  EXPECT_EQ(Table().Count, 0);
}

TEST_F(AutoFitTest, AScanThatTheUserStopsEndsWithItsOwnBoxAlone) {
  ShowLines();
  progress.cancel_after = 0;
  dialogs.ExpectMessage("Failed to fit");
  AutoFit(program);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "Smooth", "a.npd"));
  EXPECT_FALSE(Waits(view.Pointer));
}

TEST_F(AutoFitTest, TheButtonWorksOnASingleGraphAlone) {
  UseExpress();
  ShowLines("a.npd");
  ShowLines("b.npd");
  cmdAutoFit_Click(program);
  EXPECT_THAT(Titles(), ElementsAre("a.npd", "b.npd"));
  DeleteGraph(list, 1);
  cmdAutoFit_Click(program);
  EXPECT_EQ(workspace.GrpCount, 5);
}

TEST_F(AutoFitTest, TheKeyWorksOnSeveralGraphs) {
  UseExpress();
  ShowLines("a.npd");
  ShowLines("b.npd");
  RunCommand(program, "AutoFit");
  EXPECT_THAT(Titles(), ElementsAre("Fit", "BackRemv", "BackGraund", "Smooth", "a.npd", "b.npd"));
}

// ---- the other fits of a whole spectrum

TEST_F(AutoFitTest, AllFitEndsWithTheGraphsOfAFit) {
  const auto data_no = ShowLines();
  AllFit(program);
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "Fit", "a.npd"));
  EXPECT_EQ(view.DataNo, data_no);
  EXPECT_EQ(Table().Count, 3);
  EXPECT_EQ(workspace.Channels[DataNoOf("BackRemv")].Counts[800], 0);
}

TEST_F(AutoFitTest, AllFitIsOfTheExpressFamilyWhateverIsChosen) {
  ShowLines();
  workspace.ExpressFit = 0;
  AllFit(program);
  EXPECT_EQ(Table().Peaks[0].FitEngine, kEngineExpress);
}

TEST_F(AutoFitTest, AllFitWithoutPeaksTellsThatItFailed) {
  Show(std::vector<std::int32_t>(2050, 100));
  dialogs.ExpectMessage("intPeakNo=-1");
  dialogs.ExpectMessage("Fit Failed");
  AllFit(program);
}

TEST_F(AutoFitTest, FittingAllPeaksFromTheMenuMakesNoBackground) {
  ShowLines();
  RunCommand(program, "mnuFittingAll");
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
  EXPECT_EQ(Table().Count, 3);
}

TEST_F(AutoFitTest, TheScanByItsKeyFitsTheWholeSpectrumAndMakesNoBackground) {
  ShowLines();
  UseExpress();
  RunCommand(program, "NaxAllFit");
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
  EXPECT_EQ(Table().Count, 3);
  EXPECT_EQ(workspace.ExpressFit, 1);
  EXPECT_EQ(view.Pointer, kPointerArrow);
}

TEST_F(AutoFitTest, TheFoundPeaksOfAScanAreMarked) {
  ShowLines();
  NaxAllFit(program);
  EXPECT_THAT(program.spect.PeakLinesOf(0).Channels(), ElementsAre(500, 1001, 1500));
}

TEST_F(AutoFitTest, TheEntryOfTheNaxFamilyChoosesItAndScans) {
  ShowLines();
  UseExpress();
  RunCommand(program, "mnuNaxFit");
  EXPECT_EQ(workspace.ExpressFit, 0);
  EXPECT_EQ(Table().Peaks[0].FitEngine, kEngineNax);
}

TEST_F(AutoFitTest, TheEntryOfTheExpressFamilyChoosesItAndFitsTheArea) {
  ShowLines();
  SetArea(program, 400, 600);
  RunCommand(program, "mnuExpressFit");
  EXPECT_EQ(workspace.ExpressFit, 1);
  ASSERT_EQ(Table().Count, 1);
  EXPECT_NEAR(Table().Peaks[0].Center, 500.4, 0.05);
}

TEST_F(AutoFitTest, TheEntryOfTheExpressFamilyWithNothingToFitOnlyChooses) {
  ShowLines();
  RunCommand(program, "mnuExpressFit");
  EXPECT_EQ(workspace.ExpressFit, 1);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(AutoFitTest, TheSplitWorksOnTheAreaByKeyAndMenu) {
  ShowLines();
  for (const char* name : {"Split", "mnuPeakSep"}) {
    SetArea(program, 450, 550);
    EXPECT_TRUE(RunCommand(program, name));
    EXPECT_NEAR(Table().Peaks[0].Center, 500.4, 0.05) << name;
    EXPECT_EQ(Table().Count, 1) << name;
  }
}

}  // namespace
}  // namespace dorvane
