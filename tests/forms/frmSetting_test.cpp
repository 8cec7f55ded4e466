#include "forms/frmSetting.h"

#include <gmock/gmock.h>

#include "forms/FormFixture.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class frmSettingTest : public ProgramTest {
 protected:
  // Opens the form, works it and leaves it.
  void Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) {
      work();
      if (form.Visible()) form.cmdCansel.Press();
    });
    form.Open();
  }
  // Types a text and leaves by OK.
  void SetTo(TextBox& box, const std::string& text) {
    Work([&] {
      box.SetText(text);
      form.cmdOk.Press();
      EXPECT_FALSE(form.Visible());
    });
  }
  // Types a threshold, and Enter.
  void EnterThreshold(const std::string& text) {
    form.txtThres.SetText(text);
    form.txtThres.Enter();
  }
  FitParamSet& Fit() { return workspace.FitParam; }
  AnalysisSettings& Settings() { return workspace.Settings; }

  ScriptedFormHost host;
  frmSetting form{program, host};
};

TEST_F(frmSettingTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Settings");
  EXPECT_EQ(form.txtThres.Caption(), "Peak threshold");
  EXPECT_EQ(form.txtBackInterval.Caption(), "BackInterval");
  EXPECT_EQ(form.txtBackTimes.Caption(), "BackTimes");
  EXPECT_EQ(form.txtEACPS.Caption(), "BG Coefficient ");
  EXPECT_EQ(form.txtISPPK.Caption(), "Peak Width(Ch)");
  EXPECT_EQ(form.txtLambda.Caption(), "Lambda(for DAC");
  EXPECT_EQ(form.txtJudgeRange.Caption(), "Judgment range");
  EXPECT_EQ(form.lblJudgeUnit.Caption(), "(dA)");
  EXPECT_EQ(form.chkFitFunc.Caption(), "Tilt");
  EXPECT_EQ(form.cmdDefault.Caption(), "Set Default");
  EXPECT_EQ(form.cmdOk.Caption(), "OK");
  EXPECT_EQ(form.cmdCansel.Caption(), "Cancel");
}

TEST_F(frmSettingTest, ListsInTheirOrder) {
  EXPECT_THAT(form.cboSmooth.Items(), ElementsAre("5 Point", "7 Point", "9 Point", "11 Point"));
  EXPECT_THAT(form.cboFuncType.Items(), ElementsAre("Gauss", "Lorentz", "Mix"));
}

// Opening.

TEST_F(frmSettingTest, TheExpressFamilyShowsThresholdAndFunction) {
  workspace.ExpressFit = 1;
  Work([this] {
    for (const Control* control :
         {static_cast<Control*>(&form.txtThres), static_cast<Control*>(&form.sldrThres),
          static_cast<Control*>(&form.lblThres), static_cast<Control*>(&form.cboFuncType),
          static_cast<Control*>(&form.chkFitFunc)}) {
      EXPECT_TRUE(control->Visible()) << control->Name();
    }
    for (const Control* control :
         {static_cast<Control*>(&form.txtEACPS), static_cast<Control*>(&form.lblEACPS),
          static_cast<Control*>(&form.txtISPPK), static_cast<Control*>(&form.lblISPPK)}) {
      EXPECT_FALSE(control->Visible()) << control->Name();
    }
  });
}

TEST_F(frmSettingTest, TheNaxFamilyShowsCoefficientAndWidth) {
  workspace.ExpressFit = 1;
  Work([] {});
  workspace.ExpressFit = 0;
  Work([this] {
    for (const TextBox* box : {&form.txtEACPS, &form.txtISPPK}) EXPECT_TRUE(box->Visible());
    for (const Label* hint : {&form.lblEACPS, &form.lblISPPK}) EXPECT_TRUE(hint->Visible());
    EXPECT_FALSE(form.txtThres.Visible());
    EXPECT_FALSE(form.sldrThres.Visible());
    EXPECT_FALSE(form.lblThres.Visible());
    EXPECT_FALSE(form.cboFuncType.Visible());
    EXPECT_FALSE(form.chkFitFunc.Visible());
  });
}

TEST_F(frmSettingTest, WhatBothFamiliesUseIsShownForBoth) {
  for (const std::int16_t express : {0, 1}) {
    workspace.ExpressFit = express;
    Work([this] {
      for (const TextBox* box :
           {&form.txtBackInterval, &form.txtBackTimes, &form.txtLambda, &form.txtJudgeRange}) {
        EXPECT_TRUE(box->Visible()) << box->Name();
      }
      EXPECT_TRUE(form.cboSmooth.Visible());
    });
  }
}

