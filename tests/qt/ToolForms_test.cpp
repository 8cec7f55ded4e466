// The windows beside the main window, the regions and the styles of the graph windows, from the
// menus.
#include <gtest/gtest.h>

#include <QTableView>

#include "program/Cursor.h"
#include "qt/WindowTest.h"

namespace dorvane {
namespace {

class ToolFormsTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    OpenCorundum();
  }
  FormWindow* WindowOf(Form& form) { return window.TheSession().form_views.WindowOf(form); }
};

TEST_F(ToolFormsTest, TheGraphListIsATableThatFollows) {
  Trigger("mnuSelGraph");
  frmSelGraph& form = window.TheSession().graph_select;
  ASSERT_TRUE(WindowOf(form)->isVisible());
  EXPECT_EQ(form.sprGraphSel.Text(1, 4), "corundum_ambient.npd");
  Trigger("mnuSmooth");
  EXPECT_EQ(form.sprGraphSel.Text(1, 4), "Smooth");
  EXPECT_EQ(form.sprGraphSel.Text(2, 4), "corundum_ambient.npd");
}

TEST_F(ToolFormsTest, ARegionBetweenTwoCursorPlacesAppearsInItsTable) {
  Trigger("mnuRoiReport");
  CsrX_Change(window.TheSession().program, 650);
  Trigger("mnuRoiStart");
  CsrX_Change(window.TheSession().program, 670);
  Trigger("mnuRoiEnd");
  Trigger("RoiAdd");
  ASSERT_EQ(Store().Regions.RoiCount, 1);
  const Grid& grid = window.TheSession().roi_report.sprRoiInf;
  EXPECT_EQ(grid.MaxRows(), 1);
  EXPECT_EQ(grid.Text(1, 2), "651");  // channel numbers count from 1
}

TEST_F(ToolFormsTest, TheLogWindowShowsWhatIsPut) {
  Trigger("mnuLogText");
  frmLog& form = window.TheSession().log;
  ASSERT_TRUE(WindowOf(form)->isVisible());
  form.PutLog("a line");
  EXPECT_NE(form.txtMessage.Text().find("a line"), std::string::npos);
}

TEST_F(ToolFormsTest, TheExpansionOpensTheLowerWindowWithItsOwnRange) {
  Trigger("Expand");
  EXPECT_TRUE(Find<QAction>("Expand")->isChecked());
  EXPECT_GT(Find<QWidget>("picGraph_1")->height(), 50);
  EXPECT_EQ(window.TheSession().program.spect.AliasView(), 1);
  Trigger("Expand");
  EXPECT_FALSE(Find<QAction>("Expand")->isChecked());
}

TEST_F(ToolFormsTest, PileUpAndLineUpExcludeEachOther) {
  Trigger("mnuWinType_1");
  EXPECT_TRUE(Find<QAction>("mnuWinType_1")->isChecked());
  EXPECT_FALSE(Find<QAction>("mnuWinType_0")->isChecked());
  Trigger("mnuWinType_0");
  EXPECT_TRUE(Find<QAction>("mnuWinType_0")->isChecked());
}

}  // namespace
}  // namespace dorvane
