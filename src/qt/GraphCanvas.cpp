#include "qt/GraphCanvas.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "display/DrawScale.h"
#include "program/Cursor.h"
#include "program/View.h"
#include "qt/binding/Text.h"
#include "qt/surface/PainterSurface.h"
#include "support/Rounding.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr double kEdgeReach = 5;      // pixels from an edge of the area at which it is taken
constexpr double kWheelZoom = 0.8;    // of the span, for one notch
constexpr double kNotch = 120;        // units of a wheel's angle
constexpr int kScrollEveryMs = 50;    // while a drag holds the pointer outside
constexpr double kScrollShare = 0.1;  // of the span, for one notch

}  // namespace

GraphCanvas::GraphCanvas(Session& session, int win_no, QWidget* parent)
    : QWidget(parent), session_(session), win_no_(win_no) {
  setObjectName(QString("picGraph_%1").arg(win_no));
  setAccessibleName(QString("Graph window %1").arg(win_no + 1));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setMinimumSize(160, 72);
  timCursor_.setObjectName("timCursor");
  timCursor_.setInterval(kScrollEveryMs);
  connect(&timCursor_, &QTimer::timeout, this, [this] { ScrollWhileOutside(); });
}

void GraphCanvas::Invalidate() {
  stale_ = true;
  update();
}

// An expansion shows the graphs of the first window, and so does the first window of a pile.
bool GraphCanvas::HasOwnGraph() const {
  const ViewState& view = session_.program.view;
  const bool all = view.PileUpOn != kFalse || view.ExpandOn != kFalse;
  return std::any_of(session_.program.workspace.Slots.begin(),
                     session_.program.workspace.Slots.end(), [=, this](const GraphSlot& slot) {
                       return slot.State != kRowEmpty && (all || slot.WinNo == win_no_);
                     });
}

QString GraphCanvas::Hint() const {
  if (HasOwnGraph()) return {};
  if (win_no_ == 0) return "Open a spectrum: Ctrl+O, or drop files here";
  return "Check a curve in the list at the right to show it here";
}

void GraphCanvas::RenderPicture(const QSize& device_size) {
  picture_ = QImage(device_size, QImage::Format_RGB32);
  picture_.setDevicePixelRatio(devicePixelRatioF());
  picture_.fill(ToQColor(session_.program.workspace.ColorTbl[kColorWindowBack + win_no_]));
  QPainter painter(&picture_);
  PainterSurface surface(painter, rect());
  DrawSpect& spect = session_.program.spect;
  const ViewState& view = session_.program.view;
  const std::int32_t height = view.LogScale != kFalse ? kLogDecades : view.HeightY;
  spect.SetDivisions(win_no_, CountTicksOf(height).Divisions);
  spect.SetSurface(win_no_, &surface);
  spect.Redraw(win_no_);
  spect.SetSurface(win_no_, nullptr);
  stale_ = false;
}

// The regions of the graphs that this window shows, each in its colour.
void GraphCanvas::CollectRegions() {
  const Workspace& workspace = session_.program.workspace;
  regions_.clear();
  for (int i = 0; i < workspace.Regions.RoiCount; ++i) {
    const RoiRec& region = workspace.Regions.Rois[i];
    for (const GraphSlot& slot : workspace.Slots) {
      const bool here = session_.program.view.PileUpOn != kFalse || slot.WinNo == win_no_;
      if (slot.State == kRowEmpty || slot.DataNo != region.DataNo || !here) continue;
      regions_.push_back({true, region.Start, region.End, region.Color});
    }
  }
}

Overlay GraphCanvas::CurrentOverlay() const {
  const ViewState& view = session_.program.view;
  const Workspace& workspace = session_.program.workspace;
  Overlay overlay;
  overlay.CursorOn = HasOwnGraph();
  overlay.CursorChannel = view.CursorExact;
  overlay.CursorColor = workspace.ColorTbl[kColorCursor];
  overlay.Area = {view.AreaOn != kFalse && view.CurWin == win_no_, view.AreaStart, view.AreaEnd,
                  workspace.ColorTbl[kColorArea]};
  if (view.ExpandOn != kFalse && win_no_ == 0) {
    overlay.Range = {true, RoundToInt16(view.StartCh), RoundToInt16(view.StartCh + view.SpanCh - 1),
                     workspace.ColorTbl[kColorExpandArea]};
  }
  overlay.Regions = regions_;
  return overlay;
}

