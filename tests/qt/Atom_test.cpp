// The lines of elements on the graph, from the periodic table of the running program.
#include "WindowTest.h"
#include "processing/Units.h"

namespace dorvane {
namespace {

class AtomTest : public WindowTest {
 protected:
  // The periodic table over corundum, which is calibrated by its own file.
  void OpenTable() {
    OpenCorundum();
    Store().UseFileEgc = 1;
    Trigger("tlbrFile_Atom");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Table()));
  }
  FormWindow& Table() { return *session->form_views.WindowOf(session->atom); }
  void Press(const char* toggle) {
    auto* button = Table().findChild<QAbstractButton*>(toggle);
    ASSERT_NE(button, nullptr) << toggle;
    QTest::mouseClick(button, Qt::LeftButton);
  }
  std::span<const MarkRec> Lines() { return session->program.spect.NamedLines(0); }
};

TEST_F(AtomTest, TheTableComesToTheUserAtTheFirstStart) {
  EXPECT_TRUE(folder.Has("home/dorvane/Atomic.db"));
}

// The K-beta 1 line of copper, 8.9053 keV in the bundled list.
TEST_F(AtomTest, APressedElementIsMarkedAtItsEnergy) {
  OpenTable();
  Press("tglAtom_29");
  Press("tglPkDisp_3");
  ASSERT_EQ(Lines().size(), 1u);
  EXPECT_EQ(TextOf(Lines()[0]), "Cu Kb1");
  const MeasProp& own = Store().Spectra[View().DataNo].Prop;
  const double channel_kev = ChToUnit(kUnitKeV, 1, own, {}) - ChToUnit(kUnitKeV, 0, own, {});
  EXPECT_NEAR(ChToUnit(kUnitKeV, Lines()[0].X, own, {}), 8.9053, channel_kev);
}

TEST_F(AtomTest, TheMarkIsSeenOnTheGraph) {
  OpenTable();
  auto* graph = Find<QWidget>("picGraph_0");
  const QImage before = graph->grab().toImage();
  Press("tglAtom_29");
  EXPECT_EQ(graph->grab().toImage(), before);
  Press("tglPkDisp_3");
  EXPECT_NE(graph->grab().toImage(), before);
  Press("tglPkDisp_3");
  EXPECT_EQ(graph->grab().toImage(), before);
}

TEST_F(AtomTest, TheTipNamesTheElement) {
  OpenTable();
  EXPECT_TRUE(Table().findChild<QWidget*>("tglAtom_29")->toolTip().startsWith("Copper (29)\n"));
}

TEST_F(AtomTest, EscapeHidesTheTableAndKeepsTheMarks) {
  OpenTable();
  Press("tglAtom_29");
  Press("tglPkDisp_3");
  QTest::keyClick(Table().focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(Table().isVisible());
  EXPECT_EQ(Lines().size(), 1u);
}

TEST_F(AtomTest, MarksGoWhenAnotherFileIsOpened) {
  OpenTable();
  Press("tglAtom_29");
  Press("tglPkDisp_3");
  Open(kMgo);
  EXPECT_TRUE(Lines().empty());
}

// A folder of the user's own, with a library but without the table.
class AtomAlone : public AtomTest {
 protected:
  void SetUp() override {
    folder.Put("crystal.dat", "");
    AtomTest::SetUp();
  }
};

TEST_F(AtomAlone, WithoutItsTableTheSystemsTextComes) {
  OpenCorundum();
  const BoxAnswerer boxes;
  Trigger("tlbrFile_Atom");
  EXPECT_EQ(boxes.Texts(), QStringList{"can not find Atomic.mdb"});
  EXPECT_TRUE(Table().isVisible());
}

}  // namespace
}  // namespace dorvane
