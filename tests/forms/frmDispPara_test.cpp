#include "forms/frmDispPara.h"

#include <gmock/gmock.h>

#include "forms/FormFixture.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class frmDispParaTest : public ProgramTest {
 protected:
  frmDispParaTest() {
    MeasProp& prop = Default();
    prop.EGC[0] = 0.25;
    prop.EGC[1] = 0.0321;
    prop.EGC[2] = 1.5e-8;
    prop.PropHead = 1;
    prop.RealTime = 600;
    prop.LiveTime = 580.25;
    prop.TwoTheta = 5.98632;
    prop.Press = 12.5;
    prop.Temp = 27;
    workspace.PresetCount = 100000;
  }

  // Opens the form, works it and leaves it.
  void Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) {
      work();
      if (form.Visible()) form.cmdCansel.Press();
    });
    form.Open();
  }
  MeasProp& Default() { return workspace.DefaultProp; }

  ScriptedFormHost host;
  frmDispPara form{program, host};
};

TEST_F(frmDispParaTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Parameter Value");
  EXPECT_EQ(form.chkCnst[0].Caption(), "E=A+Bx");
  EXPECT_EQ(form.chkCnst[1].Caption(), "E=A+Bx+Cx2");
  EXPECT_EQ(form.imnRealTime.Caption(), "Real Time(sec): ");
  EXPECT_EQ(form.imnLiveTime.Caption(), "Live Time(sec):");
  EXPECT_EQ(form.imnRoiCnt.Caption(), "Intensity(count):");
  EXPECT_EQ(form.imnAngle.Caption(), "2θ Angle (°)");
  EXPECT_EQ(form.ImnPress.Caption(), "Pressure(Kg/cm2)");
  EXPECT_EQ(form.ImnTemp.Caption(), "Temperature(");
  EXPECT_EQ(form.cmdOk.Caption(), "OK");
  EXPECT_EQ(form.cmdCansel.Caption(), "Cancel");
}

// The words that a report has for the numbers 0 to 4.
TEST_F(frmDispParaTest, ModesAreThoseOfAReportByTheirNumbers) {
  EXPECT_THAT(form.optMode.Captions(),
              ElementsAre("Real", "Live", "Real (2)", "Live (3)", "Separate"));
}

// Opening.

TEST_F(frmDispParaTest, OpeningShowsWhatIsStored) {
  Work([this] {
    EXPECT_TRUE(form.chkCnst[1].Checked());
    EXPECT_EQ(form.ImConst[0].Text(), "0.250000");
    EXPECT_EQ(form.ImConst[1].Text(), "0.032100");
    EXPECT_EQ(form.ImConst[2].Text(), "1.50000E-008");
    EXPECT_EQ(form.optMode.Index(), 1);
    EXPECT_EQ(form.imnRealTime.Text(), "600.00");
    EXPECT_EQ(form.imnLiveTime.Text(), "580.25");
    EXPECT_EQ(form.imnRoiCnt.Text(), "100000");
    EXPECT_EQ(form.imnAngle.Text(), "5.98632");
    EXPECT_EQ(form.ImnPress.Text(), "12.500");
    EXPECT_EQ(form.ImnTemp.Text(), "27.00");
  });
}

TEST_F(frmDispParaTest, ACalibrationWithoutAThirdCoefficientIsAStraightLine) {
  Default().EGC[2] = 0;
  Work([this] {
    EXPECT_TRUE(form.chkCnst[0].Checked());
    EXPECT_FALSE(form.chkCnst[1].Checked());
    EXPECT_FALSE(form.ImConst[2].Enabled());
  });
}

TEST_F(frmDispParaTest, TheKindFollowsTheCalibrationAtEachOpening) {
  Work([] {});
  Default().EGC[2] = 0;
  Work([this] { EXPECT_TRUE(form.chkCnst[0].Checked()); });
  Default().EGC[2] = -1e-9;
  Work([this] {
    EXPECT_TRUE(form.chkCnst[1].Checked());
    EXPECT_FALSE(form.chkCnst[0].Checked());
    EXPECT_TRUE(form.ImConst[2].Enabled());
    EXPECT_EQ(form.ImConst[2].Value(), -1e-9);
  });
}

TEST_F(frmDispParaTest, AModeWithoutAnOptionStaysAsItIs) {
  Work([] {});
  for (const std::int16_t mode : {-1, 5, 300}) {
    Default().PropHead = mode;
    Work([this] {
      EXPECT_EQ(form.optMode.Index(), -1);
      form.cmdOk.Press();
    });
    EXPECT_EQ(Default().PropHead, mode);
  }
}

