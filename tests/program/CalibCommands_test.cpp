#include "program/CalibCommands.h"

#include <algorithm>
#include <cmath>

#include "processing/RoiOpe.h"
#include "program/Cursor.h"
#include "program/PeakFixture.h"
#include "program/WindowStyle.h"

namespace dorvane {
namespace {

class CalibCommandsTest : public PeakFitTest {
 protected:
  // Two lines; 2050 channels, so that the background has its last node.
  static std::vector<std::int32_t> TwoLines() {
    return Spectrum(2050, 100, {{20000, 300.25, 3}, {8000, 600.75, 3}});
  }
  void MarkArea(int start, int end) {
    view.AreaStart = ToInt16(start);
    view.AreaEnd = ToInt16(end);
  }
  // A curve without background and others, so that its row is not the second one.
  std::int16_t ShowRemoved(const std::vector<Line>& lines) {
    Show(TwoLines(), "first.npd");
    Show(TwoLines(), "second.npd");
    return Show(Spectrum(1000, 100, lines), kTitleBackRemv);
  }
  std::function<void()> enter_ = [this] {
    ++entered_;
    win_no_ = view.CurWin;
    cursor_ = view.CursorCh;
    area_ = MarkedArea(view).valid;
    taken_ = CsrChannel(program);
  };
  // How the dialog was asked to enter a peak.
  int entered_ = 0;
  int win_no_ = -1;
  int cursor_ = -1;
  bool area_ = false;
  double taken_ = -1;
};

TEST_F(CalibCommandsTest, SmoothingAndRemovalLeaveTheRemovedCurveAndTheRawOneInView) {
  Show(TwoLines(), "ref.npd");
  EXPECT_EQ(Calib_SmothBk(program), kTrue);
  EXPECT_EQ(Titles(), (std::vector<std::string>{"BackRemv", "BackGraund", "Smooth", "ref.npd"}));
  EXPECT_EQ(Row(0).Disp, kTrue);
  EXPECT_EQ(Row(1).Disp, kFalse);
  EXPECT_EQ(Row(2).Disp, kFalse);
  EXPECT_EQ(Row(3).Disp, kTrue);
  EXPECT_EQ(view.CurWin, 1);
}

TEST_F(CalibCommandsTest, AListWithoutRoomForTheCurvesHidesNoOtherGraph) {
  for (int i = 0; i < kRows; ++i) Show(TwoLines(), "ref" + std::to_string(i) + ".npd");
  dialogs.ExpectMessage("ShiftGraph: List Over!");
  dialogs.ExpectMessage("ShiftGraph: List Over!");
  EXPECT_EQ(Calib_SmothBk(program), kFalse);
  for (int row = 0; row < kRows; ++row) EXPECT_EQ(Row(row).Disp, kTrue) << row;
}

TEST_F(CalibCommandsTest, InExpandModeTheDerivedCurvesAreMadeForTheOtherWindow) {
  Show(TwoLines(), "ref.npd");
  ckbExpand_Click(program, true);
  Calib_SmothBk(program);
  EXPECT_EQ(Row(0).WinNo, 1);
  EXPECT_EQ(Row(1).WinNo, 1);
  EXPECT_EQ(Row(1).Disp, kFalse);
  EXPECT_EQ(Row(2).Disp, kFalse);
  EXPECT_EQ(view.CurWin, 1);
}

TEST_F(CalibCommandsTest, WithoutAGraphNothingIsSmoothedOrRemoved) {
  EXPECT_EQ(Calib_SmothBk(program), kFalse);
  EXPECT_EQ(Calib_FitDel(program), kFalse);
  EXPECT_EQ(workspace.GrpCount, 0);
}

TEST_F(CalibCommandsTest, DeletingTheFitRemovesThePeaksOfTheAreaWithoutAQuestion) {
  const std::int16_t data_no = Show(TwoLines());
  Enter(data_no, {2000, 300.25, 5}, 290, 310);
  Enter(data_no, {1500, 600.75, 6}, 590, 610);
  MarkArea(200, 400);
  listener.notices.clear();
  EXPECT_EQ(Calib_FitDel(program), kTrue);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 1);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].Center, 600.75);
  EXPECT_EQ(view.CurWin, 1);
  EXPECT_GE(listener.Count("scale 0") + listener.Count("scale 1"), 1);
}

