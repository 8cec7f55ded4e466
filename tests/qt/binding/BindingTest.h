// The form with every kind of control, shown.
#pragma once

#include "BindingFixture.h"
#include "TestForm.h"

namespace dorvane {

class BindingTest : public testing::Test {
 protected:
  void SetUp() override {
    views.Add(form, [this](FormWindow& window) { LayOut(form, window); });
    form.Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
  }

  FormWindow& Window() { return *views.WindowOf(form); }
  template <class Widget>
  Widget* Find(const char* name) {
    auto* widget = Window().findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  QWidget* Of(const Control& control) { return Window().Of(control); }
  // Counts the event from now on.
  template <typename... Args>
  std::shared_ptr<int> Count(Event<Args...>& event) {
    auto count = std::make_shared<int>(0);
    event.Connect([count](Args...) { ++*count; });
    return count;
  }
  // Types over what stands in the box.
  void TypeOver(QWidget* box, const char* text) {
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, text);
  }

  QtFormHost host;
  TestForm form{host};
  FormViews views{host};
};

}  // namespace dorvane
