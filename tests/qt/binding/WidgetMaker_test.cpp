#include "qt/binding/WidgetMaker.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include "BindingTest.h"

namespace dorvane {
namespace {

testing::Environment* const kApplication =
    testing::AddGlobalTestEnvironment(new BindingApplication);

TEST_F(BindingTest, EveryControlHasItsWidget) {
  ExpectEveryControlHasItsWidget(form, Window());
}

TEST_F(BindingTest, EveryWidgetFollowsEnabled) {
  for (Control* control : form.Controls().All()) {
    QWidget* widget = Of(*control);
    if (widget == nullptr) continue;
    control->SetEnabled(false);
    EXPECT_FALSE(widget->isEnabled()) << control->Name();
    control->SetEnabled(true);
    EXPECT_TRUE(widget->isEnabled()) << control->Name();
  }
}

TEST_F(BindingTest, EveryWidgetFollowsVisible) {
  for (Control* control : form.Controls().All()) {
    QWidget* widget = Of(*control);
    if (widget == nullptr) continue;
    control->SetVisible(false);
    EXPECT_TRUE(widget->isHidden()) << control->Name();
    control->SetVisible(true);
    EXPECT_FALSE(widget->isHidden()) << control->Name();
  }
}

TEST_F(BindingTest, EveryWidgetFollowsTipAndCaption) {
  for (Control* control : form.Controls().All()) {
    QWidget* widget = Of(*control);
    if (widget == nullptr) continue;
    control->SetTip("what it is for");
    control->SetCaption("Cell && &size");
    EXPECT_EQ(widget->toolTip(), "what it is for") << control->Name();
    EXPECT_EQ(widget->accessibleName(), "Cell & size") << control->Name();
  }
}

TEST_F(BindingTest, ControlHiddenBeforeItsWindowStaysHidden) {
  TestForm other(host);
  other.chkFix.SetVisible(false);
  FormWindow window(other, [&other](FormWindow& each) { LayOut(other, each); });
  window.show();
  EXPECT_FALSE(window.Of(other.chkFix)->isVisible());
  EXPECT_TRUE(window.Of(other.optEGC)->isVisible());
}

TEST_F(BindingTest, FormOutlivesItsWindow) {
  TestForm other(host);
  {
    const FormWindow window(other, [&other](FormWindow& each) { LayOut(other, each); });
  }
  other.txtName.SetText("still here");
  other.SetCaption("still here");
  other.picGraph.Redraw();
  EXPECT_EQ(other.txtName.Text(), "still here");
}

TEST_F(BindingTest, LabelShowsItsCaptionAsItStands) {
  form.lblName.SetCaption("<b>Al2O3</b>");
  EXPECT_EQ(Find<QLabel>("lblName")->text(), "<b>Al2O3</b>");
  EXPECT_EQ(Find<QLabel>("lblName")->textFormat(), Qt::PlainText);
}

TEST_F(BindingTest, FrameShowsItsCaption) {
  form.fraFields.SetCaption("Cell");
  EXPECT_EQ(Find<QGroupBox>("fraFields")->title(), "Cell");
}

TEST_F(BindingTest, CaptionLabelFollowsItsControl) {
  auto* caption = Find<QLabel>("txtName_Caption");
  EXPECT_EQ(caption->buddy(), Of(form.txtName));
  form.txtName.SetCaption("Title");
  form.txtName.SetVisible(false);
  EXPECT_EQ(caption->text(), "Title");
  EXPECT_TRUE(caption->isHidden());
}

TEST_F(BindingTest, ButtonIsPressedByMouseSpaceAndMnemonic) {
  const auto presses = Count(form.cmdOk.Click);
  QTest::mouseClick(Of(form.cmdOk), Qt::LeftButton);
  EXPECT_EQ(*presses, 1);
  QTest::keyClick(Of(form.cmdOk), Qt::Key_Space);
  EXPECT_EQ(*presses, 2);
  QTest::keyClick(&Window(), Qt::Key_O, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return *presses == 3; }, 1000));
}

TEST_F(BindingTest, ButtonThatIsOffTakesNothing) {
  const auto presses = Count(form.cmdOk.Click);
  form.cmdOk.SetEnabled(false);
  QTest::mouseClick(Of(form.cmdOk), Qt::LeftButton);
  EXPECT_EQ(*presses, 0);
}

TEST_F(BindingTest, ButtonShowsItsCaption) {
  form.cmdOk.SetCaption("O K");
  EXPECT_EQ(Find<QPushButton>("cmdOk")->text(), "O K");
}

TEST_F(BindingTest, CheckBoxFollowsItsControl) {
  form.chkFix.SetChecked(true);
  form.chkFix.SetCaption("Fixed");
  EXPECT_TRUE(Find<QCheckBox>("chkFix")->isChecked());
  EXPECT_EQ(Find<QCheckBox>("chkFix")->text(), "Fixed");
}

TEST_F(BindingTest, CheckBoxIsSetByTheUserOnce) {
  const auto clicks = Count(form.chkFix.Click);
  QTest::keyClick(Of(form.chkFix), Qt::Key_Space);
  EXPECT_TRUE(form.chkFix.Checked());
  EXPECT_EQ(*clicks, 1);
}

TEST_F(BindingTest, CheckThatIsTakenBackShowsSo) {
  form.chkFix.Click.Connect([this] { form.chkFix.SetChecked(false); });
  QTest::keyClick(Of(form.chkFix), Qt::Key_Space);
  EXPECT_FALSE(Find<QCheckBox>("chkFix")->isChecked());
}

