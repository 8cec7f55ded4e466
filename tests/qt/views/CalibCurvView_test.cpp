// The window of the calibration curve as its user sees and works it.
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "forms/FakePrinter.h"
#include "forms/frmCalibCurv.h"
#include "program/ProgramFixture.h"
#include "qt/binding/BindingFixture.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

class CalibCurvViewTest : public ProgramTest {
 protected:
  CalibCurvViewTest() {
    SetStartValues(program);
    windows.Add(form, [this](FormWindow& window) { LayOut(form, window); });
    result.points = {{100, 4.01}, {200, 7}};
    result.coefficients[1] = 0.035;
    result.memo = "Energy(keV) = ...";
  }
  void WorkOnScreen(const std::function<void(FormWindow&)>& work) {
    QTimer::singleShot(0, [&] {
      FormWindow& window = *windows.WindowOf(form);
      EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
      work(window);
      form.Hide();
    });
    form.Open(result);
  }

  QtFormHost screen;
  FakePrinter printer;
  frmCalibCurv form{program, screen, printer};
  FormViews windows{screen};
  CalibrationResult result;
};

TEST_F(CalibCurvViewTest, EveryControlHasItsWidget) {
  WorkOnScreen([&](FormWindow& window) { ExpectEveryControlHasItsWidget(form, window); });
}

TEST_F(CalibCurvViewTest, CurveIsPaintedAndPaintedAnewForTheNextResult) {
  QImage first;
  WorkOnScreen([&](FormWindow& window) {
    first = window.Of(form.picCurve)->grab().toImage();
    EXPECT_EQ(window.As<QLineEdit>(form.txtMemo)->text(), "Energy(keV) = ...");
  });
  result.coefficients[1] = 0.05;
  WorkOnScreen(
      [&](FormWindow& window) { EXPECT_NE(window.Of(form.picCurve)->grab().toImage(), first); });
}

TEST_F(CalibCurvViewTest, PrintIsPressedAndEscapeCloses) {
  WorkOnScreen([&](FormWindow& window) {
    window.As<QPushButton>(form.cmdPrint)->click();
    EXPECT_EQ(printer.titles.size(), 1u);
    EXPECT_TRUE(form.Visible());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(form.Visible());
  });
}

}  // namespace
}  // namespace dorvane
