#include "forms/frmAtom.h"

#include <gmock/gmock.h>

#include "forms/FakeElementStore.h"
#include "forms/FormFixture.h"
#include "program/MoveGraph.h"
#include "program/ProgramFixture.h"
#include "program/View.h"
#include "support/MemorySettings.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

enum Kind { kKAve, kKa1, kKa2, kKb1, kLa1, kLb1, kLg1, kEdg };
constexpr int kH = 1, kFe = 26, kPb = 82;

// A spectrum with a tenth of a keV for each channel.
class frmAtomTest : public ProgramTest {
 protected:
  frmAtomTest() {
    views.Add(line_marks);
    views.Add(form);
    workspace.DefaultProp.EGC[1] = 0.1;
    data_no = Show(std::vector<std::int32_t>(1000, 5));
  }
  void Open() { form.Open(0, frmAtom::Mode::Mark); }
  void Press(int num) { form.tglAtom[num].SetPressed(true); }
  void PressKind(int kind) { form.tglPkDisp[kind].SetPressed(true); }
  void Release(int num) { form.tglAtom[num].SetPressed(false); }
  void ReleaseKind(int kind) { form.tglPkDisp[kind].SetPressed(false); }
  std::vector<std::string> Marks(int win_no = 0) const {
    std::vector<std::string> texts;
    for (const MarkRec& line : program.spect.NamedLines(win_no)) texts.emplace_back(TextOf(line));
    return texts;
  }
  std::vector<int> PressedAtoms() const {
    std::vector<int> nums;
    for (int num = 1; num <= 103; ++num) {
      if (form.tglAtom[num].Pressed()) nums.push_back(num);
    }
    return nums;
  }
  std::vector<int> PressedKinds() const {
    std::vector<int> kinds;
    for (int kind = 0; kind < kLineKinds; ++kind) {
      if (form.tglPkDisp[kind].Pressed()) kinds.push_back(kind);
    }
    return kinds;
  }

  FakeElementStore store;
  ScriptedFormHost host;
  LineMarks line_marks{program};
  MemorySettings settings;
  frmAtom form{program, host, store, settings, line_marks};
  std::int16_t data_no = 0;
};

TEST_F(frmAtomTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Atom elements periodic Table");
  EXPECT_EQ(form.optEdit.Caption(), "Edit");
  EXPECT_EQ(form.optMark.Caption(), "Mark");
  std::vector<std::string> kinds;
  for (int kind = 0; kind < kLineKinds; ++kind) kinds.push_back(form.tglPkDisp[kind].Caption());
  EXPECT_THAT(kinds, ElementsAre("KAve", "Ka1", "Ka2", "Kb1", "La1", "Lb1", "Lg1", "Edg"));
  EXPECT_EQ(form.tglAtom[1].Caption(), "H");
  EXPECT_EQ(form.tglAtom[103].Caption(), "Lr");
  EXPECT_EQ(form.tglAtom[103].Name(), "tglAtom_103");
}

TEST_F(frmAtomTest, TipsTellNameAndEnergies) {
  Open();
  EXPECT_EQ(form.tglAtom[kH].Tip(), "Hydrogen (1)\nAbsEdge  0.0136 keV");
  EXPECT_THAT(form.tglAtom[kFe].Tip(), HasSubstr("Iron (26)\nKAve  6.3995 keV\nKa1  6.4039 keV"));
}

TEST_F(frmAtomTest, AnElementAndALineAreMarkedAtTheirChannel) {
  Open();
  PressKind(kKa1);
  EXPECT_THAT(Marks(), IsEmpty());
  Press(kPb);
  ASSERT_THAT(Marks(), ElementsAre("Pb Ka1"));
  EXPECT_EQ(program.spect.NamedLines(0)[0].X, 749);  // channel number 750 of 74.9693 keV
  EXPECT_EQ(program.spect.NamedLines(0)[0].Color, workspace.ColorTbl[kColorElementMark]);
}

TEST_F(frmAtomTest, ALineIsMarkedForAllPressedElements) {
  Open();
  Press(kFe);
  Press(kPb);
  PressKind(kLa1);
  PressKind(kEdg);
  EXPECT_THAT(Marks(), UnorderedElementsAre("Fe La1", "Pb La1", "Fe AbsEdge", "Pb AbsEdge"));
  ReleaseKind(kLa1);
  EXPECT_THAT(Marks(), UnorderedElementsAre("Fe AbsEdge", "Pb AbsEdge"));
  Release(kFe);
  EXPECT_THAT(Marks(), ElementsAre("Pb AbsEdge"));
}

