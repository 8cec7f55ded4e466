#include "forms/frmManualFit.h"

#include <gmock/gmock.h>

#include "forms/FormFixture.h"
#include "program/PeakFixture.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr const char* kRegionError = "StartChannel or EndChannel Error";

class frmManualFitTest : public PeakFitTest {
 protected:
  frmManualFitTest() {
    data_no = Show(Spectrum(4096, 20, {{1000, 130, 6}, {600, 200, 6}}));
    view.CursorCh = 130;
    workspace.FitParam.PeakThres = 10;
  }

  void MarkArea(int start, int end) {
    view.AreaStart = ToInt16(start);
    view.AreaEnd = ToInt16(end);
  }
  // Opens the form, works it, and cancels it where the work leaves it open.
  void Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) {
      work();
      if (form.Visible()) form.cmdCancel.Press();
    });
    form.Open(view.GraphNo);
  }
  void Execute() {
    Work([this] { form.cmdExecute.Press(); });
  }
  std::vector<bool> RowsOn() {
    std::vector<bool> on;
    for (int i = 0; i < frmManualFit::kManualPeaks; ++i) {
      on.push_back(form.txtCenterCh[i].Enabled());
      EXPECT_EQ(form.txtMaxCount[i].Enabled(), on.back());
      EXPECT_EQ(form.txtWidth[i].Enabled(), on.back());
      EXPECT_EQ(form.cmdGetValue[i].Enabled(), on.back());
    }
    return on;
  }

  std::int16_t data_no = 0;
  ScriptedFormHost host;
  frmManualFit form{program, host};
};

TEST_F(frmManualFitTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Manual Fitting");
  EXPECT_EQ(form.txtParamNum.Caption(), "# of PARAMETER");
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(form.txtCenterCh[i].Caption(), "CENTER CH");
    EXPECT_EQ(form.txtMaxCount[i].Caption(), "MAX COUNT");
    EXPECT_EQ(form.txtWidth[i].Caption(), "WIDTH");
    EXPECT_EQ(form.cmdGetValue[i].Caption(), "Input");
  }
}

TEST_F(frmManualFitTest, OpensWithTheRangeOfTheAreaCursorAndLeavesIt) {
  MarkArea(160, 100);
  Work([this] {
    EXPECT_EQ(form.txtStartCh.Text(), "101");
    EXPECT_EQ(form.txtEndCh.Text(), "161");
  });
  EXPECT_EQ(view.AreaStart, 160);
  EXPECT_EQ(view.AreaEnd, 100);
}

TEST_F(frmManualFitTest, WithoutAnAreaItShowsTheSurroundingsOfTheCursor) {
  Work([this] {
    EXPECT_EQ(form.StartCh(), 120);
    EXPECT_EQ(form.EndCh(), 139);
  });
}

TEST_F(frmManualFitTest, TheSurroundingsOfTheCursorEndWithTheSpectrum) {
  view.CursorCh = 5;
  Work([this] { EXPECT_EQ(form.txtStartCh.Text(), "1"); });
  view.CursorCh = 4095;
  Work([this] { EXPECT_EQ(form.txtEndCh.Text(), "4096"); });
  view.CursorCh = 8000;
  Work([this] { EXPECT_EQ(form.txtStartCh.Text(), "4096"); });
}

TEST_F(frmManualFitTest, LoadingStartsWithOnePeakAndThreeWidths) {
  Work([this] {
    EXPECT_EQ(form.PeakNum(), 1);
    EXPECT_EQ(form.txtPeakNum.Text(), "1");
    EXPECT_EQ(form.txtParamNum.Text(), "3");
    EXPECT_EQ(form.txtWidth[2].Text(), "10");
    EXPECT_EQ(form.txtWidth[3].Text(), "0");
    EXPECT_THAT(RowsOn(), ElementsAre(true, false, false, false, false));
  });
}