void GraphCanvas::paintEvent(QPaintEvent*) {
  const QSizeF exact = QSizeF(size()) * devicePixelRatioF();
  const QSize device_size(static_cast<int>(std::ceil(exact.width())),
                          static_cast<int>(std::ceil(exact.height())));
  if (stale_ || picture_.size() != device_size ||
      picture_.devicePixelRatio() != devicePixelRatioF()) {
    RenderPicture(device_size);
  }
  QPainter painter(this);
  painter.drawImage(QPointF(0, 0), picture_);
  if (const QString hint = Hint(); !hint.isEmpty()) {
    QFont large = font();
    if (win_no_ == 0) large.setPointSizeF(large.pointSizeF() * 1.4);
    painter.setFont(large);
    QColor ink = ToQColor(session_.program.workspace.ColorTbl[kColorAxis]);
    painter.setPen(ink);
    painter.drawText(rect().adjusted(8, 0, -8, 0), Qt::AlignCenter | Qt::TextWordWrap, hint);
    return;
  }
  CollectRegions();
  PainterSurface surface(painter, rect());
  session_.program.spect.DrawOverlay(win_no_, surface, CurrentOverlay());
}

double GraphCanvas::ChannelAt(double x) const {
  const ViewScale& scale = session_.program.spect.Scale(win_no_);
  return scale.StartX + x / std::max(width(), 1) * (scale.EndX - scale.StartX);
}

double GraphCanvas::Reach() const {
  return ChannelAt(kEdgeReach) - ChannelAt(0);
}

void GraphCanvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  setFocus(Qt::MouseFocusReason);
  drag_x_ = event->position().x();
  session_.Do([this](Program& program) {
    drag_ = BeginDrag(program, win_no_, ChannelAt(drag_x_), Reach());
  });
}

void GraphCanvas::mouseMoveEvent(QMouseEvent* event) {
  const double x = event->position().x();
  if (!drag_) {
    ShowPointer(x);
    return;
  }
  DragTo(x);
  const bool outside = drag_->target == MouseTarget::AreaEdge && (x < 0 || x >= width());
  if (!outside) timCursor_.stop();
  if (outside && !timCursor_.isActive()) timCursor_.start();
}

void GraphCanvas::ShowPointer(double x) {
  switch (TargetAt(session_.program, win_no_, ChannelAt(x), Reach())) {
    case MouseTarget::AreaEdge:
      setCursor(Qt::SplitHCursor);
      break;
    case MouseTarget::RangeMark:
      setCursor(Qt::PointingHandCursor);
      break;
    case MouseTarget::Cursor:
      setCursor(Qt::CrossCursor);
      break;
  }
}

void GraphCanvas::DragTo(double x) {
  drag_x_ = x;
  session_.Do([this](Program& program) {
    const double inside = std::clamp(drag_x_, 0.0, static_cast<double>(width()));
    dorvane::DragTo(program, *drag_, ChannelAt(inside));
  });
}

void GraphCanvas::ScrollWhileOutside() {
  if (!drag_) return;
  session_.Do([this](Program& program) { ScrollDrag(program, drag_x_ < 0 ? -1 : 1); });
  DragTo(drag_x_);
}

void GraphCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  drag_.reset();
  timCursor_.stop();
}

void GraphCanvas::wheelEvent(QWheelEvent* event) {
  const double notches = (event->angleDelta().y() + event->angleDelta().x()) / kNotch;
  const double at = event->position().x() / std::max(width(), 1);
  const bool scroll = event->modifiers().testFlag(Qt::ShiftModifier);
  session_.Do([=](Program& program) {
    const ViewState& view = program.view;
    if (scroll) {
      SetStartCh(program, view.StartCh - notches * kScrollShare * view.SpanCh);
    } else {
      ZoomAbout(program, view.StartCh + at * (view.SpanCh - 1), std::pow(kWheelZoom, notches));
    }
  });
  event->accept();
}

}  // namespace dorvane