// The pair.

TEST_F(frmDispParaTest, AClickOnOneKindClearsTheOther) {
  Work([this] {
    form.chkCnst[0].SetChecked(true);
    EXPECT_TRUE(form.chkCnst[0].Checked());
    EXPECT_FALSE(form.chkCnst[1].Checked());
    form.chkCnst[1].SetChecked(true);
    EXPECT_FALSE(form.chkCnst[0].Checked());
    EXPECT_TRUE(form.chkCnst[1].Checked());
  });
}

TEST_F(frmDispParaTest, AClickOnTheKindThatIsOnChoosesTheOther) {
  Work([this] {
    form.chkCnst[1].SetChecked(false);
    EXPECT_TRUE(form.chkCnst[0].Checked());
    form.chkCnst[0].SetChecked(false);
    EXPECT_TRUE(form.chkCnst[1].Checked());
  });
}

TEST_F(frmDispParaTest, AStraightLineHasItsThirdCoefficientOffAndZero) {
  Work([this] {
    form.chkCnst[0].SetChecked(true);
    EXPECT_FALSE(form.ImConst[2].Enabled());
    EXPECT_EQ(form.ImConst[2].Value(), 0);
    form.chkCnst[1].SetChecked(true);
    EXPECT_TRUE(form.ImConst[2].Enabled());
    EXPECT_EQ(form.ImConst[2].Value(), 0);
    EXPECT_TRUE(form.ImConst[0].Enabled());
    EXPECT_TRUE(form.ImConst[1].Enabled());
  });
}

// "OK" and "Cancel".

