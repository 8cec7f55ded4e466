// The window of the measurement properties as its user sees and works it.
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include "forms/frmProperty.h"
#include "program/ProgramFixture.h"
#include "qt/binding/BindingFixture.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

struct NoLauncher : Launcher {
  bool EditText(const std::string&) override { return false; }
  bool Start(const std::string&) override { return false; }
};

class PropertyView : public ProgramTest {
 protected:
  FormWindow& Open() {
    windows.Add(form, [this](FormWindow& window) { LayOut(form, window); });
    Show({1, 2, 3});
    form.SetDataNo(0);
    form.SetValue();
    form.Show();
    FormWindow& window = *windows.WindowOf(form);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    return window;
  }

  QtFormHost host;
  NoLauncher launcher;
  frmProperty form{program, host, launcher, ""};
  FormViews windows{host};
};

TEST_F(PropertyView, EveryControlHasItsWidget) {
  FormWindow& window = Open();
  ExpectEveryControlHasItsWidget(form, window);
}

TEST_F(PropertyView, AllOfItFitsASmallScreen) {
  const QSize size = Open().size();
  EXPECT_LE(size.width(), 1366);
  EXPECT_LE(size.height(), 700);  // 768 less the title and a bar of the desktop
}

TEST_F(PropertyView, TabGoesThroughTheGroupsFromTopToBottom) {
  FormWindow& window = Open();
  const std::vector<const Control*> stops{&form.txtMsuName,
                                          &form.cmdIndent,
                                          &form.txtSampName,
                                          &form.txtOpDate,
                                          &form.txtOpTime,
                                          &form.txtOpName,
                                          &form.txtMemo,
                                          &form.imnCurrent,
                                          &form.imnInV,
                                          &form.imnInH,
                                          &form.imnInX,
                                          &form.imnInZ,
                                          &form.imnInTY,
                                          &form.imnReV,
                                          &form.imnReH,
                                          &form.imnReX,
                                          &form.imnReZ,
                                          &form.imnReTY,
                                          &form.imnHGonioX,
                                          &form.imnHGonioY,
                                          &form.imnHGonioZ,
                                          &form.imnHGonioDAngle,
                                          &form.imnVGonioX,
                                          &form.imnVGonioY,
                                          &form.imnVGonioZ,
                                          &form.imnVGonioDAngle,
                                          &form.imnPressX,
                                          &form.imnPressY,
                                          &form.imnPressZ,
                                          &form.imnPressTZ,
                                          &form.imnLoad,
                                          &form.imnRamStroke,
                                          &form.ImnPress,
                                          &form.ImnTemp,
                                          &form.imnTempK,
                                          &form.imnCurrent2,
                                          &form.imnVolt,
                                          &form.imnPower,
                                          &form.imnRegistance,
                                          &form.imnMiriVolt,
                                          &form.imnCollimeterSize,
                                          &form.imnCntRate,
                                          &form.imnRealTime,
                                          &form.imnLiveTime,
                                          &form.imnEneCalA,
                                          &form.imnEneCalB,
                                          &form.imnEneCalC,
                                          &form.cmdOk,
                                          &form.cmdCan,
                                          &form.cmdLabelPrint};
  for (const Control* stop : stops) {
    EXPECT_TRUE(window.Of(*stop)->hasFocus()) << stop->Name();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_TRUE(window.Of(form.txtMsuName)->hasFocus());
}

TEST_F(PropertyView, EnterInABoxDoesNotSave) {
  FormWindow& window = Open();
  auto* load = window.As<QLineEdit>(form.imnLoad);
  load->setFocus();
  load->selectAll();
  QTest::keyClicks(load, "12.5");
  QTest::keyClick(load, Qt::Key_Return);
  EXPECT_EQ(load->text(), "12.500");
  EXPECT_TRUE(form.Visible());
}

}  // namespace
}  // namespace dorvane
