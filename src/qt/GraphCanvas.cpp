#include "qt/GraphCanvas.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "display/DrawScale.h"
#include "program/Cursor.h"
#include "program/View.h"
#include "qt/Text.h"
#include "qt/surface/PainterSurface.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr double kEdgeReach = 5;      // pixels from an edge of the area at which it is taken
constexpr double kWheelZoom = 0.8;    // of the span, for one notch
constexpr double kNotch = 120;        // units of a wheel's angle
constexpr int kScrollEveryMs = 50;    // while a drag holds the pointer outside
constexpr double kScrollStep = 10;    // channels
constexpr double kScrollShare = 0.1;  // of the span, for one notch

void MoveCursorTo(Program& program, int channel) {
  spnCursor_SpinUpDown(program, std::to_string(channel));
}

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

bool GraphCanvas::HasOwnGraph() const {
  return std::any_of(
      session_.program.workspace.Slots.begin(), session_.program.workspace.Slots.end(),
      [this](const GraphSlot& slot) { return slot.State != kRowEmpty && slot.WinNo == win_no_; });
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

Overlay GraphCanvas::CurrentOverlay() const {
  const ViewState& view = session_.program.view;
  const Workspace& workspace = session_.program.workspace;
  Overlay overlay;
  overlay.CursorOn = HasOwnGraph();
  overlay.CursorChannel = view.CursorExact;
  overlay.CursorColor = workspace.ColorTbl[kColorCursor];
  overlay.Area = {view.AreaOn != kFalse && view.CurWin == win_no_, view.AreaStart, view.AreaEnd,
                  workspace.ColorTbl[kColorArea]};
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
  PainterSurface surface(painter, rect());
  session_.program.spect.DrawOverlay(win_no_, surface, CurrentOverlay());
}

int GraphCanvas::ChannelAt(double x) const {
  return session_.program.spect.ChannelAtX(win_no_, x / std::max(width(), 1));
}

std::optional<int> GraphCanvas::OppositeOfEdgeNear(double x) const {
  const ViewState& view = session_.program.view;
  if (view.AreaOn == kFalse || view.AreaStart == kNoEnd || view.AreaEnd == kNoEnd) return {};
  const auto near = [&](int channel) {
    return std::abs(session_.program.spect.XOfChannel(win_no_, channel) * width() - x) <=
           kEdgeReach;
  };
  if (near(view.AreaEnd)) return view.AreaStart;
  if (near(view.AreaStart)) return view.AreaEnd;
  return {};
}

void GraphCanvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  setFocus(Qt::MouseFocusReason);
  const double x = event->position().x();
  const std::optional<int> opposite = OppositeOfEdgeNear(x);
  const int channel = ChannelAt(x);
  session_.Do([this, channel, opposite](Program& program) {
    if (program.view.CurWin != win_no_) ChangeActiveWin(program.List(), win_no_);
    if (!opposite) MoveCursorTo(program, channel);
  });
  anchor_ = opposite.value_or(channel);
  drag_x_ = x;
  drag_ = session_.program.view.AreaOn != kFalse ? Drag::Area : Drag::Cursor;
}

void GraphCanvas::mouseMoveEvent(QMouseEvent* event) {
  const double x = event->position().x();
  if (drag_ == Drag::None) {
    setCursor(OppositeOfEdgeNear(x) ? Qt::SplitHCursor : Qt::CrossCursor);
    return;
  }
  DragTo(x);
  const bool outside = drag_ == Drag::Area && (x < 0 || x >= width());
  if (!outside) timCursor_.stop();
  if (outside && !timCursor_.isActive()) timCursor_.start();
}

void GraphCanvas::DragTo(double x) {
  drag_x_ = x;
  const int channel = ChannelAt(x);
  session_.Do([this, channel](Program& program) {
    if (drag_ == Drag::Area) {
      SetArea(program, anchor_, channel);
    } else {
      MoveCursorTo(program, channel);
    }
  });
}

void GraphCanvas::ScrollWhileOutside() {
  const double step = drag_x_ < 0 ? -kScrollStep : kScrollStep;
  session_.Do([step](Program& program) { SetStartCh(program, program.view.StartCh + step); });
  DragTo(drag_x_);
}

void GraphCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  drag_ = Drag::None;
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