TEST_F(frmSettingTest, OpeningShowsTheDefaultsInTheirPictures) {
  Work([this] {
    EXPECT_EQ(form.cboFuncType.Text(), "Gauss");
    EXPECT_EQ(form.txtThres.Text(), "10");
    EXPECT_EQ(form.sldrThres.Value(), 10);
    EXPECT_EQ(form.txtBackInterval.Text(), "20");
    EXPECT_EQ(form.txtEACPS.Text(), "0.20");
    EXPECT_EQ(form.txtISPPK.Text(), "20.00");
    EXPECT_EQ(form.txtLambda.Text(), "0.495760");
    EXPECT_EQ(form.txtJudgeRange.Text(), "0.0300");
  });
}

TEST_F(frmSettingTest, OpeningShowsWhatIsStored) {
  Fit().FuncType = kMix;
  Fit().SmoothKind = 3;
  Fit().PeakThres = 7;
  Fit().BackInterval = 35;
  Fit().BackTimes = 12;
  Settings() = {5, 12.5, 0.3, 0.0125};
  Work([this] {
    EXPECT_EQ(form.cboFuncType.Text(), "Mix");
    EXPECT_EQ(form.cboSmooth.Text(), "11 Point");
    EXPECT_EQ(form.txtThres.Text(), "7");
    EXPECT_EQ(form.sldrThres.Value(), 7);
    EXPECT_EQ(form.txtBackInterval.Text(), "35");
    EXPECT_EQ(form.txtBackTimes.Text(), "12");
    EXPECT_EQ(form.txtEACPS.Text(), "5.00");
    EXPECT_EQ(form.txtISPPK.Text(), "12.50");
    EXPECT_EQ(form.txtLambda.Text(), "0.300000");
    EXPECT_EQ(form.txtJudgeRange.Text(), "0.0125");
  });
}

TEST_F(frmSettingTest, AStoredThresholdIsShownWithinItsLimits) {
  Fit().PeakThres = 500;
  Work([this] {
    EXPECT_EQ(form.txtThres.Text(), "20");
    EXPECT_EQ(form.sldrThres.Value(), 20);
  });
}

TEST_F(frmSettingTest, ANumberWithoutAnEntryInItsListStaysAsItIs) {
  Work([] {});
  Fit().FuncType = 9;
  Fit().SmoothKind = -2;
  Work([this] {
    EXPECT_EQ(form.cboFuncType.Index(), -1);
    EXPECT_EQ(form.cboSmooth.Index(), -1);
    form.cmdOk.Press();
  });
  EXPECT_EQ(Fit().FuncType, 9);
  EXPECT_EQ(Fit().SmoothKind, -2);
}

// The threshold.

TEST_F(frmSettingTest, TheSliderWritesItsValueIntoTheBox) {
  Work([this] {
    form.sldrThres.SetValue(17);
    EXPECT_EQ(form.txtThres.Text(), "17");
  });
}

TEST_F(frmSettingTest, EnterInTheBoxMovesTheSlider) {
  Work([this] {
    EnterThreshold("15");
    EXPECT_EQ(form.sldrThres.Value(), 15);
    EXPECT_EQ(form.txtThres.Text(), "15");
    EXPECT_TRUE(form.Visible());
  });
}

TEST_F(frmSettingTest, ATextThatIsNoNumberGivesAThresholdOfTen) {
  Fit().PeakThres = 3;
  Work([this] {
    for (const char* text : {"abc", "", "1 2"}) {
      EnterThreshold(text);
      EXPECT_EQ(form.txtThres.Text(), "10") << text;
      EXPECT_EQ(form.sldrThres.Value(), 10) << text;
    }
  });
}

TEST_F(frmSettingTest, AThresholdBelowOneBecomesOne) {
  Work([this] {
    for (const char* text : {"0", "-5", "-1e300"}) {
      EnterThreshold(text);
      EXPECT_EQ(form.txtThres.Text(), "1") << text;
      EXPECT_EQ(form.sldrThres.Value(), 1) << text;
    }
  });
}

