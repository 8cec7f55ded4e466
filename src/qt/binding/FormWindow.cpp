#include "qt/binding/FormWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>

#include "qt/binding/Mirror.h"
#include "qt/binding/Text.h"
#include "qt/binding/WidgetMaker.h"

namespace dorvane {

FormWindow::FormWindow(Form& form, const Layout& layout, IconOfKey icon)
    : form_(form), holder_(new QWidget(this)) {
  setObjectName(ToQString(form.Name()));
  holder_->hide();
  setCentralWidget(new QWidget(this));
  WidgetMaker maker(*this, holder_, std::move(icon));
  for (Control* control : form.Controls().All()) objects_[control] = maker.Make(*control);
  layout(*this);
  Follow();
  form.Shown.Connect([alive = QPointer<FormWindow>(this)] {
    if (alive) alive->Follow();
  });
}

void FormWindow::Follow() {
  setWindowTitle(ToQString(form_.Caption()));
  if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) == form_.TopMost()) return;
  const bool visible = isVisible();
  setWindowFlag(Qt::WindowStaysOnTopHint, form_.TopMost());
  if (visible) show();  // a window whose flags change is hidden
}

QObject* FormWindow::ObjectOf(const Control& control) const {
  const auto found = objects_.find(&control);
  return found == objects_.end() ? nullptr : found->second;
}

Control* FormWindow::ControlOf(const QWidget* widget) const {
  for (; widget != nullptr && widget != this; widget = widget->parentWidget()) {
    for (Control* control : form_.Controls().All()) {
      if (ObjectOf(*control) == widget) return control;
    }
  }
  return nullptr;
}

QWidget* FormWindow::Page(const Tabs& tabs, int index) const {
  return As<QTabWidget>(tabs)->widget(index);
}

QLabel* FormWindow::CaptionOf(Control& control) {
  auto* label = new QLabel(this);
  label->setObjectName(ToQString(control.Name() + "_Caption"));
  label->setBuddy(Of(control));
  Mirror(control, label, [&control, label] {
    label->setText(ToQString(control.Caption()));
    label->setEnabled(control.Enabled());
    if (label->isHidden() == control.Visible()) label->setVisible(control.Visible());
  });
  return label;
}

void FormWindow::SetTabOrder(const std::vector<QWidget*>& widgets) {
  QWidget* last = nullptr;
  for (QWidget* widget : widgets) {
    for (QWidget* each : QList<QWidget*>{widget} + widget->findChildren<QWidget*>()) {
      // A list that pops up is a window of its own.
      if (each->focusPolicy() == Qt::NoFocus || each->window() != this) continue;
      if (last != nullptr) setTabOrder(last, each);
      last = each;
    }
  }
}

void FormWindow::SetFirstFocus(const Control& control) {
  first_focus_ = [&control]() -> const Control& { return control; };
}

void FormWindow::SetDefaultButton(const Button& button) {
  default_button_ = &button;
  if (auto* widget = As<QPushButton>(button)) widget->setDefault(true);
}

void FormWindow::SetCancelButton(Button& button) {
  cancel_button_ = &button;
}

void FormWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (!first_focus_ || event->spontaneous()) return;
  QWidget* first = Of(first_focus_());
  first->setFocus();
  if (auto* edit = qobject_cast<QLineEdit*>(first)) edit->selectAll();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  if (form_.Visible()) form_.QueryClose();
  event->setAccepted(!form_.Visible());
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool escape = event->key() == Qt::Key_Escape;
  const Button* button = nullptr;
  auto* focused = qobject_cast<QPushButton*>(focusWidget());
  if (enter && isVisible() && focused != nullptr) return focused->click();
  if (enter) button = default_button_;
  if (escape) button = cancel_button_;
  if (button == nullptr) {
    QMainWindow::keyPressEvent(event);
  } else if (!isVisible()) {
    return;  // the focused widget has used the key to hide the form
  } else if (escape && button->Visible()) {
    if (button->Enabled()) cancel_button_->Press();
  } else if (button->Visible()) {
    As<QPushButton>(*button)->click();
  } else if (escape) {
    close();
  }
}

}  // namespace dorvane