TEST_F(frmManualFitTest, LoadedItIsTheOpenFormUntilItIsUnloaded) {
  EXPECT_EQ(workspace.ManualFitOpen, kFalse);
  Work([this] { EXPECT_EQ(workspace.ManualFitOpen, kTrue); });
  EXPECT_EQ(workspace.ManualFitOpen, kTrue);
  Work([this] { form.QueryClose(); });
  EXPECT_EQ(workspace.ManualFitOpen, kFalse);
}

TEST_F(frmManualFitTest, HiddenItKeepsItsListAndUnloadedItStartsAnew) {
  Work([this] {
    form.txtPeakNum.SetText("3");
    form.cmdGetValue[1].Press();
  });
  Work([this] {
    EXPECT_EQ(form.CenterCh(1), 130);
    form.QueryClose();
  });
  Work([this] {
    EXPECT_EQ(form.PeakNum(), 1);
    EXPECT_EQ(form.CenterCh(1), 0);
  });
}

TEST_F(frmManualFitTest, PropertiesAreReadAsTheyWereWritten) {
  form.SetStartCh(7);
  form.SetEndCh(9);
  form.SetCenterCh(4, 8);
  form.SetMaxCount(4, 2000000);
  form.SetChWidth(4, 12);
  form.SetGrpNo(3);
  EXPECT_EQ(form.StartCh(), 7);
  EXPECT_EQ(form.EndCh(), 9);
  EXPECT_EQ(form.CenterCh(4), 8);
  EXPECT_EQ(form.MaxCount(4), 2000000);
  EXPECT_EQ(form.ChWidth(4), 12);
  EXPECT_EQ(form.GrpNo(), 3);
  EXPECT_THROW(form.CenterCh(5), Fault);
}

TEST_F(frmManualFitTest, TheBoxesCountChannelsFromOneAndThePropertiesFromZero) {
  form.SetStartCh(100);
  form.SetEndCh(160);
  form.SetCenterCh(1, 120);
  form.SetMaxCount(1, 345);
  form.SetChWidth(1, 9);
  form.SetValue();
  EXPECT_EQ(form.txtStartCh.Text(), "101");
  EXPECT_EQ(form.txtEndCh.Text(), "161");
  EXPECT_EQ(form.txtCenterCh[1].Text(), "121");
  EXPECT_EQ(form.txtMaxCount[1].Text(), "345");
  EXPECT_EQ(form.txtWidth[1].Text(), "9");
}

TEST_F(frmManualFitTest, NothingIsShownForARegionBelowChannelZeroOrWithoutAGraph) {
  form.SetStartCh(-1);
  form.SetValue();
  form.SetStartCh(0);
  form.SetEndCh(-1);
  form.SetValue();
  form.SetEndCh(9);
  for (const std::int16_t grp_no : {-1, 1, 10}) {
    form.SetGrpNo(grp_no);
    form.SetValue();
  }
  EXPECT_EQ(form.txtStartCh.Text(), "");
}

TEST_F(frmManualFitTest, ExpressFittingLeavesOnlyTheFirstRow) {
  Work([this] { form.txtPeakNum.SetText("3"); });
  workspace.ExpressFit = 1;
  Work([this] { EXPECT_THAT(RowsOn(), ElementsAre(true, false, false, false, false)); });
  workspace.ExpressFit = 0;
  Work([this] { EXPECT_THAT(RowsOn(), ElementsAre(true, true, true, false, false)); });
}

TEST_F(frmManualFitTest, TheNumberOfPeaksSwitchesTheRowsAndTellsTheParameters) {
  Work([this] {
    form.txtPeakNum.SetText("4");
    EXPECT_EQ(form.PeakNum(), 4);
    EXPECT_EQ(form.txtParamNum.Text(), "12");
    EXPECT_EQ(form.ParamNum(), 12);
    EXPECT_THAT(RowsOn(), ElementsAre(true, true, true, true, false));
  });
}

