#include "forms/AttachForms.h"

#include <gmock/gmock.h>

#include "forms/FakeElementStore.h"
#include "forms/MainFormFixture.h"

namespace dorvane {
namespace {

class AttachFormsTest : public MainFormTest {
 protected:
  frmSelGraph graphs{program, host};
  frmRoiReport regions{program, host};
  frmLog log_window{host};
  frmKeys keys{host};
  frmManualFit manual_fit{program, host};
  frmInputFitParameter fit_input{program, host};
  FakeElementStore store;
  LineMarks line_marks{program};
  frmAtom atom{program, host, store, settings, line_marks};
  frmPeakCal lattice{program, host, settings, line_marks};
};

TEST_F(AttachFormsTest, TheWindowMenuOpensTheFloatingForms) {
  EXPECT_FALSE(Menu("mnuSelGraph").Enabled());
  AttachForms(form, graphs, regions, log_window, keys);
  for (const char* name : {"mnuSelGraph", "mnuRoiReport", "mnuLogText"}) Menu(name).Choose();
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmSelGraph", "frmRoiReport", "frmLog"));
}

TEST_F(AttachFormsTest, TheEndHidesThem) {
  AttachForms(form, graphs, regions, log_window, keys);
  Menu("mnuSelGraph").Choose();
  Menu("mnuExit").Choose();
  EXPECT_FALSE(graphs.Visible());
}

TEST_F(AttachFormsTest, AGraphChosenInTheListIsCurrentOnTheMainForm) {
  views.Add(graphs);
  AttachForms(form, graphs, regions, log_window, keys);
  ShowSpectrum("a.npd");
  ShowSpectrum("b.npd");
  Menu("mnuSelGraph").Choose();
  graphs.sprGraphSel.PressCell(1, frmSelGraph::kFileName);
  EXPECT_EQ(form.selector.cboGrphSel[0].Index(), 0);
}

TEST_F(AttachFormsTest, ThePeakMenuOpensTheFormsThatTakePeaksByHand) {
  AttachFitForms(form, program, manual_fit, fit_input);
  ShowSpectrum("a.npd");
  ShowSpectrum("b.npd");
  view.Buttons.ManFit = true;
  form.CursorMoved();
  for (const char* name : {"mnuManFit", "mnuNaxManualFit", "mnuInputFitParameter"}) {
    host.ExpectModal([this](Form& opened) {
      EXPECT_EQ(manual_fit.GrpNo(), 1);
      opened.Hide();
    });
    Menu(name).Choose();
  }
  EXPECT_THAT(host.Shown(),
              testing::ElementsAre("frmManualFit", "frmManualFit", "frmInputFitParameter"));
}

TEST_F(AttachFormsTest, AtomOpensThePeriodicTableForTheCurrentGraphFromBothToolBarsAndTheMenu) {
  AttachAtom(form, program, atom);
  ShowSpectrum("a.npd");
  form.tool_bars.tlbrFile.Press("Atom");
  form.tool_bars.tlbrEnergy.Press("Atom");
  Menu("mnuAtom").Choose();
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmAtom", "frmAtom", "frmAtom"));
  EXPECT_EQ(atom.CurrentMode(), frmAtom::Mode::Mark);
  EXPECT_THAT(atom.lblHint.Caption(), testing::HasSubstr("a.npd"));
}

TEST_F(AttachFormsTest, TheEndHidesThePeriodicTableAndItsRecord) {
  AttachAtom(form, program, atom);
  Menu("mnuAtom").Choose();
  atom.cmdElement.Press();
  EXPECT_TRUE(atom.element.Visible());
  Menu("mnuExit").Choose();
  EXPECT_FALSE(atom.Visible());
  EXPECT_FALSE(atom.element.Visible());
}

TEST_F(AttachFormsTest, TheSettingsOpenTheResultDirectory) {
  frmResultDirectory result_directory(program, host, settings);
  AttachResultDirectory(form, result_directory);
  host.ExpectModal([](Form& opened) { opened.Hide(); });
  Menu("mnuResultDirectory").Choose();
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmResultDirectory"));
}

TEST_F(AttachFormsTest, HklOpensTheLatticeFormForTheCurrentGraph) {
  folder.Put("crystal.dat", "\n\n\n\n\n\n\n\n\n\n0\n");
  AttachLattice(form, program, lattice);
  ShowSpectrum("a.npd");
  ShowSpectrum("b.npd");
  host.ExpectModal([this](Form& opened) {
    EXPECT_EQ(opened.Name(), "frmPeakCal");
    EXPECT_EQ(lattice.GetGrpNo(), 1);
    opened.Hide();
  });
  dialogs.ExpectSave({});
  form.tool_bars.tlbrOperation.Press("hkl");
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmPeakCal"));
}

}  // namespace
}  // namespace dorvane
