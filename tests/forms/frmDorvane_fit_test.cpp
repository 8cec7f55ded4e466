// The fits on the main form: the pair of families, the whole fit, the split.
#include <gmock/gmock.h>

#include <cmath>

#include "forms/MainFormFixture.h"
#include "program/Cursor.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::ElementsAre;

class MainFitTest : public MainFormTest {
 protected:
  MainFitTest() {
    form.Show();
    workspace.ExpressFit = 1;
  }

  // Two lines of half width 3, 40 channels apart; 2050 channels, so that the background has its
  // last node.
  void OpenLines(const std::string& title = "a.npd") {
    std::vector<std::int32_t> counts;
    for (int i = 0; i < 2050; ++i) {
      const double u = (i - 500) / 3.0;
      const double v = (i - 540) / 3.0;
      counts.push_back(static_cast<std::int32_t>(
          std::lround(100 + 20000 * std::pow(2.0, -u * u) + 9000 * std::pow(2.0, -v * v))));
    }
    Show(counts, title);
    ChangeActiveWin(list, 0);
    form.CheckBoxesFilled();
  }
  const PeakTable& Table() const { return workspace.Peaks[view.DataNo]; }
  Button& cmdAutoFit = form.style.cmdAutoFit;
  ToolBar& operation = form.tool_bars.tlbrOperation;
};

TEST_F(MainFitTest, OneOfTheTwoFamiliesIsChecked) {
  OpenLines();
  Menu("mnuNaxFit").Choose();
  EXPECT_TRUE(Menu("mnuNaxFit").Checked());
  EXPECT_FALSE(Menu("mnuExpressFit").Checked());
  EXPECT_EQ(workspace.ExpressFit, 0);
  Menu("mnuExpressFit").Choose();
  EXPECT_TRUE(Menu("mnuExpressFit").Checked());
  EXPECT_FALSE(Menu("mnuNaxFit").Checked());
  EXPECT_EQ(workspace.ExpressFit, 1);
}

TEST_F(MainFitTest, ChoosingAFamilyAlsoFits) {
  OpenLines();
  Menu("mnuNaxFit").Choose();
  ASSERT_EQ(Table().Count, 2);
  EXPECT_EQ(Table().Peaks[0].FitEngine, kEngineNax);
  TypeCursor("500");
  Menu("mnuExpressFit").Choose();
  EXPECT_EQ(Table().Peaks[0].FitEngine, kEngineExpress);
  EXPECT_EQ(Table().Peaks[1].FitEngine, kEngineNax);
}

TEST_F(MainFitTest, TheButtonOfTheWholeFitIsOnWhileOneGraphAloneIsOpen) {
  EXPECT_EQ(cmdAutoFit.Caption(), "AutoFitting");
  EXPECT_FALSE(cmdAutoFit.Enabled());
  OpenLines("a.npd");
  EXPECT_TRUE(cmdAutoFit.Enabled());
  OpenLines("b.npd");
  EXPECT_FALSE(cmdAutoFit.Enabled());
}

TEST_F(MainFitTest, TheButtonOfTheWholeFitDoesAllOfIt) {
  OpenLines();
  cmdAutoFit.Press();
  EXPECT_THAT(Titles(), ElementsAre("Fit", "BackRemv", "BackGraund", "Smooth", "a.npd"));
  EXPECT_EQ(Table().Count, 2);
  EXPECT_FALSE(cmdAutoFit.Enabled());
}

TEST_F(MainFitTest, TheButtonOfTheWholeFitDoesNothingOnSeveralGraphs) {
  OpenLines("a.npd");
  OpenLines("b.npd");
  cmdAutoFit.Press();
  EXPECT_THAT(Titles(), ElementsAre("a.npd", "b.npd"));
}

TEST_F(MainFitTest, TheKeyOfTheWholeFitWorksOnSeveralGraphs) {
  OpenLines("a.npd");
  OpenLines("b.npd");
  operation.Press("AutoFit");
  EXPECT_THAT(Titles(), Contains("Fit"));
}

TEST_F(MainFitTest, AWholeFitOfTheNaxFamilySwitchesTheButtonsOver) {
  workspace.ExpressFit = 0;
  OpenLines();
  operation.Press("AutoFit");
  EXPECT_FALSE(operation.ButtonEnabled("AutoFit"));
  EXPECT_FALSE(operation.ButtonEnabled("AllFit"));
  EXPECT_TRUE(operation.ButtonEnabled("MkDel"));
  EXPECT_TRUE(view.Buttons.ManFit);
  EXPECT_FALSE(Menu("mnuAutoFit").Enabled());
}

TEST_F(MainFitTest, AWholeFitOfTheExpressFamilyLeavesTheButtons) {
  OpenLines();
  operation.Press("AutoFit");
  EXPECT_TRUE(operation.ButtonEnabled("AutoFit"));
  EXPECT_TRUE(operation.ButtonEnabled("AllFit"));
}

TEST_F(MainFitTest, TheButtonOfAllPeaksTakesTheBackgroundOffAndItsEntryDoesNot) {
  OpenLines();
  Menu("mnuFittingAll").Choose();
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
  operation.Press("AllFit");
  EXPECT_THAT(Titles(), ElementsAre("BackRemv", "BackGraund", "Fit", "a.npd"));
}

TEST_F(MainFitTest, TheSplitRefinesThePeaksOfTheArea) {
  OpenLines();
  for (const bool by_menu : {false, true}) {
    SetArea(program, 450, 600);
    if (by_menu) {
      Menu("mnuPeakSep").Choose();
    } else {
      form.tool_bars.tlbrRoiPeak.Press("Split");
    }
    ASSERT_EQ(Table().Count, 2);
    EXPECT_NEAR(Table().Peaks[1].Center, 540, 0.02);
  }
}

TEST_F(MainFitTest, TheScanHasItsButton) {
  OpenLines();
  form.tool_bars.tlbrNax.Press("NaxAllFit");
  EXPECT_EQ(Table().Count, 2);
  EXPECT_EQ(workspace.ExpressFit, 1);
}

TEST_F(MainFitTest, ButtonsWithoutAnEntryTellWhatTheyDo) {
  EXPECT_EQ(form.tool_bars.tlbrNax.Buttons()[0].tip, "Fit the whole spectrum without a peak list");
}

}  // namespace
}  // namespace dorvane
