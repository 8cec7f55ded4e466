#include "display/RecordingSurface.h"
#include "forms/MainFormFixture.h"
#include "processing/Units.h"

namespace dorvane {
namespace {

class ScalePanelTest : public MainFormTest {
 protected:
  ScalePanel& scale = form.scale;
  void TypeHeight(const std::string& text) {
    scale.itxtScaleY.SetText(text);
    scale.itxtScaleY.Enter();
  }
};

TEST_F(ScalePanelTest, TheScaleStartsWithAllChannelsAndTheLogHeight) {
  EXPECT_EQ(scale.hsbStartX.Maximum(), 4096);
  EXPECT_EQ(scale.hsbStartX.Value(), 0);
  EXPECT_EQ(scale.imnSpanCh.Value(), 4096);
  EXPECT_EQ(scale.inumScaleX.Value(), 4096);
  EXPECT_EQ(scale.itxtScaleY.Text(), "LOG");
  EXPECT_EQ(view.HeightY, 10000000);
}

TEST_F(ScalePanelTest, TheMaximaFollowALongerSpectrum) {
  Show(std::vector<std::int32_t>(8192, 1));
  EXPECT_EQ(scale.hsbStartX.Maximum(), 8192);
  EXPECT_EQ(form.cursor.updCursorX.Maximum(), 8192);
}

TEST_F(ScalePanelTest, TheScrollBarMovesTheFirstChannel) {
  scale.imnSpanCh.Type("1000");
  scale.hsbStartX.SetValue(500);
  EXPECT_EQ(view.StartCh, 500);
  EXPECT_EQ(program.spect.Scale(0).StartX, 500);
}

TEST_F(ScalePanelTest, AnArrowOfTheScrollBarGoesATenthOfTheSpanAndAPageAllOfIt) {
  scale.imnSpanCh.Type("1000");
  EXPECT_EQ(scale.hsbStartX.SmallChange(), 100);
  EXPECT_EQ(scale.hsbStartX.LargeChange(), 1000);
}

TEST_F(ScalePanelTest, AScrollPastTheLastRangeComesBack) {
  scale.imnSpanCh.Type("1000");
  scale.hsbStartX.SetValue(4096);
  EXPECT_EQ(view.StartCh, 3096);
  EXPECT_EQ(scale.hsbStartX.Value(), 3096);
}

TEST_F(ScalePanelTest, ATypedSpanStaysWithin32AndAllChannels) {
  scale.imnSpanCh.Type("5");
  EXPECT_EQ(scale.imnSpanCh.Value(), 32);
  scale.imnSpanCh.Type("99999");
  EXPECT_EQ(scale.imnSpanCh.Value(), 4096);
  scale.imnSpanCh.Type("wide");
  EXPECT_EQ(scale.imnSpanCh.Value(), 4096);
}

TEST_F(ScalePanelTest, WiderHalvesAndNarrowerDoublesTheSpan) {
  scale.cmdWider.Press();
  EXPECT_EQ(scale.imnSpanCh.Value(), 2048);
  EXPECT_EQ(scale.inumScaleX.Value(), 2048);
  scale.cmdNarrower.Press();
  EXPECT_EQ(scale.imnSpanCh.Value(), 4096);
}

TEST_F(ScalePanelTest, WiderEndsAt32ChannelsAndNarrowerAtAll) {
  scale.imnSpanCh.Type("32");
  scale.cmdWider.Press();
  EXPECT_EQ(view.SpanCh, 32);
  scale.imnSpanCh.Type("2049");
  scale.cmdNarrower.Press();
  EXPECT_EQ(view.SpanCh, 2049);
}

TEST_F(ScalePanelTest, AnExpansionChangesTheRangeOfTheLowerWindowAlone) {
  form.style.ckbExpand.SetChecked(true);
  scale.cmdWider.Press();
  EXPECT_EQ(program.spect.Scale(0).WidthX, 4096);
  EXPECT_EQ(program.spect.Scale(1).WidthX, 2048);
}

TEST_F(ScalePanelTest, ASpanTypedInKeVIsConvertedToChannels) {
  ShowSpectrum();
  workspace.DefaultProp.EGC[1] = 0.05;
  scale.cboUnitX.SetIndex(kUnitKeV);
  EXPECT_DOUBLE_EQ(scale.inumScaleX.Value(), 204.8);  // 4096 channels of 0.05 keV
  scale.inumScaleX.Type("50");
  EXPECT_EQ(view.SpanCh, 1000);
  EXPECT_EQ(scale.imnSpanCh.Value(), 1000);
  EXPECT_EQ(program.spect.Scale(0).WidthX, 1000);
}

TEST_F(ScalePanelTest, ASpanTypedInDWavelengthQOrAngleCountsChannelsAsMeant) {
  ShowSpectrum();
  for (const int unit : {kUnitD, kUnitWave, kUnitQ, kUnit2Theta}) {
    scale.cboUnitX.SetIndex(unit);
    EXPECT_TRUE(scale.inumScaleX.Enabled());
    scale.inumScaleX.Type(std::to_string(500 + unit));
    EXPECT_EQ(scale.imnSpanCh.Value(), 500 + unit);
  }
}

TEST_F(ScalePanelTest, TheUnitFollowsTheChosenCalibration) {
  ShowSpectrum();
  workspace.DefaultProp.EGC[1] = 0.05;
  workspace.Spectra[view.DataNo].Prop.EGC[1] = 0.1;
  scale.cboUnitX.SetIndex(kUnitKeV);
  form.calibration.optEGC.SetIndex(1);
  EXPECT_DOUBLE_EQ(scale.inumScaleX.Value(), 409.6);
}

TEST_F(ScalePanelTest, AllSevenUnitsAreOffered) {
  EXPECT_EQ(scale.cboUnitX.Items().size(), 7u);
  EXPECT_EQ(scale.cboUnitX.Items()[0], "Ch");
  EXPECT_EQ(scale.cboUnitX.Items()[1], "Kev");
  EXPECT_EQ(scale.cboUnitX.Items()[2], "Ev");
}

TEST_F(ScalePanelTest, ANonNumericSpanKeepsTheOldOne) {
  scale.inumScaleX.Type("?");
  EXPECT_EQ(scale.inumScaleX.Value(), 4096);
}

TEST_F(ScalePanelTest, ATypedHeightIsShownByItsLabel) {
  TypeHeight("1500");
  EXPECT_EQ(view.HeightY, 1500);
  EXPECT_EQ(scale.itxtScaleY.Text(), "1.5K");
  EXPECT_EQ(program.spect.Scale(0).MaxY, 1500);
}

TEST_F(ScalePanelTest, AHeightThatIsNoNumberKeepsTheOldOne) {
  TypeHeight("1500");
  TypeHeight("tall");
  EXPECT_EQ(view.HeightY, 1500);
  EXPECT_EQ(scale.itxtScaleY.Text(), "1.5K");
}

TEST_F(ScalePanelTest, LeavingAnUntouchedHeightChangesNothing) {
  TypeHeight("1500");
  scale.ckbVtAuto.SetChecked(true);
  ASSERT_TRUE(scale.itxtScaleY.Leave());
  EXPECT_EQ(view.AutoScale, kTrue);
}

TEST_F(ScalePanelTest, AHeightThatNoStepCoversKeepsTheScrollBar) {
  scale.hsbWidthY.SetValue(20);
  TypeHeight("1000000");
  EXPECT_EQ(view.HeightY, 1000000);
  EXPECT_EQ(scale.hsbWidthY.Value(), 20);
}

TEST_F(ScalePanelTest, TheScrollBarWalksThroughTheHeights) {
  scale.hsbWidthY.SetValue(35);
  EXPECT_EQ(view.HeightY, 10);
  scale.hsbWidthY.SetValue(1);
  EXPECT_EQ(view.HeightY, 800000);
  EXPECT_EQ(scale.itxtScaleY.Text(), "800K");
}

TEST_F(ScalePanelTest, OnTheLogScaleASmallHeightCountsDecades) {
  scale.ckbLogScale.SetChecked(true);
  TypeHeight("5");
  EXPECT_EQ(view.HeightY, 100000);
}

TEST_F(ScalePanelTest, TheAxisOfAWindowThatDoesNotPileUpShowsTheHeightThatItKeeps) {
  TypeHeight("400");
  form.style.chkFilePile[1].SetChecked(false);
  TypeHeight("800");
  const auto top_label = [this](int win_no) {
    RecordingSurface panel;
    form.graphs.DrawCountAxis(win_no, panel);
    return panel.Texts().front().text;
  };
  EXPECT_EQ(top_label(0), " 800");
  EXPECT_EQ(top_label(1), " 400");
}

TEST_F(ScalePanelTest, TheLogScaleKeepsTheHeight) {
  TypeHeight("400");
  scale.ckbLogScale.SetChecked(true);
  EXPECT_EQ(program.spect.Scale(0).YMode, kLogarithmic);
  EXPECT_EQ(view.HeightY, 400);
  EXPECT_EQ(scale.itxtScaleY.Text(), "LOG");
  EXPECT_TRUE(Menu("mnuLogarithmic").Checked());
  scale.ckbLogScale.SetChecked(false);
  EXPECT_EQ(scale.itxtScaleY.Text(), "400");
}

TEST_F(ScalePanelTest, AutomaticAndNormalScaleExcludeEachOther) {
  scale.ckbNorScale.SetChecked(true);
  EXPECT_FALSE(scale.ckbVtAuto.Checked());
  EXPECT_TRUE(Menu("mnuNorScale").Checked());
  EXPECT_FALSE(Menu("mnuAutomatic").Checked());
  Menu("mnuAutomatic").Choose();
  EXPECT_TRUE(scale.ckbVtAuto.Checked());
  EXPECT_FALSE(scale.ckbNorScale.Checked());
  EXPECT_FALSE(Menu("mnuNorScale").Checked());
}

TEST_F(ScalePanelTest, TheAutomaticHeightCoversTheLargestCountShown) {
  ShowSpectrum("a.npd", 450);
  scale.ckbNorScale.SetChecked(true);
  scale.ckbVtAuto.SetChecked(true);
  EXPECT_EQ(scale.itxtScaleY.Text(), "500");
  EXPECT_EQ(scale.hsbWidthY.Value(), 24);  // 500 is step 11 of the 35, counted from 0
}

TEST_F(ScalePanelTest, ANarrowedRangeIsScaledAnewWithTheAutomaticScale) {
  ShowSpectrum("a.npd", 4);
  workspace.Channels[view.DataNo].Counts[4000] = 7000;
  scale.ckbVtAuto.SetChecked(false);
  scale.ckbVtAuto.SetChecked(true);
  EXPECT_EQ(view.HeightY, 8000);
  scale.cmdWider.Press();
  EXPECT_EQ(view.HeightY, 10);
}

TEST_F(ScalePanelTest, WiderAndNarrowerEntriesChangeTheSpan) {
  Menu("mnuWider").Choose();
  EXPECT_EQ(scale.imnSpanCh.Value(), 2048);
  Menu("mnuNarrower").Choose();
  EXPECT_EQ(scale.imnSpanCh.Value(), 4096);
}

TEST_F(ScalePanelTest, TheLogEntrySwitchesTheBox) {
  Menu("mnuLogarithmic").Choose();
  EXPECT_TRUE(scale.ckbLogScale.Checked());
  EXPECT_EQ(program.spect.Scale(1).YMode, kLogarithmic);
  Menu("mnuLogarithmic").Choose();
  EXPECT_FALSE(scale.ckbLogScale.Checked());
}

TEST_F(ScalePanelTest, TallerAndShorterEntriesStepTheScrollBar) {
  scale.hsbWidthY.SetValue(20);
  Menu("mnuTaller").Choose();
  EXPECT_EQ(scale.hsbWidthY.Value(), 19);
  Menu("mnuShoter").Choose();
  Menu("mnuShoter").Choose();
  EXPECT_EQ(scale.hsbWidthY.Value(), 21);
}

TEST_F(ScalePanelTest, ARefreshRunsNoHandler) {
  ShowSpectrum();
  view.StartCh = 50;
  view.SpanCh = 100;
  view.HeightY = 500;
  view.WidthY = 24;
  view.LogScale = kTrue;
  view.CursorCh = 7;
  view.AreaOn = kTrue;
  view.ExpandOn = kTrue;
  listener.notices.clear();
  form.UnitAxisChanged();
  form.CursorMoved();
  form.WindowStyleChanged();
  EXPECT_EQ(scale.imnSpanCh.Value(), 100);
  EXPECT_EQ(scale.hsbWidthY.Value(), 24);
  EXPECT_TRUE(form.style.ckbExpand.Checked());
  EXPECT_TRUE(form.cursor.chkArea.Checked());
  EXPECT_TRUE(listener.notices.empty());
  EXPECT_EQ(view.AutoScale, kTrue);
}

// The calibration.

TEST_F(ScalePanelTest, WithoutASpectrumItsCalibrationIsOff) {
  EXPECT_FALSE(form.calibration.optEGC.OptionEnabled(1));
  EXPECT_FALSE(form.calibration.lblEGC[1].Enabled());
  EXPECT_FALSE(form.calibration.txt2Theta[1].Enabled());
  ShowSpectrum();
  EXPECT_TRUE(form.calibration.optEGC.OptionEnabled(1));
}

TEST_F(ScalePanelTest, WhenTheLastGraphIsClosedNoCalibrationOfAFileStays) {
  ShowSpectrum();
  EXPECT_TRUE(form.calibration.lblEGC[1].Enabled());
  RemoveGraph(list, 0);
  EXPECT_EQ(form.calibration.lblEGC[1].Caption(), "");
  EXPECT_EQ(form.calibration.txt2Theta[1].Text(), "");
}

TEST_F(ScalePanelTest, TheDefaultAngleHasSixPlacesUntilItsFirstEdit) {
  workspace.DefaultProp.TwoTheta = 5.98632;
  form.CalibrationShown();
  TextBox& angle = form.calibration.txt2Theta[0];
  EXPECT_EQ(angle.Text(), "5.986320");
  angle.SetText("6.5");
  angle.Enter();
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 6.5);
  EXPECT_EQ(angle.Text(), "6.50000");
}

TEST_F(ScalePanelTest, ADefaultAngleThatIsNoNumberKeepsTheOldOne) {
  TextBox& angle = form.calibration.txt2Theta[0];
  angle.SetText("six");
  ASSERT_TRUE(angle.Leave());
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 0);
  EXPECT_EQ(angle.Text(), "0.000000");
}

TEST_F(ScalePanelTest, LeavingAnUntouchedAngleKeepsAllItsDigits) {
  workspace.DefaultProp.TwoTheta = 5.98632149;
  form.CalibrationShown();
  ASSERT_TRUE(form.calibration.txt2Theta[0].Leave());
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 5.98632149);
}

}  // namespace
}  // namespace dorvane
