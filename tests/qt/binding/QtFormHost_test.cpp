#include "qt/binding/QtFormHost.h"

#include <QTimer>

#include "BindingTest.h"

namespace dorvane {
namespace {

using FormWindowTest = BindingTest;

class StubbornForm : public TestForm {
 public:
  using TestForm::TestForm;
  void QueryClose() override { ++asked; }
  int asked = 0;
};

TEST_F(FormWindowTest, NameAndTitleAreTheForms) {
  EXPECT_EQ(Window().objectName(), "frmTest");
  EXPECT_EQ(Window().windowTitle(), "Every kind");
  form.SetCaption("Dorvane - a.npd");
  EXPECT_EQ(Window().windowTitle(), "Dorvane - a.npd");
}

TEST_F(FormWindowTest, ClosingHidesAndTheContentStays) {
  form.txtName.SetText("kept");
  Window().close();
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(Window().isVisible());
  form.Show();
  EXPECT_TRUE(Window().isVisible());
  EXPECT_EQ(form.txtName.Text(), "kept");
}

TEST_F(FormWindowTest, FormMayRefuseToClose) {
  StubbornForm stubborn(host);
  FormViews own_views(host);
  own_views.Add(stubborn, [&stubborn](FormWindow& window) { LayOut(stubborn, window); });
  stubborn.Show();
  own_views.WindowOf(stubborn)->close();
  EXPECT_EQ(stubborn.asked, 1);
  EXPECT_TRUE(own_views.WindowOf(stubborn)->isVisible());
}

TEST_F(FormWindowTest, TopMostStaysOnTopAndVisible) {
  form.SetTopMost(true);
  EXPECT_TRUE(Window().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(Window().isVisible());
  form.SetTopMost(false);
  EXPECT_FALSE(Window().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(Window().isVisible());
}

TEST_F(FormWindowTest, EscapePressesTheCancelButton) {
  const auto presses = Count(form.cmdCan.Click);
  QTest::keyClick(Of(form.txtName), Qt::Key_Escape);
  EXPECT_EQ(*presses, 1);
}

TEST_F(FormWindowTest, EscapeClosesWhileTheCancelButtonIsHidden) {
  const auto presses = Count(form.cmdCan.Click);
  form.cmdCan.SetVisible(false);
  QTest::keyClick(Of(form.txtName), Qt::Key_Escape);
  EXPECT_EQ(*presses, 0);
  EXPECT_FALSE(form.Visible());
}

TEST_F(FormWindowTest, EnterPressesTheFocusedButton) {
  const auto presses = Count(form.cmdOk.Click);
  const auto cancels = Count(form.cmdCan.Click);
  Of(form.cmdCan)->setFocus();
  QTest::keyClick(Of(form.cmdCan), Qt::Key_Return);
  EXPECT_EQ(*presses, 0);
  EXPECT_EQ(*cancels, 1);
}

TEST_F(FormWindowTest, EnterThatHidTheFormPressesNoButton) {
  const auto presses = Count(form.cmdOk.Click);
  form.txtName.EnterPressed.Connect([this] { form.Hide(); });
  Of(form.txtName)->setFocus();
  QTest::keyClick(Of(form.txtName), Qt::Key_Return);
  EXPECT_EQ(*presses, 0);
}

TEST_F(FormWindowTest, ModalFormRunsUntilItIsHidden) {
  TestForm modal(host);
  views.Add(modal, [&modal](FormWindow& window) { LayOut(modal, window); });
  modal.cmdOk.Click.Connect([&modal] { modal.Hide(); });
  bool was_modal = false;
  QTimer::singleShot(20, [&] {
    was_modal = QApplication::activeModalWidget() == views.WindowOf(modal);
    QTest::mouseClick(views.WindowOf(modal)->Of(modal.cmdOk), Qt::LeftButton);
  });
  modal.ShowModal();
  EXPECT_TRUE(was_modal);
  EXPECT_FALSE(views.WindowOf(modal)->isVisible());
}

TEST_F(FormWindowTest, WindowBelowIsActiveAgainWhenAFormIsHidden) {
  TestForm other(host);
  views.Add(other, [&other](FormWindow& window) { LayOut(other, window); });
  other.Show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(views.WindowOf(other)));
  EXPECT_FALSE(Window().isActiveWindow());
  other.Hide();
  EXPECT_TRUE(QTest::qWaitFor([this] { return Window().isActiveWindow(); }, 1000));
}

TEST_F(FormWindowTest, ModalFormEndsByItsFrame) {
  TestForm modal(host);
  views.Add(modal, [&modal](FormWindow& window) { LayOut(modal, window); });
  QTimer::singleShot(20, [&] { views.WindowOf(modal)->close(); });
  modal.ShowModal();
  EXPECT_FALSE(modal.Visible());
}

TEST_F(FormWindowTest, ModalFormsNest) {
  TestForm outer(host);
  TestForm inner(host);
  views.Add(outer, [&outer](FormWindow& window) { LayOut(outer, window); });
  views.Add(inner, [&inner](FormWindow& window) { LayOut(inner, window); });
  std::vector<std::string> order;
  outer.cmdOk.Click.Connect([&] {
    inner.ShowModal();
    order.push_back("inner over");
    outer.Hide();
  });
  QTimer::singleShot(20, [&] { outer.cmdOk.Press(); });
  QTimer::singleShot(60, [&] { inner.Hide(); });
  outer.ShowModal();
  order.push_back("outer over");
  EXPECT_EQ(order, (std::vector<std::string>{"inner over", "outer over"}));
}

TEST_F(FormWindowTest, FormWithoutAViewIsOverAtOnce) {
  TestForm other(host);
  other.ShowModal();
  EXPECT_FALSE(other.Visible());
}

TEST_F(FormWindowTest, WindowIsMadeWhenItIsFirstWanted) {
  TestForm other(host);
  int made = 0;
  views.Add(other, [&](FormWindow& window) {
    ++made;
    LayOut(other, window);
  });
  EXPECT_EQ(made, 0);
  other.Show();
  other.Hide();
  other.Show();
  EXPECT_EQ(made, 1);
}

}  // namespace
}  // namespace dorvane
