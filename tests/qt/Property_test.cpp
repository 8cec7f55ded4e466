// The measurement properties of the running program, from the menu to a file that is read again.
#include <QFileDialog>

#include "WindowTest.h"

namespace dorvane {
namespace {

class PropertyWindow : public WindowTest {
 protected:
  frmProperty& Sheet() { return session->property; }
  FormWindow& Form() { return *session->form_views.WindowOf(Sheet()); }
  // Opens the form by its menu entry; `work` has to close it.
  void Work(const std::function<void()>& work) {
    QTimer::singleShot(0, [&] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(&Form()));
      work();
    });
    Trigger("mnuProperty");
    EXPECT_FALSE(Sheet().Visible());
  }
  void Press(const Control& button) { QTest::mouseClick(Form().Of(button), Qt::LeftButton); }
  void TypeInto(const Control& box, const QString& text) {
    StartTyping(box, text);
    QTest::keyClick(Form().Of(box), Qt::Key_Return);
  }
  // Without the end of the box's edit.
  void StartTyping(const Control& box, const QString& text) {
    auto* edit = Form().As<QLineEdit>(box);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
  }
  QString Shown(const Control& box) { return Form().As<QLineEdit>(box)->text(); }
  SpectrumRec& Record() { return Store().Spectra[View().DataNo]; }
};

// Answers the question with Yes and types a path into the file dialog behind it.
class SaveTo {
 public:
  explicit SaveTo(std::string path) : path_(std::move(path)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
    timer_.start(50);
  }
  const QString& Proposed() const { return proposed_; }

 private:
  void Answer() {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || ++polls_ == 1) return;
    timer_.stop();
    auto* edit = dialog->findChild<QLineEdit*>("fileNameEdit");
    proposed_ = edit->text();
    edit->selectAll();
    QTest::keyClicks(edit, QString::fromStdString(path_));
    QTest::keyClick(edit, Qt::Key_Return);
    if (dialog->isVisible()) dialog->reject();
  }

  std::string path_;
  QString proposed_;
  BoxAnswerer yes_{QMessageBox::Yes};
  QTimer timer_;
  int polls_ = 0;
};

TEST_F(PropertyWindow, TypedPropertiesAreSavedAndReadAgainFromTheFile) {
  OpenCorundum();
  const MeasProp before = Record().Prop;
  const SaveTo save(folder.Path("other.xbm"));
  Work([this] {
    TypeInto(Sheet().txtMsuName, "abc000099");
    Press(Sheet().cmdIndent);
    EXPECT_EQ(Shown(Sheet().txtMsuName), "abc000100");
    TypeInto(Sheet().txtSampName, "Al2O3 + NaCl");
    TypeInto(Sheet().txtOpDate, "2003/12/31");
    TypeInto(Sheet().txtOpTime, "23:59.58");
    TypeInto(Sheet().imnInV, "0.1");
    TypeInto(Sheet().imnInX, "-0.25");
    TypeInto(Sheet().imnHGonioDAngle, "5.98765");
    EXPECT_EQ(Shown(Sheet().imnInX), "(0.250)");
    TypeInto(Sheet().ImnTemp, "30");
    TypeInto(Sheet().imnCurrent2, "2");
    TypeInto(Sheet().imnVolt, "1");
    TypeInto(Sheet().imnEneCalA, "0.25");
    EXPECT_EQ(Shown(Sheet().imnTempK), "303.15");
    EXPECT_EQ(Shown(Sheet().imnRegistance), "500.00000");
    Press(Sheet().cmdOk);
  });
  EXPECT_EQ(save.Proposed(), "corundum_ambient_RAW");
  EXPECT_EQ(Find<QLineEdit>("txt2Theta_1")->text(), "5.98765");
  Open(folder.Path("other.xbm"));
  const SpectrumRec& read = Record();
  EXPECT_EQ(read.MsuName.Text(), "other");
  EXPECT_EQ(read.SampName.Text(), "Al2O3 + NaCl");
  EXPECT_EQ(read.OpDate.Bytes(), "20031231");
  EXPECT_EQ(read.OpTime.Bytes(), "235958");
  MeasProp expected = before;
  expected.InV = 0.1;
  expected.InX = -0.25;
  expected.TwoTheta = 5.98765;
  expected.Temp = 30;
  expected.Current2 = 2;
  expected.Volt = 1;
  expected.Registance = 500;
  expected.EGC[0] = 0.25;
  EXPECT_EQ(read.Prop, expected);
}

TEST_F(PropertyWindow, SaveWithoutATouchAsksNothingAndChangesNothing) {
  OpenCorundum();
  const SpectrumRec before = Record();
  const BoxAnswerer boxes;
  Work([this] { Press(Sheet().cmdOk); });
  EXPECT_EQ(Record(), before);
  EXPECT_TRUE(boxes.Texts().isEmpty());
}

TEST_F(PropertyWindow, QuestionIsAskedOnce) {
  OpenCorundum();
  const BoxAnswerer no(QMessageBox::No);
  Work([this] {
    TypeInto(Sheet().txtMemo, "by hand");
    Press(Sheet().cmdOk);
  });
  EXPECT_EQ(no.Texts(), QStringList("Property is changed. Do you want to save this file?"));
  EXPECT_EQ(Record().Memo.Text(), "by hand");
}

TEST_F(PropertyWindow, WhatWasTypedIsGoneAfterExitEscapeAndTheFrame) {
  OpenCorundum();
  const SpectrumRec before = Record();
  const std::function<void()> ways[] = {
      [this] { Press(Sheet().cmdCan); },
      [this] { QTest::keyClick(Form().focusWidget(), Qt::Key_Escape); },
      [this] { Form().close(); }};
  for (const auto& leave : ways) {
    Work([&] {
      TypeInto(Sheet().txtMemo, "by hand");
      StartTyping(Sheet().imnLoad, "77");
      leave();
    });
    EXPECT_EQ(Record(), before);
    Work([&] {
      EXPECT_EQ(Shown(Sheet().imnLoad), "0.000");
      EXPECT_EQ(Shown(Sheet().txtMemo).toStdString(), before.Memo.Text());
      Press(Sheet().cmdOk);
    });
    EXPECT_EQ(Record(), before);
  }
}

TEST_F(PropertyWindow, WithoutTheLabelToolAMessageTellsSo) {
  OpenCorundum();
  const BoxAnswerer boxes;
  Work([this] {
    Press(Sheet().cmdLabelPrint);
    EXPECT_TRUE(Sheet().Visible());
    Press(Sheet().cmdCan);
  });
  EXPECT_EQ(boxes.Texts(), QStringList("Label Print error"));
}

TEST_F(PropertyWindow, WithoutAGraphNothingOpens) {
  Trigger("mnuProperty");
  EXPECT_FALSE(Sheet().Visible());
}

}  // namespace
}  // namespace dorvane
