// The lattice form as its user sees and works it.
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include "forms/PeakCalFixture.h"
#include "lattice/CalLattice.h"
#include "qt/binding/BindingFixture.h"
#include "qt/binding/GridView.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

class PeakCalViewTest : public PeakCalTest {
 protected:
  PeakCalViewTest() {
    windows.Add(shown, [this](FormWindow& window) { LayOut(shown, window); });
  }
  // Opens the form on the screen, works it and leaves it.
  void WorkOnScreen(const std::function<void(FormWindow&)>& work) {
    QTimer::singleShot(0, [&] {
      FormWindow& window = *windows.WindowOf(shown);
      EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
      work(window);
      shown.cmdExit.Press();
    });
    dialogs.ExpectSave({});
    shown.Open(view.GraphNo);
  }
  static void TypeOver(QWidget* box, const char* text) {
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, text);
  }

  QtFormHost screen;
  frmPeakCal shown{program, screen, settings, marks};
  FormViews windows{screen};
};

TEST_F(PeakCalViewTest, EveryControlHasItsWidget) {
  WorkOnScreen([&](FormWindow& window) { ExpectEveryControlHasItsWidget(shown, window); });
}

TEST_F(PeakCalViewTest, EscapeLeavesTheForm) {
  WorkOnScreen([&](FormWindow& window) {
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(shown.Visible());
  });
}

TEST_F(PeakCalViewTest, FitsIntoItsSmallestWindow) {
  WorkOnScreen([&](FormWindow& window) {
    EXPECT_LE(window.minimumSizeHint().width(), 1000);
    EXPECT_LE(window.minimumSizeHint().height(), 700);
  });
}

TEST_F(PeakCalViewTest, HintIsReadWholeWhereThereAreNoPeaks) {
  for (int i = 1; i < 10; ++i) {
    workspace.Peaks[Show({1, 2, 3}, "a_rather_long_name_of_a_spectrum.npd")].Count = 12;
  }
  Change_cboGrphSel(list, 0, 0);
  WorkOnScreen([&](FormWindow& window) {
    auto* hint = window.As<QLabel>(shown.lblPeakHint);
    EXPECT_TRUE(hint->isVisible());
    EXPECT_EQ(hint->text().toStdString(), shown.lblPeakHint.Caption());
    window.resize(window.minimumSizeHint());
    EXPECT_LE(hint->heightForWidth(hint->width()), hint->height());
    EXPECT_LE(window.width(), 1000);
    EXPECT_LE(window.height(), 700);
  });
}

TEST_F(PeakCalViewTest, HintTakesNoRoomWhereThereArePeaks) {
  AddLines(kCu);
  WorkOnScreen(
      [&](FormWindow& window) { EXPECT_FALSE(window.Of(shown.lblPeakHint)->isVisible()); });
}

TEST_F(PeakCalViewTest, SampleIsChosenAndFittedByKeys) {
  AddLines(kOlivine, 1.001);
  WorkOnScreen([&](FormWindow& window) {
    auto* samples = window.As<QComboBox>(shown.cmbElement);
    EXPECT_TRUE(samples->hasFocus());
    QTest::keyClicks(samples, "Oli");
    EXPECT_EQ(shown.cmbLatticeType.Index(), kOrthorhombic);
    QTest::keyClick(samples, Qt::Key_Return);
    EXPECT_NEAR(ValueIn(shown.txtLatticeLength[1]), 10.204494, 2e-5);  // 1.001 * 10.1943
  });
}

TEST_F(PeakCalViewTest, SeedIsTakenWhenItsBoxIsLeft) {
  WorkOnScreen([&](FormWindow& window) {
    shown.cmbElement.SetIndex(kCu);
    QWidget* box = window.Of(shown.txtSeedConstant[0]);
    TypeOver(box, "3.6");
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_EQ(shown.txtSeedConstant[0].Text(), "3.600000");
    TypeOver(box, "x");
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_TRUE(box->hasFocus());
    QTest::keyClick(box, Qt::Key_Escape);  // the way out
    EXPECT_FALSE(shown.Visible());
  });
}

TEST_F(PeakCalViewTest, LineOfASortedGridIsExcludedByItsOwnNumber) {
  AddLines(kCu);
  WorkOnScreen([&](FormWindow& window) {
    shown.cmbElement.SetIndex(kCu);
    shown.cmdCal.Press();
    window.As<QTabWidget>(shown.tabLatticeFit)->setCurrentIndex(1);
    auto* grid = window.As<GridView>(shown.sprPeakInf3);
    EXPECT_TRUE(grid->isVisible());
    grid->sortByColumn(0, Qt::AscendingOrder);  // d falls with the row number
    const int use = UseColumn(shown.sprPeakInf3) - 1;
    const QModelIndex first = grid->model()->index(0, use);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(first).center());
    EXPECT_EQ(shown.State().Lines[4].Unused, kTrue);
    EXPECT_EQ(shown.State().Lines[0].Unused, kFalse);
    EXPECT_EQ(grid->model()->headerData(0, Qt::Vertical), "5");
  });
}

TEST_F(PeakCalViewTest, PlotShowsThePointsInTheColoursOfTheCurves) {
  AddLines(kCu, 1.0003);
  WorkOnScreen([&](FormWindow& window) {
    const QColor ink(0, 90, 150);
    const auto dots = [&] {
      const QImage image = window.Of(shown.picDeviation)->grab().toImage();
      int count = 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == ink;
      }
      return count;
    };
    EXPECT_EQ(dots(), 0);
    shown.cmbElement.SetIndex(kCu);
    shown.cmdCal.Press();
    EXPECT_GE(dots(), 6 * 25);  // five squares and that of the legend
  });
}

}  // namespace
}  // namespace dorvane
