#include "forms/frmGrpCalc.h"

#include <gmock/gmock.h>

#include "forms/FormFixture.h"
#include "program/DerivedGraphs.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class frmGrpCalcTest : public ProgramTest {
 protected:
  // Opens the form, works it and closes it.
  void Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) {
      work();
      form.cmdCancel.Press();
    });
    form.Open();
  }
  void ShowTwo() {
    Show({10, 20, 30}, "a.npd");
    Show({1, 2, 3}, "b.npd");
  }

  ScriptedFormHost host;
  frmGrpCalc form{program, host};
};

TEST_F(frmGrpCalcTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Graph Calucration");
  EXPECT_EQ(form.lblResult.Caption(), "G1＝ ");
  EXPECT_EQ(form.cmdCalc.Caption(), "Calc");
  EXPECT_EQ(form.cmdCancel.Caption(), "Close");
}

TEST_F(frmGrpCalcTest, OperatorsInTheirOrder) {
  EXPECT_THAT(form.cmbOpe1.Items(), ElementsAre("+", "-", "*", "/"));
  EXPECT_THAT(form.cmbOpe2.Items(), ElementsAre("+", "-", "*", "/", "none"));
  EXPECT_THAT(form.cmbOpe3.Items(), ElementsAre("+", "-", "*", "/"));
  for (const ComboBox* operators : {&form.cmbOpe1, &form.cmbOpe2, &form.cmbOpe3}) {
    EXPECT_EQ(operators->Index(), 0);
  }
}

TEST_F(frmGrpCalcTest, ConstantsArePresetWithTwoDecimals) {
  EXPECT_EQ(form.ImNumber1.Text(), "0.00");
  EXPECT_EQ(form.ImNumber2.Text(), "0.00");
  form.ImNumber1.Type("12345.678");
  EXPECT_EQ(form.ImNumber1.Text(), "12345.68");
}

TEST_F(frmGrpCalcTest, BothListsHaveTheGraphsInUse) {
  ShowTwo();
  Work([this] {
    for (int i = 0; i < frmGrpCalc::kTerms; ++i) {
      EXPECT_THAT(form.cmbGraph[i].Items(), ElementsAre("G1", "G2"));
      EXPECT_THAT(form.cmbGraph[i].ItemTips(), ElementsAre("a.npd", "b.npd"));
      EXPECT_EQ(form.cmbGraph[i].Text(), "G1");
    }
  });
}

// The smoothed curve of spectrum 1 is spectrum 2, in the first row.
TEST_F(frmGrpCalcTest, AGraphIsNumberedByItsSpectrumNotByItsRowAsMeant) {
  ShowTwo();
  SmoothGraph(program);
  Work([this] {
    EXPECT_THAT(form.cmbGraph[0].Items(), ElementsAre("G3", "G1", "G2"));
    EXPECT_THAT(form.cmbGraph[0].ItemTips(), ElementsAre("Smooth", "a.npd", "b.npd"));
    form.cmbGraph[0].SetIndex(2);
    form.cmbOpe2.SetIndex(kNoSecondTerm);
    form.cmdCalc.Press();
  });
  EXPECT_THAT(CountsOf(0), ElementsAre(1, 2, 3));
}

TEST_F(frmGrpCalcTest, TheTipOfAListIsTheTitleOfTheChosenGraph) {
  ShowTwo();
  Work([this] {
    form.cmbGraph[1].SetIndex(1);
    EXPECT_EQ(form.cmbGraph[0].Tip(), "a.npd");
    EXPECT_EQ(form.cmbGraph[1].Tip(), "b.npd");
    form.cmbGraph[1].SetIndex(-1);
    EXPECT_EQ(form.cmbGraph[1].Tip(), "");
  });
}

