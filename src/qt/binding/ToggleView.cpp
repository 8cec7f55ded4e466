#include "qt/binding/ToggleView.h"

#include <QPainter>
#include <QStyleOptionToolButton>

namespace dorvane {
namespace {

constexpr qreal kRadius = 3;
constexpr int kPadding = 6;
constexpr int kCornerPadding = 3;
constexpr qreal kCornerScale = 0.7;
constexpr qreal kQuiet = 0.65;  // opacity of the corner's text

}  // namespace

ToggleView::ToggleView(QWidget* parent) : QToolButton(parent) {
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
}

void ToggleView::SetCorner(const QString& text) {
  corner_ = text;
  updateGeometry();
  update();
}

QFont ToggleView::CornerFont() const {
  QFont small = font();
  small.setPointSizeF(font().pointSizeF() * kCornerScale);
  return small;
}

QSize ToggleView::sizeHint() const {
  const QSize text = fontMetrics().size(Qt::TextShowMnemonic, this->text());
  const int corner = corner_.isEmpty() ? 0 : QFontMetrics(CornerFont()).height();
  return {text.width() + 2 * kPadding, text.height() + corner + kPadding};
}

void ToggleView::paintEvent(QPaintEvent*) {
  QStyleOptionToolButton option;
  initStyleOption(&option);
  const QPalette& colors = option.palette;
  const bool down = isChecked() || isDown();
  QPalette::ColorRole ground = QPalette::Base;
  if (underMouse() && isEnabled()) ground = QPalette::AlternateBase;
  if (down) ground = QPalette::Highlight;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(colors.brush(ground));
  painter.setPen(
      QPen(colors.color(hasFocus() ? QPalette::Text : QPalette::Mid), hasFocus() ? 2 : 1));
  const qreal inset = hasFocus() ? 1 : 0.5;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
  painter.setPen(colors.color(down ? QPalette::HighlightedText : QPalette::Text));
  const int corner = corner_.isEmpty() ? 0 : QFontMetrics(CornerFont()).height();
  painter.drawText(rect().adjusted(0, corner * 2 / 3, 0, 0), Qt::AlignCenter | Qt::TextShowMnemonic,
                   text());
  if (corner_.isEmpty()) return;
  painter.setFont(CornerFont());
  painter.setOpacity(kQuiet);
  painter.drawText(rect().adjusted(kCornerPadding, 1, -kCornerPadding, 0),
                   Qt::AlignLeft | Qt::AlignTop, corner_);
}

}  // namespace dorvane
