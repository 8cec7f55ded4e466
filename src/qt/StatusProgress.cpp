#include "qt/StatusProgress.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace dorvane {
namespace {

// What a user can do to a window; held back while an operation runs.
bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
    case QEvent::InputMethod:
    case QEvent::Close:
      return true;
    default:
      return false;
  }
}

}  // namespace

void StatusProgress::Begin() {
  if (++depth_ > 1) return;
  cancelled_ = false;
  shown_ = false;
  since_start_.start();
  since_served_.start();
  emit Begun();
}

void StatusProgress::End() {
  if (--depth_ > 0) return;
  if (bar_) bar_->hide();
  shown_ = false;
  emit Ended(cancelled_);
}

void StatusProgress::Report(int done, int total) {
  if (!since_served_.isValid() || since_served_.elapsed() < kServeEveryMs) return;
  if (!shown_ && since_start_.elapsed() >= kShowAfterMs) {
    shown_ = true;
    if (bar_) bar_->show();
    emit Long();
  }
  if (shown_ && bar_) {
    bar_->setRange(0, total);
    bar_->setValue(done);
  }
  QCoreApplication::instance()->installEventFilter(this);
  QCoreApplication::processEvents();
  QCoreApplication::instance()->removeEventFilter(this);
  since_served_.restart();
}

bool StatusProgress::eventFilter(QObject* watched, QEvent* event) {
  if (!IsInput(event->type())) return QObject::eventFilter(watched, event);
  const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
  if (key && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) cancelled_ = true;
  if (event->type() == QEvent::Close) event->ignore();
  return true;
}

}  // namespace dorvane