TEST_F(frmSettingTest, AThresholdAboveTwentyBecomesTwenty) {
  Work([this] {
    for (const char* text : {"21", "32768", "1e300"}) {
      EnterThreshold(text);
      EXPECT_EQ(form.txtThres.Text(), "20") << text;
      EXPECT_EQ(form.sldrThres.Value(), 20) << text;
    }
  });
}

TEST_F(frmSettingTest, AThresholdIsRoundedHalvesToEven) {
  Work([this] {
    EnterThreshold("12.5");
    EXPECT_EQ(form.txtThres.Text(), "12");
    EnterThreshold("13.5");
    EXPECT_EQ(form.txtThres.Text(), "14");
  });
}

TEST_F(frmSettingTest, AThresholdTypedWithoutEnterIsLostAsMeant) {
  workspace.ExpressFit = 1;
  Work([this] {
    form.txtThres.SetText("15");
    EXPECT_TRUE(form.lblThres.Warning());
    form.cmdOk.Press();
  });
  EXPECT_EQ(Fit().PeakThres, 10);
}

// "Set Default".

TEST_F(frmSettingTest, SetDefaultShowsTheFourDefaultsAndStaysOpen) {
  Settings() = {5, 12.5, 0.3, 0.0125};
  Work([this] {
    form.cmdDefault.Press();
    EXPECT_EQ(form.txtEACPS.Text(), "0.20");
    EXPECT_EQ(form.txtISPPK.Text(), "20.00");
    EXPECT_EQ(form.txtLambda.Text(), "0.495760");
    EXPECT_EQ(form.txtJudgeRange.Text(), "0.0300");
    EXPECT_TRUE(form.Visible());
  });
}

TEST_F(frmSettingTest, SetDefaultCountsWithoutOkAsMeant) {
  Settings() = {5, 12.5, 0.3, 0.0125};
  Work([this] {
    form.cmdDefault.Press();
    form.cmdCansel.Press();
  });
  EXPECT_EQ(Settings(), AnalysisSettings{});
}

TEST_F(frmSettingTest, SetDefaultOfTheExpressFamilyCountsForTheHiddenBoxesToo) {
  workspace.ExpressFit = 1;
  Settings() = {5, 12.5, 0.3, 0.0125};
  Work([this] {
    form.cmdDefault.Press();
    form.cmdOk.Press();
  });
  EXPECT_EQ(Settings(), AnalysisSettings{});
}

TEST_F(frmSettingTest, SetDefaultDoesNotTouchThresholdSmoothingAndBackground) {
  Fit().SmoothKind = 2;
  Fit().PeakThres = 7;
  Fit().BackInterval = 35;
  Fit().BackTimes = 12;
  const FitParamSet before = Fit();
  Work([this] {
    form.txtBackInterval.SetText("36");
    form.sldrThres.SetValue(8);
    form.cmdDefault.Press();
    EXPECT_EQ(form.txtThres.Text(), "8");
    EXPECT_EQ(form.cboSmooth.Text(), "9 Point");
    EXPECT_EQ(form.txtBackInterval.Text(), "36");
    EXPECT_EQ(form.txtBackTimes.Text(), "12");
  });
  EXPECT_EQ(Fit(), before);
}

// "OK" and "Cancel".

TEST_F(frmSettingTest, TheThirdFunctionIsMix) {
  workspace.ExpressFit = 1;
  Work([this] {
    form.cboFuncType.SetIndex(2);
    form.cmdOk.Press();
  });
  EXPECT_EQ(Fit().FuncType, 3);
  EXPECT_EQ(Fit().FuncType, kMix);
}

