#include "qt/binding/PictureView.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>

#include "qt/binding/Mirror.h"

namespace dorvane {
namespace {

// The pointer of a number: 2 cross, 5, 7 and 9 arrows of sizing, 11 and 13 hourglass; else the
// plain arrow.
Qt::CursorShape ShapeOf(int pointer) {
  switch (pointer) {
    case 2:
      return Qt::CrossCursor;
    case 5:
      return Qt::SizeAllCursor;
    case 7:
      return Qt::SizeVerCursor;
    case 9:
      return Qt::SizeHorCursor;
    case 11:
    case 13:
      return Qt::WaitCursor;
    default:
      return Qt::ArrowCursor;
  }
}

MouseButton ButtonOf(Qt::MouseButtons buttons) {
  if (buttons & Qt::LeftButton) return MouseButton::Left;
  return buttons & Qt::RightButton ? MouseButton::Right : MouseButton::None;
}

}  // namespace

PictureView::PictureView(PictureBox& control, QWidget* parent)
    : QWidget(parent), control_(control) {
  setMouseTracking(true);
  setFocusPolicy(Qt::ClickFocus);
  Mirror(control, this, [this] { setCursor(ShapeOf(control_.Pointer())); });
  const QPointer<PictureView> alive(this);
  control.RedrawWanted.Connect([alive] {
    if (!alive) return;
    alive->cache_ = {};
    alive->update();
  });
  control.OverlayWanted.Connect([alive] {
    if (alive) alive->update();
  });
}

void PictureView::SetPicture(Paint paint) {
  picture_ = std::move(paint);
  cache_ = {};
  update();
}

void PictureView::SetOpaque() {
  opaque_ = true;
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureView::SetOverlay(Paint paint) {
  overlay_ = std::move(paint);
  update();
}

void PictureView::paintEvent(QPaintEvent*) {
  const double ratio = devicePixelRatioF();
  const QSize pixels = (QSizeF(size()) * ratio).toSize();
  if (picture_ && (cache_.isNull() || cache_.size() != pixels)) {
    cache_ = QImage(pixels, opaque_ ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    cache_.setDevicePixelRatio(ratio);
    if (!opaque_) cache_.fill(Qt::transparent);
    QPainter painter(&cache_);
    painter.setFont(font());
    picture_(painter, QRectF(rect()));
  }
  QPainter painter(this);
  if (picture_) painter.drawImage(QPointF(0, 0), cache_);
  if (overlay_) overlay_(painter, QRectF(rect()));
}

void PictureView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) cache_ = {};
  QWidget::changeEvent(event);
}

MouseAt PictureView::At(const QSinglePointEvent& event, Qt::MouseButtons buttons) const {
  const QPointF place = event.position();
  return {place.x() / std::max(width(), 1), place.y() / std::max(height(), 1), ButtonOf(buttons),
          event.modifiers().testFlag(Qt::ShiftModifier)};
}

void PictureView::mousePressEvent(QMouseEvent* event) {
  control_.MouseDown.Fire(At(*event, event->button()));
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
  control_.MouseMove.Fire(At(*event, event->buttons()));
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
  control_.MouseUp.Fire(At(*event, event->button()));
}

void PictureView::mouseDoubleClickEvent(QMouseEvent* event) {
  control_.DblClick.Fire(At(*event, event->button()));
}

void PictureView::wheelEvent(QWheelEvent* event) {
  const int steps = steps_.Turn(event->angleDelta());
  if (steps == 0) return;
  MouseAt at = At(*event, event->buttons());
  at.shift = at.shift || steps_.Sideways();
  control_.Wheel.Fire(at, steps);
}

}  // namespace dorvane
