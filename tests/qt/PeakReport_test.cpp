// The peak report of the running program, from the fit to the curve of a changed peak.
#include <QClipboard>
#include <QGuiApplication>
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

TEST_F(PeakReportWindow, IsCopiedAsTabSeparatedText) {
  OpenCorundum();
  PeakTable& table = Store().Peaks[View().DataNo];
  table.Count = 1;
  table.Peaks[0].Height = 1000;
  table.Peaks[0].HalfWidth = 1.5;
  table.Peaks[0].Center = 99.5;
  Work(
      [this] { QTest::mouseClick(Form().findChild<QAbstractButton*>("cmdCopy"), Qt::LeftButton); });
  const QStringList lines = QGuiApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 3);  // the last one is ended
  EXPECT_EQ(lines[0],
            "Peak(Ch)\tPeak(Ch)\tIntensity\tFWHM(Ch)\tFWHM(keV)\tFWHM(dA)\tAmplitude\tGauss%\t"
            "FitType");
  EXPECT_TRUE(lines[1].startsWith("100.5\t100.5\t1000\t3\t")) << lines[1].toStdString();
  EXPECT_EQ(lines[1].count('\t'), 8);
}

TEST_F(PeakReportWindow, RegionsAreCopiedAsTabSeparatedText) {
  OpenCorundum();
  RoiTable& regions = Store().Regions;
  regions.RoiCount = 1;
  regions.Rois[0].DataNo = View().DataNo;
  regions.Rois[0].Start = 99;
  regions.Rois[0].End = 199;
  Trigger("mnuRoiReport");
  FormWindow& report = *session->form_views.WindowOf(session->roi_report);
  QTest::mouseClick(report.findChild<QAbstractButton*>("cmdCopy"), Qt::LeftButton);
  const QStringList lines = QGuiApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0], "Graph\tStart (Ch)\tEnd (Ch)\tAmplitude\tPeak (Ch)\tIntensity");
  EXPECT_TRUE(lines[1].startsWith("1\t100\t200\t")) << lines[1].toStdString();
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