TEST_F(frmAtomTest, ALineWithoutAValueGetsNoMarkAndNoMessage) {
  Open();
  PressKind(kLg1);
  Press(kFe);
  Press(kH);
  EXPECT_THAT(Marks(), IsEmpty());
  EXPECT_THAT(PressedAtoms(), ElementsAre(kH, kFe));
}

TEST_F(frmAtomTest, ThePressedElementShowsItsRecord) {
  Open();
  Press(kFe);
  EXPECT_EQ(form.element.txtElement.Text(), "Iron");
  form.cmdElement.Press();
  EXPECT_TRUE(form.element.Visible());
  EXPECT_EQ(form.element.txtSymbol.Text(), "Fe");
}

TEST_F(frmAtomTest, AnElementWithoutARecordIsToldOnce) {
  Open();
  for (int kind = 0; kind < kLineKinds; ++kind) PressKind(kind);
  dialogs.ExpectMessage("No records found with Num = 30");
  Press(30);
  dialogs.ExpectMessage("No records found with Num = 31");
  Press(31);
  ReleaseKind(kKa1);
  dialogs.ExpectMessage("No records found with Num = 30");
  PressKind(kKa1);
}

TEST_F(frmAtomTest, WithoutTheTableItOpensAndTellsSo) {
  store.there = false;
  dialogs.ExpectMessage("can not find Atomic.mdb");
  Open();
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(form.tglAtom[kFe].Tip(), "Fe (26)");
  dialogs.ExpectMessage("can not find Atomic.mdb");
  Press(kFe);
  dialogs.ExpectMessage("can not find Atomic.mdb");
  PressKind(kKa1);
  EXPECT_THAT(Marks(), IsEmpty());
}

TEST_F(frmAtomTest, AtFirstEveryLineOfEveryElementIsSelected) {
  for (int kind = 0; kind < kLineKinds; ++kind) {
    for (int num = 1; num <= 103; ++num) EXPECT_EQ(form.AtomSel[kind][num], kTrue);
  }
}

TEST_F(frmAtomTest, SelectionsAreKeptWhileTheFormIsHidden) {
  form.Open(0, frmAtom::Mode::Edit);
  Press(kFe);
  ReleaseKind(kKa1);
  form.cmdCancel.Press();
  form.Open(0, frmAtom::Mode::Edit);
  EXPECT_FALSE(form.tglPkDisp[kKa1].Pressed());
  EXPECT_TRUE(form.tglPkDisp[kKa2].Pressed());
}

TEST_F(frmAtomTest, SelectionsAreKeptForTheNextRun) {
  form.Open(0, frmAtom::Mode::Edit);
  Press(kFe);
  ReleaseKind(kKa1);
  ReleaseKind(kEdg);
  Press(kPb);
  ReleaseKind(kKAve);
  PressKind(kKAve);
  EXPECT_THAT(settings.Texts("AtomSel"), ElementsAre("26 10111110"));
  const frmAtom next{program, host, store, settings, line_marks};
  for (int kind = 0; kind < kLineKinds; ++kind) {
    EXPECT_EQ(next.AtomSel[kind][kFe], form.AtomSel[kind][kFe]) << kind;
    EXPECT_EQ(next.AtomSel[kind][kPb], kTrue);
  }
}

TEST_F(frmAtomTest, MarksWriteNoSettings) {
  Open();
  Press(kFe);
  PressKind(kKa1);
  EXPECT_EQ(settings.writes, 0);
}

TEST_F(frmAtomTest, OfEditAndMarkOneIsDown) {
  Open();
  EXPECT_TRUE(form.optMark.Pressed());
  form.optEdit.SetPressed(true);
  EXPECT_FALSE(form.optMark.Pressed());
  form.optEdit.SetPressed(false);
  EXPECT_TRUE(form.optEdit.Pressed());
  EXPECT_EQ(form.CurrentMode(), frmAtom::Mode::Edit);
}

TEST_F(frmAtomTest, EditChangesTheTableOfSelectionsAndNoGraph) {
  Open();
  Press(kFe);
  PressKind(kKa1);
  form.optEdit.SetPressed(true);
  Press(kFe);
  EXPECT_EQ(PressedKinds().size(), 8u);
  ReleaseKind(kKa1);
  EXPECT_EQ(form.AtomSel[kKa1][kFe], 0);
  EXPECT_EQ(form.AtomSel[kKa1][kPb], kTrue);
  PressKind(kKa1);
  EXPECT_EQ(form.AtomSel[kKa1][kFe], kTrue);
  EXPECT_THAT(Marks(), ElementsAre("Fe Ka1"));
}

TEST_F(frmAtomTest, EditTakesOneElementAtATime) {
  form.Open(0, frmAtom::Mode::Edit);
  Press(kFe);
  ReleaseKind(kKa1);
  Press(kPb);
  EXPECT_THAT(PressedAtoms(), ElementsAre(kPb));
  EXPECT_TRUE(form.tglPkDisp[kKa1].Pressed());
  Press(kFe);
  EXPECT_FALSE(form.tglPkDisp[kKa1].Pressed());
}

