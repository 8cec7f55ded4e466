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

}  // namespace
}  // namespace dorvane
