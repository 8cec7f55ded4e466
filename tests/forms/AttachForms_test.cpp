#include "forms/AttachForms.h"

#include <gmock/gmock.h>

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

}  // namespace
}  // namespace dorvane