TEST_F(frmAtomTest, EditWithoutAnElementHasNoLines) {
  form.Open(0, frmAtom::Mode::Edit);
  EXPECT_FALSE(form.tglPkDisp[kKa1].Enabled());
  PressKind(kKa1);
  EXPECT_THAT(PressedKinds(), IsEmpty());
  Press(kFe);
  EXPECT_TRUE(form.tglPkDisp[kKa1].Enabled());
  Release(kFe);
  EXPECT_FALSE(form.tglPkDisp[kKa1].Enabled());
}

TEST_F(frmAtomTest, MarkTakesTheNewTableAndItsOwnToggles) {
  Open();
  Press(kFe);
  Press(kPb);
  PressKind(kKa1);
  form.optEdit.SetPressed(true);
  Press(kFe);
  ReleaseKind(kKa1);
  EXPECT_THAT(Marks(), ElementsAre("Fe Ka1", "Pb Ka1"));
  form.optMark.SetPressed(true);
  EXPECT_THAT(Marks(), ElementsAre("Pb Ka1"));
  EXPECT_THAT(PressedAtoms(), ElementsAre(kFe, kPb));
  EXPECT_THAT(PressedKinds(), ElementsAre(kKa1));
}

TEST_F(frmAtomTest, ALineThatIsNotSelectedGetsNoMark) {
  form.AtomSel[kKa1][kFe] = 0;
  Open();
  Press(kFe);
  Press(kPb);
  PressKind(kKa1);
  EXPECT_THAT(Marks(), ElementsAre("Pb Ka1"));
  PressKind(kKb1);
  Release(kFe);
  Press(kFe);
  EXPECT_THAT(Marks(), UnorderedElementsAre("Pb Ka1", "Pb Kb1", "Fe Kb1"));
}

TEST_F(frmAtomTest, MarksFollowTheCalibration) {
  Open();
  Press(kPb);
  PressKind(kKa1);
  workspace.DefaultProp.EGC[1] = 0.2;
  SetEGCParam(program, 0);
  EXPECT_EQ(program.spect.NamedLines(0)[0].X, 374);
}

TEST_F(frmAtomTest, EveryGraphHasItsOwnMarks) {
  Open();
  Press(kFe);
  PressKind(kKa1);
  Show(std::vector<std::int32_t>(1000, 5), "b.npd");
  form.Open(1, frmAtom::Mode::Mark);
  EXPECT_THAT(PressedAtoms(), IsEmpty());
  Press(kPb);
  PressKind(kEdg);
  EXPECT_THAT(Marks(), UnorderedElementsAre("Fe Ka1", "Pb AbsEdge"));
  Open();
  EXPECT_THAT(PressedAtoms(), ElementsAre(kFe));
}

TEST_F(frmAtomTest, MarksEndWithTheirGraph) {
  Open();
  Press(kFe);
  PressKind(kKa1);
  DeleteGraph(list, 0);
  EXPECT_THAT(Marks(), IsEmpty());
  EXPECT_THAT(PressedAtoms(), IsEmpty());
  EXPECT_THAT(form.lblHint.Caption(), HasSubstr("Open a spectrum"));
}

TEST_F(frmAtomTest, TheNextGraphIsMarkedWhenTheOldOneHasGone) {
  Open();
  Press(kFe);
  DeleteGraph(list, 0);
  Show(std::vector<std::int32_t>(1000, 5), "b.npd");
  Press(kPb);
  PressKind(kKa1);
  EXPECT_THAT(Marks(), ElementsAre("Pb Ka1"));
  EXPECT_THAT(form.lblHint.Caption(), HasSubstr("b.npd"));
}

TEST_F(frmAtomTest, MarksGoWithTheirGraphToTheOtherWindow) {
  Open();
  Press(kFe);
  PressKind(kKa1);
  MoveGraph(program, 0, 1);
  EXPECT_THAT(Marks(1), ElementsAre("Fe Ka1"));
  EXPECT_THAT(PressedAtoms(), ElementsAre(kFe));
}

TEST_F(frmAtomTest, WithoutAGraphNothingStaysDown) {
  DeleteGraph(list, 0);
  Open();
  Press(kFe);
  PressKind(kKa1);
  EXPECT_THAT(PressedAtoms(), IsEmpty());
  EXPECT_THAT(PressedKinds(), IsEmpty());
}