TEST_F(frmManualFitTest, ANumberOfPeaksOfSixOrZeroIsRefusedAndTheRowsStay) {
  Work([this] {
    form.txtPeakNum.SetText("2");
    for (const char* refused : {"6", "0", "-1", "5.4", "0.6", "", "x"}) {
      form.txtPeakNum.SetText(refused);
      EXPECT_EQ(form.PeakNum(), 2) << refused;
      EXPECT_THAT(RowsOn(), ElementsAre(true, true, false, false, false)) << refused;
    }
  });
  form.SetPeakNum(6);
  form.SetPeakNum(0);
  EXPECT_EQ(form.PeakNum(), 2);
}

TEST_F(frmManualFitTest, TheNumberOfParametersIsStoredAndSwitchesNothing) {
  Work([this] {
    for (const char* text : {"3", "5", "6", "7", "8", "9", "14"}) {
      form.txtParamNum.SetText(text);
      EXPECT_EQ(std::to_string(form.ParamNum()), text);
    }
    form.txtParamNum.SetText("x");
    form.txtParamNum.SetText("40000");
    EXPECT_EQ(form.ParamNum(), 14);
    EXPECT_EQ(form.PeakNum(), 1);
    EXPECT_THAT(RowsOn(), ElementsAre(true, false, false, false, false));
  });
}

TEST_F(frmManualFitTest, ACenterThatIsNoNumberOrAbove8192KeepsTheFocus) {
  TextBox& box = form.txtCenterCh[2];
  for (const char* refused : {"", "x", "-1", "8193"}) {
    box.SetText(refused);
    EXPECT_FALSE(box.Leave()) << refused;
    EXPECT_EQ(form.CenterCh(2), 0) << refused;
  }
}

// Half to even.
TEST_F(frmManualFitTest, ACenterIsTakenWhenItsBoxIsLeft) {
  TextBox& box = form.txtCenterCh[2];
  for (const auto& [text, channel] :
       {std::pair{"0", 0}, {"8192", 8192}, {"12.5", 12}, {"13.5", 14}}) {
    box.SetText(text);
    EXPECT_TRUE(box.Leave());
    EXPECT_EQ(form.CenterCh(2), channel);
  }
}

TEST_F(frmManualFitTest, HeightAndWidthAreTakenWhenTheirBoxesAreLeft) {
  form.txtMaxCount[1].SetText("70000");
  form.txtWidth[1].SetText("25");
  EXPECT_TRUE(form.txtMaxCount[1].Leave());
  EXPECT_TRUE(form.txtWidth[1].Leave());
  EXPECT_EQ(form.MaxCount(1), 70000);
  EXPECT_EQ(form.ChWidth(1), 25);
}

TEST_F(frmManualFitTest, AHeightOrAWidthThatHasNoPlaceIsIgnoredWithoutAWord) {
  form.SetMaxCount(1, 70000);
  form.SetChWidth(1, 25);
  for (const char* text : {"", "x", "1E10"}) {
    form.txtMaxCount[1].SetText(text);
    form.txtWidth[1].SetText(text);
    EXPECT_TRUE(form.txtMaxCount[1].Leave());
    EXPECT_TRUE(form.txtWidth[1].Leave());
  }
  EXPECT_EQ(form.MaxCount(1), 70000);
  EXPECT_EQ(form.ChWidth(1), 25);
}

TEST_F(frmManualFitTest, InputTakesChannelAndCountOfTheCursor) {
  Work([this] {
    form.cmdGetValue[0].Press();
    EXPECT_EQ(form.CenterCh(0), 130);
    EXPECT_EQ(form.MaxCount(0), 1020);
    EXPECT_EQ(form.txtMaxCount[0].Text(), "1020");
  });
}

