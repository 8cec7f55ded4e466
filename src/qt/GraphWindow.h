// One of the two graph windows: picture, axes, list of curves, and a line above that tells the
// current spectrum.
#pragma once

#include <QFrame>
#include <QLabel>

#include "qt/AxisPanels.h"
#include "qt/CurveList.h"
#include "qt/GraphCanvas.h"
#include "qt/Session.h"

namespace dorvane {

class GraphWindow : public QWidget {
  Q_OBJECT

 public:
  GraphWindow(Session& session, int win_no, QWidget* parent);

  GraphCanvas& Canvas() { return *canvas_; }
  // Colours of the program's table.
  void UseGroundColors();

 signals:
  void WholeRangeWanted();

 private:
  void RefreshHead();
  void RefreshAxes();
  void Follow(const Notices& notices);

  Session& session_;
  const int win_no_;
  QWidget* sheet_;
  QLabel* head_;
  GraphCanvas* canvas_;
  CountAxisPanel* count_axis_;
  UnitAxisPanel* unit_axis_;
  CurveList* list_;
};

}  // namespace dorvane