TEST_F(frmSettingTest, OkTakesWhatIsSetInBothFamilies) {
  Work([this] {
    form.cboSmooth.SetIndex(1);
    form.sldrThres.SetValue(4);
    form.cboFuncType.SetIndex(1);
    form.txtBackInterval.SetText("30");
    form.txtBackTimes.SetText("15");
    form.txtLambda.SetText("0.4");
    form.txtJudgeRange.SetText("0.05");
    form.cmdOk.Press();
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(Fit().SmoothKind, 1);
  EXPECT_EQ(Fit().PeakThres, 4);
  EXPECT_EQ(Fit().FuncType, kLorentz);
  EXPECT_EQ(Fit().BackInterval, 30);
  EXPECT_EQ(Fit().BackTimes, 15);
  EXPECT_EQ(Settings().DacWavelength, 0.4);
  EXPECT_EQ(Settings().JudgeRange, 0.05);
}

TEST_F(frmSettingTest, TheNaxFamilyTakesCoefficientAndWidth) {
  Work([this] {
    form.txtEACPS.SetText("3.5");
    form.txtISPPK.SetText("12");
    form.cmdOk.Press();
  });
  EXPECT_EQ(Settings().BgCoef, 3.5);
  EXPECT_EQ(Settings().PeakWidthCh, 12);
}

TEST_F(frmSettingTest, CoefficientAndWidthAreTakenBothOrNeither) {
  for (TextBox* broken : {&form.txtEACPS, &form.txtISPPK}) {
    Work([this, broken] {
      form.txtEACPS.SetText("3.5");
      form.txtISPPK.SetText("12");
      broken->SetText("abc");
      form.cmdOk.Press();
    });
    EXPECT_EQ(Settings(), AnalysisSettings{}) << broken->Name();
  }
}

TEST_F(frmSettingTest, TheExpressFamilyLeavesCoefficientAndWidth) {
  workspace.ExpressFit = 1;
  Work([this] {
    form.txtEACPS.SetText("3.5");
    form.txtISPPK.SetText("12");
    form.cmdOk.Press();
  });
  EXPECT_EQ(Settings(), AnalysisSettings{});
}

TEST_F(frmSettingTest, AWavelengthThatIsNoNumberKeepsTheOldOneWithoutAMessage) {
  Settings().DacWavelength = 0.3;
  SetTo(form.txtLambda, "0,4");
  EXPECT_EQ(Settings().DacWavelength, 0.3);
}

TEST_F(frmSettingTest, EachTextThatIsNoNumberLeavesItsValueAndTheOthersAreTaken) {
  Work([this] {
    form.txtBackInterval.SetText("abc");
    form.txtBackTimes.SetText("");
    form.txtJudgeRange.SetText("0.03A");
    form.txtLambda.SetText("0.4");
    form.cmdOk.Press();
  });
  EXPECT_EQ(Fit().BackInterval, 20);
  EXPECT_EQ(Fit().BackTimes, FitParamSet{}.BackTimes);
  EXPECT_EQ(Settings().JudgeRange, 0.03);
  EXPECT_EQ(Settings().DacWavelength, 0.4);
}

TEST_F(frmSettingTest, NumbersOutOfTheirRangeAreTakenAsMeant) {
  Work([this] {
    form.txtBackInterval.SetText("0");
    form.txtBackTimes.SetText("-1");
    form.txtEACPS.SetText("-2");
    form.txtLambda.SetText("0");
    form.cmdOk.Press();
  });
  EXPECT_EQ(Fit().BackInterval, 0);
  EXPECT_EQ(Fit().BackTimes, -1);
  EXPECT_EQ(Settings().BgCoef, -2);
  EXPECT_EQ(Settings().DacWavelength, 0);
}

TEST_F(frmSettingTest, WholeNumbersAreRoundedHalvesToEven) {
  SetTo(form.txtBackInterval, "20.5");
  EXPECT_EQ(Fit().BackInterval, 20);
  SetTo(form.txtBackInterval, "21.5");
  EXPECT_EQ(Fit().BackInterval, 22);
}

TEST_F(frmSettingTest, ANumberWithoutAPlaceIsAnOverflowAndNothingIsTaken) {
  const FitParamSet before = Fit();
  for (TextBox* box : {&form.txtBackInterval, &form.txtBackTimes}) {
    Work([this, box] {
      form.txtLambda.SetText("0.4");
      form.sldrThres.SetValue(4);
      box->SetText("32768");
      dialogs.ExpectMessage("Overflow");
      form.cmdOk.Press();
      EXPECT_TRUE(form.Visible());
    });
    EXPECT_EQ(Fit(), before) << box->Name();
    EXPECT_EQ(Settings(), AnalysisSettings{}) << box->Name();
  }
}

TEST_F(frmSettingTest, ATextThatIsLeftAsItIsKeepsTheDigitsBehindIt) {
  Settings() = {0.123456, 20.0001, 0.49576123, 0.03004};
  const AnalysisSettings before = Settings();
  Work([this] { form.cmdOk.Press(); });
  EXPECT_EQ(Settings(), before);
}

TEST_F(frmSettingTest, CancelAndTheFrameTakeNothing) {
  const FitParamSet before = Fit();
  for (const bool by_frame : {false, true}) {
    Work([this, by_frame] {
      form.cboSmooth.SetIndex(1);
      form.sldrThres.SetValue(4);
      form.cboFuncType.SetIndex(1);
      form.txtBackInterval.SetText("30");
      form.txtEACPS.SetText("3.5");
      form.txtLambda.SetText("0.4");
      by_frame ? form.QueryClose() : form.cmdCansel.Press();
      EXPECT_FALSE(form.Visible());
    });
    EXPECT_EQ(Fit(), before);
    EXPECT_EQ(Settings(), AnalysisSettings{});
  }
}

TEST_F(frmSettingTest, TheNextOpeningShowsTheStoredValuesAgain) {
  Work([this] { form.txtLambda.SetText("abc"); });
  Work([this] { EXPECT_EQ(form.txtLambda.Text(), "0.495760"); });
}

TEST_F(frmSettingTest, TiltHasNoEffectAsMeant) {
  workspace.ExpressFit = 1;
  const FitParamSet before = Fit();
  Work([this] {
    form.chkFitFunc.SetChecked(true);
    form.cmdOk.Press();
  });
  EXPECT_EQ(Fit(), before);
}

// What is meant.

TEST_F(frmSettingTest, ALineUnderEachBoxSaysWhatIsMeant) {
  Work([this] {
    EXPECT_EQ(form.lblThres.Caption(), "1 to 20; Enter takes what is typed");
    EXPECT_EQ(form.lblBackInterval.Caption(), "1 to 4096 channels");
    EXPECT_EQ(form.lblBackTimes.Caption(), "1 to 32767 passes");
    EXPECT_EQ(form.lblEACPS.Caption(), "0 or more, in counts");
    EXPECT_EQ(form.lblISPPK.Caption(), "1 to 500 channels");
    EXPECT_EQ(form.lblLambda.Caption(), "above 0, in Å");
    EXPECT_EQ(form.lblJudgeRange.Caption(), "0 or more, in Å of d");
    for (const Label* line :
         {&form.lblThres, &form.lblBackInterval, &form.lblBackTimes, &form.lblEACPS, &form.lblISPPK,
          &form.lblLambda, &form.lblJudgeRange}) {
      EXPECT_FALSE(line->Warning()) << line->Name();
    }
  });
}

TEST_F(frmSettingTest, TheLineWarnsWhileTheTextIsNotMeant) {
  struct Row {
    TextBox& box;
    Label& line;
    std::vector<const char*> meant;
    std::vector<const char*> not_meant;
  };
  const Row rows[] = {
      {form.txtBackInterval, form.lblBackInterval, {"1", "4096"}, {"0", "4097", "2.5", "abc", ""}},
      {form.txtBackTimes, form.lblBackTimes, {"1", "32767"}, {"0", "32768", "1.5", "-"}},
      {form.txtEACPS, form.lblEACPS, {"0", "5"}, {"-0.01", "x"}},
      {form.txtISPPK, form.lblISPPK, {"1", "500"}, {"0.9", "501", ""}},
      {form.txtLambda, form.lblLambda, {"0.000001", "2"}, {"0", "-1", "0,4"}},
      {form.txtJudgeRange, form.lblJudgeRange, {"0", "0.1"}, {"-0.1", "1A"}},
  };
  Work([&rows] {
    for (const Row& row : rows) {
      for (const char* text : row.not_meant) {
        row.box.SetText(text);
        EXPECT_TRUE(row.line.Warning()) << row.box.Name() << " " << text;
      }
      for (const char* text : row.meant) {
        row.box.SetText(text);
        EXPECT_FALSE(row.line.Warning()) << row.box.Name() << " " << text;
      }
    }
  });
}

TEST_F(frmSettingTest, TheThresholdWarnsUntilEnterHasTakenIt) {
  Work([this] {
    form.txtThres.SetText("15");
    EXPECT_TRUE(form.lblThres.Warning());
    form.txtThres.Enter();
    EXPECT_FALSE(form.lblThres.Warning());
    form.txtThres.SetText("21");
    EXPECT_TRUE(form.lblThres.Warning());
    form.txtThres.Enter();
    EXPECT_FALSE(form.lblThres.Warning());
    form.sldrThres.SetValue(3);
    EXPECT_FALSE(form.lblThres.Warning());
  });
}

}  // namespace
}  // namespace dorvane
