#include "forms/frmRoiReport.h"

#include <gmock/gmock.h>

#include "forms/FormFixture.h"
#include "processing/RoiOpe.h"
#include "program/Cursor.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class RoiReportTest : public ProgramTest {
 protected:
  RoiReportTest() {
    std::vector<std::int32_t> counts(1000, 1);
    counts[150] = 60;
    counts[350] = 40;
    data_no = Show(counts);
    RoiAdd(list, 0, data_no, 100, 200, 0xFF);
    RoiAdd(list, 0, data_no, 300, 400, 0xFF);
  }

  std::vector<std::string> Texts(int row) const {
    std::vector<std::string> texts;
    for (int column = 1; column <= form.sprRoiInf.Columns(); ++column) {
      texts.push_back(form.sprRoiInf.Text(row, column));
    }
    return texts;
  }

  std::int16_t data_no = 0;
  ScriptedFormHost host;
  frmRoiReport form{program, host};
};

TEST_F(RoiReportTest, TheColumnsHaveTheirCaptions) {
  EXPECT_THAT(form.sprRoiInf.Headings(), ElementsAre("Graph", "Start (Ch)", "End (Ch)", "Amplitude",
                                                     "Peak (Ch)", "Intensity"));
  EXPECT_EQ(form.lblMaxRoi.Caption(), "Max ROI = 10");
  EXPECT_EQ(form.cmdOk.Caption(), "O K");
}

// Sums by hand: 100 channels with 1 count and one with 60, or with 40.
TEST_F(RoiReportTest, EveryRegionHasARowWithChannelsNumberedFromOne) {
  form.RefreshRoiReport();
  EXPECT_EQ(form.sprRoiInf.MaxRows(), 2);
  EXPECT_THAT(Texts(1), ElementsAre("1", "101", "201", "160", "151", "60"));
  EXPECT_THAT(Texts(2), ElementsAre("1", "301", "401", "140", "351", "40"));
}

TEST_F(RoiReportTest, ARefreshCalculatesTheRegionsAnew) {
  workspace.Channels[data_no].Counts[120] = 1001;
  form.RefreshRoiReport();
  EXPECT_THAT(Texts(1), ElementsAre("1", "101", "201", "1160", "121", "1001"));
}

TEST_F(RoiReportTest, AnEmptyTableHasNoRows) {
  form.RefreshRoiReport();
  RoiClear(list);
  form.RefreshRoiReport();
  EXPECT_EQ(form.sprRoiInf.MaxRows(), 0);
}

TEST_F(RoiReportTest, AGraphIsNumberedByItsRowInTheList) {
  const auto second = Show({5, 6, 7}, "b.npd");
  RoiAdd(list, 0, second, 0, 2, 0xFF);
  form.RefreshRoiReport();
  EXPECT_THAT(Texts(1), ElementsAre("2", "1", "3", "18", "3", "7"));
}

TEST_F(RoiReportTest, ARegionOfAClosedGraphHasNoGraphNumberAndNoCounts) {
  DeleteGraph(list, 0);
  form.RefreshRoiReport();
  EXPECT_THAT(Texts(1), ElementsAre("", "101", "201", "0", "1", "0"));
}

TEST_F(RoiReportTest, AClickMovesTheCursorToStartEndOrPeak) {
  form.RefreshRoiReport();
  const int expected[] = {350, 300, 400, 350, 350, 350};
  for (int column = 1; column <= 6; ++column) {
    form.sprRoiInf.PressCell(2, column);
    EXPECT_EQ(view.CursorCh, expected[column - 1]) << column;
  }
}

TEST_F(RoiReportTest, AClickOutsideOfTheRegionsIsIgnored) {
  CsrX_Change(program, 77);
  form.RefreshRoiReport();
  workspace.Regions.RoiCount = 1;
  form.sprRoiInf.PressCell(2, 2);
  form.sprRoiInf_Click(0, 2);
  form.sprRoiInf_Click(11, 2);
  EXPECT_EQ(view.CursorCh, 77);
}

TEST_F(RoiReportTest, OpeningRefreshesAndShows) {
  form.Open();
  EXPECT_THAT(host.Shown(), ElementsAre("frmRoiReport"));
  EXPECT_EQ(form.sprRoiInf.MaxRows(), 2);
}

TEST_F(RoiReportTest, OkClosesTheWindow) {
  form.Open();
  form.cmdOk.Press();
  EXPECT_FALSE(form.Visible());
}

TEST_F(RoiReportTest, AnOpenReportFollowsTheRegionsAndAClosedOneDoesNot) {
  form.Open();
  RoiDelete(list, 0, 0);
  form.RegionsChanged();
  EXPECT_EQ(form.sprRoiInf.MaxRows(), 1);
  form.Hide();
  RoiDelete(list, 0, 0);
  form.RegionsChanged();
  EXPECT_EQ(form.sprRoiInf.MaxRows(), 1);
}

TEST_F(RoiReportTest, AnOpenReportFollowsTheCountsAndTheList) {
  form.Open();
  workspace.Channels[data_no].Counts[120] = 1001;
  form.SpectrumShown(0, data_no);
  EXPECT_EQ(form.sprRoiInf.Text(1, 6), "1001");
  ShiftGraph(list, 0, 1);
  form.SelectionListFilled();
  EXPECT_EQ(form.sprRoiInf.Text(1, 1), "2");
}

}  // namespace
}  // namespace dorvane