TEST_F(BindingTest, ToggleButtonStaysDownUntilItIsPressedAgain) {
  const auto clicks = Count(form.tglAtom.Click);
  QTest::mouseClick(Of(form.tglAtom), Qt::LeftButton);
  EXPECT_TRUE(form.tglAtom.Pressed());
  QTest::keyClick(Of(form.tglAtom), Qt::Key_Space);
  EXPECT_FALSE(form.tglAtom.Pressed());
  EXPECT_EQ(*clicks, 2);
}

TEST_F(BindingTest, ToggleButtonFollowsItsControl) {
  form.tglAtom.SetPressed(true);
  form.tglAtom.SetCaption("Co");
  EXPECT_TRUE(Find<QToolButton>("tglAtom_26")->isChecked());
  EXPECT_EQ(Find<QToolButton>("tglAtom_26")->text(), "Co");
}

TEST_F(BindingTest, TogglePressThatIsTakenBackShowsSo) {
  form.tglAtom.Click.Connect([this] { form.tglAtom.SetPressed(false); });
  QTest::keyClick(Of(form.tglAtom), Qt::Key_Space);
  EXPECT_FALSE(Find<QToolButton>("tglAtom_26")->isChecked());
}

TEST_F(BindingTest, TimerTicksWhileItIsOn) {
  EXPECT_FALSE(Find<QTimer>("timScroll")->isActive());
  form.timScroll.SetEnabled(true);
  EXPECT_TRUE(QTest::qWaitFor([this] { return form.ticks >= 2; }, 2000));
  form.timScroll.SetEnabled(false);
  EXPECT_FALSE(Find<QTimer>("timScroll")->isActive());
}

TEST_F(BindingTest, MenuEntryHangsBelowItsParent) {
  auto* file = Find<QAction>("mnuFile");
  EXPECT_TRUE(Window().menuBar()->actions().contains(file));
  EXPECT_TRUE(file->menu()->actions().contains(Find<QAction>("mnuOpen")));
}

TEST_F(BindingTest, ALineStandsBeforeASeparatedMenuEntryAlone) {
  const QList<QAction*> actions = Find<QAction>("mnuFile")->menu()->actions();
  ASSERT_EQ(actions.size(), 4);
  EXPECT_EQ(actions[1]->objectName(), "mnuPile");
  EXPECT_TRUE(actions[2]->isSeparator());
  EXPECT_EQ(actions[3]->objectName(), "mnuExit");
}

TEST_F(BindingTest, MenuEntryIsChosenByItsKeyAndTellsIt) {
  const auto choices = Count(form.mnuOpen.Click);
  QTest::keyClick(&Window(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(*choices, 1);
  EXPECT_EQ(Find<QAction>("mnuOpen")->toolTip(), "Open... (Ctrl+O)");
}

TEST_F(BindingTest, MenuEntryThatIsOffHasNoKey) {
  const auto choices = Count(form.mnuOpen.Click);
  form.mnuOpen.SetEnabled(false);
  QTest::keyClick(&Window(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(*choices, 0);
}

TEST_F(BindingTest, MenuEntryShowsItsControlsCheckNotTheUsers) {
  form.mnuPile.SetChecked(true);
  auto* pile = Find<QAction>("mnuPile");
  EXPECT_TRUE(pile->isChecked());
  pile->trigger();
  EXPECT_TRUE(pile->isChecked());
  form.mnuPile.SetChecked(false);
  EXPECT_FALSE(pile->isChecked());
}

TEST_F(BindingTest, MenuEntryFollowsVisibleAndCaption) {
  form.mnuPile.SetVisible(false);
  form.mnuPile.SetCaption("Pile");
  EXPECT_FALSE(Find<QAction>("mnuPile")->isVisible());
  EXPECT_EQ(Find<QAction>("mnuPile")->text(), "Pile");
}

TEST_F(BindingTest, ToolButtonHandsOverItsKey) {
  std::string pressed;
  form.tlbMain.ButtonClick.Connect([&pressed](std::string_view key) { pressed = key; });
  auto* bar = Find<QToolBar>("tlbMain");
  QTest::mouseClick(bar->widgetForAction(Find<QAction>("tlbMain_Fit")), Qt::LeftButton);
  EXPECT_EQ(pressed, "Fit");
}

TEST_F(BindingTest, ToolButtonStaysPressedUntilItsControlSaysOtherwise) {
  auto* log = Find<QAction>("tlbMain_Log");
  form.tlbMain.SetButtonPressed("Log", true);
  EXPECT_TRUE(log->isChecked());
  log->trigger();
  EXPECT_TRUE(log->isChecked());
  form.tlbMain.SetButtonPressed("Log", false);
  EXPECT_FALSE(log->isChecked());
}

TEST_F(BindingTest, ToolButtonThatIsOffTakesNothing) {
  const auto presses = Count(form.tlbMain.ButtonClick);
  form.tlbMain.SetButtonEnabled("Fit", false);
  Find<QAction>("tlbMain_Fit")->trigger();
  EXPECT_EQ(*presses, 0);
}

TEST_F(BindingTest, ToolButtonHasTipAndIcon) {
  EXPECT_EQ(Find<QAction>("tlbMain_Load")->toolTip(), "Load a spectrum");
  TestForm other(host);
  QPixmap dot(4, 4);
  dot.fill(Qt::black);
  const auto icon = [&dot](const ToolBar&, const QString& key) {
    return key == "Fit" ? QIcon(dot) : QIcon();
  };
  const FormWindow window(
      other, [&other](FormWindow& each) { LayOut(other, each); }, icon);
  EXPECT_FALSE(window.findChild<QAction*>("tlbMain_Fit")->icon().isNull());
  EXPECT_TRUE(window.findChild<QAction*>("tlbMain_Log")->icon().isNull());
}

}  // namespace
}  // namespace dorvane
