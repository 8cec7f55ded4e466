#include <QLineEdit>

#include "forms/frmDispPara.h"
#include "forms/frmSetColor.h"
#include "forms/frmSetting.h"
#include "program/ProgramFixture.h"
#include "qt/binding/BindingFixture.h"
#include "qt/views/Views.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

class SettingsView : public ProgramTest {
 protected:
  template <class AForm>
  FormWindow& Open(AForm& form) {
    windows.Add(form, [&form](FormWindow& window) { LayOut(form, window); });
    form.Show();
    FormWindow& window = *windows.WindowOf(form);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    return window;
  }
  static QRect Place(FormWindow& window, const Control& control) {
    QWidget* widget = window.Of(control);
    return {widget->mapTo(&window, QPoint()), widget->size()};
  }
  // The line begins under its box.
  static void ExpectBelow(FormWindow& window, const Control& hint, const Control& box) {
    EXPECT_GT(Place(window, hint).top(), Place(window, box).bottom()) << hint.Name();
    EXPECT_LT(Place(window, hint).top(), Place(window, box).bottom() + 8) << hint.Name();
    EXPECT_EQ(Place(window, hint).left(), Place(window, box).left()) << hint.Name();
  }

  QtFormHost host;
  frmSetting setting{program, host};
  frmDispPara disp_para{program, host};
  frmSetColor colors{dialogs, host};
  FormViews windows{host};
};

TEST_F(SettingsView, EveryControlHasItsWidget) {
  ExpectEveryControlHasItsWidget(setting, Open(setting));
  ExpectEveryControlHasItsWidget(disp_para, Open(disp_para));
  ExpectEveryControlHasItsWidget(colors, Open(colors));
  ExpectEveryControlHasItsWidget(colors.dialog, Open(colors.dialog));
}

TEST_F(SettingsView, TheLineStandsUnderItsBox) {
  FormWindow& window = Open(setting);
  ExpectBelow(window, setting.lblThres, setting.txtThres);
  ExpectBelow(window, setting.lblBackTimes, setting.txtBackTimes);
  ExpectBelow(window, setting.lblJudgeRange, setting.txtJudgeRange);
  FormWindow& values = Open(disp_para);
  for (int i = 0; i < frmDispPara::kCoefficients; ++i) {
    ExpectBelow(values, disp_para.lblConst[i], disp_para.ImConst[i]);
  }
  ExpectBelow(values, disp_para.lblRange[0], disp_para.imnRealTime);
  ExpectBelow(values, disp_para.lblRange[5], disp_para.ImnTemp);
}

TEST_F(SettingsView, ALongCoefficientIsShownWhole) {
  disp_para.ImConst[0].SetValue(-99999.123456);
  FormWindow& window = Open(disp_para);
  auto* box = window.As<QLineEdit>(disp_para.ImConst[0]);
  EXPECT_LT(box->fontMetrics().horizontalAdvance(box->text()), box->width() - 8);
}

TEST_F(SettingsView, GraphsStandInAColumnOfTheirOwn) {
  colors.SetTbl(LightColors());
  FormWindow& window = Open(colors);
  const int graphs = Place(window, colors.cmdColor[0]).left();
  const int others = Place(window, colors.cmdColor[10]).left();
  EXPECT_LT(graphs, others);
  for (int i = 0; i < frmSetColor::kNamed; ++i) {
    EXPECT_EQ(Place(window, colors.cmdColor[i]).left(), i < 10 ? graphs : others) << i;
    EXPECT_GT(Place(window, colors.lblColor[i]).left(), Place(window, colors.cmdColor[i]).right());
  }
}

TEST_F(SettingsView, TabWalksTheDefaultPropertiesColumnByColumn) {
  FormWindow& window = Open(disp_para);
  const Control* stops[] = {&disp_para.ImConst[0],  &disp_para.ImConst[1], &disp_para.imnRealTime,
                            &disp_para.imnLiveTime, &disp_para.imnRoiCnt,  &disp_para.imnAngle,
                            &disp_para.ImnPress,    &disp_para.ImnTemp,    &disp_para.cmdOk};
  disp_para.ImConst[2].SetEnabled(false);
  disp_para.optMode.SetIndex(1);
  for (const Control* stop : stops) {
    if (stop == &disp_para.imnRealTime) {  // the mode stands before it
      EXPECT_TRUE(window.Of(disp_para.optMode)->isAncestorOf(QApplication::focusWidget()));
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_TRUE(window.Of(*stop)->hasFocus()) << stop->Name();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
}

}  // namespace
}  // namespace dorvane
