#include "program/CalibCommands.h"

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
  std::function<void()> enter_ = [this] {
    ++entered_;
    taken_ = CsrChannel(program);
  };
  int entered_ = 0;
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

TEST_F(CalibCommandsTest, AutoWithoutAnAreaAsksForOneAndEntersNothing) {
  Show(TwoLines());
  dialogs.ExpectMessage("Plz Set ROI");
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kFalse);
  EXPECT_EQ(entered_, 0);
}

TEST_F(CalibCommandsTest, AutoWithAnAreaFromChannel0AsksForOneToo) {
  Show(TwoLines());
  MarkArea(0, 400);
  dialogs.ExpectMessage("Plz Set ROI");
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kFalse);
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

TEST_F(CalibCommandsTest, AutoKeepsTheExpandModeThatWasOn) {
  Show(TwoLines(), "ref.npd");
  Calib_SmothBk(program);
  ckbExpand_Click(program, true);
  MarkArea(580, 620);
  EXPECT_EQ(Calib_Auto(program, 0, enter_), kTrue);
  EXPECT_EQ(view.ExpandOn, kTrue);
  EXPECT_EQ(view.CurWin, 1);
}

TEST_F(CalibCommandsTest, AutoOfAnotherModeSplits) {
  Show(TwoLines(), "ref.npd");
  Calib_SmothBk(program);
  MarkArea(280, 320);
  EXPECT_EQ(Calib_Auto(program, 1, enter_), kTrue);
  EXPECT_EQ(entered_, 1);
  EXPECT_NEAR(taken_, 300.25, 0.5);
}

TEST_F(CalibCommandsTest, SmoothingForTheCalibrationIsThatOfTheCommand) {
  Show(TwoLines(), "ref.npd");
  Smooting_Calib(program);
  EXPECT_EQ(Titles(), (std::vector<std::string>{"Smooth", "ref.npd"}));
}

}  // namespace
}  // namespace dorvane
