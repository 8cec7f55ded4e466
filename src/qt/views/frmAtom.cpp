#include "forms/frmAtom.h"

#include <QKeyEvent>
#include <algorithm>
#include <functional>

#include "forms/PeriodicTable.h"
#include "qt/binding/LabelView.h"
#include "qt/binding/Layouts.h"
#include "qt/binding/ToggleView.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr int kCellGap = 2;
constexpr QSize kCell(36, 36);
constexpr int kGapRow = 8;

// Toggles that are one stop of the tab key, among which the arrow keys walk.
class ArrowWalk : public QObject {
 public:
  // The index of the toggle that follows in a direction.
  using Next = std::function<int(int from, int down, int right)>;

  ArrowWalk(QList<QWidget*> toggles, Next next, QObject* parent)
      : QObject(parent), toggles_(std::move(toggles)), next_(std::move(next)) {
    for (QWidget* toggle : toggles_) toggle->installEventFilter(this);
    StopAt(0);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto at = static_cast<int>(toggles_.indexOf(static_cast<QWidget*>(watched)));
    if (event->type() == QEvent::FocusIn) StopAt(at);
    if (event->type() != QEvent::KeyPress) return false;
    switch (static_cast<QKeyEvent*>(event)->key()) {
      case Qt::Key_Left:
        return Walk(at, 0, -1);
      case Qt::Key_Right:
        return Walk(at, 0, 1);
      case Qt::Key_Up:
        return Walk(at, -1, 0);
      case Qt::Key_Down:
        return Walk(at, 1, 0);
      default:
        return false;
    }
  }

 private:
  bool Walk(int from, int down, int right) {
    toggles_[next_(from, down, right)]->setFocus(Qt::TabFocusReason);
    return true;
  }
  void StopAt(int stop) {
    for (int i = 0; i < toggles_.size(); ++i) {
      toggles_[i]->setFocusPolicy(i == stop ? Qt::StrongFocus : Qt::ClickFocus);
    }
  }

  QList<QWidget*> toggles_;
  Next next_;
};

// The name of the stretch of elements that stands below the table.
QLabel* Placeholder(const QString& text, QWidget* parent) {
  auto* label = SmallCaption(text, Qt::AlignCenter, parent);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * 0.8);
  label->setFont(font);
  return label;
}

QGridLayout* Table(frmAtom& form, FormWindow& window) {
  auto* grid = new QGridLayout;
  grid->setSpacing(kCellGap);
  QList<QWidget*> toggles;
  for (int num = kFirstElement; num <= kLastElement; ++num) {
    auto* toggle = window.As<ToggleView>(form.tglAtom[num]);
    toggle->SetCorner(QString::number(num));
    toggle->setFixedSize(toggle->sizeHint().expandedTo(kCell));
    const TablePlace place = PlaceOf(num);
    grid->addWidget(toggle, place.row - 1, place.column - 1);
    toggles << toggle;
  }
  grid->addWidget(Placeholder("57-71", window.centralWidget()), 5, 2);
  grid->addWidget(Placeholder("89-103", window.centralWidget()), 6, 2);
  grid->setRowMinimumHeight(kGapRow - 1, kGap);
  grid->setColumnStretch(kTableColumns, 1);
  const auto next = [](int from, int down, int right) {
    return NeighbourOf(from + kFirstElement, down, right) - kFirstElement;
  };
  new ArrowWalk(toggles, next, &window);
  return grid;
}

// The row of toggles within a frame.
QHBoxLayout* FrameRow(QWidget* frame) {
  auto* row = new QHBoxLayout(frame);
  row->setContentsMargins(kGap, kGap / 2, kGap, kGap / 2);
  row->setSpacing(kCellGap);
  return row;
}

void Kinds(frmAtom& form, FormWindow& window) {
  QHBoxLayout* row = FrameRow(window.Of(form.frmPkDisp));
  QList<QWidget*> toggles;
  for (int kind = 0; kind < form.tglPkDisp.Size(); ++kind) {
    QWidget* toggle = window.Of(form.tglPkDisp[kind]);
    toggle->setMinimumSize(toggle->sizeHint().expandedTo(QSize(52, 28)));
    row->addWidget(toggle);
    toggles << toggle;
  }
  const int last = form.tglPkDisp.Size() - 1;
  const auto next = [last](int from, int down, int right) {
    return std::clamp(from + down + right, 0, last);
  };
  new ArrowWalk(toggles, next, &window);
}

void Modes(frmAtom& form, FormWindow& window) {
  QHBoxLayout* row = FrameRow(window.Of(form.frmMode));
  for (const ToggleButton* mode : {&form.optEdit, &form.optMark, &form.optTake}) {
    window.Of(*mode)->setMinimumSize(64, 28);
    row->addWidget(window.Of(*mode));
  }
}

}  // namespace

void LayOut(frmAtom& form, FormWindow& window) {
  Kinds(form, window);
  Modes(form, window);
  auto* head = new QHBoxLayout;
  head->addWidget(window.Of(form.frmPkDisp));
  head->addStretch();
  head->addWidget(window.Of(form.frmMode));
  window.As<LabelView>(form.lblHint)->SetElided();
  QHBoxLayout* foot = ButtonRow(window, {&form.cmdElement, &form.cmdCancel});
  foot->insertWidget(0, window.Of(form.lblHint), 1);
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(head);
  column->addLayout(Table(form, window));
  column->addStretch();
  column->addLayout(foot);
  window.SetCancelButton(form.cmdCancel);
  window.SetFirstFocus(form.tglAtom[kFirstElement]);
}

}  // namespace dorvane
