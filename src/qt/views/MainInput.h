// What the main form takes before its widgets do: its keys, and files dropped on it.
#pragma once

#include "forms/frmDorvane.h"
#include "qt/binding/FormWindow.h"

namespace dorvane {

// Hands keys to the form wherever the focus is in its window, and the names of dropped files. Enter
// and Escape in a box give the focus back to the graph; Escape takes back what is typed there. Goes
// with the window.
class MainInput : public QObject {
  Q_OBJECT

 public:
  // After the layout: it watches the widgets that are there.
  MainInput(frmDorvane& form, FormWindow& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool KeyPressed(QWidget* widget, const QKeyEvent& event);
  void TakeBackTyped();
  void FocusGraph();

  frmDorvane& form_;
  FormWindow& window_;
};

}  // namespace dorvane