TEST_F(frmAtomTest, TheHintTellsOfAMissingCalibration) {
  workspace.DefaultProp.EGC = {};
  Open();
  EXPECT_THAT(form.lblHint.Caption(), HasSubstr("no energy calibration"));
  workspace.DefaultProp.EGC[1] = 0.1;
  SetEGCParam(program, 0);
  EXPECT_EQ(form.lblHint.Caption(), "Press elements and lines to mark them on a.npd.");
}

TEST_F(frmAtomTest, CancelHidesItAndKeepsTheMarks) {
  Open();
  Press(kFe);
  PressKind(kKa1);
  form.cmdElement.Press();
  form.cmdCancel.Press();
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(form.element.Visible());
  EXPECT_THAT(Marks(), ElementsAre("Fe Ka1"));
}

// ---- lines for another form

class frmAtomTakeTest : public frmAtomTest {
 protected:
  frmAtomTakeTest() {
    form.OpenToTake(0, [this](const ElementEnergy& line) { taken.push_back(line); });
  }
  std::vector<ElementEnergy> taken;
};

TEST_F(frmAtomTakeTest, APressedLineOfTheElementIsHandedOver) {
  Press(kFe);
  PressKind(kKb1);
  EXPECT_THAT(taken, ElementsAre(ElementEnergy{kKb1, 7.058, "Fe Kb1"}));
  EXPECT_THAT(PressedKinds(), IsEmpty());
  PressKind(kEdg);
  EXPECT_THAT(taken, testing::SizeIs(2));
}

TEST_F(frmAtomTakeTest, OnlyLinesThatTheElementHasAreOn) {
  EXPECT_FALSE(form.tglPkDisp[kEdg].Enabled());
  Press(kH);
  EXPECT_TRUE(form.tglPkDisp[kEdg].Enabled());
  EXPECT_FALSE(form.tglPkDisp[kKa1].Enabled());
  PressKind(kKa1);
  Release(kH);
  PressKind(kEdg);
  EXPECT_THAT(taken, IsEmpty());
}

TEST_F(frmAtomTakeTest, ALineThatIsNotSelectedForMarksIsHandedOverToo) {
  form.AtomSel[kKa1][kFe] = kFalse;
  Press(kFe);
  PressKind(kKa1);
  EXPECT_THAT(taken, testing::SizeIs(1));
  EXPECT_EQ(form.AtomSel[kKa1][kFe], kFalse);
}

TEST_F(frmAtomTakeTest, NothingIsMarkedAndNothingKept) {
  Press(kPb);
  PressKind(kKa1);
  EXPECT_THAT(Marks(), IsEmpty());
  EXPECT_EQ(settings.writes, 0);
}

TEST_F(frmAtomTakeTest, ModesCanBeChangedAndTheMarksStandApart) {
  EXPECT_TRUE(form.optTake.Pressed());
  EXPECT_THAT(form.lblHint.Caption(), HasSubstr("line whose energy is wanted"));
  form.optMark.SetPressed(true);
  EXPECT_FALSE(form.optTake.Pressed());
  Press(kFe);
  PressKind(kKa1);
  EXPECT_THAT(Marks(), ElementsAre("Fe Ka1"));
  form.optTake.SetPressed(true);
  EXPECT_THAT(PressedAtoms(), IsEmpty());
  EXPECT_THAT(taken, IsEmpty());
}

TEST_F(frmAtomTakeTest, EditedSelectionsReachTheMarksOnTheWayToTake) {
  form.optMark.SetPressed(true);
  Press(kFe);
  PressKind(kKa1);
  form.optEdit.SetPressed(true);
  Press(kFe);
  ReleaseKind(kKa1);
  form.optTake.SetPressed(true);
  EXPECT_THAT(Marks(), IsEmpty());
}

TEST_F(frmAtomTakeTest, TheEndHidesTheFormAndTheMode) {
  form.EndTaking();
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(form.optTake.Visible());
  EXPECT_EQ(form.CurrentMode(), frmAtom::Mode::Mark);
}

TEST_F(frmAtomTakeTest, AtTheEndAFormThatMarksStays) {
  form.optMark.SetPressed(true);
  form.EndTaking();
  EXPECT_TRUE(form.Visible());
  EXPECT_FALSE(form.optTake.Visible());
}

TEST_F(frmAtomTest, WithoutAFormThatTakesLinesThereIsNoSuchMode) {
  Open();
  EXPECT_FALSE(form.optTake.Visible());
}

TEST_F(frmAtomTest, WithoutTheTableALineCanNotBeTaken) {
  store.there = false;
  dialogs.ExpectMessage("can not find Atomic.mdb");
  form.OpenToTake(0, [](const ElementEnergy&) { FAIL(); });
  Press(kFe);
  for (int kind = 0; kind < kLineKinds; ++kind) EXPECT_FALSE(form.tglPkDisp[kind].Enabled());
}

}  // namespace
}  // namespace dorvane