TEST_F(frmDispParaTest, OkWritesAllBack) {
  Work([this] {
    form.ImConst[0].Type("-0.5");
    form.ImConst[1].Type("0.04");
    form.ImConst[2].Type("2e-9");
    form.optMode.SetIndex(4);
    form.imnRealTime.Type("300");
    form.imnLiveTime.Type("290.5");
    form.imnRoiCnt.Type("5000");
    form.imnAngle.Type("6.5");
    form.ImnPress.Type("3");
    form.ImnTemp.Type("-20");
    form.cmdOk.Press();
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(Default().EGC[0], -0.5);
  EXPECT_EQ(Default().EGC[1], 0.04);
  EXPECT_EQ(Default().EGC[2], 2e-9);
  EXPECT_EQ(Default().PropHead, 4);
  EXPECT_EQ(Default().RealTime, 300);
  EXPECT_EQ(Default().LiveTime, 290.5);
  EXPECT_EQ(workspace.PresetCount, 5000);
  EXPECT_EQ(Default().TwoTheta, 6.5);
  EXPECT_EQ(Default().Press, 3);
  EXPECT_EQ(Default().Temp, -20);
}

TEST_F(frmDispParaTest, EveryModeIsStoredByItsIndex) {
  for (std::int16_t mode = 0; mode < 5; ++mode) {
    Work([this, mode] {
      form.optMode.SetIndex(mode);
      form.cmdOk.Press();
    });
    EXPECT_EQ(Default().PropHead, mode);
  }
}

TEST_F(frmDispParaTest, OkAsItIsKeepsEveryBit) {
  Default().EGC[0] = 1.0 / 3;
  Default().EGC[2] = 1.23456789e-8;
  Default().LiveTime = 0.001;
  Default().Press = 2.0 / 3;
  const MeasProp before = Default();
  Work([this] { form.cmdOk.Press(); });
  EXPECT_EQ(Default(), before);
  EXPECT_EQ(workspace.PresetCount, 100000);
}

TEST_F(frmDispParaTest, OkWithAStraightLineStoresAZero) {
  Work([this] {
    form.chkCnst[0].SetChecked(true);
    form.cmdOk.Press();
  });
  EXPECT_EQ(Default().EGC[0], 0.25);
  EXPECT_EQ(Default().EGC[2], 0);
}

TEST_F(frmDispParaTest, OkShowsTheNewCalibration) {
  listener.notices.clear();
  Work([this] { form.cmdOk.Press(); });
  EXPECT_THAT(listener.notices, ElementsAre("calibration", "axis", "cursor"));
}

TEST_F(frmDispParaTest, ATextThatIsNoNumberLeavesItsValueWithoutAMessage) {
  const MeasProp before = Default();
  Work([this] {
    form.ImConst[1].Type("abc");
    form.imnAngle.Type("");
    form.ImnTemp.Type("20 C");
    form.cmdOk.Press();
  });
  EXPECT_EQ(Default(), before);
}

TEST_F(frmDispParaTest, NumbersOutOfTheirRangeAreTakenAsMeant) {
  Work([this] {
    form.ImConst[1].Type("-1");
    form.imnLiveTime.Type("-2");
    form.imnRoiCnt.Type("-3");
    form.imnAngle.Type("200");
    form.cmdOk.Press();
  });
  EXPECT_EQ(Default().EGC[1], -1);
  EXPECT_EQ(Default().LiveTime, -2);
  EXPECT_EQ(workspace.PresetCount, -3);
  EXPECT_EQ(Default().TwoTheta, 200);
}

TEST_F(frmDispParaTest, ACountWithoutAPlaceIsAnOverflowAndNothingIsTaken) {
  const MeasProp before = Default();
  listener.notices.clear();
  Work([this] {
    form.imnRealTime.Type("1");
    form.imnRoiCnt.Type("2147483648");
    dialogs.ExpectMessage("Overflow");
    form.cmdOk.Press();
    EXPECT_TRUE(form.Visible());
  });
  EXPECT_EQ(Default(), before);
  EXPECT_EQ(workspace.PresetCount, 100000);
  EXPECT_TRUE(listener.notices.empty());
}

TEST_F(frmDispParaTest, ACountIsRoundedHalvesToEven) {
  Work([this] {
    form.imnRoiCnt.Type("2.5");
    form.cmdOk.Press();
  });
  EXPECT_EQ(workspace.PresetCount, 2);
}

TEST_F(frmDispParaTest, CancelAndTheFrameTakeNothing) {
  const MeasProp before = Default();
  for (const bool by_frame : {false, true}) {
    Work([this, by_frame] {
      form.chkCnst[0].SetChecked(true);
      form.ImConst[0].Type("7");
      form.optMode.SetIndex(3);
      form.imnRoiCnt.Type("7");
      by_frame ? form.QueryClose() : form.cmdCansel.Press();
    });
    EXPECT_EQ(Default(), before);
    EXPECT_EQ(workspace.PresetCount, 100000);
  }
}

// What is meant.

TEST_F(frmDispParaTest, ALineUnderEachBoxSaysWhatIsMeant) {
  Work([this] {
    EXPECT_EQ(form.lblConst[0].Caption(), "any number");
    EXPECT_EQ(form.lblConst[1].Caption(), "above 0");
    EXPECT_EQ(form.lblConst[2].Caption(), "any number; 0 for a straight line");
    EXPECT_EQ(form.lblRange[0].Caption(), "0 or more");
    EXPECT_EQ(form.lblRange[1].Caption(), "0 or more");
    EXPECT_EQ(form.lblRange[2].Caption(), "0 to 2147483647");
    EXPECT_EQ(form.lblRange[3].Caption(), "above 0, up to 180");
    EXPECT_EQ(form.lblRange[4].Caption(), "0 or more; GPa in the other windows");
    EXPECT_EQ(form.lblRange[5].Caption(), "-273.15 or more, in °C");
    for (int i = 0; i < frmDispPara::kCoefficients; ++i) EXPECT_FALSE(form.lblConst[i].Warning());
    for (int i = 0; i < frmDispPara::kFields; ++i) EXPECT_FALSE(form.lblRange[i].Warning());
  });
}

TEST_F(frmDispParaTest, TheLineWarnsWhileTheNumberIsNotMeant) {
  struct Row {
    NumberBox& box;
    Label& line;
    const char* meant;
    const char* not_meant;
  };
  const Row rows[] = {
      {form.ImConst[1], form.lblConst[1], "0.03", "0"},
      {form.imnRealTime, form.lblRange[0], "0", "-1"},
      {form.imnLiveTime, form.lblRange[1], "0", "-0.1"},
      {form.imnRoiCnt, form.lblRange[2], "2147483647", "2147483648"},
      {form.imnAngle, form.lblRange[3], "180", "180.1"},
      {form.ImnPress, form.lblRange[4], "0", "-1"},
      {form.ImnTemp, form.lblRange[5], "-273.15", "-273.2"},
  };
  Work([&rows] {
    for (const Row& row : rows) {
      row.box.Type(row.not_meant);
      EXPECT_TRUE(row.line.Warning()) << row.box.Name();
      row.box.Type(row.meant);
      EXPECT_FALSE(row.line.Warning()) << row.box.Name();
    }
  });
}

}  // namespace
}  // namespace dorvane
