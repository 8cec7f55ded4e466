// The list of curves beside a graph: check box, colour, title; the current one is marked.
#pragma once

#include <QCheckBox>
#include <QScrollArea>
#include <QWidget>
#include <array>

#include "qt/Session.h"

namespace dorvane {

// One row of the list of graphs.
class CurveRow : public QWidget {
  Q_OBJECT

 public:
  CurveRow(Session& session, int win_no, int grp_no, QWidget* parent);
  void Refresh();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  bool IsHere() const;  // whether this window shows the graph
  bool IsCurrent() const;
  void ShowHere(bool shown);
  void Select();

  Session& session_;
  const int win_no_;
  const int grp_no_;
  QCheckBox chkGrp_;
};

class CurveList : public QScrollArea {
  Q_OBJECT

 public:
  CurveList(Session& session, int win_no, QWidget* parent);
  void Refresh();
  QSize sizeHint() const override;

 private:
  std::array<CurveRow*, kRows> rows_{};
};

}  // namespace dorvane