TEST_F(frmManualFitTest, InputShowsTheBareChannelAndTheNextOpeningOneMoreAsMeant) {
  Work([this] {
    form.cmdGetValue[0].Press();
    EXPECT_EQ(form.txtCenterCh[0].Text(), "130");
  });
  Work([this] {
    EXPECT_EQ(form.txtCenterCh[0].Text(), "131");
    EXPECT_EQ(form.CenterCh(0), 130);
  });
}

TEST_F(frmManualFitTest, InputWithTheCursorOutsideOfTheSpectrumTakesNothing) {
  view.CursorCh = 4096;
  Work([this] {
    form.cmdGetValue[0].Press();
    EXPECT_EQ(form.CenterCh(0), 0);
    EXPECT_EQ(form.MaxCount(0), 0);
  });
}

TEST_F(frmManualFitTest, ExecuteConfirmsAndHides) {
  dialogs.ExpectMessage(kRegionError);
  Execute();
  EXPECT_TRUE(form.OK());
  EXPECT_FALSE(form.Visible());
}

TEST_F(frmManualFitTest, CancelTakesTheConfirmationBackAndHides) {
  dialogs.ExpectMessage(kRegionError);
  Execute();
  Work([this] { form.cmdCancel.Press(); });
  EXPECT_FALSE(form.OK());
  EXPECT_FALSE(form.Visible());
}

TEST_F(frmManualFitTest, WithoutAnAreaTheRegionFitIsRefused) {
  dialogs.ExpectMessage(kRegionError);
  Execute();
  EXPECT_EQ(workspace.Peaks[data_no].Count, 0);
}

TEST_F(frmManualFitTest, ARegionThatStartsInTheFirstChannelIsRefusedAsMeant) {
  MarkArea(0, 160);
  dialogs.ExpectMessage(kRegionError);
  Execute();
}

TEST_F(frmManualFitTest, ARegionBelowTheFirstChannelIsRefused) {
  MarkArea(-5, 160);
  host.ExpectModal([this](Form&) {
    dialogs.ExpectMessage(kRegionError);
    form.cmdExecute.Press();
  });
  form.Open(0);
}

TEST_F(frmManualFitTest, ARegionThatEndsAboveChannel4096IsRefused) {
  MarkArea(4000, 4097);
  dialogs.ExpectMessage(kRegionError);
  Execute();
}

TEST_F(frmManualFitTest, TheRegionFitTakesTheAreaOnce) {
  MarkArea(4000, 4097);
  dialogs.ExpectMessage(kRegionError);
  Execute();
  EXPECT_EQ(view.AreaStart, kNoEnd);
  EXPECT_EQ(view.AreaEnd, kNoEnd);
}

// The line that the spectrum was made of; half a channel covers the rounding of the counts.
TEST_F(frmManualFitTest, TheTypedPeakIsFittedOverTheRegionAndTheWindowRefreshed) {
  MarkArea(100, 160);
  Work([this] {
    form.cmdGetValue[0].Press();
    form.cmdExecute.Press();
  });
  const PeakTable& table = workspace.Peaks[data_no];
  ASSERT_EQ(table.Count, 1);
  EXPECT_NEAR(table.Peaks[0].Center, 130, 0.5);
  EXPECT_THAT(Titles(), Contains("Fit"));
  EXPECT_EQ(listener.notices.back(), "redraw 0");
}

TEST_F(frmManualFitTest, AFitThatFailsRefreshesNothing) {
  MarkArea(100, 160);
  dialogs.ExpectMessage("Error in Function COND");  // the centre lies outside of the region
  Execute();
  EXPECT_THAT(listener.notices, Not(Contains("shown 0 1")));
  EXPECT_NE(listener.notices.back(), "redraw 0");
}

TEST_F(frmManualFitTest, OnePeakOfTheExpressFamilyIsTheFitOfTheArea) {
  Enter(data_no, {1000, 130, 6}, 100, 160);
  workspace.ExpressFit = 1;
  MarkArea(0, 160);
  Execute();
  EXPECT_THAT(Titles(), Contains("Fit"));
}

