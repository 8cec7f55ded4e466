// The calibration dialog as its user sees and works it.
#include "forms/frmDialogCalibC.h"

#include "program/ProgramFixture.h"
#include "qt/binding/BindingFixture.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

class DialogCalibCViewTest : public ProgramTest {
 protected:
  DialogCalibCViewTest() {
    views.Add(form);
    windows.Add(form, [this](FormWindow& window) { LayOut(form, window); });
    form.Open();
  }
  FormWindow& Window() {
    FormWindow& window = *windows.WindowOf(form);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    return window;
  }

  QtFormHost screen;
  frmDialogCalibC form{program,
                       screen,
                       {.ChooseFiles = [] { return std::vector<std::string>(); },
                        .ManualFit = [](int) {},
                        .ElementTable = [](frmAtom::TakeLine) {},
                        .CloseElementTable = [] {},
                        .ShowCurve = [](CalibrationResult) {}}};
  FormViews windows{screen};
};

TEST_F(DialogCalibCViewTest, EveryControlHasItsWidget) {
  ExpectEveryControlHasItsWidget(form, Window());
}

TEST_F(DialogCalibCViewTest, EscapeIsExit) {
  FormWindow& window = Window();
  EXPECT_EQ(view.CalibrationOn, kTrue);
  QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(view.CalibrationOn, kFalse);
}

}  // namespace
}  // namespace dorvane
