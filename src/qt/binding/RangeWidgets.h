// Sliders, scroll bars, up/down buttons and dividers.
#pragma once

#include <QSplitter>
#include <QWidget>

#include "forms/Controls.h"
#include "qt/binding/WheelSteps.h"

namespace dorvane {

// Both lie; a view turns them upright.
QWidget* MakeSliderWidget(Slider& control, QWidget* parent);
QWidget* MakeScrollWidget(ScrollBar& control, QWidget* parent);

// Two arrows ("sprName_Up", "sprName_Down") that repeat while they are held; the arrow keys and the
// wheel press them, too.
class UpDownView : public QWidget {
  Q_OBJECT

 public:
  UpDownView(UpDown& control, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Press(bool up);
  UpDown& control_;
  WheelSteps steps_;
};

// A divider between two widgets, one above the other, that a view adds: a grip that can be seen.
// With the focus, Up and Down move it and the space bar is its double click. The share stays when
// the size changes; the lower widget can be closed, the upper one can't.
class SplitterView : public QSplitter {
  Q_OBJECT

 public:
  SplitterView(Splitter& control, QWidget* parent);

 protected:
  QSplitterHandle* createHandle() override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Follow();
  Splitter& control_;
};

}  // namespace dorvane
