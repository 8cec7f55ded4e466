// A row of the list of curves beside a graph: the check box of a graph, its colour and its title;
// the current one is marked.
#pragma once

#include <QWidget>

#include "forms/SelectorPanel.h"
#include "qt/binding/FormWindow.h"

namespace dorvane {

// A click beside the check box makes the graph the current one of its window.
class CurveRow : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kHeight = 24;

  CurveRow(SelectorPanel& selector, int index, QWidget* check_box, QWidget* parent);
  // Follows the graph's place and colour.
  void Follow();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  SelectorPanel& selector_;
  const int index_;  // of chkGrp
};

// The whole list of a window.
QWidget* MakeCurveList(SelectorPanel& selector, int win_no, FormWindow& window);

}  // namespace dorvane
