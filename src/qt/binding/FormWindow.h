// The window of a form: makes the widget of every control; a view lays them out.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <functional>
#include <map>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "qt/binding/MenuWidgets.h"

namespace dorvane {

// The title is the form's caption. Closing asks the form (QueryClose) and goes on only when that
// has hidden it. Where the focused widget has no use for the key, Enter presses the button that has
// the focus, or else the default button, and Escape the cancel button; while that is hidden, Escape
// closes.
class FormWindow : public QMainWindow {
  Q_OBJECT

 public:
  // Puts the widgets into layouts; knows no rule of the form.
  using Layout = std::function<void(FormWindow&)>;

  // The form outlives the window. Widgets that the layout leaves out are never seen.
  FormWindow(Form& form, const Layout& layout, IconOfKey icon = {});

  Form& TheForm() const { return form_; }
  // The widget, action or timer of a control of this form.
  QObject* ObjectOf(const Control& control) const;
  QWidget* Of(const Control& control) const { return As<QWidget>(control); }
  // The widget as its own type; nullptr when it is another.
  template <class Widget>
  Widget* As(const Control& control) const {
    return qobject_cast<Widget*>(ObjectOf(control));
  }
  // The control whose widget holds this one, or is it; nullptr where there is none.
  Control* ControlOf(const QWidget* widget) const;
  // The page of a tab, counted from 0.
  QWidget* Page(const Tabs& tabs, int index) const;
  // A new label with the caption of a control that has no place for it, enabled and visible as the
  // control; its mnemonic goes to the control's widget.
  QLabel* CaptionOf(Control& control);
  // True for a widget that the layout has left out.
  bool LeftOut(const QWidget* widget) const { return widget->parentWidget() == holder_; }

  // The way of the Tab key: through these widgets and those within them, one after the other.
  void SetTabOrder(const std::vector<QWidget*>& widgets);
  // Has the focus, its text selected, each time the window comes up.
  void SetFirstFocus(const Control& control);
  // The same where it is asked for each time.
  void SetFirstFocus(std::function<const Control&()> control) { first_focus_ = std::move(control); }
  void SetDefaultButton(const Button& button);
  // Escape presses it even where a box refuses to be left, as closing the window does.
  void SetCancelButton(Button& button);

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Follow();

  Form& form_;
  QWidget* holder_;
  std::map<const Control*, QObject*> objects_;
  std::function<const Control&()> first_focus_;
  const Button* default_button_ = nullptr;
  Button* cancel_button_ = nullptr;
};

}  // namespace dorvane
