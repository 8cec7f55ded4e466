// Forms in their windows under test: an application without a display, widgets by the names of
// their controls.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <memory>
#include <string>

#include "qt/binding/FormWindow.h"
#include "qt/binding/QtFormHost.h"
#include "qt/binding/Text.h"

namespace dorvane {

class BindingApplication : public testing::Environment {
 public:
  void SetUp() override { application_ = std::make_unique<QApplication>(argc_, argv_); }
  void TearDown() override { application_.reset(); }

 private:
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  int argc_ = 1;
  std::unique_ptr<QApplication> application_;
};

// Each control has one object of its name below the window, and a widget has been laid out.
inline void ExpectEveryControlHasItsWidget(Form& form, FormWindow& window) {
  EXPECT_FALSE(form.Controls().All().empty());
  for (const Control* control : form.Controls().All()) {
    const auto found = window.findChildren<QObject*>(ToQString(control->Name()));
    EXPECT_EQ(found.size(), 1) << control->Name();
    EXPECT_TRUE(found.contains(window.ObjectOf(*control))) << control->Name();
    const QWidget* widget = window.Of(*control);
    EXPECT_FALSE(widget != nullptr && window.LeftOut(widget)) << control->Name();
  }
}

}  // namespace dorvane