// (10 - 1) * (1 + 2) and so on, by hand.
TEST_F(frmGrpCalcTest, CalcTakesAllThatIsSet) {
  ShowTwo();
  Work([this] {
    form.cmbOpe1.SetIndex(1);
    form.ImNumber1.Type("1");
    form.cmbOpe2.SetIndex(2);
    form.cmbGraph[1].SetIndex(1);
    form.cmbOpe3.SetIndex(0);
    form.ImNumber2.Type("2");
    form.cmdCalc.Press();
    EXPECT_TRUE(form.Visible());
  });
  EXPECT_THAT(CountsOf(0), ElementsAre(27, 76, 145));
  EXPECT_EQ(Row(0).State, kRowUnsaved);
}

TEST_F(frmGrpCalcTest, AHalfIsAddedByRoundingToEven) {
  Show({1, 2, 3});
  Work([this] {
    form.cmbOpe2.SetIndex(kNoSecondTerm);
    form.ImNumber1.Type("0.5");
    form.cmdCalc.Press();
  });
  EXPECT_THAT(CountsOf(0), ElementsAre(2, 2, 4));
}

TEST_F(frmGrpCalcTest, DivisionByZeroGivesZerosWithoutAMessage) {
  Show({1, 2, 3});
  Work([this] {
    form.cmbOpe1.SetIndex(3);
    form.cmbOpe2.SetIndex(kNoSecondTerm);
    form.cmdCalc.Press();
  });
  EXPECT_THAT(CountsOf(0), ElementsAre(0, 0, 0));
}

TEST_F(frmGrpCalcTest, NoneGreysTheSecondTermAndAnyOtherOperatorGivesItBack) {
  ShowTwo();
  const Control* second[] = {&form.fra2nd, &form.cmbGraph[1], &form.cmbOpe3, &form.ImNumber2};
  Work([&] {
    for (const int op : {4, 3, 4, 0}) {
      form.cmbOpe2.SetIndex(op);
      for (const Control* control : second) EXPECT_EQ(control->Enabled(), op != 4);
      EXPECT_TRUE(form.cmbGraph[0].Enabled());
      EXPECT_TRUE(form.cmbOpe1.Enabled());
      EXPECT_TRUE(form.ImNumber1.Enabled());
    }
  });
}

TEST_F(frmGrpCalcTest, AGreyedSecondTermHasNoEffect) {
  ShowTwo();
  Work([this] {
    form.cmbGraph[1].SetIndex(1);
    form.cmbOpe3.SetIndex(2);
    form.ImNumber2.Type("1e300");
    form.cmbOpe2.SetIndex(kNoSecondTerm);
    form.cmdCalc.Press();
  });
  EXPECT_THAT(CountsOf(0), ElementsAre(10, 20, 30));
}