TEST_F(CalibCommandsTest, AutoWithoutAnAreaAsksForOneAndLeavesTheTablesAlone) {
  const auto data_no = Show(TwoLines());
  Enter(data_no, {2000, 300.25, 5}, 290, 310);
  dialogs.ExpectMessage("Plz Set ROI");
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kFalse);
  EXPECT_EQ(entered_, 0);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 1);
  EXPECT_EQ(Titles(), std::vector<std::string>{"a.npd"});
}

TEST_F(CalibCommandsTest, AutoAsksForAnAreaUnlessBothEndsAreAbove0) {
  Show(TwoLines());
  for (const auto& [start, end] : {std::pair{0, 400}, {280, 0}, {280, -1}, {-1, 400}}) {
    MarkArea(start, end);
    for (const std::int16_t mode : {0, 1}) {
      dialogs.ExpectMessage("Plz Set ROI");
      EXPECT_EQ(Calib_Auto(program, mode, enter_), kFalse) << start << ".." << end;
    }
  }
  EXPECT_EQ(entered_, 0);
  EXPECT_EQ(Titles(), std::vector<std::string>{"a.npd"});
}

TEST_F(CalibCommandsTest, AutoWithoutAnAreaLeavesTheActiveWindowInExpandMode) {
  Show(TwoLines());
  ckbExpand_Click(program, true);
  dialogs.ExpectMessage("Plz Set ROI");
  Calib_Auto(program, 0, enter_);
  EXPECT_EQ(view.CurWin, 0);
}

TEST_F(CalibCommandsTest, AutoFitsThePeakOfTheAreaInTheRemovedCurveAndEntersIt) {
  Show(TwoLines(), "ref.npd");
  Calib_SmothBk(program);
  Change_cboGrphSel(list, 1, 3);
  MarkArea(580, 620);
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kTrue);
  EXPECT_EQ(entered_, 1);
  EXPECT_NEAR(taken_, 600.75, 0.1);
  EXPECT_EQ(Row(0).Title, "Fit");
  EXPECT_EQ(view.GraphNo, 1);
  EXPECT_EQ(Row(1).Title, "BackRemv");
}

TEST_F(CalibCommandsTest, AutoEntersThePeakOfTheAreaWhereverTheCursorStood) {
  Show(TwoLines(), "ref.npd");
  Calib_SmothBk(program);
  MarkArea(580, 620);
  Calib_Auto(program, 0, enter_);
  CsrX_Change(program, 900);
  MarkArea(280, 320);
  Calib_Auto(program, 0, enter_);
  EXPECT_NEAR(taken_, 300.25, 0.1);
}

TEST_F(CalibCommandsTest, AutoJumpsToTheRightFromTheStartOfTheArea) {
  const auto data_no = ShowRemoved({{20000, 570, 3}, {8000, 600, 3}});
  Enter(data_no, {20000, 570, 3}, 560, 578);  // nearer to the start of the area
  MarkArea(580, 620);
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kTrue);
  EXPECT_EQ(cursor_, 600);
  EXPECT_NEAR(taken_, 600, 0.1);
}

TEST_F(CalibCommandsTest, AutoHasClearedTheAreaWhenItEntersThePeak) {
  ShowRemoved({{8000, 600, 3}});
  MarkArea(580, 620);
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kTrue);
  EXPECT_FALSE(area_);
  EXPECT_EQ(view.AreaStart, kNoEnd);
  EXPECT_EQ(view.AreaEnd, kNoEnd);
}

TEST_F(CalibCommandsTest, AutoFitsInTheRemovedCurveWhicheverIsTheCurrentOne) {
  const auto data_no = ShowRemoved({{8000, 600, 3}});
  Change_cboGrphSel(list, 0, 0);
  const auto first = view.DataNo;
  MarkArea(580, 620);
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kTrue);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 1);
  EXPECT_EQ(workspace.Peaks[first].Count, 0);
}

TEST_F(CalibCommandsTest, WithoutARemovedCurveAutoFitsInTheCurrentOne) {
  Show(TwoLines());
  const auto data_no = Show(TwoLines());
  MarkArea(580, 620);
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kTrue);
  EXPECT_EQ(workspace.Peaks[data_no].Count, 1);
}

