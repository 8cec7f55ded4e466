#include "qt/views/GraphSheet.h"

#include <QComboBox>
#include <QGridLayout>
#include <QPainter>
#include <QPointer>

#include "display/DrawScale.h"
#include "qt/binding/Layouts.h"
#include "qt/binding/PictureView.h"
#include "qt/binding/Text.h"
#include "qt/surface/PainterSurface.h"
#include "qt/views/CurveRow.h"
#include "qt/views/Parts.h"

namespace dorvane {
namespace {

constexpr int kHeadHeight = 24;
constexpr int kRightMargin = 12;
constexpr int kTickAndGap = 8;  // pixels between an axis and its labels
constexpr int kListWidth = 216;
constexpr QSize kLeastGraph(160, 72);

// Metrics of the axes' font on a surface.
QFontMetrics AxisMetrics(const QWidget* widget) {
  QFont font = widget->font();
  font.setPixelSize(13);
  return QFontMetrics(font);
}

void DrawHint(QPainter& painter, const QRectF& rect, const QString& hint, const QColor& ink,
              bool large) {
  QFont font = painter.font();
  if (large) font.setPointSizeF(font.pointSizeF() * 1.4);
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(rect.adjusted(8, 0, -8, 0), Qt::AlignCenter | Qt::TextWordWrap, hint);
}

PictureView* GraphPicture(frmDorvane& form, FormWindow& window, int win_no) {
  auto* view = window.As<PictureView>(form.graphs.picGraph[win_no]);
  view->setMinimumSize(kLeastGraph);
  view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  view->setFocusPolicy(Qt::StrongFocus);
  view->setAccessibleName(QString("Graph of window %1").arg(win_no + 1));
  view->SetOpaque();
  view->SetPicture([&form, win_no](QPainter& painter, const QRectF& rect) {
    PainterSurface surface(painter, rect);
    form.graphs.DrawGraph(win_no, surface);
  });
  view->SetOverlay([&form, win_no](QPainter& painter, const QRectF& rect) {
    if (const auto hint = form.graphs.HintOf(win_no); !hint.empty()) {
      DrawHint(painter, rect, ToQString(hint), ToQColor(form.graphs.Ink()), win_no == 0);
      return;
    }
    PainterSurface surface(painter, rect);
    form.graphs.DrawOverlay(win_no, surface, form.cursor.Form());
  });
  return view;
}

PictureView* CountAxis(frmDorvane& form, FormWindow& window, int win_no) {
  auto* view = window.As<PictureView>(form.graphs.picScaleY[win_no]);
  view->setAccessibleName(QString("Count axis of window %1").arg(win_no + 1));
  view->setFixedWidth(AxisMetrics(view).horizontalAdvance(" 88.8K") + kTickAndGap + 8);
  view->SetPicture([&form, win_no](QPainter& painter, const QRectF& rect) {
    PainterSurface surface(painter, rect);
    form.graphs.DrawCountAxis(win_no, surface);
  });
  return view;
}

PictureView* UnitAxis(frmDorvane& form, FormWindow& window, int win_no) {
  auto* view = window.As<PictureView>(form.graphs.picSubScale[win_no]);
  view->setAccessibleName(QString("Unit axis of window %1").arg(win_no + 1));
  view->setFixedHeight(kTickAndGap + 2 * AxisMetrics(view).height() + 4);
  view->SetPicture([&form, win_no](QPainter& painter, const QRectF& rect) {
    PainterSurface surface(painter, rect);
    form.graphs.DrawUnitAxis(win_no, surface, UnitDivisions(rect.width()));
  });
  return view;
}

QString HeadText(frmDorvane& form, int win_no) {
  const QString title = ToQString(form.selector.TitleOf(win_no)).toHtmlEscaped();
  const QString sample = ToQString(form.selector.SampleOf(win_no)).trimmed().toHtmlEscaped();
  const bool active = form.graphs.ActiveWindow() == win_no;
  const QString head = active ? "<b>" + title + "</b>" : title;
  return sample.isEmpty() ? head : head + "&nbsp;&nbsp; " + sample;
}

// Ground and ink come from the colour table, whatever the desktop's theme is.
void UseGround(frmDorvane& form, QWidget* sheet, int win_no) {
  QPalette ground = sheet->palette();
  ground.setColor(QPalette::Window, ToQColor(form.graphs.GroundOf(win_no)));
  ground.setColor(QPalette::WindowText, ToQColor(form.graphs.Ink()));
  if (ground != sheet->palette()) sheet->setPalette(ground);
}

QWidget* Sheet(frmDorvane& form, FormWindow& window, int win_no) {
  auto* sheet = new QWidget(&window);
  sheet->setAutoFillBackground(true);
  auto* counts = new QLabel("Counts", sheet);
  counts->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  counts->setContentsMargins(0, 0, 4, 0);
  auto* head = new QLabel(sheet);
  head->setObjectName(QString("lblTitle_%1").arg(win_no));
  head->setTextFormat(Qt::RichText);
  head->setContentsMargins(8, 0, 0, 0);
  head->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

  auto* grid = new QGridLayout(sheet);
  grid->setContentsMargins(0, 0, kRightMargin, 0);
  grid->setSpacing(0);
  grid->setRowMinimumHeight(0, kHeadHeight);
  grid->addWidget(counts, 0, 0);
  grid->addWidget(head, 0, 1);
  grid->addWidget(CountAxis(form, window, win_no), 1, 0);
  grid->addWidget(GraphPicture(form, window, win_no), 1, 1);
  grid->addWidget(UnitAxis(form, window, win_no), 2, 1);
  grid->setRowStretch(1, 1);
  grid->setColumnStretch(1, 1);

  const auto follow = [&form, win_no, head, sheet] {
    head->setText(HeadText(form, win_no));
    UseGround(form, sheet, win_no);
  };
  follow();
  form.selector.Filled.Connect([alive = QPointer<QWidget>(sheet), follow] {
    if (alive) follow();
  });
  return sheet;
}

QWidget* Side(frmDorvane& form, FormWindow& window, int win_no) {
  auto* side = new QWidget(&window);
  side->setFixedWidth(kListWidth);
  auto* selector = window.As<QComboBox>(form.selector.cboGrphSel[win_no]);
  selector->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  selector->setMinimumContentsLength(8);
  auto* count = ReadOut(window, form.cursor.inumCursorCnt[win_no], "88888888");
  QHBoxLayout* foot = RowOf({new QLabel("Count", side), count});
  foot->addStretch();
  foot->addWidget(window.Of(form.style.chkFilePile[win_no]));
  QVBoxLayout* column = InnerColumn(side);
  column->setContentsMargins(4, 4, 8, 4);
  column->setSpacing(4);
  column->addWidget(selector);
  column->addWidget(MakeCurveList(form.selector, win_no, window), 1);
  column->addLayout(foot);
  return side;
}

}  // namespace

QWidget* LayOutGraph(frmDorvane& form, FormWindow& window, int win_no) {
  QWidget* frame = window.Of(form.graphs.fraGraph[win_no]);
  auto* row = new QHBoxLayout(frame);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(Sheet(form, window, win_no), 1);
  row->addWidget(VerticalRule(&window));
  row->addWidget(Side(form, window, win_no));
  return frame;
}

}  // namespace dorvane
