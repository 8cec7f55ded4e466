// A main window under test: an application without a display, boxes that are answered, widgets by
// name.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "qt/MainWindow.h"

namespace dorvane {

class ApplicationEnvironment : public testing::Environment {
 public:
  void SetUp() override { application_ = std::make_unique<QApplication>(argc_, argv_); }
  void TearDown() override { application_.reset(); }

 private:
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  int argc_ = 1;
  std::unique_ptr<QApplication> application_;
};
inline testing::Environment* const kApplication =
    testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

// Answers every message box as it comes up and keeps its texts.
class BoxAnswerer {
 public:
  explicit BoxAnswerer(QMessageBox::StandardButton answer = QMessageBox::Ok) : answer_(answer) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
    timer_.start(5);
  }
  const QStringList& Texts() const { return texts_; }
  const QStringList& Captions() const { return captions_; }

 private:
  void Answer() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    texts_ << box->text();
    captions_ << box->windowTitle();
    box->button(answer_)->click();
  }

  QMessageBox::StandardButton answer_;
  QTimer timer_;
  QStringList texts_;
  QStringList captions_;
};

inline const std::string kSamples = DORVANE_SOURCE_DIR "/samples/";
inline const std::string kCorundum = kSamples + "corundum_ambient.npd";
inline const std::string kMgo = kSamples + "mgo_under_load.npd";

class WindowTest : public testing::Test {
 protected:
  void SetUp() override {
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  }

  template <class Widget>
  Widget* Find(const char* name) {
    auto* widget = window.findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void Trigger(const char* action) { Find<QAction>(action)->trigger(); }
  void OpenCorundum() { window.OpenFiles({kCorundum}); }
  const ViewState& View() { return window.TheSession().program.view; }
  Workspace& Store() { return window.TheSession().program.workspace; }
  QString StatusHint() { return Find<QLabel>("lblHint")->toolTip(); }

  MainWindow window;
};

}  // namespace dorvane