TEST_F(CalibCommandsTest, AutoSelectsTheSecondEntryAtItsEnd) {
  ShowRemoved({{8000, 600, 3}});
  MarkArea(580, 620);
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kTrue);
  EXPECT_EQ(Titles(), (std::vector<std::string>{"Fit", "first.npd", "second.npd", "BackRemv"}));
  EXPECT_EQ(view.SelectedRow[0], 1);
}

TEST_F(CalibCommandsTest, AutoSetsTheCountAxisAnew) {
  ShowRemoved({{8000, 600, 3}});
  view.AutoScale = kFalse;
  view.HeightY = 500;
  MarkArea(580, 620);
  listener.notices.clear();
  Calib_Auto(program, 0, enter_);
  EXPECT_EQ(listener.Count("scale 1"), 1);
  EXPECT_EQ(view.HeightY, 500);
  // Of the heights 1, 2, 3, 4, 5, 6 and 8 times a power of ten the one above the 20000 + 100 counts
  // of "first.npd".
  Change_cboGrphSel(list, 0, 3);
  view.AutoScale = kTrue;
  view.HeightY = 500;
  MarkArea(580, 620);
  Calib_Auto(program, 0, enter_);
  EXPECT_EQ(view.HeightY, 30000);
}

TEST_F(CalibCommandsTest, InExpandModeAutoWorksWithTheOtherWindowAsTheActiveOne) {
  ShowRemoved({{8000, 600, 3}});
  ckbExpand_Click(program, true);
  MarkArea(580, 620);
  ASSERT_EQ(view.CurWin, 0);
  view.SelectedRow[1] = 2;
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kTrue);
  EXPECT_EQ(win_no_, 1);
  EXPECT_EQ(view.SelectedRow[1], 1);
  EXPECT_EQ(view.ExpandOn, kTrue);
  EXPECT_EQ(view.CurWin, 1);
}

TEST_F(CalibCommandsTest, WithoutExpandModeAutoWorksInTheActiveWindow) {
  ShowRemoved({{8000, 600, 3}});
  MarkArea(580, 620);
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kTrue);
  EXPECT_EQ(win_no_, 0);
  EXPECT_EQ(view.ExpandOn, kFalse);
  EXPECT_EQ(view.CurWin, 1);
}

// Two lines of half width 6 at a distance of 20 channels: each stands on the tail of the other,
// which a fit of one peak alone takes for background and which draws its centre aside.
class CalibCommandsPairTest : public CalibCommandsTest {
 protected:
  // How far the fitted centres lie off at most, in channels.
  double AutoMisses(std::int16_t mode) {
    const auto data_no = ShowRemoved({{20000, 540, 6}, {15000, 560, 6}});
    Enter(data_no, {19000, 539, 5}, 520, 550);
    Enter(data_no, {14500, 561, 5}, 550, 580);
    MarkArea(500, 600);
    EXPECT_EQ(Calib_Auto(program, mode, enter_), kTrue);
    const PeakTable& table = workspace.Peaks[data_no];
    EXPECT_EQ(taken_, table.Peaks[0].Center);
    return std::max(std::abs(table.Peaks[0].Center - 540), std::abs(table.Peaks[1].Center - 560));
  }
};

TEST_F(CalibCommandsPairTest, AutoOfMode0FitsOverlappingPeaksOneByOne) {
  EXPECT_GT(AutoMisses(0), 0.2);
}

TEST_F(CalibCommandsPairTest, AutoOfAnotherModeSplitsThem) {
  EXPECT_LT(AutoMisses(1), 0.05);
}

TEST_F(CalibCommandsPairTest, AutoOfANegativeModeSplitsThemToo) {
  EXPECT_LT(AutoMisses(-1), 0.05);
}

TEST_F(CalibCommandsTest, SmoothingForTheCalibrationIsThatOfTheCommand) {
  Show(TwoLines(), "ref.npd");
  Smooting_Calib(program);
  EXPECT_EQ(Titles(), (std::vector<std::string>{"Smooth", "ref.npd"}));
}

}  // namespace
}  // namespace dorvane