// A split over an area that starts in channel 0 does nothing, where a fit does.
TEST_F(frmManualFitTest, SeveralPeaksOfTheExpressFamilyAreASplit) {
  workspace.ExpressFit = 1;
  MarkArea(0, 260);
  Work([this] {
    form.txtPeakNum.SetText("2");
    form.cmdExecute.Press();
  });
  EXPECT_THAT(Titles(), Not(Contains("Fit")));
  MarkArea(90, 260);
  Execute();
  EXPECT_THAT(Titles(), Contains("Fit"));
}

TEST_F(frmManualFitTest, TheExpressFamilyWorksOnTheGraphOfTheForm) {
  Enter(data_no, {1000, 130, 6}, 100, 160);
  workspace.ExpressFit = 1;
  Show({1, 2, 3}, "b.npd");
  MarkArea(90, 160);
  host.ExpectModal([this](Form&) { form.cmdExecute.Press(); });
  form.Open(0);
  EXPECT_EQ(view.DataNo, data_no);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].FitDone, kTrue);
}

TEST_F(frmManualFitTest, AGraphThatIsGoneIsNotFitted) {
  Work([this] {
    DeleteGraph(list, 0);
    form.cmdGetValue[0].Press();
    form.cmdExecute.Press();
  });
  EXPECT_TRUE(Titles().empty());
}

TEST_F(frmManualFitTest, WithoutAGraphItDoesNotOpen) {
  DeleteGraph(list, 0);
  form.Open(0);
  EXPECT_TRUE(host.Shown().empty());
  EXPECT_EQ(workspace.ManualFitOpen, kFalse);
}

// ---- what "Execute" still lacks

TEST_F(frmManualFitTest, WithoutAUsableRegionTheHintAsksForOne) {
  constexpr const char* kHint = "First mark a region within channels 2 to 4096.";
  Work([&] { EXPECT_EQ(form.lblHint.Caption(), kHint); });
  MarkArea(0, 160);
  Work([&] { EXPECT_EQ(form.lblHint.Caption(), kHint); });
  MarkArea(4000, 4097);
  Work([&] { EXPECT_EQ(form.lblHint.Caption(), kHint); });
}

TEST_F(frmManualFitTest, APeakOutsideOfTheRegionIsHintedUntilItIsTakenInside) {
  MarkArea(100, 160);
  Work([this] {
    EXPECT_EQ(form.lblHint.Caption(), "Peak 1 lies outside: \"Input\" takes the cursor's channel.");
    form.cmdGetValue[0].Press();
    EXPECT_EQ(form.lblHint.Caption(), "");
    form.txtPeakNum.SetText("2");
    EXPECT_EQ(form.lblHint.Caption(), "Peak 2 lies outside: \"Input\" takes the cursor's channel.");
    form.txtCenterCh[1].SetText("160");
    form.txtCenterCh[1].Leave();
    EXPECT_EQ(form.lblHint.Caption(), "");
  });
}

TEST_F(frmManualFitTest, APeakAtEitherEndOfTheRegionIsInside) {
  MarkArea(130, 160);
  Work([this] {
    form.cmdGetValue[0].Press();
    EXPECT_EQ(form.lblHint.Caption(), "");
  });
  MarkArea(100, 130);
  Work([this] { EXPECT_EQ(form.lblHint.Caption(), ""); });
}

TEST_F(frmManualFitTest, TheExpressFamilyLacksNothing) {
  workspace.ExpressFit = 1;
  Work([this] { EXPECT_EQ(form.lblHint.Caption(), ""); });
}

TEST_F(frmManualFitTest, TheAreaIsGoneFromTheScreenAlsoWhereTheFitFails) {
  MarkArea(100, 160);
  listener.notices.clear();
  dialogs.ExpectMessage("Error in Function COND");
  Execute();
  EXPECT_THAT(listener.notices, Contains("cursor"));
}

}  // namespace
}  // namespace dorvane
