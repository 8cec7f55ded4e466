#include "qt/CurveList.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>

#include "program/MoveGraph.h"
#include "qt/binding/Text.h"

namespace dorvane {
namespace {

constexpr int kRowHeight = 24;
constexpr int kSwatchLeft = 32;
constexpr int kSwatch = 12;
constexpr int kTextLeft = kSwatchLeft + kSwatch + 8;
constexpr int kMark = 3;  // width of the current row's mark
constexpr int kListWidth = 216;

}  // namespace

CurveRow::CurveRow(Session& session, int win_no, int grp_no, QWidget* parent)
    : QWidget(parent), session_(session), win_no_(win_no), grp_no_(grp_no), chkGrp_(this) {
  setFixedHeight(kRowHeight);
  chkGrp_.setObjectName(QString("chkGrp_%1").arg(win_no * 10 + grp_no));
  chkGrp_.setFocusPolicy(Qt::TabFocus);
  chkGrp_.setGeometry(8, 0, kSwatchLeft - 8, kRowHeight);
  connect(&chkGrp_, &QCheckBox::clicked, this, [this](bool on) { ShowHere(on); });
}

bool CurveRow::IsHere() const {
  return session_.program.workspace.Slots[grp_no_].WinNo == win_no_;
}

bool CurveRow::IsCurrent() const {
  return IsHere() && session_.program.view.SelectedRow[win_no_] == grp_no_;
}

void CurveRow::Refresh() {
  const Workspace& workspace = session_.program.workspace;
  const GraphSlot& slot = workspace.Slots[grp_no_];
  setVisible(slot.State != kRowEmpty);
  chkGrp_.setChecked(IsHere() && slot.Disp != kFalse);
  const QString title = ToQString(slot.Title);
  const QString sample = ToQString(workspace.Spectra[slot.DataNo].SampName.Text()).trimmed();
  const QString where = IsHere() ? "" : QString("\nShown in window %1").arg(slot.WinNo + 1);
  setToolTip(sample.isEmpty() ? title + where : title + "\n" + sample + where);
  chkGrp_.setAccessibleName("Show " + title);
  update();
}

void CurveRow::paintEvent(QPaintEvent*) {
  const GraphSlot& slot = session_.program.workspace.Slots[grp_no_];
  const bool active = session_.program.view.CurWin == win_no_;
  QPainter painter(this);
  if (IsCurrent()) {
    QColor mark = palette().color(active ? QPalette::Highlight : QPalette::Mid);
    painter.fillRect(QRect(0, 0, kMark, height()), mark);
    mark.setAlphaF(0.16F);
    painter.fillRect(rect(), mark);
  }
  const QRect swatch(kSwatchLeft, (height() - kSwatch) / 2, kSwatch, kSwatch);
  QColor color = ToQColor(slot.Color);
  if (!IsHere()) color.setAlphaF(0.5F);
  painter.fillRect(swatch, color);

  QFont title_font = font();
  title_font.setBold(IsCurrent() && active);
  painter.setFont(title_font);
  painter.setPen(palette().color(IsHere() ? QPalette::Text : QPalette::PlaceholderText));
  const QRect text = rect().adjusted(kTextLeft, 0, -8, 0);
  const QString title =
      painter.fontMetrics().elidedText(ToQString(slot.Title), Qt::ElideMiddle, text.width());
  painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, title);
}

void CurveRow::ShowHere(bool shown) {
  session_.Do([this, shown](Program& program) {
    MoveGraph(program, grp_no_, win_no_);
    ChgValue_chkGrp(program.List(), win_no_, grp_no_, shown);
  });
}

void CurveRow::Select() {
  session_.Do([this](Program& program) {
    const int win_no = program.workspace.Slots[grp_no_].WinNo;
    Change_cboGrphSel(program.List(), win_no, grp_no_);
    ChangeActiveWin(program.List(), win_no);
  });
}

void CurveRow::mousePressEvent(QMouseEvent*) {
  Select();
}

void CurveRow::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  const int other = 1 - session_.program.workspace.Slots[grp_no_].WinNo;
  menu.addAction(QString("Move to window %1").arg(other + 1), this, [this, other] {
    session_.Do([=, this](Program& program) { MoveGraph(program, grp_no_, other); });
  });
  menu.exec(event->globalPos());
}

CurveList::CurveList(Session& session, int win_no, QWidget* parent) : QScrollArea(parent) {
  setObjectName(QString("cboGrphSel_%1").arg(win_no));
  setAccessibleName(QString("Curves of window %1").arg(win_no + 1));
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  setFixedWidth(kListWidth);
  auto* content = new QWidget;
  content->setBackgroundRole(QPalette::Base);
  content->setAutoFillBackground(true);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 4, 0, 4);
  column->setSpacing(0);
  for (int grp_no = 0; grp_no < kRows; ++grp_no) {
    auto* row = new CurveRow(session, win_no, grp_no, content);
    rows_[static_cast<std::size_t>(grp_no)] = row;
    column->addWidget(row);
  }
  column->addStretch();
  setWidget(content);
  Refresh();
}

void CurveList::Refresh() {
  for (CurveRow* row : rows_) row->Refresh();
}

QSize CurveList::sizeHint() const {
  return {kListWidth, 4 * kRowHeight};
}

}  // namespace dorvane
