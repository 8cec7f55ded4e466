#include "qt/binding/TextWidgets.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <functional>
#include <memory>
#include <utility>

#include "qt/binding/Mirror.h"
#include "qt/binding/TabularFont.h"
#include "qt/binding/Text.h"

namespace dorvane {
namespace {

// Eats the press that a refused change of focus began with, up to its release.
class PressEater : public QObject {
 public:
  PressEater() { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    const bool release = event->type() == QEvent::MouseButtonRelease;
    if (!watched->isWidgetType() || (!press && !release)) return false;
    if (release) {
      qApp->removeEventFilter(this);
      deleteLater();
    }
    return true;
  }
};

// Asks the control before the focus goes to another widget of the window.
class FocusGate : public QObject {
 public:
  FocusGate(TextBox& control, QWidget* widget)
      : QObject(widget), control_(control), widget_(widget) {
    widget->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::FocusIn) entered_ = true;
    if (event->type() != QEvent::FocusOut || leaving_) return false;
    if (!widget_->isVisible()) {
      entered_ = false;
      return false;
    }
    // The box before has refused: the focus has never come here.
    if (!entered_) return true;
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
        reason == Qt::MenuBarFocusReason) {
      return false;
    }
    leaving_ = true;
    const bool may_leave = control_.Leave();
    if (!may_leave) {
      widget_->setFocus(Qt::OtherFocusReason);
      if (reason == Qt::MouseFocusReason) new PressEater;
    }
    leaving_ = false;
    if (may_leave) entered_ = false;
    return !may_leave;
  }

 private:
  TextBox& control_;
  QWidget* widget_;
  bool entered_ = false;
  bool leaving_ = false;
};

QWidget* MakeLine(TextBox& control, QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  edit->setFont(TabularFont(edit->font()));
  Mirror(control, edit, [&control, edit] {
    const QString text = ToQString(control.Text());
    if (edit->text() != text) edit->setText(text);
    edit->setReadOnly(control.ReadOnly());
  });
  QObject::connect(edit, &QLineEdit::textEdited, edit,
                   [&control](const QString& text) { control.SetText(ToUtf8(text)); });
  QObject::connect(edit, &QLineEdit::returnPressed, edit, [&control] { control.Enter(); });
  return edit;
}

QWidget* MakeLines(TextBox& control, QWidget* parent) {
  auto* edit = new QPlainTextEdit(parent);
  edit->setFont(TabularFont(edit->font()));
  edit->setTabChangesFocus(true);
  Mirror(control, edit, [&control, edit] {
    const QString text = ToQString(control.Text()).replace("\r\n", "\n");
    edit->setReadOnly(control.ReadOnly());
    if (edit->toPlainText() == text) return;
    const QSignalBlocker quiet(edit);
    edit->setPlainText(text);
    // What is added to a text that is only shown comes into sight.
    if (control.ReadOnly()) edit->moveCursor(QTextCursor::End);
  });
  QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [&control, edit] {
    control.SetText(ToUtf8(edit->toPlainText().replace("\n", "\r\n")));
  });
  return edit;
}

// What the user has typed into a number box and not yet handed over.
struct Draft {
  bool typed = false;
  double shown_value = 0;
};

// Escape takes back what is typed, and goes on to whoever else has a use for it. What has not been
// handed over when the window is hidden is gone when it is shown again.
class NumberEdit : public QLineEdit {
 public:
  NumberEdit(QWidget* parent, std::shared_ptr<Draft> draft, std::function<void()> take_back)
      : QLineEdit(parent), draft_(std::move(draft)), take_back_(std::move(take_back)) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape) take_back_();
    QLineEdit::keyPressEvent(event);
  }
  void showEvent(QShowEvent* event) override {
    if (!event->spontaneous() && draft_->typed) take_back_();
    QLineEdit::showEvent(event);
  }

 private:
  std::shared_ptr<Draft> draft_;
  std::function<void()> take_back_;
};

}  // namespace

QWidget* MakeTextWidget(TextBox& control, QWidget* parent) {
  QWidget* widget = control.SeveralLines() ? MakeLines(control, parent) : MakeLine(control, parent);
  new FocusGate(control, widget);
  return widget;
}

QWidget* MakeNumberWidget(NumberBox& control, QWidget* parent) {
  const auto draft = std::make_shared<Draft>();
  auto* edit = new NumberEdit(parent, draft, [&control, draft] {
    draft->typed = false;
    control.Shown.Fire();
  });
  edit->setFont(TabularFont(edit->font()));
  edit->setAlignment(Qt::AlignRight);
  Mirror(control, edit, [&control, edit, draft] {
    edit->setReadOnly(control.ReadOnly());
    if (draft->typed && draft->shown_value == control.Value()) return;
    *draft = {false, control.Value()};
    const QString text = ToQString(control.Text());
    if (edit->text() != text) edit->setText(text);
  });
  const auto hand_over = [&control, edit, draft] {
    if (!draft->typed) return;
    draft->typed = false;
    control.Type(ToUtf8(edit->text()));
  };
  QObject::connect(edit, &QLineEdit::textEdited, edit, [draft] { draft->typed = true; });
  QObject::connect(edit, &QLineEdit::editingFinished, edit, hand_over);
  QObject::connect(edit, &QLineEdit::returnPressed, edit, [&control, hand_over] {
    hand_over();
    control.Enter();
  });
  return edit;
}

}  // namespace dorvane
