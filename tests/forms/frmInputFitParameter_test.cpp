#include "forms/frmInputFitParameter.h"

#include <gmock/gmock.h>

#include "forms/FormFixture.h"
#include "program/PeakFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class frmInputFitParameterTest : public PeakFitTest {
 protected:
  frmInputFitParameterTest() {
    std::vector<std::int32_t> counts(1000, 1);
    counts[150] = 60;
    data_no = Show(counts);
    view.CursorCh = 150;
  }

  // Opens the form, works it and closes it.
  void Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) {
      work();
      form.cmdCancel.Press();
    });
    form.Open();
  }
  void Type(const std::string& center, const std::string& count, const std::string& width) {
    form.txtCenterCh.SetText(center);
    form.txtMaxCount.SetText(count);
    form.txtWidth.SetText(width);
  }
  void Add(const std::string& center, const std::string& count, const std::string& width) {
    Work([&] {
      Type(center, count, width);
      form.cmdOK.Press();
    });
  }
  const PeakTable& Table() const { return workspace.Peaks[data_no]; }

  std::int16_t data_no = 0;
  ScriptedFormHost host;
  frmInputFitParameter form{program, host};
};

TEST_F(frmInputFitParameterTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Input Fit Parameter");
  EXPECT_EQ(form.cmdOK.Caption(), "Add to List");
  EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
}

TEST_F(frmInputFitParameterTest, OpensWithTheCursorsChannelAndItsCount) {
  Work([this] {
    EXPECT_EQ(form.txtCenterCh.Text(), "150");
    EXPECT_EQ(form.txtMaxCount.Text(), "60");
    EXPECT_EQ(form.txtWidth.Text(), "");
  });
}

TEST_F(frmInputFitParameterTest, CursorOutsideOfTheSpectrumProposesNothing) {
  Work([this] { Type("1", "2", "3"); });
  view.CursorCh = 1000;
  Work([this] {
    EXPECT_EQ(form.txtCenterCh.Text(), "");
    EXPECT_EQ(form.txtMaxCount.Text(), "");
  });
}

TEST_F(frmInputFitParameterTest, EveryBoxKeepsTheFocusForATextThatIsNoNumberOrAbove8192) {
  for (TextBox* box : {&form.txtCenterCh, &form.txtMaxCount, &form.txtWidth}) {
    for (const char* refused : {"", "x", "-1", "8193", "8192.5"}) {
      box->SetText(refused);
      EXPECT_FALSE(box->Leave()) << box->Name() << ": " << refused;
    }
    for (const char* accepted : {"0", "12.5", "8192"}) {
      box->SetText(accepted);
      EXPECT_TRUE(box->Leave()) << box->Name() << ": " << accepted;
    }
  }
}

TEST_F(frmInputFitParameterTest, TypedPeakIsEnteredAsItStands) {
  workspace.FitParam.FuncType = kLorentz;
  Add("150.25", "60", "3.5");
  ASSERT_EQ(Table().Count, 1);
  const PeakRec& peak = Table().Peaks[0];
  EXPECT_EQ(peak.FitDone, kTrue);
  EXPECT_EQ(peak.FuncType, kLorentz);
  EXPECT_EQ(peak.Height, 60);
  EXPECT_EQ(peak.GaussRatio, 1);
  EXPECT_EQ(peak.HalfWidth, 3.5);
  EXPECT_EQ(peak.Center, 150.25);
  EXPECT_EQ(peak.BackConst, 0);
  EXPECT_EQ(peak.BackSlope, 0);
  EXPECT_EQ(peak.FitEngine, kEngineExpress);
}

TEST_F(frmInputFitParameterTest, HeightFromTheCursorAbove8192IsEnteredWhereItsBoxIsNotLeft) {
  workspace.Channels[data_no].Counts[150] = 50000;
  Work([this] {
    form.txtWidth.SetText("4");
    form.cmdOK.Press();
  });
  ASSERT_EQ(Table().Count, 1);
  EXPECT_EQ(Table().Peaks[0].Height, 50000);
}

// The area of a Gaussian: height * half width * sqrt(pi / ln 2).
TEST_F(frmInputFitParameterTest, AreasOfTheWholeTableAreCalculated) {
  Enter(data_no, {10, 700, 5}, 680, 720).GaussRatio = 1;
  Add("300", "100", "10");
  EXPECT_NEAR(Table().Peaks[0].Amplitude, 100 * 10 * 2.1289340, 0.01);
  EXPECT_NEAR(Table().Peaks[1].Amplitude, 10 * 5 * 2.1289340, 0.01);
}

// The counts are 1 but for channel 150, so the lowest channel between 300 and 320 is any of them.
TEST_F(frmInputFitParameterTest, BordersOfTheWholeTableAreSettledAndItsPeaksStayMarked) {
  Enter(data_no, {10, 300, 5}, 280, 330);
  Enter(data_no, {10, 320, 5}, 290, 340);
  listener.notices.clear();
  Add("150", "60", "5");
  EXPECT_EQ(Table().Peaks[1].RegionEnd + 1, Table().Peaks[2].RegionStart);
  const auto& notices = listener.notices;
  const auto last_off = std::find(notices.rbegin(), notices.rend(), "no peak 0 0");
  EXPECT_EQ(std::count(notices.rbegin(), last_off, "peak 0 0"), 3);
}

TEST_F(frmInputFitParameterTest, TheGraphFitIsMadeOfTheTable) {
  workspace.FitParam.FuncType = kGauss;
  Add("150", "60", "5");
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
  EXPECT_EQ(FlagsOf(0) & FlagFit, FlagFit);
  EXPECT_EQ(CountsOf(Row(0).DataNo)[150], 60);
  EXPECT_EQ(CountsOf(Row(0).DataNo)[155], 30);  // one half width away
  EXPECT_EQ(workspace.Peaks[Row(0).DataNo], Table());
  EXPECT_EQ(view.DataNo, data_no);
}

TEST_F(frmInputFitParameterTest, SeveralPeaksAreTypedOneAfterTheOther) {
  Work([this] {
    Type("150", "60", "5");
    form.cmdOK.Press();
    EXPECT_TRUE(form.Visible());
    Type("400", "20", "5");
    form.cmdOK.Press();
  });
  EXPECT_EQ(Table().Count, 2);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
}

TEST_F(frmInputFitParameterTest, ATextThatIsNoNumberIsIgnoredWithoutAWord) {
  Add("150", "60", "");
  Add("x", "60", "5");
  EXPECT_EQ(Table().Count, 0);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(frmInputFitParameterTest, APeakThatTheTableRefusesMakesNoGraph) {
  Add("0", "60", "5");
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(frmInputFitParameterTest, WithoutRoomForTheGraphThePeakStays) {
  while (workspace.GrpCount < kRows) Show({1, 2, 3}, "b.npd");
  Change_cboGrphSel(list, 0, 0);
  dialogs.ExpectMessage("ShiftGraph: List Over!");
  Add("150", "60", "5");
  EXPECT_EQ(Table().Count, 1);
}

TEST_F(frmInputFitParameterTest, CancelEntersNothing) {
  Work([this] { Type("150", "60", "5"); });
  EXPECT_EQ(Table().Count, 0);
  EXPECT_FALSE(form.Visible());
}

TEST_F(frmInputFitParameterTest, WithoutAGraphItDoesNotOpen) {
  DeleteGraph(list, 0);
  form.Open();
  EXPECT_TRUE(host.Shown().empty());
}

}  // namespace
}  // namespace dorvane
