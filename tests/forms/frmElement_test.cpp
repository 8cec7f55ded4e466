#include "forms/frmElement.h"

#include <gmock/gmock.h>

#include "forms/FakeElementStore.h"
#include "forms/FormFixture.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

class frmElementTest : public ProgramTest {
 protected:
  void Find(TextBox& box, const std::string& text) {
    box.SetText(text);
    box.Enter();
  }
  std::vector<std::string> Energies() const {
    std::vector<std::string> texts;
    for (int kind = 0; kind < kLineKinds; ++kind) texts.push_back(form.txtEnergy[kind].Text());
    return texts;
  }

  FakeElementStore store;
  ScriptedFormHost host;
  AtomSelTable selections;
  frmElement form{program, host, store, selections};
};

TEST_F(frmElementTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Atom");
  EXPECT_EQ(form.txtNum.Caption(), "No");
  EXPECT_EQ(form.txtElementName.Caption(), "元素名");
}

TEST_F(frmElementTest, TheTableLiesInTheProgramsDirectory) {
  form.Open(0);
  EXPECT_THAT(store.paths, ElementsAre(program.directory + "Atomic.db"));
  EXPECT_THAT(host.Shown(), ElementsAre("frmElement"));
}

TEST_F(frmElementTest, TheTableIsOpenedOnce) {
  form.Open(0);
  form.Open(26);
  form.FindByNum(82);
  EXPECT_EQ(store.paths.size(), 1u);
}

TEST_F(frmElementTest, WithoutItsTableItTellsSoAndStaysAway) {
  store.there = false;
  dialogs.ExpectMessage("can not find Atomic.mdb");
  form.Open(26);
  EXPECT_THAT(host.Shown(), IsEmpty());
}

TEST_F(frmElementTest, EverySearchWithoutATableTellsSoOnce) {
  store.there = false;
  for (int i = 0; i < 4; ++i) dialogs.ExpectMessage("can not find Atomic.mdb");
  EXPECT_FALSE(form.FindByNum(26));
  EXPECT_FALSE(form.FindForGraph(26, 0));
  Find(form.txtNumFind, "26");
  Find(form.txtSymbFind, "Fe");
}

TEST_F(frmElementTest, ATableThatComesLaterIsFound) {
  store.there = false;
  dialogs.ExpectMessage("can not find Atomic.mdb");
  form.FindByNum(26);
  store.there = true;
  EXPECT_TRUE(form.FindByNum(26));
}

TEST_F(frmElementTest, ARecordShowsInItsBoxes) {
  Find(form.txtNumFind, "26");
  EXPECT_EQ(form.txtNum.Text(), "26");
  EXPECT_EQ(form.txtSymbol.Text(), "Fe");
  EXPECT_THAT(Energies(), ElementsAre("6.3995", "6.4039", "6.3909", "7.0580", "0.7045", "0.7175",
                                      "", "7.1120"));
  EXPECT_EQ(form.txtEnergy[7].Caption(), "AbsEdge");
}

TEST_F(frmElementTest, TheNameStandsInBothBoxesOnPurpose) {
  Find(form.txtSymbFind, "Fe");
  EXPECT_EQ(form.txtElement.Text(), "Iron");
  EXPECT_EQ(form.txtElementName.Text(), "Iron");
}

TEST_F(frmElementTest, SymbolsAreFoundInAnyCase) {
  for (const char* symbol : {"Pb", "pb", "PB"}) {
    form.txtNum.SetText("");
    Find(form.txtSymbFind, symbol);
    EXPECT_EQ(form.txtNum.Text(), "82") << symbol;
  }
}

TEST_F(frmElementTest, ANumberWithoutARecordIsTold) {
  dialogs.ExpectMessage("No records found with Num = 104");
  EXPECT_FALSE(form.FindByNum(104));
  dialogs.ExpectMessage("No records found with Num = 0");
  EXPECT_FALSE(form.FindForGraph(0, 1));
}

TEST_F(frmElementTest, ATypedNumberIsToldAsItStands) {
  for (const std::string text : {"104", "", "Fe", "26.5", "1 OR 1=1"}) {
    dialogs.ExpectMessage("No records found with Num = " + text);
    Find(form.txtNumFind, text);
  }
}

TEST_F(frmElementTest, ATypedSymbolIsToldAsItStands) {
  for (const std::string text : {"X", "", "fe ", "Fe' OR '1'='1"}) {
    dialogs.ExpectMessage("No records found with Symbol = '" + text + "'");
    Find(form.txtSymbFind, text);
  }
}

TEST_F(frmElementTest, ASearchInVainLeavesTheRecordThatShows) {
  Find(form.txtNumFind, "26");
  dialogs.ExpectMessage("No records found with Symbol = 'X'");
  Find(form.txtSymbFind, "X");
  EXPECT_EQ(form.txtSymbol.Text(), "Fe");
}

TEST_F(frmElementTest, TheSelectedLinesOfTheElementAreReported) {
  selections[1][26] = kTrue;
  selections[7][26] = kTrue;
  selections[3][82] = kTrue;
  EXPECT_THAT(form.FindByNum(26), Optional(ElementsAre(ElementEnergy{1, 6.4039, "Fe Ka1"},
                                                       ElementEnergy{7, 7.112, "Fe AbsEdge"})));
  EXPECT_EQ(form.Result(), "Fe AbsEdge");
}

TEST_F(frmElementTest, ALineWithoutAValueIsSkippedWithoutAWord) {
  for (auto& row : selections) row.fill(kTrue);
  EXPECT_THAT(form.FindByNum(1), Optional(ElementsAre(ElementEnergy{7, 0.0136, "H AbsEdge"})));
  EXPECT_THAT(form.FindForGraph(26, 6), Optional(IsEmpty()));
}

TEST_F(frmElementTest, NothingSelectedReportsNothing) {
  EXPECT_THAT(form.FindByNum(26), Optional(IsEmpty()));
  EXPECT_EQ(form.Result(), "");
  EXPECT_EQ(form.txtSymbol.Text(), "Fe");
}

TEST_F(frmElementTest, OneLineIsFoundForTheGraphSelectedOrNot) {
  EXPECT_THAT(form.FindForGraph(82, 4), Optional(ElementsAre(ElementEnergy{4, 10.5512, "Pb La1"})));
  EXPECT_EQ(form.Result(), "Pb La1");
}

TEST_F(frmElementTest, ATypedSearchReportsTheSelectionsToo) {
  selections[4][82] = kTrue;
  Find(form.txtSymbFind, "pb");
  EXPECT_EQ(form.Result(), "Pb La1");
}

TEST_F(frmElementTest, HugeEnergiesShow) {
  store.records[0].Lines[0].energy_kev = 1.7e308;
  store.records[0].Lines[1].energy_kev = 1e-300;
  Find(form.txtNumFind, "1");
  EXPECT_EQ(form.txtEnergy[1].Text(), "0.0000");
}

TEST_F(frmElementTest, CancelHidesIt) {
  form.Open(26);
  form.cmdCancel.Press();
  EXPECT_FALSE(form.Visible());
}

}  // namespace
}  // namespace dorvane