TEST_F(frmGrpCalcTest, AnOverflowIsShownAndStoresNothing) {
  Show({1, 2'000'000'000});
  Work([this] {
    form.cmbOpe1.SetIndex(2);
    form.ImNumber1.Type("2");
    form.cmbOpe2.SetIndex(kNoSecondTerm);
    dialogs.ExpectMessage("Overflow");
    form.cmdCalc.Press();
    EXPECT_TRUE(form.Visible());
  });
  EXPECT_THAT(CountsOf(0), ElementsAre(1, 2'000'000'000));
  EXPECT_EQ(Row(0).State, kRowSaved);
}

TEST_F(frmGrpCalcTest, OneCalculationGoesOnWhereTheLastOneEnded) {
  Show({1, 2, 3});
  Work([this] {
    form.cmbOpe2.SetIndex(kNoSecondTerm);
    form.ImNumber1.Type("1");
    form.cmdCalc.Press();
    form.cmdCalc.Press();
  });
  EXPECT_THAT(CountsOf(0), ElementsAre(3, 4, 5));
}

// G2 has left 7 in the channels that G3 doesn't have.
TEST_F(frmGrpCalcTest, WhatATermLeftStaysFromOneOpeningToTheNextAsMeant) {
  Show({0, 0, 0}, "a.npd");
  Show({7, 7, 7}, "b.npd");
  Show({1}, "c.npd");
  Work([this] {
    form.cmbGraph[1].SetIndex(1);
    form.cmdCalc.Press();
    form.cmbGraph[0].SetIndex(1);
  });
  Work([this] {
    form.cmbGraph[1].SetIndex(2);
    form.cmdCalc.Press();
  });
  EXPECT_THAT(CountsOf(0), ElementsAre(8, 14, 14));
}

TEST_F(frmGrpCalcTest, AChoiceStaysWhileItsGraphIsInTheList) {
  ShowTwo();
  Work([this] {
    form.cmbGraph[0].SetIndex(1);
    form.cmbOpe1.SetIndex(2);
    form.ImNumber1.Type("3");
  });
  SmoothGraph(program);
  Work([this] {
    EXPECT_EQ(form.cmbGraph[0].Text(), "G2");
    EXPECT_EQ(form.cmbGraph[0].Tip(), "b.npd");
    EXPECT_EQ(form.cmbOpe1.Index(), 2);
    EXPECT_EQ(form.ImNumber1.Value(), 3);
  });
  RemoveGraph(list, 2);
  Work([this] {
    EXPECT_EQ(form.cmbGraph[0].Text(), "G3");
    EXPECT_EQ(form.cmbGraph[0].Tip(), "Smooth");
  });
}

TEST_F(frmGrpCalcTest, TheHintNamesTheGraphThatIsReplaced) {
  ShowTwo();
  Work([this] { EXPECT_EQ(form.lblHint.Caption(), "G1 is a.npd; its counts are replaced."); });
}

TEST_F(frmGrpCalcTest, WithoutARowOfTheFirstSpectrumTheHintSaysThatNothingIsShown) {
  ShowTwo();
  RemoveGraph(list, 0);
  Work([this] {
    EXPECT_THAT(form.cmbGraph[0].Items(), ElementsAre("G2"));
    EXPECT_EQ(form.lblHint.Caption(), "No graph of the list is G1: the result is not shown.");
    form.cmdCalc.Press();
  });
  EXPECT_THAT(Titles(), ElementsAre("b.npd"));
}

TEST_F(frmGrpCalcTest, WithoutAGraphThereIsNothingToCalculate) {
  listener.notices.clear();
  Work([this] {
    EXPECT_THAT(form.cmbGraph[0].Items(), IsEmpty());
    EXPECT_EQ(form.lblHint.Caption(), "Open a spectrum first.");
    EXPECT_FALSE(form.cmdCalc.Enabled());
    form.cmdCalc.Press();
  });
  EXPECT_TRUE(listener.notices.empty());
}

TEST_F(frmGrpCalcTest, CalcIsOffWhileAListHasNoGraphChosen) {
  ShowTwo();
  Work([this] {
    for (int i = 0; i < frmGrpCalc::kTerms; ++i) {
      EXPECT_TRUE(form.cmdCalc.Enabled());
      form.cmbGraph[i].SetIndex(-1);
      EXPECT_FALSE(form.cmdCalc.Enabled());
      form.cmdCalc.Press();
      form.cmbGraph[i].SetIndex(0);
    }
  });
  EXPECT_EQ(Row(0).State, kRowSaved);
}

TEST_F(frmGrpCalcTest, AnOperatorThatIsNotChosenGivesZeros) {
  ShowTwo();
  Work([this] {
    form.cmbOpe2.SetIndex(-1);
    EXPECT_TRUE(form.fra2nd.Enabled());
    form.cmdCalc.Press();
  });
  EXPECT_THAT(CountsOf(0), ElementsAre(0, 0, 0));
}

TEST_F(frmGrpCalcTest, CloseCalculatesNothing) {
  ShowTwo();
  Work([this] { form.ImNumber1.Type("5"); });
  EXPECT_THAT(CountsOf(0), ElementsAre(10, 20, 30));
  EXPECT_FALSE(form.Visible());
}

}  // namespace
}  // namespace dorvane
