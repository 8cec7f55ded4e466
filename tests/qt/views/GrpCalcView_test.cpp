#include <QLabel>

#include "forms/frmGrpCalc.h"
#include "program/ProgramFixture.h"
#include "qt/binding/BindingFixture.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

class GrpCalcView : public ProgramTest {
 protected:
  FormWindow& Open() {
    windows.Add(form, [this](FormWindow& window) { LayOut(form, window); });
    form.Show();
    FormWindow& window = *windows.WindowOf(form);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    return window;
  }
  static int Left(FormWindow& window, const Control& control) {
    return window.Of(control)->mapTo(&window, QPoint()).x();
  }

  QtFormHost host;
  frmGrpCalc form{program, host};
  FormViews windows{host};
};

TEST_F(GrpCalcView, EveryControlHasItsWidget) {
  ExpectEveryControlHasItsWidget(form, Open());
}

TEST_F(GrpCalcView, ItReadsAsTheExpression) {
  FormWindow& window = Open();
  const Control* expression[] = {&form.lblResult, &form.cmbGraph[0], &form.cmbOpe1,
                                 &form.ImNumber1, &form.cmbOpe2,     &form.cmbGraph[1],
                                 &form.cmbOpe3,   &form.ImNumber2};
  for (std::size_t i = 1; i < std::size(expression); ++i) {
    EXPECT_LT(Left(window, *expression[i - 1]), Left(window, *expression[i]));
  }
  EXPECT_EQ(window.As<QLabel>(form.lblResult)->text(), "G1＝ ");
}

TEST_F(GrpCalcView, BothTermsStandOnOneLine) {
  FormWindow& window = Open();
  const auto middle = [&window](const Control& control) {
    QWidget* widget = window.Of(control);
    return widget->mapTo(&window, widget->rect().center()).y();
  };
  EXPECT_EQ(middle(form.cmbGraph[0]), middle(form.cmbGraph[1]));
  EXPECT_EQ(middle(form.ImNumber1), middle(form.ImNumber2));
}

TEST_F(GrpCalcView, TabWalksTheExpressionToTheButtons) {
  FormWindow& window = Open();
  const Control* stops[] = {&form.cmbGraph[0], &form.cmbOpe1, &form.ImNumber1, &form.cmbOpe2,
                            &form.cmbGraph[1], &form.cmbOpe3, &form.ImNumber2, &form.cmdCancel};
  form.cmdCalc.SetEnabled(false);
  for (const Control* stop : stops) {
    EXPECT_TRUE(window.Of(*stop)->hasFocus()) << stop->Name();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
}

}  // namespace
}  // namespace dorvane
