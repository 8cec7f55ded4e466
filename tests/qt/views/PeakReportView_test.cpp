// The peak report as its user sees and works it.
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include "forms/FakePrinter.h"
#include "forms/frmPeakReport.h"
#include "program/PeakFixture.h"
#include "qt/binding/BindingFixture.h"
#include "qt/views/Views.h"
#include "support/MemorySettings.h"

namespace dorvane {
namespace {

class PeakReportViewTest : public PeakFitTest {
 protected:
  PeakReportViewTest() {
    data_no = Show(std::vector<std::int32_t>(256, 7), "a.npd");
    Enter(data_no, {1234.5, 99.5, 1.5}, 90, 110);
    Enter(data_no, {80, 200.25, 2}, 190, 210);
    windows.Add(form, [this](FormWindow& window) { LayOut(form, window); });
  }
  void WorkOnScreen(const std::function<void(FormWindow&)>& work) {
    QTimer::singleShot(0, [&] {
      FormWindow& window = *windows.WindowOf(form);
      EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
      work(window);
      form.Hide();
    });
    form.Open(0);
  }
  // Row and column from 1.
  QPoint PlaceOf(FormWindow& window, int row, int column) {
    auto* table = window.As<QTableView>(form.sprPeakInf);
    return table->visualRect(table->model()->index(row - 1, column - 1)).center();
  }
  void Type(FormWindow& window, int row, int column, const char* text) {
    auto* table = window.As<QTableView>(form.sprPeakInf);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, PlaceOf(window, row, column));
    QTest::keyClick(table, Qt::Key_F2);
    auto* editor = table->viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QTest::qWait(1);  // the cell takes the text when the editor has gone
  }
  static void Press(FormWindow& window, const char* name) {
    auto* button = window.findChild<QPushButton*>(name);
    ASSERT_NE(button, nullptr) << name;
    QTest::mouseClick(button, Qt::LeftButton);
  }

  std::int16_t data_no = 0;
  QtFormHost screen;
  MemorySettings settings;
  FakePrinter printer;
  frmPrint ask{program, screen, settings};
  frmPreView preview{screen};
  Printing printing{program, ask, preview, printer};
  frmPeakReport form{program, screen, printing};
  FormViews windows{screen};
};

TEST_F(PeakReportViewTest, EveryControlHasItsWidget) {
  WorkOnScreen([&](FormWindow& window) { ExpectEveryControlHasItsWidget(form, window); });
}

TEST_F(PeakReportViewTest, CellIsClickedTypedAndSet) {
  WorkOnScreen([&](FormWindow& window) {
    Type(window, 1, frmPeakReport::kIntensity, "500");
    EXPECT_EQ(view.CursorCh, 100);
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].Height, 1234.5);
    Press(window, "cmdPkSet");
    EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].Height, 500);
  });
}

TEST_F(PeakReportViewTest, CellsThatFollowFromOthersCannotBeTyped) {
  WorkOnScreen([&](FormWindow& window) {
    auto* table = window.As<QTableView>(form.sprPeakInf);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, PlaceOf(window, 1, 6));
    QTest::keyClick(table, Qt::Key_F2);
    EXPECT_EQ(table->findChild<QLineEdit*>(), nullptr);
  });
}

TEST_F(PeakReportViewTest, WholeTableIsCopiedAsTabSeparatedText) {
  workspace.DefaultProp.TwoTheta = 0;
  for (int i = 0; i < 3; ++i) workspace.DefaultProp.EGC[i] = 0;
  WorkOnScreen([&](FormWindow& window) { Press(window, "cmdCopy"); });
  EXPECT_EQ(QApplication::clipboard()->text().trimmed().toStdString(),
            "Peak(Ch)\tPeak(Ch)\tIntensity\tFWHM(Ch)\tFWHM(keV)\tFWHM(dA)\tAmplitude\tGauss%\t"
            "FitType\n"
            "100.5\t100.5\t1234.5\t3\t0\t0\t0\t0\tN\n"
            "201.25\t201.25\t80\t4\t0\t0\t0\t0\tN");
}

TEST_F(PeakReportViewTest, ErrorsStandBesideTheirPeaksHoweverEitherIsScrolled) {
  for (int i = 0; i < 40; ++i) Enter(data_no, {100, 210.0 + i, 1}, 190, 250);
  WorkOnScreen([&](FormWindow& window) {
    auto* peaks = window.As<QTableView>(form.sprPeakInf);
    auto* errors = window.As<QTableView>(form.sprPeakErr);
    const auto same_places = [&] {
      const auto top = [](const QTableView* table, int row) {
        return table->viewport()->mapToGlobal(QPoint(0, table->rowViewportPosition(row))).y();
      };
      return top(peaks, 0) == top(errors, 0) && top(peaks, 41) == top(errors, 41);
    };
    EXPECT_TRUE(same_places());
    peaks->scrollToBottom();
    EXPECT_GT(errors->rowAt(0), 0);
    EXPECT_TRUE(same_places());
    errors->scrollToTop();
    EXPECT_EQ(peaks->rowAt(0), 0);
    EXPECT_TRUE(same_places());
    QTest::keyClick(peaks, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(errors->currentIndex().row(), 41);
    EXPECT_TRUE(same_places());
  });
}

TEST_F(PeakReportViewTest, RowOfTheErrorsIsClicked) {
  WorkOnScreen([&](FormWindow& window) {
    auto* errors = window.As<QTableView>(form.sprPeakErr);
    const QModelIndex cell = errors->model()->index(1, 2);
    QTest::mouseClick(errors->viewport(), Qt::LeftButton, {}, errors->visualRect(cell).center());
    EXPECT_EQ(view.CursorCh, 200);
    EXPECT_EQ(window.As<QTableView>(form.sprPeakInf)->currentIndex().row(), 1);
  });
}

TEST_F(PeakReportViewTest, SaveIsClicked) {
  dialogs.ExpectSave(folder.Path("r.csv"));
  WorkOnScreen([&](FormWindow& window) { Press(window, "cmdSave"); });
  EXPECT_TRUE(folder.Has("r.csv"));
}

TEST_F(PeakReportViewTest, EscapeClosesAndCloseIsClicked) {
  WorkOnScreen([&](FormWindow& window) {
    QTest::keyClick(window.Of(form.sprPeakInf), Qt::Key_Escape);
    EXPECT_FALSE(form.Visible());
  });
  WorkOnScreen([&](FormWindow& window) {
    Press(window, "cmdClose");
    EXPECT_FALSE(form.Visible());
  });
}

}  // namespace
}  // namespace dorvane
