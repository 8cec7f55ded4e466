#include "qt/GraphWindow.h"

#include <QGridLayout>
#include <QHBoxLayout>

#include "qt/Readouts.h"
#include "qt/binding/Text.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr int kHeadHeight = 24;
constexpr int kRightMargin = 12;

}  // namespace

GraphWindow::GraphWindow(Session& session, int win_no, QWidget* parent)
    : QWidget(parent),
      session_(session),
      win_no_(win_no),
      sheet_(new QWidget(this)),
      head_(new QLabel(sheet_)),
      canvas_(new GraphCanvas(session, win_no, sheet_)),
      count_axis_(new CountAxisPanel(session, win_no, sheet_)),
      unit_axis_(new UnitAxisPanel(session, win_no, sheet_)),
      list_(new CurveList(session, win_no, this)) {
  setObjectName(QString("fraGraph_%1").arg(win_no));
  sheet_->setAutoFillBackground(true);
  auto* counts = new QLabel("Counts", sheet_);
  counts->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  counts->setContentsMargins(0, 0, 4, 0);
  head_->setObjectName(QString("lblTitle_%1").arg(win_no));
  head_->setTextFormat(Qt::RichText);
  head_->setContentsMargins(8, 0, 0, 0);
  head_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

  auto* grid = new QGridLayout(sheet_);
  grid->setContentsMargins(0, 0, kRightMargin, 0);
  grid->setSpacing(0);
  grid->setRowMinimumHeight(0, kHeadHeight);
  grid->addWidget(counts, 0, 0);
  grid->addWidget(head_, 0, 1);
  grid->addWidget(count_axis_, 1, 0);
  grid->addWidget(canvas_, 1, 1);
  grid->addWidget(unit_axis_, 2, 1);
  grid->setRowStretch(1, 1);
  grid->setColumnStretch(1, 1);

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(sheet_, 1);
  row->addWidget(VerticalRule(this));
  row->addWidget(list_);

  connect(unit_axis_, &UnitAxisPanel::WholeRangeWanted, this, &GraphWindow::WholeRangeWanted);
  Follow(session.notices);
  UseGroundColors();
  RefreshHead();
}

void GraphWindow::Follow(const Notices& notices) {
  const auto redraw = [this] { canvas_->Invalidate(); };
  connect(&notices, &Notices::PictureChanged, this, redraw);
  connect(&notices, &Notices::SpanChanged, this, redraw);
  connect(&notices, &Notices::HeightChanged, this, redraw);
  connect(&notices, &Notices::SpanChanged, this, [this] { RefreshAxes(); });
  connect(&notices, &Notices::HeightChanged, this, [this] { RefreshAxes(); });
  connect(&notices, &Notices::UnitChanged, this, [this] { RefreshAxes(); });
  connect(&notices, &Notices::CursorChanged, canvas_, qOverload<>(&QWidget::update));
  connect(&notices, &Notices::ActiveWindowChanged, canvas_, qOverload<>(&QWidget::update));
  connect(&notices, &Notices::ListChanged, this, [this] { RefreshHead(); });
  connect(&session_, &Session::Done, this, [this] { RefreshHead(); });
}

void GraphWindow::RefreshAxes() {
  count_axis_->update();
  unit_axis_->update();
}

void GraphWindow::RefreshHead() {
  list_->Refresh();
  canvas_->update();
  const Workspace& workspace = session_.program.workspace;
  const int row = std::max<int>(session_.program.view.SelectedRow[win_no_], 0);
  const GraphSlot& slot = workspace.Slots[row];
  if (slot.State == kRowEmpty || slot.WinNo != win_no_) {
    head_->clear();
    return;
  }
  const QString title = ToQString(slot.Title).toHtmlEscaped();
  const QString sample = ToQString(workspace.Spectra[slot.DataNo].SampName.Text()).trimmed();
  const bool active = session_.program.view.CurWin == win_no_;
  QString text = active ? "<b>" + title + "</b>" : title;
  if (!sample.isEmpty()) text += "&nbsp;&nbsp; " + sample.toHtmlEscaped();
  head_->setText(text);
}

void GraphWindow::UseGroundColors() {
  const ColorTable& colors = session_.program.workspace.ColorTbl;
  QPalette ground = palette();
  ground.setColor(QPalette::Window, ToQColor(colors[kColorWindowBack + win_no_]));
  ground.setColor(QPalette::WindowText, ToQColor(colors[kColorAxis]));
  sheet_->setPalette(ground);
}

}  // namespace dorvane
