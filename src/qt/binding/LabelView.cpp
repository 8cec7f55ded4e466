#include "qt/binding/LabelView.h"

#include <QHelpEvent>
#include <QStyle>
#include <QStylePainter>
#include <QToolTip>

namespace dorvane {
namespace {

constexpr const char* kLeastText = "0.000000...";
constexpr QRgb kWarningOnLight = 0xFFB02024;
constexpr QRgb kWarningOnDark = 0xFFFF8A80;

QColor WarningColor(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightness() < 128;
  return QColor::fromRgb(dark ? kWarningOnDark : kWarningOnLight);
}

}  // namespace

void LabelView::SetElided() {
  elided_ = true;
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  updateGeometry();
}

void LabelView::SetWarning(bool warning) {
  warning_ = warning;
  update();
}

QSize LabelView::minimumSizeHint() const {
  if (!elided_) return QLabel::minimumSizeHint();
  const int least = text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(kLeastText);
  return {least, fontMetrics().height()};
}

QSize LabelView::sizeHint() const {
  if (!elided_) return QLabel::sizeHint();
  return {text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(text()) + 4,
          fontMetrics().height()};
}

bool LabelView::event(QEvent* event) {
  if (!elided_ || event->type() != QEvent::ToolTip) return QLabel::event(event);
  const bool cut = fontMetrics().horizontalAdvance(text()) > width();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), cut ? text() : toolTip(), this);
  return true;
}

void LabelView::paintEvent(QPaintEvent* event) {
  if (!elided_ && !warning_) {
    QLabel::paintEvent(event);
    return;
  }
  QStylePainter painter(this);
  const QString shown =
      elided_ ? fontMetrics().elidedText(text(), Qt::ElideRight, width()) : text();
  QPalette colors = palette();
  if (warning_) colors.setColor(foregroundRole(), WarningColor(colors));
  painter.drawItemText(rect(), Qt::AlignLeft | Qt::AlignVCenter, colors, isEnabled(), shown,
                       foregroundRole());
}

}  // namespace dorvane
