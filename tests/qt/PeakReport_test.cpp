// The peak report of the running program, from the fit to the curve of a changed peak.
#include <QTableView>

#include "WindowTest.h"

namespace dorvane {
namespace {

class PeakReportWindow : public WindowTest {
 protected:
  FormWindow& Form() { return *session->form_views.WindowOf(session->peak_report); }
  void Work(const std::function<void()>& work) {
    QTimer::singleShot(0, [&] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(&Form()));
      work();
      QTest::mouseClick(Form().Of(session->peak_report.cmdClose), Qt::LeftButton);
    });
    Trigger("mnuPeakReport");
  }
};

TEST_F(PeakReportWindow, HeightOfAFittedPeakIsTypedAndTheCurveFollows) {
  OpenCorundum();
  session->main.commands.Run("NaxAllFit");
  const int fit = Store().Slots[0].DataNo;
  const auto counts = Store().Channels[fit];
  Work([this] {
    auto* table = Form().As<QTableView>(session->peak_report.sprPeakInf);
    EXPECT_EQ(table->model()->rowCount(), Store().Peaks[View().DataNo].Count);
    const QModelIndex cell = table->model()->index(0, 2);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(cell).center());
    QTest::keyClick(table, Qt::Key_F2);
    auto* editor = table->viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, "77777");
    QTest::keyClick(editor, Qt::Key_Return);
    QTest::qWait(1);  // the cell takes the text when the editor has gone
    QTest::mouseClick(Form().Of(session->peak_report.cmdPkSet), Qt::LeftButton);
  });
  EXPECT_EQ(Store().Peaks[fit].Peaks[0].Height, 77777);
  EXPECT_EQ(Store().Slots[0].Title, "Fit");
  EXPECT_NE(Store().Channels[fit], counts);
}

// "AutoFit" fits a smoothed curve.
TEST_F(PeakReportWindow, AutoFitGivesEveryPeakItsErrors) {
  OpenCorundum();
  Store().Settings.BgCoef = 5;
  session->main.commands.Run("AutoFit");
  Work([this] {
    const auto* errors = Form().As<QTableView>(session->peak_report.sprPeakErr)->model();
    EXPECT_GE(errors->rowCount(), 5);
    for (int row = 0; row < errors->rowCount(); ++row) {
      EXPECT_GT(errors->index(row, 0).data().toString().toDouble(), 0) << row;
      EXPECT_GT(errors->index(row, 2).data().toString().toDouble(), 0) << row;
    }
  });
}

TEST_F(PeakReportWindow, IsShownOnItsSheetByPrintAndPreview) {
  OpenCorundum();
  session->main.commands.Run("NaxAllFit");
  Work([this] {
    QString sheet;
    QTimer::singleShot(0, [&] {
      QTimer::singleShot(0, [&] {
        FormWindow& shown = *session->form_views.WindowOf(session->preview);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
        sheet = shown.windowTitle();
        QTest::keyClick(&shown, Qt::Key_Escape);
      });
      QTest::mouseClick(session->form_views.WindowOf(session->print)->Of(session->print.cmdPreview),
                        Qt::LeftButton);
    });
    QTest::mouseClick(Form().Of(session->peak_report.cmdPrint), Qt::LeftButton);
    EXPECT_EQ(sheet, "Preview");
  });
}

}  // namespace
}  // namespace dorvane
