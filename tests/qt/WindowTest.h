// The running program under test: an application without a display, boxes that are answered,
// widgets by name.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "qt/Session.h"
#include "support/MemorySettings.h"
#include "support/TemporaryFolder.h"

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

// A program that has started in an empty folder.
class WindowTest : public testing::Test {
 protected:
  void SetUp() override { Start(); }

  // Also again, after the program has ended.
  void Start() {
    session = std::make_unique<Session>(
        Places{folder.Path(""), folder.Path("home/"), DORVANE_BINARY_DIR "/bin/"}, settings);
    const BoxAnswerer boxes;
    session->Start();
    start_boxes = boxes.Texts();
    Window().activateWindow();  // no window manager does it after the boxes
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
  }

  FormWindow& Window() { return *session->form_views.WindowOf(session->main); }
  template <class Widget>
  Widget* Find(const char* name) {
    auto* widget = Window().findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void Trigger(const char* action) { Find<QAction>(action)->trigger(); }
  void Click(const char* name) { Find<QAbstractButton>(name)->click(); }
  void Type(const char* name, const QString& text) {
    auto* edit = Find<QLineEdit>(name);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
  }
  void Open(const std::string& path) { session->main.Drop({path}); }
  void OpenCorundum() { Open(kCorundum); }
  const ViewState& View() { return session->program.view; }
  Workspace& Store() { return session->program.workspace; }
  QString StatusHint() { return Find<QLabel>("lblHint")->text(); }

  TemporaryFolder folder;
  MemorySettings settings;
  std::unique_ptr<Session> session;
  QStringList start_boxes;
};

}  // namespace dorvane
