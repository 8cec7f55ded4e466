#include "qt/views/CurveRow.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

#include "qt/binding/Text.h"

namespace dorvane {
namespace {

constexpr int kBoxLeft = 8;
constexpr int kSwatchLeft = 32;
constexpr int kSwatch = 12;
constexpr int kTextLeft = kSwatchLeft + kSwatch + 8;
constexpr int kMark = 3;  // width of the current row's mark
constexpr int kShownRows = 3;

}  // namespace

CurveRow::CurveRow(SelectorPanel& selector, int index, QWidget* check_box, QWidget* parent)
    : QWidget(parent), selector_(selector), index_(index) {
  setFixedHeight(kHeight);
  // The box alone: the row shows the title in its own way.
  check_box->setParent(this);
  check_box->setGeometry(kBoxLeft, 0, kSwatchLeft - kBoxLeft - 4, kHeight);
  check_box->show();
  Follow();
}

void CurveRow::Follow() {
  const CheckBox& control = selector_.chkGrp[index_];
  if (isHidden() == control.Visible()) setVisible(control.Visible());
  setToolTip(ToQString(control.Tip()));
  update();
}

void CurveRow::paintEvent(QPaintEvent*) {
  const SelectorPanel::RowState state = selector_.StateOf_chkGrp(index_);
  const bool emphasised = state.current && state.active;
  QPainter painter(this);
  if (state.current) {
    QColor mark = palette().color(state.active ? QPalette::Highlight : QPalette::Mid);
    painter.fillRect(QRect(0, 0, kMark, height()), mark);
    mark.setAlphaF(0.16F);
    painter.fillRect(rect(), mark);
  }
  QColor color = ToQColor(selector_.ColorOf_chkGrp(index_).value_or(0));
  if (!state.here) color.setAlphaF(0.5F);
  painter.fillRect(QRect(kSwatchLeft, (height() - kSwatch) / 2, kSwatch, kSwatch), color);

  QFont title_font = font();
  title_font.setBold(emphasised);
  painter.setFont(title_font);
  painter.setPen(palette().color(state.here ? QPalette::Text : QPalette::PlaceholderText));
  const QRect place = rect().adjusted(kTextLeft, 0, -8, 0);
  const QString title = ToQString(selector_.chkGrp[index_].Caption());
  painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft,
                   painter.fontMetrics().elidedText(title, Qt::ElideMiddle, place.width()));
}

void CurveRow::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) selector_.SelectRow(index_);
}

QWidget* MakeCurveList(SelectorPanel& selector, int win_no, FormWindow& window) {
  auto* area = new QScrollArea(&window);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  area->setMinimumHeight(kShownRows * CurveRow::kHeight);
  auto* content = new QWidget;
  content->setBackgroundRole(QPalette::Base);
  content->setAutoFillBackground(true);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 4, 0, 4);
  column->setSpacing(0);
  for (int grp_no = 0; grp_no < kRows; ++grp_no) {
    const int index = win_no * kRows + grp_no;
    auto* row = new CurveRow(selector, index, window.Of(selector.chkGrp[index]), content);
    column->addWidget(row);
    selector.Filled.Connect(
        [&selector, index, alive = QPointer<CurveRow>(row), area, was_current = false]() mutable {
          if (!alive) return;
          alive->Follow();
          // A row that becomes the current one comes into sight.
          const bool current = selector.StateOf_chkGrp(index).current;
          if (current && !was_current) area->ensureWidgetVisible(alive, 0, 0);
          was_current = current;
        });
  }
  column->addStretch();
  area->setWidget(content);
  return area;
}

}  // namespace dorvane
