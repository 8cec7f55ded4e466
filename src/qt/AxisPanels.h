// The small surfaces of a graph window's axes.
#pragma once

#include <QWidget>

#include "qt/Session.h"

namespace dorvane {

// Left of a graph: counts. Wheel: taller and shorter; double click: the height that fits.
class CountAxisPanel : public QWidget {
  Q_OBJECT

 public:
  CountAxisPanel(Session& session, int win_no, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  Session& session_;
};

// Below a graph: the unit. Wheel: scrolls; double click: the whole spectrum.
class UnitAxisPanel : public QWidget {
  Q_OBJECT

 public:
  UnitAxisPanel(Session& session, int win_no, QWidget* parent);

 signals:
  void WholeRangeWanted();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  Session& session_;
  const int win_no_;
};

}  // namespace dorvane
